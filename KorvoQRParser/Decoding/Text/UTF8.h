#ifndef KORVOQRPARSER_DECODING_TEXT_UTF8_H
#define KORVOQRPARSER_DECODING_TEXT_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvo {

namespace detail {

// Appends the six bits of the byte at the offset and moves past it, unless the byte is outside the range.
constexpr bool appendByte(std::string_view text, std::size_t& offset, std::int32_t& codePoint,
                          unsigned lowest = 0x80, unsigned highest = 0xBF) noexcept {
    const unsigned byte = offset < text.size() ? static_cast<unsigned char>(text[offset]) : 0U;
    if (byte < lowest || byte > highest) {
        return false;
    }
    codePoint = codePoint << 6 | static_cast<std::int32_t>(byte & 0x3F);
    ++offset;
    return true;
}

// nextCodePoint for a byte outside ASCII. The narrower ranges of the second byte exclude overlong forms,
// surrogates, and what follows U+10FFFF. Without a loop, because the lengths are hard to predict.
constexpr std::int32_t nextBeyondASCII(std::string_view text, std::size_t& offset) noexcept {
    const auto lead = static_cast<unsigned char>(text[offset++]);
    std::int32_t codePoint = lead & (lead < 0xE0 ? 0x1F : 0xF);
    if (lead < 0xE0) {
        return lead >= 0xC2 && appendByte(text, offset, codePoint) ? codePoint : -1;
    }
    if (lead < 0xF0) {
        const bool isValid =
            appendByte(text, offset, codePoint, lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF) &&
            appendByte(text, offset, codePoint);
        return isValid ? codePoint : -1;
    }
    const bool isValid =
        lead <= 0xF4 &&
        appendByte(text, offset, codePoint, lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF) &&
        appendByte(text, offset, codePoint) && appendByte(text, offset, codePoint);
    return isValid ? codePoint : -1;
}

}  // namespace detail

/// Reads the code point at a byte offset and moves the offset past it. Negative when the bytes there are not
/// well-formed UTF-8; the offset then moves past the first byte and those after it that could continue it.
/// The offset must be less than the text's size; this is not checked.
constexpr std::int32_t nextCodePoint(std::string_view text, std::size_t& offset) noexcept {
    const auto byte = static_cast<unsigned char>(text[offset]);
    if (byte < 0x80) {
        ++offset;
        return byte;
    }
    return detail::nextBeyondASCII(text, offset);
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
