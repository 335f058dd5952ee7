#include <KorvoQRParser/Decoding/TipAndFeeIndicator.h>
#include <KorvoQRParser/Validation/DecimalText.h>
#include <KorvoQRParser/Validation/KorvoErrorConstants.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>
#include <KorvoQRParser/Validation/SharedRules.h>

#include <string_view>

namespace korvo {

namespace Codes = KorvoErrorConstants;

void KorvoPayMerchantTLVValidator::validateTipAndFeeIndicator(const KorvoPayMerchantTLV& holder) {
    if (!holder.tipAndFeeIndicator) {
        validateNoFee(holder);
        return;
    }
    const std::string_view indicator = holder.tipAndFeeIndicator->text();
    if (!TipAndFeeIndicator::isKnown(indicator)) {
        addErrorCode(Codes::tipAndFeeIndicatorInvalidCriteria);
        return;
    }
    if (indicator == TipAndFeeIndicator::tip) {
        validateNoFee(holder);
    }
    // Unreachable, because an empty indicator is not a known one. It keeps the code's place in the order.
    if (indicator.empty()) {
        addErrorCode(Codes::tipAndFeeIndicatorTagPresentWithoutValue);
    }
    if (indicator == TipAndFeeIndicator::fixedFee) {
        validateFixedFee(holder);
    }
    if (indicator == TipAndFeeIndicator::percentage) {
        validatePercentageFee(holder);
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

// A fixed fee next to the percentage is accepted without being checked. A fixed fee instead of the percentage
// raises a code that depends on the payload's format.
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
    validateAmountText(amount, {.length = Limits::convenienceFeeAmount,
                                .isCorrect = isAboveZero,
                                .invalidLength = Codes::convenienceFeeAmountInvalidLength,
                                .incorrectValue = Codes::convenienceFeeAmountIncorrectValue,
                                .specialCharacters = Codes::convenienceFeeAmountContainsSpecialCharacters,
                                .withoutValue = Codes::convenienceFeeTagPresentWithoutValue});
}

void KorvoPayMerchantTLVValidator::validateConvenienceFeePercentage(const CountedText& percentage) {
    validateAmountText(percentage,
                       {.length = Limits::convenienceFeePercentage,
                        .isCorrect = isPercentage,
                        .invalidLength = Codes::convenienceFeePercentageInvalidLength,
                        .incorrectValue = Codes::convenienceFeePercentageIncorrectValue,
                        .specialCharacters = Codes::convenienceFeePercentageContaintsSpecialCharacters,
                        .withoutValue = Codes::convenienceFeePercentageTagPresentWithoutValue});
}

}  // namespace korvo
