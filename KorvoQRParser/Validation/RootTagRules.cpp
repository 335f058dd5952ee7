#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>
#include <KorvoQRParser/Validation/DecimalText.h>
#include <KorvoQRParser/Validation/ISOCountryCodes.h>
#include <KorvoQRParser/Validation/KorvoErrorConstants.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>
#include <KorvoQRParser/Validation/MerchantAccountNumber.h>
#include <KorvoQRParser/Validation/SharedRules.h>
#include <KorvoQRParser/Validation/StringConstants.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace korvo {

namespace {

namespace Codes = KorvoErrorConstants;

constexpr Pattern primaryIDPattern(StringConstants::PRIMARY_ID_REGEX);
constexpr Pattern secondaryIDPattern(StringConstants::SECONDARY_ID_REGEX);
static_assert(primaryIDPattern.fault() == nullptr && secondaryIDPattern.fault() == nullptr);

bool isDigits(const CountedText& text, Limits::Length length) {
    return !isLengthOutside(text, length) && consistsOfCharactersOf(text.text(), decimalDigits());
}

// What a character adds to the sum of the Luhn test: a digit itself, or the digits of its double. Others add
// nothing.
using LuhnValues = std::array<std::uint8_t, 256>;
constexpr LuhnValues singleValues = [] {
    LuhnValues values{};
    for (std::uint8_t digit = 0; digit < 10; ++digit) {
        values[std::size_t{'0'} + digit] = digit;
    }
    return values;
}();
constexpr LuhnValues doubledValues = [] {
    LuhnValues values{};
    for (std::uint8_t digit = 0; digit < 10; ++digit) {
        values[std::size_t{'0'} + digit] = static_cast<std::uint8_t>(digit < 5 ? 2 * digit : 2 * digit - 9);
    }
    return values;
}();

// The Luhn test of the account number that belongs to an identifier: one of 7 to 15 characters is widened to
// 16 with zeros after its sixth. Zeros add nothing to the sum and only move the first six characters, so the
// widened text is never built.
bool passesLuhnTest(const CountedText& merchantID) {
    using namespace MerchantAccountNumber;
    const std::size_t length = merchantID.characterCount();
    const bool isWidened = length > prefixLength && length < fullLength;
    unsigned sum = 0;
    bool isDoubled = (isWidened ? fullLength : length) % 2 == 0;
    std::size_t left = isWidened ? prefixLength : length;  // before the zeros
    forEachCharacter(merchantID, [&](std::string_view character) {
        if (left-- == 0) {
            isDoubled = (length - prefixLength) % 2 == 0;
        }
        if (character.size() == 1) {
            sum += (isDoubled ? doubledValues : singleValues)[static_cast<unsigned char>(character[0])];
        }
        isDoubled = !isDoubled;
    });
    return sum % 10 == 0;
}

}  // namespace

void KorvoPayMerchantTLVValidator::validatePayloadFormatIndicator(const Value& payloadFormatIndicator) {
    if (!payloadFormatIndicator) {
        return;
    }
    if (!isDigits(*payloadFormatIndicator, Limits::payloadFormatIndicator)) {
        addErrorCode(Codes::payloadFormatIndicatorInvalidLength);
    } else if (*payloadFormatIndicator != "01") {
        addErrorCode(Codes::payloadFormatIndicatorInvalidValue);
    }
}

bool KorvoPayMerchantTLVValidator::validateMerchantID(const Value& merchantID) {
    if (!merchantID) {
        addErrorCode(Codes::merchantIdNotPresent);
    } else {
        if (!merchantID->empty() && !beginsWith(*merchantID, '4')) {
            addErrorCode(Codes::merchantIdInvalidStartingDigit);
        }
        if (isLengthOutside(*merchantID, Limits::merchantID) || !parseInteger(merchantID->text(), 10)) {
            addErrorCode(Codes::merchantIdInvalidLength);
        } else if (isSame(substringWithOffsets(6, 8, *merchantID), "00")) {
            addErrorCode(Codes::merchantIdRedundantSequence);
        }
        if (!passesLuhnTest(*merchantID)) {
            addErrorCode(Codes::merchantIdInvalidCheckDigit);
        }
    }
    return !holdsErrorCode(Codes::merchantIdInvalidStartingDigit) &&
           !holdsErrorCode(Codes::merchantIdInvalidLength) &&
           !holdsErrorCode(Codes::merchantIdInvalidCheckDigit) &&
           !holdsErrorCode(Codes::merchantIdRedundantSequence) &&
           !holdsErrorCode(Codes::merchantIdNotPresent);
}

