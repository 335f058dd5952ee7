#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Explanation/ExplanationFacts.h>
#include <KorvoQRParser/Explanation/Lists.h>
#include <KorvoQRParser/Explanation/Violations.h>
#include <KorvoQRParser/Explanation/VisibleText.h>
#include <KorvoQRParser/Validation/DecimalText.h>
#include <KorvoQRParser/Validation/ISOCountryCodes.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>
#include <KorvoQRParser/Validation/Limits.h>
#include <KorvoQRParser/Validation/SharedRules.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>

namespace korvo {

namespace {

using Elements = std::vector<WalkedElement>;

// Whether a catalogue's list of tags, such as "56, 57" or "62/01-62/08", names a tag.
bool namesTag(std::string_view list, std::string_view tag) {
    while (!list.empty()) {
        const std::string_view item = list.substr(0, list.find(", "));
        list.remove_prefix(std::min(list.size(), item.size() + 2));
        const std::string_view first = item.substr(0, item.find('-'));
        const std::string_view last = first.size() < item.size() ? item.substr(first.size() + 1) : first;
        if (first <= tag && tag <= last) {
            return true;
        }
    }
    return false;
}

// Whether the payload, without some of its elements, still violates the rule of a code.
bool isRaisedWithout(const Elements& elements, bool isTwoDigit, std::string_view code,
                     const std::function<bool(const WalkedElement&)>& isTaken) {
    KorvoPayMerchantTLV holder;
    for (const WalkedElement& walked : elements) {
        const auto& [tag, length, value] = walked.element;
        if (isTaken(walked)) {
            continue;
        }
        if (!isTwoDigit) {
            holder.setTLV00Value(tag, value);
        } else if (walked.isInsideAdditionalData) {
            holder.setTLV01Value(additionalDataTag, tag, value);
        } else {
            holder.setTLV01Value(tag, std::nullopt, value);
        }
    }
    KorvoPayMerchantTLVValidator validator;
    const auto codes = validator.validatePayMerchantTLV(&holder);
    return contains(codes, code);
}

// The elements that violate the rule of a code: each that raises it without the other elements that the rule
// is about. None if a missing element violates the rule, that is, if it is raised even without all of those.
std::vector<WalkedElement*> violatorsOf(const ErrorCatalogueEntry& entry, bool isTwoDigit,
                                        Elements& elements) {
    std::vector<WalkedElement*> concerned;
    for (WalkedElement& element : elements) {
        if (namesTag(isTwoDigit ? entry.twoDigitTag : entry.oneCharacterTag, element.name)) {
            concerned.push_back(&element);
        }
    }
    const auto holds = [](const auto& list, const WalkedElement& element) {
        return contains(list, &element);
    };
    auto violators = concerned;
    if (concerned.size() > 1) {
        std::erase_if(violators, [&](const WalkedElement* candidate) {
            return !isRaisedWithout(elements, isTwoDigit, entry.code, [&](const WalkedElement& other) {
                return &other != candidate && holds(concerned, other);
            });
        });
    }
    const bool isRaisedAnyway =
        violators.empty() || isRaisedWithout(elements, isTwoDigit, entry.code,
                                             [&](const auto& element) { return holds(violators, element); });
    return isRaisedAnyway ? std::vector<WalkedElement*>() : violators;
}

// The length of a value against the limits of its rule: "28 characters, at most 25".
std::string lengthFact(const CountedText& value, Limits::Length limits) {
    const auto [shortest, longest] = limits;
    const std::size_t characters = value.characterCount();
    const std::string found = characters == 0 ? "empty" : counted(characters, "character");
    if (shortest == longest) {
        return joined({found, ", exactly ", std::to_string(shortest)});
    }
    return characters < shortest ? joined({found, ", at least ", std::to_string(shortest)})
                                 : joined({found, ", at most ", std::to_string(longest)});
}

// The first character of the value that is not one of the allowed ones, and what it should be.
std::string strangerFact(const CountedText& value, bool (*isAllowed)(std::string_view),
                         std::string_view wanted) {
    std::string fact;
    forEachCharacter(value, [&](std::string_view character) {
        if (fact.empty() && !isAllowed(character)) {
            fact = joined({inQuotes(character), " in ", inQuotes(value.text()), " is not ", wanted});
        }
    });
    return fact;
}

bool isASCIIDigit(std::string_view character) {
    return character.size() == 1 && digitValue(character[0]) < 10;
}

// Some rules accept the digits of any script.
bool isDigit(std::string_view character) {
    return consistsOfCharactersOf(character, decimalDigits());
}

// A value that must have a length and consist of digits.
std::string digitsFact(const CountedText& value, Limits::Length limits, bool (*isAllowed)(std::string_view)) {
    return isLengthOutside(value, limits) ? lengthFact(value, limits)
                                          : strangerFact(value, isAllowed, "a digit");
}

// A value that is refused for its length or for a letter.
std::string amountLengthFact(const CountedText& value, Limits::Length limits) {
    return isLengthOutside(value, limits) ? lengthFact(value, limits)
                                          : joined({inQuotes(value.text()), " contains a letter"});
}

std::string amountFact(const CountedText& value, std::string_view wanted) {
    const std::string_view text = value.text();
    const auto points = std::count(text.begin(), text.end(), '.');
    const auto digits = std::count_if(text.begin(), text.end(), [](char c) { return digitValue(c) < 10; });
    const bool isNumber =
        points <= 1 && digits > 0 && static_cast<std::size_t>(points + digits) == text.size();
    return joined({inQuotes(text), " is not ", isNumber ? wanted : "a number"});
}

std::string amountCharactersFact(const CountedText& value) {
    return strangerFact(
        value, [](std::string_view character) { return isDigit(character) || character == "."; },
        "a digit or a point");
}

std::string checkDigitFact(const CountedText& value) {
    const std::string_view text = value.text();
    std::string corrected(text);
    for (char digit = '0'; digit <= '9' && !text.empty() && isASCIIDigit(text.substr(text.size() - 1));
         ++digit) {
        corrected.back() = digit;
        KorvoPayMerchantTLVValidator validator;
        validator.validateMerchantID(CountedText(corrected));
        const auto& codes = validator.errorCodes();
        if (!contains(codes, KorvoErrorConstants::merchantIdInvalidCheckDigit)) {
            return joined({"the last digit of ",
                           inQuotes(text),
                           " is ",
                           text.substr(text.size() - 1),
                           ", the others call for ",
                           {&digit, 1}});
        }
    }
    return inQuotes(text);
}

std::string currencyFact(const CountedText& value) {
    const std::string fact = digitsFact(value, Limits::currencyCode, isASCIIDigit);
    return fact.empty() ? joined({inQuotes(value.text()), " is not in the list of currencies"}) : fact;
}

std::string countryFact(const CountedText& value) {
    return isLengthOutside(value, Limits::countryCode)
               ? lengthFact(value, Limits::countryCode)
               : joined({inQuotes(value.text()), " is not in the list of countries"});
}

std::string formatFact(const CountedText& value) {
    const std::string fact = digitsFact(value, Limits::payloadFormatIndicator, isDigit);
    return fact.empty() ? inQuotes(value.text()) : fact;
}

std::string placeholderFact(const CountedText& value) {
    const bool isPlaceholder = value.text().substr(0, 1) == "?";
    return isLengthOutside(value, Limits::identifier) ? lengthFact(value, Limits::identifier)
           : isPlaceholder && isLengthOutside(value, Limits::placeholder)
               ? lengthFact(value, Limits::placeholder)
               : inQuotes(value.text());
}

std::string consumerDataFact(const CountedText& value) {
    return isLengthOutside(value, Limits::additionalConsumerDataRequest)
               ? lengthFact(value, Limits::additionalConsumerDataRequest)
               : strangerFact(
                     value,
                     [](std::string_view character) {
                         return character == "A" || character == "M" || character == "E";
                     },
                     "A, M or E");
}

Limits::Length limitsOfAmount(const CountedText& amount) {
    return consistsOfCharactersOf(amount.text(), decimalDigits()) ? Limits::transactionAmountOfDigits
                                                                  : Limits::transactionAmount;
}

// What was found in the value, against what the rule wants.
std::string factOf(ErrorCode code, const CountedText& value) {
    switch (code) {
        case ErrorCode::merchantIdInvalidStartingDigit:
        case ErrorCode::merchantIdRedundantSequence:
        case ErrorCode::tipAndFeeIndicatorInvalidCriteria:
        case ErrorCode::payloadFormatIndicatorInvalidValue:
            return inQuotes(value.text());
        case ErrorCode::merchantIdInvalidLength:
            return digitsFact(value, Limits::merchantID, isASCIIDigit);
        case ErrorCode::merchantIdInvalidCheckDigit:
            return checkDigitFact(value);
        case ErrorCode::merchantNameInvalidLengthOrCharacters:
            return lengthFact(value, Limits::merchantName);
        case ErrorCode::merchantCategoryCodeInvalidLength:
            return digitsFact(value, Limits::merchantCategoryCode, isDigit);
        case ErrorCode::cityNameInvalidLengthOrCharacters:
            return lengthFact(value, Limits::cityName);
        case ErrorCode::countryCodeInvalidLengthOrCharacters:
            return countryFact(value);
        case ErrorCode::currencyCodeInvaidLength:
            return currencyFact(value);
        case ErrorCode::transactionAmountInvalidLength:
            return amountLengthFact(value, limitsOfAmount(value));
        case ErrorCode::transactionAmountIncorrectValue:
        case ErrorCode::convenienceFeeAmountIncorrectValue:
            return amountFact(value, "above zero");
        case ErrorCode::transactionAmountContainsSpecialCharacters:
        case ErrorCode::convenienceFeeAmountContainsSpecialCharacters:
        case ErrorCode::convenienceFeePercentageContaintsSpecialCharacters:
            return amountCharactersFact(value);
        case ErrorCode::primaryIdInvalidLengthOrCharacters:
        case ErrorCode::primaryIdInvalidFormat:
        case ErrorCode::secondaryIdInvalidLengthOrCharacters:
            return placeholderFact(value);
        case ErrorCode::convenienceFeeAmountInvalidLength:
            return amountLengthFact(value, Limits::convenienceFeeAmount);
        case ErrorCode::convenienceFeePercentageInvalidLength:
            return amountLengthFact(value, Limits::convenienceFeePercentage);
        case ErrorCode::convenienceFeePercentageIncorrectValue:
            return amountFact(value, "from 0.01 to 99.99");
        case ErrorCode::payloadFormatIndicatorInvalidLength:
            return formatFact(value);
        case ErrorCode::postalCodeIndicatorInvalidLength:
            return lengthFact(value, Limits::postalCode);
        case ErrorCode::additionalDataFieldInvalidLength:
            return lengthFact(value, Limits::additionalDataField);
        case ErrorCode::additionalDataInformationInvalidLength:
            return lengthFact(value, Limits::additionalDataInformation);
        case ErrorCode::additionalConsumerDataInvalidValue:
            return consumerDataFact(value);
        default:
            return {};  // the meaning says it all, or the checksum's facts do
    }
}

QRCodeViolation violation(const ErrorCatalogueEntry& entry, std::string fact) {
    return QRCodeViolation(std::make_shared<QRCodeViolation::Facts>(
        QRCodeViolation::Facts{std::string(entry.code), &entry, std::move(fact)}));
}

}  // namespace

bool isAboutMissingElement(std::string_view code) {
    constexpr std::array codes{
        KorvoErrorConstants::merchantIdNotPresent,  KorvoErrorConstants::merchantNameNotPresent,
        KorvoErrorConstants::cityNameNotPresent,    KorvoErrorConstants::merchantCategoryCodeNotPresent,
        KorvoErrorConstants::countryCodeNotPresent, KorvoErrorConstants::currencyCodeNotPresent};
    return contains(codes, code);
}

std::vector<QRCodeViolation> assignViolations(const std::vector<std::string>& codes, bool isTwoDigit,
                                              const std::string& computedChecksum, Elements& elements) {
    std::vector<QRCodeViolation> missing;
    for (const std::string& code : codes) {
        const ErrorCatalogueEntry* const entry = findErrorCatalogueEntry(code);
        if (entry == nullptr) {
            continue;
        }
        const auto violators = violatorsOf(*entry, isTwoDigit, elements);
        for (WalkedElement* const violator : violators) {
            const CountedText& value = violator->element.value;
            const ErrorCode number = *errorCodeFromText(code);
            violator->violations.push_back(violation(
                *entry, number == ErrorCode::crcInvalidValue
                            ? joined({inQuotes(value.text()), ", computed \"", computedChecksum, "\""})
                            : factOf(number, value)));
        }
        if (violators.empty()) {
            missing.push_back(violation(*entry, ""));
        }
    }
    return missing;
}

}  // namespace korvo
