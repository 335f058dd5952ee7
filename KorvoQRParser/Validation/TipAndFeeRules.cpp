#include <KorvoQRParser/Validation/KorvoErrorConstants.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>
#include <KorvoQRParser/Validation/SharedRules.h>

namespace korvo {

namespace Codes = KorvoErrorConstants;

void KorvoPayMerchantTLVValidator::validateTipAndFeeIndicator(const KorvoPayMerchantTLV& holder) {
    const Value& indicator = holder.tipAndFeeIndicator;
    if (!indicator || *indicator == "01") {
        validateNoFee(holder);
    } else if (*indicator == "02") {
        validateFixedFee(holder);
    } else if (*indicator == "03") {
        validatePercentageFee(holder);
    } else {
        // An empty indicator ends here too, which is why its own code "30" is never raised.
        addErrorCode(Codes::tipAndFeeIndicatorInvalidCriteria);
    }
}

void KorvoPayMerchantTLVValidator::validateNoFee(const KorvoPayMerchantTLV& holder) {
    if (holder.convenienceFeeAmount || holder.convenienceFeePercentage) {
        addErrorCode(Codes::tipAndFeeIndicatorInvalidTagsPresent);
    }
}

void KorvoPayMerchantTLVValidator::validateFixedFee(const KorvoPayMerchantTLV& holder) {
    if (holder.convenienceFeeAmount) {
        validateConvenienceFeeAmount(*holder.convenienceFeeAmount);
    } else {
        addErrorCode(Codes::convenienceInvalidTagPresent);
    }
    if (holder.convenienceFeePercentage) {
        addErrorCode(Codes::convenienceInvalidTagPresent);
    }
}

// A fixed fee beside the percentage is accepted and not looked at; one in its place gets a code that depends
// on the payload's format.
void KorvoPayMerchantTLVValidator::validatePercentageFee(const KorvoPayMerchantTLV& holder) {
    if (holder.convenienceFeePercentage) {
        validateConvenienceFeePercentage(*holder.convenienceFeePercentage);
        return;
    }
    if (!holder.convenienceFeeAmount) {
        addErrorCode(Codes::convenienceInvalidTagPresent);
        return;
    }
    if (!holder.payloadFormatIndicator) {
        addErrorCode(Codes::convenienceFeePercentageInvalidTagPresent);
    } else if (!holder.payloadFormatIndicator->empty()) {
        addErrorCode(Codes::convenienceInvalidTagPresent);
    }
}

void KorvoPayMerchantTLVValidator::validateConvenienceFeeAmount(const CountedText& amount) {
    validateAmountText(amount, {.longest = 9,
                                .isCorrect = isAboveZero,
                                .invalidLength = Codes::convenienceFeeAmountInvalidLength,
                                .incorrectValue = Codes::convenienceFeeAmountIncorrectValue,
                                .specialCharacters = Codes::convenienceFeeAmountContainsSpecialCharacters,
                                .withoutValue = Codes::convenienceFeeTagPresentWithoutValue});
}

void KorvoPayMerchantTLVValidator::validateConvenienceFeePercentage(const CountedText& percentage) {
    validateAmountText(percentage,
                       {.longest = 5,
                        .isCorrect = [](double number) noexcept { return number >= 0.01 && number <= 99.99; },
                        .invalidLength = Codes::convenienceFeePercentageInvalidLength,
                        .incorrectValue = Codes::convenienceFeePercentageIncorrectValue,
                        .specialCharacters = Codes::convenienceFeePercentageContaintsSpecialCharacters,
                        .withoutValue = Codes::convenienceFeePercentageTagPresentWithoutValue});
}

}  // namespace korvo
