#ifndef KORVOQRPARSER_DECODING_TEXT_ASCII_H
#define KORVOQRPARSER_DECODING_TEXT_ASCII_H

namespace korvo {

/// The lower case of an ASCII letter; any other byte unchanged. Independent of the locale.
constexpr char asciiLowerCase(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// The upper case of an ASCII letter; any other byte unchanged. Independent of the locale.
constexpr char asciiUpperCase(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

}  // namespace korvo

#endif
