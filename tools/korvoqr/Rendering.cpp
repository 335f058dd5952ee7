#include "Rendering.h"

#include <KorvoQRParser/Model/JSONString.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <optional>
#include <string_view>

namespace korvoqr {

namespace {

std::string_view nameOf(std::string_view code) {
    const auto* const entry = korvo::findErrorCatalogueEntry(code);
    return entry != nullptr ? entry->name : "unknown";
}

std::string errorLine(const korvo::QRCodeError& error) {
    std::string codes;
    std::string names;
    for (const std::string& code : error.errorCodes()) {
        const char* const separator = codes.empty() ? "" : ",";
        korvo::appendJSONString(codes += separator, code);
        korvo::appendJSONString(names += separator, nameOf(code));
    }
    std::string json = R"({"qrCodeError":{"errorCodes":[)";
    json += codes;
    json += R"(],"errorNames":[)";
    json += names;
    return json += "]}}\n";
}

// The same object in the indented form that the record's JSON text has.
std::string errorObject(const korvo::QRCodeError& error) {
    std::string codes;
    std::string names;
    for (const std::string& code : error.errorCodes()) {
        const char* const separator = codes.empty() ? "\n      " : ",\n      ";
        korvo::appendJSONString(codes += separator, code);
        korvo::appendJSONString(names += separator, nameOf(code));
    }
    std::string json = "{\n  \"qrCodeError\": {\n    \"errorCodes\": [";
    json += codes;
    json += "\n    ],\n    \"errorNames\": [";
    json += names;
    return json += "\n    ]\n  }\n}\n";
}

void appendMember(std::string& json, std::string_view name, const std::optional<std::string>& value) {
    korvo::appendJSONString(json, name);
    if (value) {
        korvo::appendJSONString(json += ':', *value);
    } else {
        json += ":null";
    }
    json += ',';
}

void appendMember(std::string& json, std::string_view name, bool value) {
    korvo::appendJSONString(json, name);
    json += value ? ":true," : ":false,";
}

std::string dataLine(const korvo::QRCodeData& data) {
    std::string json = R"({"qrCodeData":{)";
#define KORVO_MEMBER(name, Name) appendMember(json, #name, data.name());
    KORVO_VALUE_PROPERTIES(KORVO_MEMBER)
    KORVO_ADDITIONAL_DATA_FLAG_PROPERTIES(KORVO_MEMBER)
    KORVO_IDENTIFIER_FLAG_PROPERTIES(KORVO_MEMBER)
    KORVO_LENGTH_PROPERTIES(KORVO_MEMBER)
#undef KORVO_MEMBER
    json.pop_back();  // the comma behind the last member
    return json += "}}\n";
}

std::string explainCodes(const korvo::QRCodeError& error) {
    std::string text;
    for (const std::string& code : error.errorCodes()) {
        const auto* const entry = korvo::findErrorCatalogueEntry(code);
        text += code + ' ' + std::string(nameOf(code));
        text += entry != nullptr ? ": " + std::string(entry->meaning) + '\n' : "\n";
    }
    return text;
}

}  // namespace

std::string render(const korvo::QRCodeParserResponse& response, Format format) {
    if (const auto& data = response.qrCodeData()) {
        return format == Format::jsonl  ? dataLine(*data)
               : format == Format::json ? data->jsonOutput() + '\n'
                                        : data->description();
    }
    const korvo::QRCodeError& error = *response.qrCodeError();
    return format == Format::jsonl  ? errorLine(error)
           : format == Format::json ? errorObject(error)
                                    : explainCodes(error);
}

}  // namespace korvoqr
