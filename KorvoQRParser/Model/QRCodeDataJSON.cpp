#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include <rapidjson/memorystream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

namespace korvo {

namespace {

using JSONWriter = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isUTF8(std::string_view text) {
    struct {
        void Put(char /*byte*/) {}
    } nowhere;
    rapidjson::MemoryStream stream(text.data(), text.size());
    while (stream.Tell() < text.size()) {
        if (!rapidjson::UTF8<>::Validate(stream, nowhere)) {
            return false;
        }
    }
    return true;
}

void writeString(JSONWriter& writer, std::string_view text) {
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void writeValue(JSONWriter& writer, const std::optional<std::string>& value) {
    writeString(writer, value ? std::string_view(*value) : "nil");
}

void writeValue(JSONWriter& writer, bool value) {
    writeString(writer, value ? "true" : "false");
}

struct TextMember {
    std::string_view name;
    const std::optional<std::string>& (QRCodeData::*getter)() const noexcept;
};

struct FlagMember {
    std::string_view name;
    bool (QRCodeData::*getter)() const noexcept;
};

#define KORVO_TEXT_MEMBER(name, Name) TextMember{#name, &QRCodeData::name},
#define KORVO_FLAG_MEMBER(name, Name) FlagMember{#name, &QRCodeData::name},
constexpr std::array valueMembers{KORVO_VALUE_PROPERTIES(KORVO_TEXT_MEMBER)};
constexpr std::array flagMembers{KORVO_ADDITIONAL_DATA_FLAG_PROPERTIES(KORVO_FLAG_MEMBER)
                                     KORVO_IDENTIFIER_FLAG_PROPERTIES(KORVO_FLAG_MEMBER)};
constexpr std::array lengthMembers{KORVO_LENGTH_PROPERTIES(KORVO_TEXT_MEMBER)};
#undef KORVO_FLAG_MEMBER
#undef KORVO_TEXT_MEMBER

template <class Members>
void writeMembers(JSONWriter& writer, const QRCodeData& data, const Members& members) {
    for (const auto& [name, getter] : members) {
        writeString(writer, name);
        writeValue(writer, (data.*getter)());
    }
}

}  // namespace

std::string QRCodeData::jsonOutput() const {
    rapidjson::StringBuffer buffer;
    JSONWriter writer(buffer);
    writer.SetIndent(' ', 2);
    writer.StartObject();
    writeMembers(writer, *this, valueMembers);
    writeMembers(writer, *this, flagMembers);
    writeMembers(writer, *this, lengthMembers);
    writer.EndObject();

    const std::string_view json(buffer.GetString(), buffer.GetSize());
    if (isASCII(json)) {
        return std::string(json);
    }
    // The writer copies bytes unchecked. Every other byte of the text is its own ASCII, so that the whole is
    // valid UTF-8 exactly when every value is.
    if (!isUTF8(json)) {
        std::puts("error: Account could not be serialized into json");
    }
    return {};
}

}  // namespace korvo
