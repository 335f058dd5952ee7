#ifndef KORVOQRPARSER_MODEL_QRCODEDATAPROPERTIES_H
#define KORVOQRPARSER_MODEL_QRCODEDATAPROPERTIES_H

#include <array>
#include <cstddef>
#include <string_view>

namespace korvo {

// The properties of QRCodeData, one row each, in the order of their JSON members: the name, and the name as
// the setter spells it. All code that handles every property iterates over this list or is checked against
// it.
// clang-format off
#define KORVO_QRCODEDATA_PROPERTIES(TEXT, FLAG)                                            \
    TEXT(korvoMerchantID, KorvoMerchantID)                                                 \
    TEXT(korvoMerchantPAN, KorvoMerchantPAN)                                               \
    TEXT(merchantName, MerchantName)                                                       \
    TEXT(merchantCategoryCode, MerchantCategoryCode)                                       \
    TEXT(cityName, CityName)                                                               \
    TEXT(countryCode, CountryCode)                                                         \
    TEXT(currencyCode, CurrencyCode)                                                       \
    TEXT(transactionAmount, TransactionAmount)                                             \
    TEXT(primaryID, PrimaryID)                                                             \
    TEXT(secondaryID, SecondaryID)                                                         \
    TEXT(tipAndFeeIndicator, TipAndFeeIndicator)                                           \
    TEXT(convenienceFeeAmount, ConvenienceFeeAmount)                                       \
    TEXT(convenienceFeePercentage, ConvenienceFeePercentage)                               \
    TEXT(payloadFormatIndicator, PayloadFormatIndicator)                                   \
    TEXT(pointOfInitiation, PointOfInitiation)                                             \
    TEXT(postalCode, PostalCode)                                                           \
    TEXT(masterCardPAN1, MasterCardPAN1)                                                   \
    TEXT(masterCardPAN2, MasterCardPAN2)                                                   \
    TEXT(npciid1, Npciid1)                                                                 \
    TEXT(npciid2, Npciid2)                                                                 \
    TEXT(crc, Crc)                                                                         \
    TEXT(tag03, Tag03)                                                                     \
    TEXT(tag08, Tag08)                                                                     \
    TEXT(tag09, Tag09)                                                                     \
    TEXT(tag10, Tag10)                                                                     \
    TEXT(tag11, Tag11)                                                                     \
    TEXT(tag12, Tag12)                                                                     \
    TEXT(tag13, Tag13)                                                                     \
    TEXT(tag14, Tag14)                                                                     \
    TEXT(tag15, Tag15)                                                                     \
    TEXT(additionalDataField, AdditionalDataField)                                         \
    TEXT(billID, BillID)                                                                   \
    TEXT(mobileNumber, MobileNumber)                                                       \
    TEXT(storeID, StoreID)                                                                 \
    TEXT(loyaltyNumber, LoyaltyNumber)                                                     \
    TEXT(referenceID, ReferenceID)                                                         \
    TEXT(consumerID, ConsumerID)                                                           \
    TEXT(terminalID, TerminalID)                                                           \
    TEXT(purpose, Purpose)                                                                 \
    TEXT(additionalConsumerDataRequest, AdditionalConsumerDataRequest)                     \
    TEXT(addDataMasterCard1, AddDataMasterCard1)                                           \
    TEXT(addDataMasterCard2, AddDataMasterCard2)                                           \
    TEXT(addDataNpci1, AddDataNpci1)                                                       \
    TEXT(addDataNpci2, AddDataNpci2)                                                       \
    TEXT(tagSixtyTwo10, TagSixtyTwo10)                                                     \
    TEXT(tagSixtyTwo15, TagSixtyTwo15)                                                     \
    TEXT(tagSixtyTwo16, TagSixtyTwo16)                                                     \
    TEXT(tagSixtyTwo17, TagSixtyTwo17)                                                     \
    TEXT(tagSixtyTwo18, TagSixtyTwo18)                                                     \
    TEXT(tagSixtyTwo19, TagSixtyTwo19)                                                     \
    TEXT(tagSixtyTwo20, TagSixtyTwo20)                                                     \
    TEXT(tagSixtyTwo21, TagSixtyTwo21)                                                     \
    TEXT(tagSixtyTwo22, TagSixtyTwo22)                                                     \
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
    FLAG(isAddDataNpci2Mandatory, IsAddDataNpci2Mandatory)                                 \
    FLAG(isPrimaryIDMandatory, IsPrimaryIDMandatory)                                       \
    FLAG(isSecondaryIDMandatory, IsSecondaryIDMandatory)                                   \
    TEXT(primaryIDLength, PrimaryIDLength)                                                 \
    TEXT(secondaryIDLength, SecondaryIDLength)

/// The index of each property.
enum class QRCodeDataProperty : unsigned char {
#define KORVO_INDEX(name, Name) name,
    KORVO_QRCODEDATA_PROPERTIES(KORVO_INDEX, KORVO_INDEX)
#undef KORVO_INDEX
};

/// A property of the record.
struct QRCodeDataPropertyRow {
    std::string_view name;
    QRCodeDataProperty index;
    bool isFlag;         ///< true for a flag, false for a text that may be absent
    unsigned char slot;  ///< the position among the record's flags or texts
};

/// All properties, in the order of their indices.
inline constexpr auto qrCodeDataProperties = [] {
#define KORVO_TEXT(name, Name) QRCodeDataPropertyRow{#name, QRCodeDataProperty::name, false, 0},
#define KORVO_FLAG(name, Name) QRCodeDataPropertyRow{#name, QRCodeDataProperty::name, true, 0},
    std::array rows{KORVO_QRCODEDATA_PROPERTIES(KORVO_TEXT, KORVO_FLAG)};
#undef KORVO_FLAG
#undef KORVO_TEXT
    unsigned char texts = 0;
    unsigned char flags = 0;
    for (auto& row : rows) {
        row.slot = row.isFlag ? flags++ : texts++;
    }
    return rows;
}();
// clang-format on

/// The row of a property.
constexpr const QRCodeDataPropertyRow& propertyRow(QRCodeDataProperty property) noexcept {
    return qrCodeDataProperties[static_cast<std::size_t>(property)];
}

}  // namespace korvo

#endif
