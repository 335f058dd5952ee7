#ifndef KORVOQRPARSER_DECODING_TEXT_ASCII_H
#define KORVOQRPARSER_DECODING_TEXT_ASCII_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace korvo {

namespace detail {

inline constexpr std::array<std::uint8_t, 256> digitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(36);
    for (std::uint8_t i = 0; i < 36; ++i) {
        values[static_cast<std::size_t>(i < 10 ? '0' + i : 'a' + i - 10)] = i;
        values[static_cast<std::size_t>(i < 10 ? '0' + i : 'A' + i - 10)] = i;
    }
    return values;
}();

}  // namespace detail

/// The value of an ASCII digit of radix 36, in either letter case; 36 for any other byte.
constexpr int digitValue(char c) noexcept {
    return detail::digitValues[static_cast<unsigned char>(c)];
}

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
