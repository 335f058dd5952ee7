#ifndef KORVOQRPARSER_VALIDATION_KORVOERRORCONSTANTS_H
#define KORVOQRPARSER_VALIDATION_KORVOERRORCONSTANTS_H

#include <array>
#include <optional>
#include <string_view>

namespace korvo {

// Every code except the reserved ones below, one row each:
//     constant, code, tag in the two-digit format, tag in the one-character format, meaning
// "62/01" is sub-tag 01 inside tag 62; "-" means that the format has no such tag or no such rule. A code
// keeps its number and its name for ever. The misspelled names are the published ones.
// clang-format off
#define KORVO_ERROR_CATALOGUE(CODE) \
    CODE(malformedTags, "0", "any", "any", "The text cannot be split into elements: a bad length, a repeated or unknown tag, a checksum that is not last, or bytes that are not UTF-8.") \
    CODE(merchantIdInvalidStartingDigit, "1", "02", "0", "The merchant identifier does not begin with 4.") \
    CODE(merchantIdInvalidLength, "2", "02", "0", "The merchant identifier is shorter than 8 or longer than 16 characters, or is not a whole number.") \
    CODE(merchantIdInvalidCheckDigit, "3", "02", "0", "The merchant identifier's check digit is wrong.") \
    CODE(merchantIdRedundantSequence, "4", "02", "0", "Characters 7 and 8 of the merchant identifier are 00.") \
    CODE(merchantIdNotPresent, "5", "02", "0", "The merchant identifier is missing.") \
    CODE(merchantNameInvalidLengthOrCharacters, "6", "59", "1", "The merchant name is empty or longer than 25 characters.") \
    CODE(merchantNameNotPresent, "7", "59", "1", "The merchant name is missing.") \
    CODE(merchantCategoryCodeInvalidLength, "8", "52", "2", "The merchant category code is not 4 digits.") \
    CODE(merchantCategoryCodeNotPresent, "9", "52", "2", "The merchant category code is missing.") \
    CODE(cityNameInvalidLengthOrCharacters, "10", "60", "3", "The merchant city is empty or longer than 13 characters.") \
    CODE(cityNameNotPresent, "11", "60", "3", "The merchant city is missing.") \
    CODE(countryCodeInvalidLengthOrCharacters, "12", "58", "4", "The country code is not a two-letter code of ISO 3166-1 in upper case.") \
    CODE(countryCodeNotPresent, "13", "58", "4", "The country code is missing.") \
    CODE(currencyCodeInvaidLength, "14", "53", "5", "The currency code is not 3 digits, or not a known numeric code of ISO 4217.") \
    CODE(currencyCodeNotPresent, "15", "53", "5", "The currency code is missing.") \
    CODE(transactionAmountInvalidLength, "16", "54", "6", "The transaction amount is empty, contains a letter, or is longer than 12 digits or, with a point, 13 characters.") \
    CODE(transactionAmountIncorrectValue, "17", "54", "6", "The transaction amount is not a number above zero.") \
    CODE(transactionAmountTagPresentWithoutAmountValue, "18", "54", "6", "The transaction amount is present but empty.") \
    CODE(transactionAmountContainsSpecialCharacters, "19", "54", "6", "The transaction amount contains something other than digits and a point.") \
    CODE(primaryIdInvalidLengthOrCharacters, "20", "-", "7", "The primary identifier is empty or longer than 26 characters, or begins with ? followed by more than one character.") \
    CODE(primaryIdTagPresentWithoutValue, "21", "-", "7", "The primary identifier is present but empty.") \
    CODE(primaryIdInvalidFormat, "23", "-", "7", "The primary identifier begins with ? followed by something other than 1-9, a-q or A-Q.") \
    CODE(secondaryIdInvalidLengthOrCharacters, "24", "-", "8", "The secondary identifier is empty or longer than 26 characters, or begins with ? followed by something other than a single 1-9, a-q or A-Q.") \
    CODE(secondaryIdTagPresentWithoutValue, "25", "-", "8", "The secondary identifier is present but empty.") \
    CODE(tipAndFeeIndicatorInvalidCriteria, "28", "55", "9", "The tip or fee indicator is not 01, 02 or 03.") \
    CODE(tipAndFeeIndicatorInvalidTagsPresent, "29", "56, 57", "A, B", "A convenience fee is present, but the tip or fee indicator is missing or 01.") \
    CODE(tipAndFeeIndicatorTagPresentWithoutValue, "30", "55", "9", "The tip or fee indicator is present but empty (28 comes first, so no payload raises this one).") \
    CODE(convenienceFeeAmountInvalidLength, "31", "56", "A", "The convenience fee is empty, longer than 9 characters, or contains a letter.") \
    CODE(convenienceFeeAmountIncorrectValue, "32", "56", "A", "The convenience fee is not a number above zero.") \
    CODE(convenienceFeeAmountContainsSpecialCharacters, "33", "56", "A", "The convenience fee contains something other than digits and a point.") \
    CODE(convenienceFeeTagPresentWithoutValue, "34", "56", "A", "The convenience fee is present but empty.") \
    CODE(convenienceFeePercentageInvalidLength, "35", "57", "B", "The convenience fee percentage is empty, longer than 5 characters, or contains a letter.") \
    CODE(convenienceFeePercentageIncorrectValue, "36", "57", "B", "The convenience fee percentage is not a number from 0.01 to 99.99.") \
    CODE(convenienceFeePercentageContaintsSpecialCharacters, "37", "57", "B", "The convenience fee percentage contains something other than digits and a point.") \
    CODE(convenienceFeePercentageTagPresentWithoutValue, "38", "57", "B", "The convenience fee percentage is present but empty.") \
    CODE(convenienceInvalidTagPresent, "39", "56, 57", "A, B", "The tip or fee indicator is 02 or 03 and its convenience fee is missing, or it is 02 and a percentage is present.") \
    CODE(convenienceFeePercentageInvalidTagPresent, "40", "-", "B", "The tip or fee indicator is 03, but the payload has a fixed convenience fee instead of a percentage.") \
    CODE(payloadFormatIndicatorInvalidLength, "41", "00", "-", "The payload format indicator is not 2 digits.") \
    CODE(payloadFormatIndicatorInvalidValue, "42", "00", "-", "The payload format indicator is not 01.") \
    CODE(postalCodeIndicatorInvalidLength, "43", "61", "-", "The postal code is empty or longer than 10 characters.") \
    CODE(additionalDataFieldInvalidLength, "44", "62", "-", "The additional data field is empty or longer than 99 characters (no payload can carry such a value).") \
    CODE(additionalDataInformationInvalidLength, "45", "62/01-62/08", "-", "A value of the additional data field is empty or longer than 26 characters.") \
    CODE(additionalConsumerDataInvalidValue, "46", "62/09", "-", "The consumer data request is not 1 to 3 of the letters A, M and E.") \
    CODE(crcInvalidValue, "48", "63", "-", "The checksum is not 4 characters, or is not the checksum of the payload.")
// clang-format on

namespace detail {

// The number that a code writes without leading zeros; negative for any other text.
constexpr int codeNumber(std::string_view code) noexcept {
    int number = code.empty() || (code.size() > 1 && code.front() == '0') ? -1 : 0;
    for (const char c : code) {
        number = number < 0 || c < '0' || c > '9' ? -1 : 10 * number + (c - '0');
    }
    return number;
}

}  // namespace detail

/// The error codes by name. A code is a decimal number as text, as in QRCodeError.
namespace KorvoErrorConstants {

#define KORVO_CODE(constant, code, twoDigitTag, oneCharacterTag, meaning) \
    inline constexpr std::string_view constant = code;
KORVO_ERROR_CATALOGUE(KORVO_CODE)
#undef KORVO_CODE

/// Reserved: no rule raises it.
inline constexpr std::string_view primaryIdNotPresentForMerchant = "22";
/// Reserved: no rule raises it.
inline constexpr std::string_view secondayrIdNotPresentForMerchant = "26";
/// Reserved: no rule raises it.
inline constexpr std::string_view secondaryIdNoSubscriberIdForMerchant = "27";
/// Reserved: no rule raises it.
inline constexpr std::string_view additionalDataFieldTagCount = "47";

}  // namespace KorvoErrorConstants

/// The error codes of the catalogue as an enumeration, whose values are the codes' numbers:
///
///     if (const auto known = korvo::errorCodeFromText(code)) {
///         switch (*known) {
///             case korvo::ErrorCode::crcInvalidValue: ...
///
/// A later version may add some.
enum class ErrorCode : unsigned char {
#define KORVO_ENUMERATOR(constant, code, twoDigitTag, oneCharacterTag, meaning) \
    constant = detail::codeNumber(code),
    KORVO_ERROR_CATALOGUE(KORVO_ENUMERATOR)
#undef KORVO_ENUMERATOR
};

/// One row of the catalogue of error codes. It names the tags that the code concerns, for each format: one
/// tag ("54", or "62/09" inside tag 62), a list ("56, 57"), a range ("62/01-62/08"), "any" for the whole
/// payload, or "-" for none. The first two characters of a refused payload tell its format, as QRCodeParser
/// describes.
struct ErrorCatalogueEntry {
    std::string_view code;             ///< as in QRCodeError::errorCodes
    std::string_view name;             ///< the constant's name in KorvoErrorConstants
    std::string_view twoDigitTag;      ///< the tags concerned in the two-digit format
    std::string_view oneCharacterTag;  ///< the same for the one-character format
    std::string_view meaning;          ///< in plain English, one sentence
};

/// The catalogue: every code except the reserved ones, in numeric order.
inline constexpr std::array errorCatalogue{
#define KORVO_ENTRY(constant, code, twoDigitTag, oneCharacterTag, meaning) \
    ErrorCatalogueEntry{code, #constant, twoDigitTag, oneCharacterTag, meaning},
    KORVO_ERROR_CATALOGUE(KORVO_ENTRY)
#undef KORVO_ENTRY
};

/// A code that no rule raises, and whose number no rule will ever get.
struct ReservedErrorCode {
    std::string_view code;  ///< the number as text
    std::string_view name;  ///< the constant's name in KorvoErrorConstants
};

/// The reserved codes, in numeric order. The catalogue does not have them.
inline constexpr std::array reservedErrorCodes{
    ReservedErrorCode{KorvoErrorConstants::primaryIdNotPresentForMerchant, "primaryIdNotPresentForMerchant"},
    ReservedErrorCode{KorvoErrorConstants::secondayrIdNotPresentForMerchant,
                      "secondayrIdNotPresentForMerchant"},
    ReservedErrorCode{KorvoErrorConstants::secondaryIdNoSubscriberIdForMerchant,
                      "secondaryIdNoSubscriberIdForMerchant"},
    ReservedErrorCode{KorvoErrorConstants::additionalDataFieldTagCount, "additionalDataFieldTagCount"},
};

/// The catalogue's row for a code. Null when the catalogue does not have it: a reserved code, a code that a
/// newer shared library raises, or any other text. Any number of threads may call it, because the catalogue
/// is constant.
constexpr const ErrorCatalogueEntry* findErrorCatalogueEntry(std::string_view code) noexcept {
    for (const ErrorCatalogueEntry& entry : errorCatalogue) {
        if (entry.code == code) {
            return &entry;
        }
    }
    return nullptr;
}

/// The enumerator of a code; absent when the catalogue does not have it, as above.
constexpr std::optional<ErrorCode> errorCodeFromText(std::string_view code) noexcept {
    const ErrorCatalogueEntry* const entry = findErrorCatalogueEntry(code);
    return entry == nullptr ? std::nullopt
                            : std::optional(static_cast<ErrorCode>(detail::codeNumber(entry->code)));
}

/// The catalogue's row for an enumerator; its `code` is the code as text. Null for any other value, such as
/// one of a newer version.
constexpr const ErrorCatalogueEntry* findErrorCatalogueEntry(ErrorCode code) noexcept {
    for (const ErrorCatalogueEntry& entry : errorCatalogue) {
        if (static_cast<ErrorCode>(detail::codeNumber(entry.code)) == code) {
            return &entry;
        }
    }
    return nullptr;
}

}  // namespace korvo

#endif
