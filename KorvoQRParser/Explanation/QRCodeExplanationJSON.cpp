#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Explanation/ExplanationFacts.h>
#include <KorvoQRParser/Model/JSONWriter.h>

namespace korvo {

namespace {

void append(JSONWriter& json, const QRCodeViolation& violation) {
    json.beginObject();
    json.name("code").string(violation.code());
    json.name("name").string(violation.name());
    json.name("meaning").string(violation.meaning());
    json.name("fact").string(violation.fact());
    json.endObject();
}

void append(JSONWriter& json, const std::string& text) {
    json.string(text);
}

void append(JSONWriter& json, const QRCodeEdit& edit) {
    json.beginObject();
    json.name("offset").number(edit.offset());
    json.name("from").string(edit.from());
    json.name("to").string(edit.to());
    json.endObject();
}

void append(JSONWriter& json, const QRCodeRepair& repair);
void append(JSONWriter& json, const QRCodeElement& element);

template <class Part>
void appendAll(JSONWriter& json, std::string_view name, const std::vector<Part>& parts) {
    json.name(name).beginArray();
    for (const Part& part : parts) {
        append(json, part);
    }
    json.endArray();
}

void append(JSONWriter& json, const QRCodeRepair& repair) {
    json.beginObject();
    json.name("payload").string(repair.payload());
    appendAll(json, "edits", repair.edits());
    json.name("caution");
    if (repair.caution().empty()) {
        json.null();
    } else {
        json.string(repair.caution());
    }
    json.endObject();
}

void append(JSONWriter& json, const QRCodeElement& element) {
    json.beginObject();
    json.name("offset").number(element.offset());
    json.name("tag").string(element.tag());
    json.name("length").string(element.length());
    json.name("value").string(element.value());
    json.name("meaning").string(element.meaning());
    appendAll(json, "errors", element.violations());
    if (!element.elements().empty()) {
        appendAll(json, "elements", element.elements());
    }
    json.endObject();
}

void appendFormat(JSONWriter& json, std::optional<QRCodeFormat> format) {
    json.name("format");
    if (format) {
        json.string(*format == QRCodeFormat::twoDigit ? "two-digit" : "one-character");
    } else {
        json.null();
    }
}

void appendFault(JSONWriter& json, const QRCodeFault& fault) {
    json.name("fault").beginObject();
    json.name("error").string(fault.error());
    json.name("kind").string(fault.kindText());
    json.name("offset").number(fault.offset());
    if (const auto byteOffset = fault.byteOffset()) {
        json.name("byteOffset").number(*byteOffset);
    }
    json.name("tag").string(fault.tag());
    json.name("reason").string(fault.reason());
    json.name("before").string(fault.before());
    json.name("after").string(fault.after());
    json.endObject();
}

void appendChecksum(JSONWriter& json, const QRCodeChecksum& checksum) {
    json.name("checksum").beginObject();
    json.name("found").string(checksum.found());
    json.name("computed").string(checksum.computed());
    json.name("matches").boolean(checksum.isMatching());
    json.endObject();
}

}  // namespace

std::string QRCodeExplanation::utf8JSON() const {
    JSONWriter json(JSONWriter::Layout::oneLine);
    json.beginObject();
    json.name("payload").string(facts_->payload);
    if (!isUTF8(facts_->payload)) {
        json.name("visible").string(visible());
    }
    appendFormat(json, facts_->format);
    json.name("accepted").boolean(isAccepted());
    appendAll(json, "errorCodes", facts_->errorCodes);
    appendAll(json, "elements", facts_->elements);
    appendAll(json, "absent", facts_->missing);
    if (facts_->fault) {
        appendFault(json, *facts_->fault);
    }
    if (facts_->checksum) {
        appendChecksum(json, *facts_->checksum);
    }
    appendAll(json, "causes", facts_->causes);
    appendAll(json, "repairs", facts_->repairs);
    appendAll(json, "unverified", facts_->unverified);
    json.endObject();
    return json.takeText();
}

}  // namespace korvo
