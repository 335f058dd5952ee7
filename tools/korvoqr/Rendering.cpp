#include "Rendering.h"

#include "LibraryInternals.h"
#include "RefusalCodes.h"
#include "RowHead.h"
#include "Trimming.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace korvoqr {

namespace {

using korvo::JSONWriter;
using Layout = JSONWriter::Layout;

struct Reason {
    std::string code;
    std::string tag;  // empty for a missing element
    std::string text;
    std::optional<std::size_t> offset;
};

void appendViolations(std::vector<Reason>& reasons, const std::vector<korvo::QRCodeViolation>& violations,
                      const korvo::QRCodeElement* element) {
    for (const korvo::QRCodeViolation& violation : violations) {
        Reason reason{violation.code(), "", violation.fact(), std::nullopt};
        if (reason.text.empty()) {
            reason.text = violation.meaning();
        }
        if (element != nullptr) {
            reason.tag = element->name();
            reason.offset = element->offset();
        }
        reasons.push_back(std::move(reason));
    }
}

std::vector<Reason> reasonsOf(const ParsedPayload& parsed, const RunOptions& options) {
    std::vector<Reason> reasons;
    if (parsed.request.isTooLong) {
        reasons.push_back({codesOf(parsed.response).front(), "", reasonForLength(options), {}});
        return reasons;
    }
    const auto explanation = korvo::QRCodeExplainer::describeQRData(parsed.payload());
    if (const korvo::QRCodeFault* const fault = explanation.fault()) {
        reasons.push_back({explanation.errorCodes().front(), fault->tag(), fault->reason(), fault->offset()});
    }
    for (const korvo::QRCodeElement& element : explanation.elements()) {
        appendViolations(reasons, element.violations(), &element);
        for (const korvo::QRCodeElement& inner : element.elements()) {
            appendViolations(reasons, inner.violations(), &inner);
        }
    }
    appendViolations(reasons, explanation.missing(), nullptr);
    return reasons;
}

void appendTextOrNull(JSONWriter& json, std::string_view name, const std::string& text) {
    json.name(name);
    if (text.empty()) {
        json.null();
    } else {
        json.string(text);
    }
}

void appendReasons(JSONWriter& json, const std::vector<Reason>& reasons) {
    json.name("reasons").beginArray();
    for (const Reason& reason : reasons) {
        json.beginObject().name("code").string(reason.code);
        appendTextOrNull(json, "tag", reason.tag);
        json.name("offset");
        if (reason.offset) {
            json.number(*reason.offset);
        } else {
            json.null();
        }
        json.name("reason").string(reason.text).endObject();
    }
    json.endArray();
}

std::string_view nameOf(std::string_view code) {
    const auto* const entry = korvo::findErrorCatalogueEntry(code);
    return entry != nullptr ? entry->name : "unknown";
}

// The members before the answer itself.
void appendMembers(JSONWriter& json, const ParsedPayload& parsed, const RunOptions& options) {
    appendHead(json, parsed.request, HeadParts::of(options));
    if (parsed.isTrimmed) {
        json.name("trimmed").boolean(true);
    }
}

std::string errorJSON(const ParsedPayload& parsed, const RunOptions& options, Layout layout) {
    const auto& codes = codesOf(parsed.response);
    JSONWriter json(layout);
    json.beginObject();
    appendMembers(json, parsed, options);
    json.name("qrCodeError").beginObject();
    json.name("errorCodes").beginArray();
    for (const std::string& code : codes) {
        json.string(code);
    }
    json.endArray().name("errorNames").beginArray();
    for (const std::string& code : codes) {
        json.string(nameOf(code));
    }
    json.endArray();
    if (options.reasons || parsed.request.isTooLong) {
        appendReasons(json, reasonsOf(parsed, options));
    }
    return json.endObject().endObject().takeText();
}

// The record's own JSON, which is empty if a value is not ASCII.
std::string dataJSON(const ParsedPayload& parsed, const RunOptions& options) {
    std::string record = parsed.response.qrCodeData()->jsonOutput();
    JSONWriter json(Layout::indented);
    json.beginObject();
    const std::size_t empty = json.text().size();
    appendMembers(json, parsed, options);
    if (json.text().size() > empty && !record.empty()) {
        record.replace(0, 1, json.text() + ',');
    }
    return record;
}

// NUL is the one character that PostgreSQL cannot hold.
std::string withoutNUL(std::string_view text) {
    std::string result;
    for (const char byte : text) {
        result += byte == '\0' ? std::string("\\x00") : std::string(1, byte);
    }
    return result;
}

// The record's members. `isCompact`: without absent texts and false flags. Tells whether a NUL is shown as
// \\x00, if the record is for a database.
bool appendMembersOf(JSONWriter& json, const korvo::QRCodeData& data, bool isCompact, bool forDatabase) {
    bool isEscaped = false;
    for (const korvo::QRCodeDataPropertyRow& row : korvo::qrCodeDataProperties) {
        const auto text = data.text(row.index);
        const bool isAbsent = row.isFlag ? !data.flag(row.index) : !text;
        if (isCompact && isAbsent) {
            continue;
        }
        json.name(row.name);
        if (row.isFlag) {
            json.boolean(!isAbsent);
        } else if (isAbsent) {
            json.null();
        } else if (forDatabase && text->find('\0') != std::string_view::npos) {
            json.validString(withoutNUL(*text));
            isEscaped = true;
        } else {
            json.validString(*text);
        }
    }
    return isEscaped;
}

void appendDataLine(std::string& text, const ParsedPayload& parsed, const RunOptions& options) {
    JSONWriter json(Layout::oneLine);
    json.beginObject();
    appendMembers(json, parsed, options);
    json.name("qrCodeData");
    if (options.compact) {
        appendMembersOf(json.beginObject(), *parsed.response.qrCodeData(), true, false);
        text += json.endObject().text();
    } else {
        text += json.text();
        korvo::appendUTF8JSON(text, *parsed.response.qrCodeData());
    }
    text += '}';
}

std::string errorText(const ParsedPayload& parsed, const RunOptions& options) {
    std::string text;
    for (const std::string& code : codesOf(parsed.response)) {
        const auto* const entry = korvo::findErrorCatalogueEntry(code);
        text += code + ' ' + std::string(nameOf(code));
        if (parsed.request.isTooLong) {
            text += ": The line is " + reasonForLength(options) + '.';
        } else if (entry != nullptr) {
            text += ": " + std::string(entry->meaning);
        }
        text += '\n';
    }
    return text;
}

}  // namespace

