#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Model/JSONString.h>
#include <KorvoQRParser/Model/PropertyFragments.h>
#include <KorvoQRParser/Model/QRCodeDataRendering.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace korvo {

namespace {

// clang-format off
#define KORVO_TEXT_MEMBER(name, Name) PropertyFragment{",\"" #name "\":", ",\"" #name "\":null"},
#define KORVO_FLAG_MEMBER(name, Name) PropertyFragment{",\"" #name "\":", ",\"" #name "\":false"},
constexpr PropertyFragments members{{KORVO_QRCODEDATA_PROPERTIES(KORVO_TEXT_MEMBER, KORVO_FLAG_MEMBER)}};
#undef KORVO_FLAG_MEMBER
#undef KORVO_TEXT_MEMBER
// clang-format on

constexpr auto order = [] {
    std::array<QRCodeDataProperty, qrCodeDataProperties.size()> properties{};
    std::transform(qrCodeDataProperties.begin(), qrCodeDataProperties.end(), properties.begin(),
                   [](const QRCodeDataPropertyRow& row) { return row.index; });
    return properties;
}();

// jsonOutput has a line for each member, and words instead of null and false. It is made from the same
// pieces.
struct IndentedPieces {
    static constexpr std::string_view begin = ",\n  ";
    static constexpr std::size_t copied =
        56;  // bytes of a piece after its comma; a multiple of eight is quick

    static char* write(char* place, const PropertyFragment& fragment) noexcept {
        std::memcpy(place, begin.data(), begin.size());
        std::memcpy(place + begin.size(), fragment.bytes.data() + 1, copied);
        char* const value = place + begin.size() + fragment.headSize;
        value[-1] = ' ';
        return value;
    }
    static char* end(char* place, const PropertyFragment& /*fragment*/, bool isFlag) noexcept {
        const std::string_view word = isFlag ? "\"false\"" : "\"nil\"";
        return std::copy(word.begin(), word.end(), place);
    }
};
static_assert(std::all_of(members.begin(), members.end(), [](const PropertyFragment& member) {
    return member.headSize <= IndentedPieces::copied;
}));

constexpr std::size_t usualSize = 2560;

struct JSONValue {
    static constexpr std::size_t bound(std::size_t size) noexcept { return jsonStringBound(size); }
    static char* write(char* place, std::string_view value) noexcept { return writeJSONString(place, value); }
    static void append(std::string& json, std::string_view value) { appendJSONString(json, value); }
};

// Appends the object without its end.
template <class Layout>
void appendMembers(std::string& json, const QRCodeData& data, std::string_view trueFlag) {
    const std::size_t begin = json.size();
    appendProperties<JSONValue, Layout>(json, data, members, order, trueFlag);
    json[begin] = '{';  // in place of the first comma
}

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Whether `holds` is true for every text that is present.
template <class Texts>
bool allTexts(const Texts& texts, bool (*holds)(std::string_view)) {
    return std::all_of(texts.begin(), texts.end(),
                       [holds](const auto& text) { return !text || holds(*text); });
}

// Whether all texts are valid UTF-8; one line on standard output says when they are not.
template <class Texts>
bool reportUnlessUTF8(const Texts& texts) {
    const bool isValid = allTexts(texts, isUTF8);
    if (!isValid) {
        std::puts("error: Account could not be serialized into json");
    }
    return isValid;
}

}  // namespace

std::string QRCodeData::jsonOutput() const {
    if (!allTexts(texts_, isASCII)) {
        reportUnlessUTF8(texts_);
        return {};
    }
    std::string json;
    json.reserve(usualSize);
    appendMembers<IndentedPieces>(json, *this, "\"true\"");
    return json += "\n}";
}

std::string QRCodeData::utf8JSON() const {
    std::string json;
    json.reserve(usualSize);
    appendUTF8JSON(json, *this);
    return json;
}

void appendUTF8JSON(std::string& text, const QRCodeData& data) {
    if (reportUnlessUTF8(QRCodeDataAccess::texts(data))) {
        appendMembers<PlainPieces>(text, data, "true");
        text += '}';
    }
}

}  // namespace korvo
