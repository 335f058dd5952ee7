#ifndef KORVOQRPARSER_DECODING_TEXT_UTF8_H
#define KORVOQRPARSER_DECODING_TEXT_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvo {

/// The part of nextCodePoint for a byte outside ASCII.
constexpr std::int32_t nextCodePointBeyondASCII(std::string_view text, std::size_t& offset) noexcept {
    const auto lead = static_cast<unsigned char>(text[offset++]);
    if (lead < 0xC2 || lead > 0xF4) {
        return -1;
    }
    // The narrower ranges of the second byte exclude overlong forms, surrogates, and what follows U+10FFFF.
    unsigned lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    std::int32_t codePoint = lead & (0x3F >> following);
    for (int i = 0; i < following; ++i) {
        const unsigned byte = offset < text.size() ? static_cast<unsigned char>(text[offset]) : 0U;
        if (byte < lowest || byte > highest) {
            return -1;
        }
        codePoint = codePoint << 6 | static_cast<std::int32_t>(byte & 0x3F);
        ++offset;
        lowest = 0x80;
        highest = 0xBF;
    }
    return codePoint;
}

/// Reads the code point at a byte offset and moves the offset past it. Negative when the bytes there are not
/// well-formed UTF-8; the offset moves past those that no well-formed code point begins with. The offset must
/// be less than the text's size; this is not checked.
constexpr std::int32_t nextCodePoint(std::string_view text, std::size_t& offset) noexcept {
    const auto byte = static_cast<unsigned char>(text[offset]);
    if (byte < 0x80) {
        ++offset;
        return byte;
    }
    return nextCodePointBeyondASCII(text, offset);
}

/// Whether all bytes of a text are well-formed UTF-8.
constexpr bool isUTF8(std::string_view text) noexcept {
    for (std::size_t offset = 0; offset < text.size();) {
        if (nextCodePoint(text, offset) < 0) {
            return false;
        }
    }
    return true;
}

}  // namespace korvo

#endif
