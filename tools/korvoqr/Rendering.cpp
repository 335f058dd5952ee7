#include "Rendering.h"

#include "LibraryInternals.h"
#include "PictureRows.h"

#include <optional>
#include <string_view>

namespace korvoqr {

namespace {

using korvo::JSONWriter;
using Layout = JSONWriter::Layout;

std::string_view nameOf(std::string_view code) {
    const auto* const entry = korvo::findErrorCatalogueEntry(code);
    return entry != nullptr ? entry->name : "unknown";
}

std::string errorJSON(const korvo::QRCodeError& error, const Origin& origin, Layout layout) {
    JSONWriter json(layout);
    json.beginObject();
    appendOrigin(json, origin);
    json.name("qrCodeError").beginObject();
    json.name("errorCodes").beginArray();
    for (const std::string& code : error.errorCodes()) {
        json.string(code);
    }
    json.endArray().name("errorNames").beginArray();
    for (const std::string& code : error.errorCodes()) {
        json.string(nameOf(code));
    }
    json.endArray().endObject().endObject();
    return json.text() + '\n';
}

// The record's own JSON, which is empty if a value is not ASCII.
std::string dataJSON(const korvo::QRCodeData& data, const Origin& origin) {
    std::string record = data.jsonOutput();
    if (origin.isPicture() && !record.empty()) {
        JSONWriter json(Layout::indented);
        appendOrigin(json.beginObject(), origin);
        record.replace(0, 1, json.text() + ',');
    }
    return record + '\n';
}

std::string dataLine(const korvo::QRCodeData& data, const Origin& origin) {
    JSONWriter json(Layout::oneLine);
    appendOrigin(json.beginObject(), origin);
    return json.name("qrCodeData").takeText() + data.utf8JSON() + "}\n";
}

std::string errorText(const korvo::QRCodeError& error) {
    std::string text;
    for (const std::string& code : error.errorCodes()) {
        const auto* const entry = korvo::findErrorCatalogueEntry(code);
        text += code + ' ' + std::string(nameOf(code));
        text += entry != nullptr ? ": " + std::string(entry->meaning) + '\n' : "\n";
    }
    return text;
}

}  // namespace

std::string render(const korvo::QRCodeParserResponse& response, Format format, const Origin& origin) {
    const auto& data = response.qrCodeData();
    const auto& error = response.qrCodeError();
    std::string answer;
    switch (format) {
        case Format::text:
            answer = data ? data->description() : errorText(*error);
            break;
        case Format::json:
            answer = data ? dataJSON(*data, origin) : errorJSON(*error, origin, Layout::indented);
            break;
        case Format::jsonl:
            answer = data ? dataLine(*data, origin) : errorJSON(*error, origin, Layout::oneLine);
            break;
    }
    return answer;
}

}  // namespace korvoqr
