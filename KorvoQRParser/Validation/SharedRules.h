#ifndef KORVOQRPARSER_VALIDATION_SHAREDRULES_H
#define KORVOQRPARSER_VALIDATION_SHAREDRULES_H

#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Decoding/Text/CountedText.h>
#include <KorvoQRParser/Validation/Limits.h>

namespace korvo {

/// Every decimal digit, ASCII or not; built on first use.
const CharacterSet& decimalDigits();

/// Whether the text has fewer or more characters than the limits allow.
inline bool isLengthOutside(const CountedText& text, Limits::Length limits) noexcept {
    return text.characterCount() < limits.shortest || text.characterCount() > limits.longest;
}

}  // namespace korvo

#endif
