#include <KorvoQRParser/Decoding/Text/TextHelpers.h>
#include <KorvoQRParser/Model/QRCodeDataFiller.h>
#include <KorvoQRParser/Parser/assembleQRCodeData.h>

#include <array>
#include <cstddef>
#include <optional>

namespace korvo {

namespace {

using TLV = KorvoPayMerchantTLV;
using Data = QRCodeData;

// The holder's field, and the record's property that gets its value. A list for the preprocessor, as fifty
// tests in a row are quicker than a loop over a table.
// clang-format off
#define KORVO_COPIED_FIELDS(COPY)                                  \
    COPY(korvoMerchantID, korvoMerchantID)                         \
    COPY(merchantName, merchantName)                               \
    COPY(merchantCategoryCode, merchantCategoryCode)               \
    COPY(cityName, cityName)                                       \
    COPY(countryCode, countryCode)                                 \
    COPY(currencyCode, currencyCode)                               \
    COPY(transactionAmount, transactionAmount)                     \
    COPY(primaryID, primaryID)                                     \
    COPY(secondaryID, secondaryID)                                 \
    COPY(tipAndFeeIndicator, tipAndFeeIndicator)                   \
    COPY(convenienceFeeAmount, convenienceFeeAmount)               \
    COPY(convenienceFeePercentage, convenienceFeePercentage)       \
    COPY(payloadFormatIndicator, payloadFormatIndicator)           \
    COPY(pointOfInitiation, pointOfInitiation)                     \
    COPY(postalCode, postalCode)                                   \
    COPY(masterCardPAN1, masterCardPAN1)                           \
    COPY(masterCardPAN2, masterCardPAN2)                           \
    COPY(NPCIID1, npciid1)                                         \
    COPY(NPCIID2, npciid2)                                         \
    COPY(crc, crc)                                                 \
    COPY(tag03, tag03)                                             \
    COPY(tag08, tag08)                                             \
    COPY(tag09, tag09)                                             \
    COPY(tag10, tag10)                                             \
    COPY(tag11, tag11)                                             \
    COPY(tag12, tag12)                                             \
    COPY(tag13, tag13)                                             \
    COPY(tag14, tag14)                                             \
    COPY(tag15, tag15)                                             \
    COPY(additionalDataField, additionalDataField)                 \
    COPY(billNumber, billID)                                       \
    COPY(mobileNumber, mobileNumber)                               \
    COPY(storeID, storeID)                                         \
    COPY(loyaltyNumber, loyaltyNumber)                             \
    COPY(referenceID, referenceID)                                 \
    COPY(consumerID, consumerID)                                   \
    COPY(terminalId, terminalID)                                   \
    COPY(purpose, purpose)                                         \
    COPY(additionalConsumerDataReq, additionalConsumerDataRequest) \
    COPY(tagSixtyTwo10, tagSixtyTwo10)                             \
    COPY(addDataMasterCard1, addDataMasterCard1)                   \
    COPY(addDataMasterCard2, addDataMasterCard2)                   \
    COPY(addDataNPCI1, addDataNpci1)                               \
    COPY(addDataNPCI2, addDataNpci2)                               \
    COPY(tagSixtyTwo15, tagSixtyTwo15)                             \
    COPY(tagSixtyTwo16, tagSixtyTwo16)                             \
    COPY(tagSixtyTwo17, tagSixtyTwo17)                             \
    COPY(tagSixtyTwo18, tagSixtyTwo18)                             \
    COPY(tagSixtyTwo19, tagSixtyTwo19)                             \
    COPY(tagSixtyTwo20, tagSixtyTwo20)                             \
    COPY(tagSixtyTwo21, tagSixtyTwo21)                             \
    COPY(tagSixtyTwo22, tagSixtyTwo22)
// clang-format on

struct MandatoryFlag {
    TLV::Value TLV::*value;
    void (Data::*flag)(bool) noexcept;
};

// The setters of the first two also take the placeholder out of the record; the others leave it there.
// clang-format off
constexpr std::array mandatoryFlags{
    MandatoryFlag{&TLV::primaryID, &Data::setIsPrimaryIDMandatory},
    MandatoryFlag{&TLV::secondaryID, &Data::setIsSecondaryIDMandatory},
    MandatoryFlag{&TLV::billNumber, &Data::setIsBillIDMandatory},
    MandatoryFlag{&TLV::mobileNumber, &Data::setIsMobileNumberMandatory},
    MandatoryFlag{&TLV::storeID, &Data::setIsStoreIDMandatory},
    MandatoryFlag{&TLV::loyaltyNumber, &Data::setIsLoyaltyNumberMandatory},
    MandatoryFlag{&TLV::referenceID, &Data::setIsReferenceIDMandatory},
    MandatoryFlag{&TLV::consumerID, &Data::setIsConsumerIDMandatory},
    MandatoryFlag{&TLV::terminalId, &Data::setIsTerminalIDMandatory},
    MandatoryFlag{&TLV::purpose, &Data::setIsPurposeMandatory},
    MandatoryFlag{&TLV::additionalConsumerDataReq, &Data::setIsAdditonalConsumerDataRequestMandatory},
    MandatoryFlag{&TLV::addDataMasterCard1, &Data::setIsAddDataMasterCard1Mandatory},
    MandatoryFlag{&TLV::addDataMasterCard2, &Data::setIsAddDataMasterCard2Mandatory},
    MandatoryFlag{&TLV::addDataNPCI1, &Data::setIsAddDataNpci1Mandatory},
    MandatoryFlag{&TLV::addDataNPCI2, &Data::setIsAddDataNpci2Mandatory},
};
// clang-format on

void copyIfPresent(const TLV::Value& value, QRCodeDataFiller& filler, QRCodeDataFiller::TextIndex property) {
    if (value) {
        filler.set(property, value->text());
    }
}

// The length that a placeholder identifier announces, in decimal: its second character as a base-27 digit.
std::optional<std::string> announcedLength(const TLV::Value& identifier) {
    if (!identifier || !beginsWith(*identifier, '?')) {
        return std::nullopt;
    }
    const auto digit = substringFromOffset(1, *identifier);
    const auto length = digit ? parseInteger(*digit, 27) : std::nullopt;
    return length ? std::optional(std::to_string(*length)) : std::nullopt;
}

}  // namespace

std::string merchantPANFromMerchantID(const CountedText& merchantID) {
    constexpr std::size_t prefixLength = 6;
    constexpr std::size_t panLength = 16;
    const std::size_t length = merchantID.characterCount();
    if (length > panLength) {
        stopProgram("merchantPANFromMerchantID", "the merchant identifier is longer than 16 characters");
    }
    if (length <= prefixLength) {
        return {};
    }
    const std::string_view prefix = substringWithOffsets(0, prefixLength, merchantID);
    std::string pan(prefix);
    pan.append(panLength - length, '0');
    pan.append(merchantID.text().substr(prefix.size()));
    return pan;
}

std::shared_ptr<QRCodeData> assembleQRCodeData(const KorvoPayMerchantTLV& holder) {
    auto data = std::make_shared<QRCodeData>();
    QRCodeDataFiller filler(*data);
#define KORVO_COPY(field, property) copyIfPresent(holder.field, filler, QRCodeDataFiller::property);
    KORVO_COPIED_FIELDS(KORVO_COPY)
#undef KORVO_COPY
    if (holder.korvoMerchantID) {
        data->setKorvoMerchantPAN(merchantPANFromMerchantID(*holder.korvoMerchantID));
    }

    // A new record's flags are all false.
    const bool isTwoDigitFormat = holder.payloadFormatIndicator == "01";
    for (const auto& [value, flag] : mandatoryFlags) {
        const TLV::Value& candidate = holder.*value;
        const bool isPlaceholder =
            candidate && (isTwoDigitFormat ? *candidate == "***" : beginsWith(*candidate, '?'));
        if (isPlaceholder) {
            ((*data).*flag)(true);
        }
    }
    if (!holder.payloadFormatIndicator) {
        data->setPrimaryIDLength(announcedLength(holder.primaryID));
        data->setSecondaryIDLength(announcedLength(holder.secondaryID));
    }
    return data;
}

}  // namespace korvo
