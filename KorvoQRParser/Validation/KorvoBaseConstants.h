#ifndef KORVOQRPARSER_VALIDATION_KORVOBASECONSTANTS_H
#define KORVOQRPARSER_VALIDATION_KORVOBASECONSTANTS_H

#include <string_view>

/// Characters and values that the scheme's applications share.
namespace korvo::KorvoBaseConstants {

/// The only character besides digits that an amount may contain.
inline constexpr std::string_view periodCharacter = ".";

// Published names that no rule reads. In particular, no maximum is enforced on any amount.
inline constexpr std::string_view alphaNumericCharacterSet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
inline constexpr std::string_view alphabetCharacterSet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
inline constexpr std::string_view whiteSpaceCharacter = " ";
inline constexpr std::string_view decimalCharacterSet = "0123456789.";
inline constexpr std::string_view citySpecialCharacterSet = " .,-'";
inline constexpr std::string_view merchantTLVSpecialCharacterSet = " .,-'&/";
inline constexpr std::string_view merchantNameSpecialCharacters = " .,-'&";
inline constexpr double maximumTipsAmount = 999999.99;
inline constexpr double maximumTransactionAmount = 9999999999.99;
inline constexpr std::string_view allowedConsumerTags = "AME";
inline constexpr std::string_view amountFormat = "%.2f";
inline constexpr std::string_view defaultAmount = "0.00";
inline constexpr std::string_view defaultTransactionCurrency = "356";
inline constexpr std::string_view emptyString{""};  // NOLINT(readability-redundant-string-init): not null
inline constexpr std::string_view spaceString = " ";
inline constexpr std::string_view nonBreakingSpace = "\u00A0";
inline constexpr std::string_view percentageSymbol = "%";

}  // namespace korvo::KorvoBaseConstants

#endif