std::string_view ParsedPayload::payload() const {
    return isTrimmed ? trimmed(request.payload) : request.payload;
}

void appendDatabaseJSON(std::string& text, const ParsedPayload& parsed, bool isCompact) {
    JSONWriter json(Layout::oneLine);
    json.beginObject();
    if (appendMembersOf(json, *parsed.response.qrCodeData(), isCompact, true)) {
        json.name("escaped").boolean(true);
    }
    if (parsed.isTrimmed) {
        json.name("trimmed").boolean(true);
    }
    text += json.endObject().text();
}

std::string harmlessAnswer(const std::string& text, Format format) {
    switch (format) {
        case Format::text:
            return harmless(text);
        case Format::copy:
            return harmless(text, "\t\n");
        case Format::json:
        case Format::jsonl:
            return harmlessJSON(text);
    }
    return {};
}

bool appendAnswer(std::string& text, const ParsedPayload& parsed, const RunOptions& options) {
    const auto& data = parsed.response.qrCodeData();
    bool isPrintable = true;
    switch (options.format) {
        case Format::text:
            text += textHead(parsed.request, options);
            if (data) {
                korvo::appendDescription(text, *data);
            } else {
                text += errorText(parsed, options);
            }
            return true;
        case Format::json: {
            const std::string json =
                data ? dataJSON(parsed, options) : errorJSON(parsed, options, Layout::indented);
            isPrintable = !json.empty();
            text += json;
            break;
        }
        case Format::jsonl:
            if (data) {
                appendDataLine(text, parsed, options);
            } else {
                text += errorJSON(parsed, options, Layout::oneLine);
            }
            break;
        case Format::copy:
            appendCopyRow(text, parsed, options);
            break;
    }
    text += '\n';
    return isPrintable;
}

}  // namespace korvoqr
