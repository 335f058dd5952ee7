#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Decoding/PMValidTLV01AdditionalDataField.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV00.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV01.h>

#include <array>
#include <cstddef>

namespace korvo {

namespace {

using TLV = KorvoPayMerchantTLV;
using Field = TLV::Value TLV::*;

// The fields in the order of their tags: position i is case i of the tag's enumeration.

// Tags "00" to "15" and "52" to "63"; those between are admitted and not kept.
constexpr std::array<Field, 16> lowTLV01Fields{
    &TLV::payloadFormatIndicator,
    &TLV::pointOfInitiation,
    &TLV::korvoMerchantID,
    &TLV::tag03,
    &TLV::masterCardPAN1,
    &TLV::masterCardPAN2,
    &TLV::NPCIID1,
    &TLV::NPCIID2,
    &TLV::tag08,
    &TLV::tag09,
    &TLV::tag10,
    &TLV::tag11,
    &TLV::tag12,
    &TLV::tag13,
    &TLV::tag14,
    &TLV::tag15,
};
constexpr std::array<Field, 12> highTLV01Fields{
    &TLV::merchantCategoryCode, &TLV::currencyCode,         &TLV::transactionAmount,
    &TLV::tipAndFeeIndicator,   &TLV::convenienceFeeAmount, &TLV::convenienceFeePercentage,
    &TLV::countryCode,          &TLV::merchantName,         &TLV::cityName,
    &TLV::postalCode,           &TLV::additionalDataField,  &TLV::crc,
};
constexpr auto firstHighTag = static_cast<std::size_t>(PayMerchantValidTLV01::MerchantCategoryCode);

constexpr std::array<Field, 22> subTagFields{
    &TLV::billNumber,
    &TLV::mobileNumber,
    &TLV::storeID,
    &TLV::loyaltyNumber,
    &TLV::referenceID,
    &TLV::consumerID,
    &TLV::terminalId,
    &TLV::purpose,
    &TLV::additionalConsumerDataReq,
    &TLV::tagSixtyTwo10,
    &TLV::addDataMasterCard1,
    &TLV::addDataMasterCard2,
    &TLV::addDataNPCI1,
    &TLV::addDataNPCI2,
    &TLV::tagSixtyTwo15,
    &TLV::tagSixtyTwo16,
    &TLV::tagSixtyTwo17,
    &TLV::tagSixtyTwo18,
    &TLV::tagSixtyTwo19,
    &TLV::tagSixtyTwo20,
    &TLV::tagSixtyTwo21,
    &TLV::tagSixtyTwo22,
};

constexpr std::array<Field, 12> tlv00Fields{
    &TLV::korvoMerchantID,      &TLV::merchantName,
    &TLV::merchantCategoryCode, &TLV::cityName,
    &TLV::countryCode,          &TLV::currencyCode,
    &TLV::transactionAmount,    &TLV::primaryID,
    &TLV::secondaryID,          &TLV::tipAndFeeIndicator,
    &TLV::convenienceFeeAmount, &TLV::convenienceFeePercentage,
};

}  // namespace

bool KorvoPayMerchantTLV::setTLV01Value(std::string_view tag, std::optional<std::string_view> subTag,
                                        std::string_view value) {
    const auto knownTag = payMerchantValidTLV01(tag);
    if (!knownTag) {
        return false;
    }
    if (*knownTag == PayMerchantValidTLV01::AdditionalDataField && subTag) {
        const auto knownSubTag = pmValidTLV01AdditionalDataField(*subTag);
        if (knownSubTag) {
            store(subTagFields[static_cast<std::size_t>(*knownSubTag)], value);
        }
        return knownSubTag.has_value();
    }
    const auto position = static_cast<std::size_t>(*knownTag);
    if (position < lowTLV01Fields.size()) {
        store(lowTLV01Fields[position], value);
    } else if (position >= firstHighTag) {
        store(highTLV01Fields[position - firstHighTag], value);
    }
    return true;
}

bool KorvoPayMerchantTLV::setTLV00Value(std::string_view tag, std::string_view value) {
    // No text outside ASCII has an upper case that is a tag.
    const char upperCase =
        tag.size() == 1 && tag[0] >= 'a' && tag[0] <= 'z' ? static_cast<char>(tag[0] - 32) : '\0';
    const auto knownTag = payMerchantValidTLV00(upperCase != '\0' ? std::string_view(&upperCase, 1) : tag);
    if (knownTag) {
        store(tlv00Fields[static_cast<std::size_t>(*knownTag)], value);
    }
    return knownTag.has_value();
}

void KorvoPayMerchantTLV::store(Value KorvoPayMerchantTLV::*field, std::string_view value) {
    this->*field = value;
    if (field == &KorvoPayMerchantTLV::tipAndFeeIndicator) {
        isTipAvailable = value == "01" || value == "02" || value == "03";
    }
}

}  // namespace korvo
