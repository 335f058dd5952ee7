#ifndef KORVOQRPARSER_VALIDATION_SHAREDRULES_H
#define KORVOQRPARSER_VALIDATION_SHAREDRULES_H

#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Decoding/Text/CountedText.h>

#include <cstddef>

namespace korvo {

/// Every decimal digit, ASCII or not; built on first use.
const CharacterSet& decimalDigits();

/// Whether the text has fewer than `shortest` or more than `longest` characters.
inline bool isLengthOutside(const CountedText& text, std::size_t shortest, std::size_t longest) noexcept {
    return text.characterCount() < shortest || text.characterCount() > longest;
}

}  // namespace korvo

#endif