void KorvoPayMerchantTLVValidator::validateMerchantCategoryCode(const Value& merchantCategoryCode) {
    if (!merchantCategoryCode) {
        addErrorCode(Codes::merchantCategoryCodeNotPresent);
    } else if (!isDigits(*merchantCategoryCode, Limits::merchantCategoryCode)) {
        addErrorCode(Codes::merchantCategoryCodeInvalidLength);
    }
}

void KorvoPayMerchantTLVValidator::validateCurrencyCode(const Value& currencyCode) {
    if (!currencyCode) {
        addErrorCode(Codes::currencyCodeNotPresent);
        return;
    }
    // Digits of other scripts pass isDigits but not parseInteger, so they raise the code too.
    const auto number =
        isDigits(*currencyCode, Limits::currencyCode) ? parseInteger(currencyCode->text(), 10) : std::nullopt;
    if (!number || ISOCountryCodes::findCurrency(*number) == nullptr) {
        addErrorCode(Codes::currencyCodeInvaidLength);
    }
}

void KorvoPayMerchantTLVValidator::validateTransactionAmount(const Value& transactionAmount) {
    if (!transactionAmount) {
        return;
    }
    const bool isDigitsOnly = consistsOfCharactersOf(transactionAmount->text(), decimalDigits());
    validateAmountText(
        *transactionAmount,
        {.length = isDigitsOnly ? Limits::transactionAmountOfDigits : Limits::transactionAmount,
         .isCorrect = isAboveZero,
         .invalidLength = Codes::transactionAmountInvalidLength,
         .incorrectValue = Codes::transactionAmountIncorrectValue,
         .specialCharacters = Codes::transactionAmountContainsSpecialCharacters,
         .withoutValue = Codes::transactionAmountTagPresentWithoutAmountValue});
}

bool KorvoPayMerchantTLVValidator::validateAmount(const Value& amount) {
    // A code that is already in the list must not hide that this rule raises it too.
    ErrorCodes earlier = std::exchange(errorCodes_, {});
    validateTransactionAmount(amount);
    const ErrorCodes raised = std::exchange(errorCodes_, std::move(earlier));
    for (const std::string& code : raised) {
        addErrorCode(code);
    }
    return raised.empty();
}

void KorvoPayMerchantTLVValidator::validateCountryCode(const Value& countryCode) {
    if (!countryCode) {
        addErrorCode(Codes::countryCodeNotPresent);
    } else if (!ISOCountryCodes::isISOCountry(countryCode->text())) {
        // Every code in the list is two letters, so this covers a wrong length and wrong characters too.
        addErrorCode(Codes::countryCodeInvalidLengthOrCharacters);
    }
}

void KorvoPayMerchantTLVValidator::validateMerchantName(const Value& merchantName) {
    if (!merchantName) {
        addErrorCode(Codes::merchantNameNotPresent);
    } else if (isLengthOutside(*merchantName, Limits::merchantName)) {
        addErrorCode(Codes::merchantNameInvalidLengthOrCharacters);
    }
}

void KorvoPayMerchantTLVValidator::validateCityName(const Value& cityName) {
    if (!cityName) {
        addErrorCode(Codes::cityNameNotPresent);
    } else if (isLengthOutside(*cityName, Limits::cityName)) {
        addErrorCode(Codes::cityNameInvalidLengthOrCharacters);
    }
}

void KorvoPayMerchantTLVValidator::validatePostalCode(const Value& postalCode) {
    if (postalCode && isLengthOutside(*postalCode, Limits::postalCode)) {
        addErrorCode(Codes::postalCodeIndicatorInvalidLength);
    }
}

void KorvoPayMerchantTLVValidator::validatePrimaryID(const Value& primaryID) {
    validateIdentifier(primaryID, {.pattern = primaryIDPattern,
                                   .invalidLength = Codes::primaryIdInvalidLengthOrCharacters,
                                   .withoutValue = Codes::primaryIdTagPresentWithoutValue,
                                   .invalidFormat = Codes::primaryIdInvalidFormat});
}

// The secondary identifier has no format code of its own: a bad format is reported as a bad length.
void KorvoPayMerchantTLVValidator::validateSecondaryID(const Value& secondaryID) {
    validateIdentifier(secondaryID, {.pattern = secondaryIDPattern,
                                     .invalidLength = Codes::secondaryIdInvalidLengthOrCharacters,
                                     .withoutValue = Codes::secondaryIdTagPresentWithoutValue,
                                     .invalidFormat = Codes::secondaryIdInvalidLengthOrCharacters});
}

void KorvoPayMerchantTLVValidator::validateCRC(const Value& crc, Payload tlvString) {
    if (!crc || !tlvString) {
        return;
    }
    const auto announced =
        crc->characterCount() == checksumLength ? parseInteger(crc->text(), 16) : std::nullopt;
    if (!announced || *announced != checksumOfPayload(*tlvString)) {
        addErrorCode(Codes::crcInvalidValue);
    }
}

}  // namespace korvo
