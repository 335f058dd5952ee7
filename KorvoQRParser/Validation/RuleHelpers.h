#ifndef KORVOQRPARSER_VALIDATION_RULEHELPERS_H
#define KORVOQRPARSER_VALIDATION_RULEHELPERS_H

#include <KorvoQRParser/Decoding/CharacterSet.h>
#include <KorvoQRParser/Decoding/TextHelpers.h>

#include <cstddef>
#include <string_view>

namespace korvo {

/// Every decimal digit, ASCII or not; built on first use.
const CharacterSet& decimalDigits();

/// Whether the text has fewer than `shortest` or more than `longest` characters.
inline bool isLengthOutside(std::string_view text, std::size_t shortest, std::size_t longest) {
    CharacterReader characters(text);
    return !characters.take(shortest) || characters.take(longest - shortest + 1);
}

inline bool isAboveZero(double number) noexcept {
    return number > 0;
}

}  // namespace korvo

#endif
