#include <KorvoQRParser/Decoding/TextHelpers.h>
#include <KorvoQRParser/Parser/assembleQRCodeData.h>

#include <array>
#include <cstddef>
#include <optional>

namespace korvo {

namespace {

using TLV = KorvoPayMerchantTLV;
using Data = QRCodeData;

struct CopiedField {
    TLV::Value TLV::*from;
    void (Data::*to)(std::optional<std::string>) noexcept;
};

// clang-format off
constexpr std::array copiedFields{
    CopiedField{&TLV::korvoMerchantID, &Data::setKorvoMerchantID},
    CopiedField{&TLV::merchantName, &Data::setMerchantName},
    CopiedField{&TLV::merchantCategoryCode, &Data::setMerchantCategoryCode},
    CopiedField{&TLV::cityName, &Data::setCityName},
    CopiedField{&TLV::countryCode, &Data::setCountryCode},
    CopiedField{&TLV::currencyCode, &Data::setCurrencyCode},
    CopiedField{&TLV::transactionAmount, &Data::setTransactionAmount},
    CopiedField{&TLV::primaryID, &Data::setPrimaryID},
    CopiedField{&TLV::secondaryID, &Data::setSecondaryID},
    CopiedField{&TLV::tipAndFeeIndicator, &Data::setTipAndFeeIndicator},
    CopiedField{&TLV::convenienceFeeAmount, &Data::setConvenienceFeeAmount},
    CopiedField{&TLV::convenienceFeePercentage, &Data::setConvenienceFeePercentage},
    CopiedField{&TLV::payloadFormatIndicator, &Data::setPayloadFormatIndicator},
    CopiedField{&TLV::pointOfInitiation, &Data::setPointOfInitiation},
    CopiedField{&TLV::postalCode, &Data::setPostalCode},
    CopiedField{&TLV::masterCardPAN1, &Data::setMasterCardPAN1},
    CopiedField{&TLV::masterCardPAN2, &Data::setMasterCardPAN2},
    CopiedField{&TLV::NPCIID1, &Data::setNpciid1},
    CopiedField{&TLV::NPCIID2, &Data::setNpciid2},
    CopiedField{&TLV::crc, &Data::setCrc},
    CopiedField{&TLV::tag03, &Data::setTag03},
    CopiedField{&TLV::tag08, &Data::setTag08},
    CopiedField{&TLV::tag09, &Data::setTag09},
    CopiedField{&TLV::tag10, &Data::setTag10},
    CopiedField{&TLV::tag11, &Data::setTag11},
    CopiedField{&TLV::tag12, &Data::setTag12},
    CopiedField{&TLV::tag13, &Data::setTag13},
    CopiedField{&TLV::tag14, &Data::setTag14},
    CopiedField{&TLV::tag15, &Data::setTag15},
    CopiedField{&TLV::additionalDataField, &Data::setAdditionalDataField},
    CopiedField{&TLV::billNumber, &Data::setBillID},
    CopiedField{&TLV::mobileNumber, &Data::setMobileNumber},
    CopiedField{&TLV::storeID, &Data::setStoreID},
    CopiedField{&TLV::loyaltyNumber, &Data::setLoyaltyNumber},
    CopiedField{&TLV::referenceID, &Data::setReferenceID},
    CopiedField{&TLV::consumerID, &Data::setConsumerID},
    CopiedField{&TLV::terminalId, &Data::setTerminalID},
    CopiedField{&TLV::purpose, &Data::setPurpose},
    CopiedField{&TLV::additionalConsumerDataReq, &Data::setAdditionalConsumerDataRequest},
    CopiedField{&TLV::tagSixtyTwo10, &Data::setTagSixtyTwo10},
    CopiedField{&TLV::addDataMasterCard1, &Data::setAddDataMasterCard1},
    CopiedField{&TLV::addDataMasterCard2, &Data::setAddDataMasterCard2},
    CopiedField{&TLV::addDataNPCI1, &Data::setAddDataNpci1},
    CopiedField{&TLV::addDataNPCI2, &Data::setAddDataNpci2},
    CopiedField{&TLV::tagSixtyTwo15, &Data::setTagSixtyTwo15},
    CopiedField{&TLV::tagSixtyTwo16, &Data::setTagSixtyTwo16},
    CopiedField{&TLV::tagSixtyTwo17, &Data::setTagSixtyTwo17},
    CopiedField{&TLV::tagSixtyTwo18, &Data::setTagSixtyTwo18},
    CopiedField{&TLV::tagSixtyTwo19, &Data::setTagSixtyTwo19},
    CopiedField{&TLV::tagSixtyTwo20, &Data::setTagSixtyTwo20},
    CopiedField{&TLV::tagSixtyTwo21, &Data::setTagSixtyTwo21},
    CopiedField{&TLV::tagSixtyTwo22, &Data::setTagSixtyTwo22},
};

struct MandatoryFlag {
    TLV::Value TLV::*value;
    void (Data::*flag)(bool) noexcept;
};

// The setters of the first two also take the placeholder out of the record; the others leave it there.
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

std::string merchantPANFromMerchantID(std::string_view merchantID) {
    constexpr std::size_t prefixLength = 6;
    constexpr std::size_t panLength = 16;
    if (hasMoreCharactersThan(merchantID, panLength)) {
        stopProgram("merchantPANFromMerchantID", "the merchant identifier is longer than 16 characters");
    }
    const std::size_t length = characterCount(merchantID);
    if (length <= prefixLength) {
        return {};
    }
    const std::string_view prefix = substringWithOffsets(0, prefixLength, merchantID);
    std::string pan(prefix);
    pan.append(panLength - length, '0');
    pan.append(merchantID.substr(prefix.size()));
    return pan;
}

std::shared_ptr<QRCodeData> assembleQRCodeData(const KorvoPayMerchantTLV& holder) {
    auto data = std::make_shared<QRCodeData>();
    for (const CopiedField& field : copiedFields) {
        if (const TLV::Value& value = holder.*field.from) {
            ((*data).*field.to)(std::string(*value));
        }
    }
    if (holder.korvoMerchantID) {
        data->setKorvoMerchantPAN(merchantPANFromMerchantID(*holder.korvoMerchantID));
    }

    const bool isTwoDigitFormat = holder.payloadFormatIndicator == "01";
    for (const auto& [value, flag] : mandatoryFlags) {
        const TLV::Value& candidate = holder.*value;
        const bool isPlaceholder =
            candidate && (isTwoDigitFormat ? *candidate == "***" : beginsWith(*candidate, '?'));
        ((*data).*flag)(isPlaceholder);
    }
    if (!holder.payloadFormatIndicator) {
        data->setPrimaryIDLength(announcedLength(holder.primaryID));
        data->setSecondaryIDLength(announcedLength(holder.secondaryID));
    }
    return data;
}

}  // namespace korvo
