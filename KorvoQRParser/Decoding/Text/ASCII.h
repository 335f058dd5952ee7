#ifndef KORVOQRPARSER_DECODING_TEXT_ASCII_H
#define KORVOQRPARSER_DECODING_TEXT_ASCII_H

namespace korvo {

/// An ASCII capital's small letter; any other byte unchanged. No locale is asked.
constexpr char asciiLowerCase(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// An ASCII small letter's capital; any other byte unchanged.
constexpr char asciiUpperCase(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

}  // namespace korvo

#endif
