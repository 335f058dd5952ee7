#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>
#include <KorvoQRParser/Validation/Lifetimes.h>

#include <algorithm>
#include <utility>

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
    const bool isTwoDigit = holder != nullptr && holder->payloadFormatIndicator;
    if (isTwoDigit && holder->payloadFormatIndicator->empty()) {
        const std::lock_guard<std::mutex> lock(dispatch_);
        return errorCodes_;
    }
    // The rules collect into a list of their own, so that parses on several threads do not wait for each
    // other.
    KorvoPayMerchantTLVValidator run;
    if (isTwoDigit) {
        run.validatePayMerchantTLV01(holder);
        run.validateCRC(holder->crc, tlvString);
    } else {
        run.validatePayMerchantTLV00(holder);
    }
    if (!run.errorCodes_.empty() || holdsCodes_.load(std::memory_order_relaxed)) {
        const std::lock_guard<std::mutex> lock(dispatch_);
        errorCodes_ = run.errorCodes_;
        holdsCodes_.store(!errorCodes_.empty(), std::memory_order_relaxed);
    }
    return std::move(run.errorCodes_);
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
        // Few payloads raise more, so the list hardly ever grows again.
        errorCodes_.reserve(16);
        errorCodes_.emplace_back(code);
        holdsCodes_.store(true, std::memory_order_relaxed);
    }
}

void KorvoPayMerchantTLVValidator::resetErrorCodes() noexcept {
    errorCodes_.clear();
    holdsCodes_.store(false, std::memory_order_relaxed);
}

bool KorvoPayMerchantTLVValidator::holdsErrorCode(std::string_view code) const {
    return std::find(errorCodes_.begin(), errorCodes_.end(), code) != errorCodes_.end();
}

}  // namespace korvo
