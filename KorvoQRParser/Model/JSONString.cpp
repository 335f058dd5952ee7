#include <KorvoQRParser/Model/JSONString.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace korvo {

namespace {

// What a byte becomes: itself (0), a backslash and this letter, or for "u" its number in hexadecimal.
constexpr auto escapes = [] {
    std::array<char, 256> letters{};
    std::fill(letters.begin(), letters.begin() + 0x20, 'u');
    letters['\b'] = 'b';
    letters['\f'] = 'f';
    letters['\n'] = 'n';
    letters['\r'] = 'r';
    letters['\t'] = 't';
    letters['"'] = '"';
    letters['\\'] = '\\';
    return letters;
}();

char* writeEscape(char* place, std::uint8_t byte, char letter) noexcept {
    constexpr std::string_view digits = "0123456789ABCDEF";
    *place++ = '\\';
    *place++ = letter;
    if (letter == 'u') {
        *place++ = '0';
        *place++ = '0';
        *place++ = digits[byte >> 4U];
        *place++ = digits[byte & 0xFU];
    }
    return place;
}

char* writeEscaped(char* place, std::string_view text) noexcept {
    for (const char c : text) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (const char letter = escapes[byte]) {
            place = writeEscape(place, byte, letter);
        } else {
            *place++ = c;
        }
    }
    return place;
}

}  // namespace

char* writeJSONString(char* place, std::string_view text) noexcept {
    *place++ = '"';
    place = writeEscaped(place, text);
    *place++ = '"';
    return place;
}

void appendJSONString(std::string& json, std::string_view text) {
    constexpr std::size_t step = 256;
    std::array<char, jsonStringBound(step)> escaped;  // NOLINT(cppcoreguidelines-pro-type-member-init)
    json += '"';
    for (std::size_t i = 0; i < text.size(); i += step) {
        json.append(escaped.data(), writeEscaped(escaped.data(), text.substr(i, step)));
    }
    json += '"';
}

}  // namespace korvo
