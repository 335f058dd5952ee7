#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Model/JSONString.h>
#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace korvo {

namespace {

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

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Whether every text of the record, the absent ones aside, is as `holds` says.
bool allTexts(const QRCodeData& data, bool (*holds)(std::string_view)) {
    const auto isFine = [&](const TextMember& member) {
        const std::optional<std::string>& text = (data.*member.getter)();
        return !text || holds(*text);
    };
    return std::all_of(valueMembers.begin(), valueMembers.end(), isFine) &&
           std::all_of(lengthMembers.begin(), lengthMembers.end(), isFine);
}

std::string_view rendered(const std::optional<std::string>& value) {
    return value ? std::string_view(*value) : "nil";
}

std::string_view rendered(bool value) {
    return value ? "true" : "false";
}

template <class Members>
void appendMembers(std::string& json, const QRCodeData& data, const Members& members) {
    for (const auto& [name, getter] : members) {
        json += json.size() > 1 ? ",\n  \"" : "\n  \"";
        json += name;  // no name needs an escape
        json += "\": ";
        appendJSONString(json, rendered((data.*getter)()));
    }
}

}  // namespace

std::string QRCodeData::jsonOutput() const {
    constexpr std::size_t usualSize = 2560;
    if (!allTexts(*this, isASCII)) {
        if (!allTexts(*this, isUTF8)) {
            std::puts("error: Account could not be serialized into json");
        }
        return {};
    }
    std::string json = "{";
    json.reserve(usualSize);
    appendMembers(json, *this, valueMembers);
    appendMembers(json, *this, flagMembers);
    appendMembers(json, *this, lengthMembers);
    return json += "\n}";
}

}  // namespace korvo
