#include "Rendering.h"

#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Model/JSONString.h>
#include <KorvoQRParser/Model/QRCodeDataAccess.h>

#include <optional>
#include <string_view>

namespace korvoqr {

namespace {

std::string_view nameOf(std::string_view code) {
    const auto* const entry = korvo::findErrorCatalogueEntry(code);
    return entry != nullptr ? entry->name : "unknown";
}

// On one line, or in the indented form that the record's JSON text has.
std::string errorJSON(const korvo::QRCodeError& error, bool isIndented) {
    std::string codes;
    std::string names;
    for (const std::string& code : error.errorCodes()) {
        const std::string separator = std::string(codes.empty() ? "" : ",") + (isIndented ? "\n      " : "");
        korvo::appendJSONString(codes += separator, code);
        korvo::appendJSONString(names += separator, nameOf(code));
    }
    if (isIndented) {
        return "{\n  \"qrCodeError\": {\n    \"errorCodes\": [" + codes + "\n    ],\n    \"errorNames\": [" +
               names + "\n    ]\n  }\n}\n";
    }
    return R"({"qrCodeError":{"errorCodes":[)" + codes + R"(],"errorNames":[)" + names + "]}}\n";
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
    for (const korvo::QRCodeDataPropertyRow& row : korvo::qrCodeDataProperties) {
        if (row.isFlag) {
            appendMember(json, row.name, korvo::QRCodeDataAccess::flag(data, row.index));
        } else {
            appendMember(json, row.name, korvo::QRCodeDataAccess::text(data, row.index));
        }
    }
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

std::string renderAnswer(const korvo::QRCodeParserResponse& response, Format format) {
    if (const auto& data = response.qrCodeData()) {
        return format == Format::jsonl  ? dataLine(*data)
               : format == Format::json ? data->jsonOutput() + '\n'
                                        : data->description();
    }
    const korvo::QRCodeError& error = *response.qrCodeError();
    return format == Format::text ? explainCodes(error) : errorJSON(error, format == Format::json);
}

}  // namespace

std::string render(const korvo::QRCodeParserResponse& response, Format format, const Origin& origin) {
    std::string answer = renderAnswer(response, format);
    if (format != Format::text && origin.isPicture() && answer.front() == '{') {
        const bool isIndented = format == Format::json;
        std::string members = isIndented ? "\n  \"file\": " : "\"file\":";
        korvo::appendJSONString(members, korvo::isUTF8(origin.file) ? origin.file : visible(origin.file));
        members += (isIndented ? ",\n  \"code\": " : ",\"code\":") + std::to_string(origin.code) + ',';
        answer.insert(1, members);
    }
    return answer;
}

}  // namespace korvoqr
