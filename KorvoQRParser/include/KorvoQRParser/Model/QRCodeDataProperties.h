#ifndef KORVOQRPARSER_MODEL_QRCODEDATAPROPERTIES_H
#define KORVOQRPARSER_MODEL_QRCODEDATAPROPERTIES_H

#include <array>
#include <cstddef>
#include <optional>
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

// clang-format on

/// The properties of QRCodeData, in the order of their JSON members. A later version may add some at the end.
enum class QRCodeDataProperty : unsigned char {
#define KORVO_INDEX(name, Name) name,
    KORVO_QRCODEDATA_PROPERTIES(KORVO_INDEX, KORVO_INDEX)
#undef KORVO_INDEX
};

/// A property of QRCodeData, to walk over a record:
///
///     for (const auto& row : korvo::qrCodeDataProperties) {
///         if (row.isFlag ? data.flag(row.index) : data.text(row.index).has_value()) {
///             show(row.name);
///         }
///     }
struct QRCodeDataPropertyRow {
    std::string_view name;     ///< the name of the getter, and of the JSON member
    QRCodeDataProperty index;  ///< its place in qrCodeDataProperties
    bool isFlag;               ///< true for a flag, false for a text that may be absent
};

/// All properties, in the order of their indices.
inline constexpr std::array qrCodeDataProperties{
#define KORVO_TEXT_ROW(name, Name) QRCodeDataPropertyRow{#name, QRCodeDataProperty::name, false},
#define KORVO_FLAG_ROW(name, Name) QRCodeDataPropertyRow{#name, QRCodeDataProperty::name, true},
    KORVO_QRCODEDATA_PROPERTIES(KORVO_TEXT_ROW, KORVO_FLAG_ROW)
#undef KORVO_FLAG_ROW
#undef KORVO_TEXT_ROW
};

/// The row of a property. The index must be that of an enumerator; this is not checked.
constexpr const QRCodeDataPropertyRow& propertyRow(QRCodeDataProperty property) noexcept {
    return qrCodeDataProperties[static_cast<std::size_t>(property)];
}

/// The property with this name; absent when there is none.
constexpr std::optional<QRCodeDataProperty> propertyNamed(std::string_view name) noexcept {
    for (const QRCodeDataPropertyRow& row : qrCodeDataProperties) {
        if (row.name == name) {
            return row.index;
        }
    }
    return std::nullopt;
}

}  // namespace korvo

#endif
