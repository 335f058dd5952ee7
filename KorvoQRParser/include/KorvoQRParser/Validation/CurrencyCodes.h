#ifndef KORVOQRPARSER_VALIDATION_CURRENCYCODES_H
#define KORVOQRPARSER_VALIDATION_CURRENCYCODES_H

#include <KorvoQRParser/KorvoQRParserExport.h>

#include <string_view>

namespace korvo {

/// The letters of a currency (ISO 4217), to show beside an amount: "INR" for "356". A payload has the number,
/// three ASCII digits, as in QRCodeData::currencyCode. Empty for a text that the rules accept as no currency.
/// The letters are followed by NUL. May be called from any thread.
KORVO_EXPORT std::string_view alphabeticCurrencyCode(std::string_view numericCode) noexcept;

}  // namespace korvo

#endif
