#ifndef KORVOQRPARSER_DECODING_TAGRAWVALUES_H
#define KORVOQRPARSER_DECODING_TAGRAWVALUES_H

#include <array>
#include <cstddef>
#include <string_view>

namespace korvo {

/// The number that exactly two ASCII decimal digits write; negative for any other text.
constexpr int twoDigitNumber(std::string_view text) noexcept {
    if (text.size() != 2) {
        return -1;
    }
    const unsigned tens = static_cast<unsigned char>(text[0]) - unsigned{'0'};
    const unsigned ones = static_cast<unsigned char>(text[1]) - unsigned{'0'};
    return tens <= 9 && ones <= 9 ? static_cast<int>(10 * tens + ones) : -1;
}

namespace detail {

constexpr std::array<char, 200> twoDigitTexts = [] {
    std::array<char, 200> texts{};
    for (std::size_t i = 0; i < 100; ++i) {
        texts[2 * i] = static_cast<char>('0' + i / 10);
        texts[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return texts;
}();

}  // namespace detail

/// A number below 100 as two decimal digits; the text lives as long as the program.
constexpr std::string_view twoDigitText(unsigned number) {
    return {detail::twoDigitTexts.data() + std::size_t{2} * number, 2};
}

}  // namespace korvo

#endif
