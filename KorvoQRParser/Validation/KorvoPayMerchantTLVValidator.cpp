#include <KorvoQRParser/Decoding/Text/Lifetimes.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>

#include <algorithm>

namespace korvo {

KorvoPayMerchantTLVValidator& KorvoPayMerchantTLVValidator::sharedValidator() {
    static const NeverDestroyed<KorvoPayMerchantTLVValidator> validator(
        [] { return KorvoPayMerchantTLVValidator(); });
    return *validator;
}

auto KorvoPayMerchantTLVValidator::validatePayMerchantTLV(const KorvoPayMerchantTLV* holder) -> ErrorCodes {
    return validatePayMerchantTLV(holder, std::nullopt);
}

auto KorvoPayMerchantTLVValidator::validatePayMerchantTLV(const KorvoPayMerchantTLV* holder,
                                                          Payload tlvString) -> ErrorCodes {
    const std::lock_guard<std::mutex> lock(dispatch_);
    runRuleSet(holder, tlvString);
    return errorCodes_;
}

void KorvoPayMerchantTLVValidator::runRuleSet(const KorvoPayMerchantTLV* holder, Payload tlvString) {
    if (holder == nullptr || !holder->payloadFormatIndicator) {
        validatePayMerchantTLV00(holder);
    } else if (!holder->payloadFormatIndicator->empty()) {
        validatePayMerchantTLV01(holder);
        validateCRC(holder->crc, tlvString);
    }
}

auto KorvoPayMerchantTLVValidator::validatePayMerchantTLV00(const KorvoPayMerchantTLV* holder)
    -> const ErrorCodes& {
    resetErrorCodes();
    if (holder != nullptr) {
        validateMerchantID(holder->korvoMerchantID);
        validateMerchantName(holder->merchantName);
        validateMerchantCategoryCode(holder->merchantCategoryCode);
        validateCityName(holder->cityName);
        validateCountryCode(holder->countryCode);
        validateCurrencyCode(holder->currencyCode);
        validateTransactionAmount(holder->transactionAmount);
        validatePrimaryID(holder->primaryID);
        validateSecondaryID(holder->secondaryID);
        validateTipAndFeeIndicator(*holder);
    }
    return errorCodes_;
}

auto KorvoPayMerchantTLVValidator::validatePayMerchantTLV01(const KorvoPayMerchantTLV* holder)
    -> const ErrorCodes& {
    resetErrorCodes();
    if (holder != nullptr) {
        validatePayloadFormatIndicator(holder->payloadFormatIndicator);
        validateMerchantID(holder->korvoMerchantID);
        validateMerchantCategoryCode(holder->merchantCategoryCode);
        validateCurrencyCode(holder->currencyCode);
        validateTransactionAmount(holder->transactionAmount);
        validateTipAndFeeIndicator(*holder);
        validateCountryCode(holder->countryCode);
        validateMerchantName(holder->merchantName);
        validateCityName(holder->cityName);
        validatePostalCode(holder->postalCode);
        validateAdditionalDataField(*holder);
    }
    return errorCodes_;
}

void KorvoPayMerchantTLVValidator::addErrorCode(std::string_view code) {
    if (!holdsErrorCode(code)) {
        errorCodes_.emplace_back(code);
    }
}

bool KorvoPayMerchantTLVValidator::holdsErrorCode(std::string_view code) const {
    return std::find(errorCodes_.begin(), errorCodes_.end(), code) != errorCodes_.end();
}

}  // namespace korvo
