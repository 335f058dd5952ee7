#ifndef KORVOQRPARSER_DECODING_TAGROW_H
#define KORVOQRPARSER_DECODING_TAGROW_H

#include <array>
#include <cstddef>
#include <string_view>

namespace korvo {

/// A tag in one of the three tag lists, with its meaning for people.
struct TagRow {
    std::string_view rawValue;  ///< as written in a payload, letters in upper case
    std::string_view meaning;   ///< a few words of plain English
};

/// The number written as exactly two ASCII digits; negative for any other text.
constexpr int twoDigitNumber(std::string_view text) noexcept {
    if (text.size() != 2) {
        return -1;
    }
    const unsigned tens = static_cast<unsigned char>(text[0]) - unsigned{'0'};
    const unsigned ones = static_cast<unsigned char>(text[1]) - unsigned{'0'};
    return tens <= 9 && ones <= 9 ? static_cast<int>(10 * tens + ones) : -1;
}

/// Whether the rows' raw values are consecutive two-digit numbers, so that a tag's enumerator can be computed
/// from its number.
template <std::size_t count>
constexpr bool areConsecutive(const std::array<TagRow, count>& rows) noexcept {
    const int first = twoDigitNumber(rows.front().rawValue);
    for (std::size_t i = 0; i < count; ++i) {
        if (first < 0 || twoDigitNumber(rows[i].rawValue) != first + static_cast<int>(i)) {
            return false;
        }
    }
    return true;
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

/// A number as two decimal digits, in static storage. The number must be below 100; this is not checked.
constexpr std::string_view twoDigitText(unsigned number) {
    return {detail::twoDigitTexts.data() + std::size_t{2} * number, 2};
}

}  // namespace korvo

#endif
