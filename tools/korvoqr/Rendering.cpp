#include "Rendering.h"

#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <optional>
#include <string_view>

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace korvoqr {

namespace {

using JSONLineWriter = rapidjson::Writer<rapidjson::StringBuffer>;
using IndentedJSONWriter = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

template <class Writer>
void writeString(Writer& writer, std::string_view text) {
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

std::string_view nameOf(std::string_view code) {
    const auto* const entry = korvo::findErrorCatalogueEntry(code);
    return entry != nullptr ? entry->name : "unknown";
}

template <class Writer>
void writeError(Writer& writer, const korvo::QRCodeError& error) {
    writer.StartObject();
    writer.Key("qrCodeError");
    writer.StartObject();
    writer.Key("errorCodes");
    writer.StartArray();
    for (const std::string& code : error.errorCodes()) {
        writeString(writer, code);
    }
    writer.EndArray();
    writer.Key("errorNames");
    writer.StartArray();
    for (const std::string& code : error.errorCodes()) {
        writeString(writer, nameOf(code));
    }
    writer.EndArray();
    writer.EndObject();
    writer.EndObject();
}

void writeMember(JSONLineWriter& writer, std::string_view name, const std::optional<std::string>& value) {
    writeString(writer, name);
    if (value) {
        writeString(writer, *value);
    } else {
        writer.Null();
    }
}

void writeMember(JSONLineWriter& writer, std::string_view name, bool value) {
    writeString(writer, name);
    writer.Bool(value);
}

void writeData(JSONLineWriter& writer, const korvo::QRCodeData& data) {
    writer.StartObject();
    writer.Key("qrCodeData");
    writer.StartObject();
#define KORVO_MEMBER(name, Name) writeMember(writer, #name, data.name());
    KORVO_VALUE_PROPERTIES(KORVO_MEMBER)
    KORVO_ADDITIONAL_DATA_FLAG_PROPERTIES(KORVO_MEMBER)
    KORVO_IDENTIFIER_FLAG_PROPERTIES(KORVO_MEMBER)
    KORVO_LENGTH_PROPERTIES(KORVO_MEMBER)
#undef KORVO_MEMBER
    writer.EndObject();
    writer.EndObject();
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

std::string line(const rapidjson::StringBuffer& buffer) {
    return std::string(buffer.GetString(), buffer.GetSize()) + '\n';
}

}  // namespace

std::string render(const korvo::QRCodeParserResponse& response, Format format) {
    rapidjson::StringBuffer buffer;
    if (format == Format::jsonl) {
        JSONLineWriter writer(buffer);
        response.qrCodeData() ? writeData(writer, *response.qrCodeData())
                              : writeError(writer, *response.qrCodeError());
        return line(buffer);
    }
    if (response.qrCodeData()) {
        return format == Format::json ? response.qrCodeData()->jsonOutput() + '\n'
                                      : response.qrCodeData()->description();
    }
    if (format == Format::json) {
        IndentedJSONWriter writer(buffer);
        writer.SetIndent(' ', 2);
        writeError(writer, *response.qrCodeError());
        return line(buffer);
    }
    return explainCodes(*response.qrCodeError());
}

}  // namespace korvoqr
