#ifndef KORVOQRPARSER_VALIDATION_KORVOPAYMERCHANTTLVVALIDATOR_H
#define KORVOQRPARSER_VALIDATION_KORVOPAYMERCHANTTLVVALIDATOR_H

#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Validation/Limits.h>
#include <KorvoQRParser/Validation/Pattern.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvo {

/// Checks a decoded payload against the scheme's rules and collects the codes of the rules that it violates,
/// each once, in the order in which they were first raised. No rule stops the run.
///
/// The two dispatchers (validatePayMerchantTLV) may be called on one instance from any number of threads.
/// They take a lock only when their run or the one before it has raised a code, or when the indicator is
/// present but empty. All other operations are for one thread at a time.
class KorvoPayMerchantTLVValidator {
  public:
    using Value = KorvoPayMerchantTLV::Value;
    using Payload = std::optional<std::string_view>;
    using ErrorCodes = std::vector<std::string>;

    /// The instance that all parses share, made on first use.
    static KorvoPayMerchantTLVValidator& sharedValidator();

    /// The codes of the last run.
    const ErrorCodes& errorCodes() const noexcept { return errorCodes_; }

    /// A stored flag that no rule reads.
    bool isDiggingDeepTLVRequired() const noexcept { return isDiggingDeepTLVRequired_; }
    void setIsDiggingDeepTLVRequired(bool value) noexcept { isDiggingDeepTLVRequired_ = value; }

    /// Runs the rule set that the payload format indicator selects, without the checksum, and returns its
    /// codes. An absent indicator selects the rules of the one-character format, a present one those of the
    /// two-digit format. A present but empty indicator selects none, so the codes of the previous run stay
    /// and are returned. A null holder raises nothing.
    ErrorCodes validatePayMerchantTLV(const KorvoPayMerchantTLV* holder);

    /// The same, but in the two-digit format the checksum of the whole payload text, `tlvString`, is checked
    /// last. An absent text is not checked.
    ErrorCodes validatePayMerchantTLV(const KorvoPayMerchantTLV* holder, Payload tlvString);

    /// Clears the codes and runs the rules of the one-character format. A null holder raises nothing.
    const ErrorCodes& validatePayMerchantTLV00(const KorvoPayMerchantTLV* holder);

    /// Clears the codes and runs the rules of the two-digit format, without the checksum. A null holder
    /// raises nothing.
    const ErrorCodes& validatePayMerchantTLV01(const KorvoPayMerchantTLV* holder);

    /// Runs the rule of the merchant identifier, which adds to the codes. True when the list then contains
    /// none of that rule's codes, "1" to "5".
    bool validateMerchantID(const Value& merchantID);

    /// Runs the rule of the transaction amount, which adds to the codes. True when the rule raised nothing,
    /// as for an absent amount.
    bool validateAmount(const Value& amount);

    void resetErrorCodes() noexcept;

  private:
    friend struct TipAndFeeIndicatorTypes;  // the tests read the published names

    /// The meanings of the tip or fee indicators "01", "02" and "03", their published names in the order of
    /// the enumerators, and the enumerator of a name (absent for any other text). No rule uses them: the
    /// rules compare the indicators themselves.
    enum class TipAndFeeIndicatorType : unsigned char { Tip, Fee, Percentage };
    static constexpr auto tipAndFeeIndicatorTypes =
        std::to_array<std::string_view>({"Tip", "Fee", "Percentage"});
    static constexpr std::optional<TipAndFeeIndicatorType> tipAndFeeIndicatorType(std::string_view name) {
        for (std::size_t i = 0; i < tipAndFeeIndicatorTypes.size(); ++i) {
            if (tipAndFeeIndicatorTypes[i] == name) {
                return static_cast<TipAndFeeIndicatorType>(i);
            }
        }
        return std::nullopt;
    }

    /// The limits of an amount, and the codes that are raised when it breaks them.
    struct AmountRule {
        Limits::Length length;
        bool (*isCorrect)(std::string_view) noexcept;  ///< whether the number itself is allowed
        std::string_view invalidLength;                ///< also for a letter
        std::string_view incorrectValue;               ///< also for a text that is not a number
        std::string_view specialCharacters;  ///< for characters other than letters, digits and points
        std::string_view withoutValue;       ///< for an empty text
    };

    /// The limits of an identifier that may be a placeholder, and the codes that are raised when it breaks
    /// them.
    struct IdentifierRule {
        const Pattern& pattern;  ///< for the text after the "?" of a placeholder
        std::string_view invalidLength;
        std::string_view withoutValue;
        std::string_view invalidFormat;
    };

    void addErrorCode(std::string_view code);
    bool holdsErrorCode(std::string_view code) const;

    // Shared by several tags
    void validateAmountText(const CountedText& amount, const AmountRule& rule);
    void validateIdentifier(const Value& identifier, const IdentifierRule& rule);

    // Root tags
    void validatePayloadFormatIndicator(const Value& payloadFormatIndicator);
    void validateMerchantCategoryCode(const Value& merchantCategoryCode);
    void validateCurrencyCode(const Value& currencyCode);
    void validateTransactionAmount(const Value& transactionAmount);
    void validateCountryCode(const Value& countryCode);
    void validateMerchantName(const Value& merchantName);
    void validateCityName(const Value& cityName);
    void validatePostalCode(const Value& postalCode);
    void validatePrimaryID(const Value& primaryID);
    void validateSecondaryID(const Value& secondaryID);
    void validateCRC(const Value& crc, Payload tlvString);

    // Tip and convenience fee
    void validateTipAndFeeIndicator(const KorvoPayMerchantTLV& holder);
    void validateNoFee(const KorvoPayMerchantTLV& holder);
    void validateFixedFee(const KorvoPayMerchantTLV& holder);
    void validatePercentageFee(const KorvoPayMerchantTLV& holder);
    void validateConvenienceFeeAmount(const CountedText& amount);
    void validateConvenienceFeePercentage(const CountedText& percentage);

    // Additional data field
    void validateAdditionalDataField(const KorvoPayMerchantTLV& holder);
    void validateAdditionalConsumerDataReq(const Value& request);

    ErrorCodes errorCodes_;
    std::atomic<bool> holdsCodes_ = false;  // whether errorCodes_ holds any, read without the lock
    bool isDiggingDeepTLVRequired_ = false;
    std::mutex dispatch_;
};

}  // namespace korvo

#endif
