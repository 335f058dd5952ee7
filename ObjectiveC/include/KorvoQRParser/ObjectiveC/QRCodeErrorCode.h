#ifndef KORVOQRPARSER_OBJECTIVEC_QRCODEERRORCODE_H
#define KORVOQRPARSER_OBJECTIVEC_QRCODEERRORCODE_H

#import <KorvoQRParser/ObjectiveC/Compatibility.h>

NS_ASSUME_NONNULL_BEGIN

/// The error codes of the catalogue, for a switch:
///
///     switch ([QRCodeError errorCodeFromText:text]) {
///         case QRCodeErrorCodeCrcInvalidValue: ...
///
/// The values are the codes' numbers, the names are those of +[QRCodeError nameOfErrorCode:]. The misspelled
/// names are the published ones. A later version may add some.
// NOLINTNEXTLINE(modernize-use-using)
typedef NS_ENUM(NSInteger, QRCodeErrorCode) {
    QRCodeErrorCodeUnknown = -1,  ///< no code of the catalogue
    QRCodeErrorCodeMalformedTags = 0,
    QRCodeErrorCodeMerchantIdInvalidStartingDigit = 1,
    QRCodeErrorCodeMerchantIdInvalidLength = 2,
    QRCodeErrorCodeMerchantIdInvalidCheckDigit = 3,
    QRCodeErrorCodeMerchantIdRedundantSequence = 4,
    QRCodeErrorCodeMerchantIdNotPresent = 5,
    QRCodeErrorCodeMerchantNameInvalidLengthOrCharacters = 6,
    QRCodeErrorCodeMerchantNameNotPresent = 7,
    QRCodeErrorCodeMerchantCategoryCodeInvalidLength = 8,
    QRCodeErrorCodeMerchantCategoryCodeNotPresent = 9,
    QRCodeErrorCodeCityNameInvalidLengthOrCharacters = 10,
    QRCodeErrorCodeCityNameNotPresent = 11,
    QRCodeErrorCodeCountryCodeInvalidLengthOrCharacters = 12,
    QRCodeErrorCodeCountryCodeNotPresent = 13,
    QRCodeErrorCodeCurrencyCodeInvaidLength = 14,
    QRCodeErrorCodeCurrencyCodeNotPresent = 15,
    QRCodeErrorCodeTransactionAmountInvalidLength = 16,
    QRCodeErrorCodeTransactionAmountIncorrectValue = 17,
    QRCodeErrorCodeTransactionAmountTagPresentWithoutAmountValue = 18,
    QRCodeErrorCodeTransactionAmountContainsSpecialCharacters = 19,
    QRCodeErrorCodePrimaryIdInvalidLengthOrCharacters = 20,
    QRCodeErrorCodePrimaryIdTagPresentWithoutValue = 21,
    QRCodeErrorCodePrimaryIdInvalidFormat = 23,
    QRCodeErrorCodeSecondaryIdInvalidLengthOrCharacters = 24,
    QRCodeErrorCodeSecondaryIdTagPresentWithoutValue = 25,
    QRCodeErrorCodeTipAndFeeIndicatorInvalidCriteria = 28,
    QRCodeErrorCodeTipAndFeeIndicatorInvalidTagsPresent = 29,
    QRCodeErrorCodeTipAndFeeIndicatorTagPresentWithoutValue = 30,
    QRCodeErrorCodeConvenienceFeeAmountInvalidLength = 31,
    QRCodeErrorCodeConvenienceFeeAmountIncorrectValue = 32,
    QRCodeErrorCodeConvenienceFeeAmountContainsSpecialCharacters = 33,
    QRCodeErrorCodeConvenienceFeeTagPresentWithoutValue = 34,
    QRCodeErrorCodeConvenienceFeePercentageInvalidLength = 35,
    QRCodeErrorCodeConvenienceFeePercentageIncorrectValue = 36,
    QRCodeErrorCodeConvenienceFeePercentageContaintsSpecialCharacters = 37,
    QRCodeErrorCodeConvenienceFeePercentageTagPresentWithoutValue = 38,
    QRCodeErrorCodeConvenienceInvalidTagPresent = 39,
    QRCodeErrorCodeConvenienceFeePercentageInvalidTagPresent = 40,
    QRCodeErrorCodePayloadFormatIndicatorInvalidLength = 41,
    QRCodeErrorCodePayloadFormatIndicatorInvalidValue = 42,
    QRCodeErrorCodePostalCodeIndicatorInvalidLength = 43,
    QRCodeErrorCodeAdditionalDataFieldInvalidLength = 44,
    QRCodeErrorCodeAdditionalDataInformationInvalidLength = 45,
    QRCodeErrorCodeAdditionalConsumerDataInvalidValue = 46,
    QRCodeErrorCodeCrcInvalidValue = 48,
};

NS_ASSUME_NONNULL_END

#endif
