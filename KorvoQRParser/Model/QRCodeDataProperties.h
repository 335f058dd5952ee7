#ifndef KORVOQRPARSER_MODEL_QRCODEDATAPROPERTIES_H
#define KORVOQRPARSER_MODEL_QRCODEDATAPROPERTIES_H

/// The 70 properties of QRCodeData, named once: as the getter is called and as the setter's name continues.
///
/// Declaration order is VALUES, IDENTIFIER_FLAGS, LENGTHS, ADDITIONAL_DATA_FLAGS; the JSON text puts the same
/// groups into an order of its own. To add a property, add a row here, its two declarations and the new size
/// to QRCodeData.h, one to the header of that name for Objective-C, its line to QRCodeDataDescription.cpp,
/// and what fills it to assembleQRCodeData.cpp. A declaration or a size that is missing does not compile; the
/// rest shows in the renderings that the tests compare whole.

// clang-format off
#define KORVO_VALUE_PROPERTIES(TEXT)                                   \
    TEXT(korvoMerchantID, KorvoMerchantID)                             \
    TEXT(korvoMerchantPAN, KorvoMerchantPAN)                           \
    TEXT(merchantName, MerchantName)                                   \
    TEXT(merchantCategoryCode, MerchantCategoryCode)                   \
    TEXT(cityName, CityName)                                           \
    TEXT(countryCode, CountryCode)                                     \
    TEXT(currencyCode, CurrencyCode)                                   \
    TEXT(transactionAmount, TransactionAmount)                         \
    TEXT(primaryID, PrimaryID)                                         \
    TEXT(secondaryID, SecondaryID)                                     \
    TEXT(tipAndFeeIndicator, TipAndFeeIndicator)                       \
    TEXT(convenienceFeeAmount, ConvenienceFeeAmount)                   \
    TEXT(convenienceFeePercentage, ConvenienceFeePercentage)           \
    TEXT(payloadFormatIndicator, PayloadFormatIndicator)               \
    TEXT(pointOfInitiation, PointOfInitiation)                         \
    TEXT(postalCode, PostalCode)                                       \
    TEXT(masterCardPAN1, MasterCardPAN1)                               \
    TEXT(masterCardPAN2, MasterCardPAN2)                               \
    TEXT(npciid1, Npciid1)                                             \
    TEXT(npciid2, Npciid2)                                             \
    TEXT(crc, Crc)                                                     \
    TEXT(tag03, Tag03)                                                 \
    TEXT(tag08, Tag08)                                                 \
    TEXT(tag09, Tag09)                                                 \
    TEXT(tag10, Tag10)                                                 \
    TEXT(tag11, Tag11)                                                 \
    TEXT(tag12, Tag12)                                                 \
    TEXT(tag13, Tag13)                                                 \
    TEXT(tag14, Tag14)                                                 \
    TEXT(tag15, Tag15)                                                 \
    TEXT(additionalDataField, AdditionalDataField)                     \
    TEXT(billID, BillID)                                               \
    TEXT(mobileNumber, MobileNumber)                                   \
    TEXT(storeID, StoreID)                                             \
    TEXT(loyaltyNumber, LoyaltyNumber)                                 \
    TEXT(referenceID, ReferenceID)                                     \
    TEXT(consumerID, ConsumerID)                                       \
    TEXT(terminalID, TerminalID)                                       \
    TEXT(purpose, Purpose)                                             \
    TEXT(additionalConsumerDataRequest, AdditionalConsumerDataRequest) \
    TEXT(addDataMasterCard1, AddDataMasterCard1)                       \
    TEXT(addDataMasterCard2, AddDataMasterCard2)                       \
    TEXT(addDataNpci1, AddDataNpci1)                                   \
    TEXT(addDataNpci2, AddDataNpci2)                                   \
    TEXT(tagSixtyTwo10, TagSixtyTwo10)                                 \
    TEXT(tagSixtyTwo15, TagSixtyTwo15)                                 \
    TEXT(tagSixtyTwo16, TagSixtyTwo16)                                 \
    TEXT(tagSixtyTwo17, TagSixtyTwo17)                                 \
    TEXT(tagSixtyTwo18, TagSixtyTwo18)                                 \
    TEXT(tagSixtyTwo19, TagSixtyTwo19)                                 \
    TEXT(tagSixtyTwo20, TagSixtyTwo20)                                 \
    TEXT(tagSixtyTwo21, TagSixtyTwo21)                                 \
    TEXT(tagSixtyTwo22, TagSixtyTwo22)

#define KORVO_IDENTIFIER_FLAG_PROPERTIES(FLAG)           \
    FLAG(isPrimaryIDMandatory, IsPrimaryIDMandatory)     \
    FLAG(isSecondaryIDMandatory, IsSecondaryIDMandatory)

#define KORVO_LENGTH_PROPERTIES(TEXT)          \
    TEXT(primaryIDLength, PrimaryIDLength)     \
    TEXT(secondaryIDLength, SecondaryIDLength)

#define KORVO_ADDITIONAL_DATA_FLAG_PROPERTIES(FLAG)                                        \
    FLAG(isBillIDMandatory, IsBillIDMandatory)                                             \
    FLAG(isMobileNumberMandatory, IsMobileNumberMandatory)                                 \
    FLAG(isStoreIDMandatory, IsStoreIDMandatory)                                           \
    FLAG(isLoyaltyNumberMandatory, IsLoyaltyNumberMandatory)                               \
    FLAG(isReferenceIDMandatory, IsReferenceIDMandatory)                                   \
    FLAG(isConsumerIDMandatory, IsConsumerIDMandatory)                                     \
    FLAG(isTerminalIDMandatory, IsTerminalIDMandatory)                                     \
    FLAG(isPurposeMandatory, IsPurposeMandatory)                                           \
    FLAG(isAdditonalConsumerDataRequestMandatory, IsAdditonalConsumerDataRequestMandatory) \
    FLAG(isAddDataMasterCard1Mandatory, IsAddDataMasterCard1Mandatory)                     \
    FLAG(isAddDataMasterCard2Mandatory, IsAddDataMasterCard2Mandatory)                     \
    FLAG(isAddDataNpci1Mandatory, IsAddDataNpci1Mandatory)                                 \
    FLAG(isAddDataNpci2Mandatory, IsAddDataNpci2Mandatory)
// clang-format on

#endif
