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

static_assert(firstHighTag + highTLV01Fields.size() ==
              static_cast<std::size_t>(PayMerchantValidTLV01::CRC) + 1);
static_assert(!pmValidTLV01AdditionalDataField(twoDigitText(subTagFields.size() + 1)),
              "every sub-tag that is known has a row");

constexpr std::array<Field, 12> tlv00Fields{
    &TLV::korvoMerchantID,      &TLV::merchantName,
    &TLV::merchantCategoryCode, &TLV::cityName,
    &TLV::countryCode,          &TLV::currencyCode,
    &TLV::transactionAmount,    &TLV::primaryID,
    &TLV::secondaryID,          &TLV::tipAndFeeIndicator,
    &TLV::convenienceFeeAmount, &TLV::convenienceFeePercentage,
};
static_assert(tlv00Fields.size() == detail::oneCharacterTags.size());

}  // namespace

// Defined here, as the compiler otherwise clears all of every field and not only what says that it is absent.
KorvoPayMerchantTLV::KorvoPayMerchantTLV() noexcept {}  // NOLINT(modernize-use-equals-default)

void KorvoPayMerchantTLV::store(PayMerchantValidTLV01 tag, const CountedText& value) {
    const auto position = static_cast<std::size_t>(tag);
    if (tag == PayMerchantValidTLV01::TipAndFeeIndicator) {
        storeTipAndFeeIndicator(value);
    } else if (position < lowTLV01Fields.size()) {
        this->*lowTLV01Fields[position] = value;
    } else if (position >= firstHighTag) {
        this->*highTLV01Fields[position - firstHighTag] = value;
    }
}

void KorvoPayMerchantTLV::store(PMValidTLV01AdditionalDataField subTag, const CountedText& value) {
    this->*subTagFields[static_cast<std::size_t>(subTag)] = value;
}

void KorvoPayMerchantTLV::store(PayMerchantValidTLV00 tag, const CountedText& value) {
    if (tag == PayMerchantValidTLV00::TipAndFeeIndicator) {
        storeTipAndFeeIndicator(value);
    } else {
        this->*tlv00Fields[static_cast<std::size_t>(tag)] = value;
    }
}

void KorvoPayMerchantTLV::storeTipAndFeeIndicator(const CountedText& value) {
    isTipAvailable = value == "01" || value == "02" || value == "03";
    tipAndFeeIndicator = value;
}

}  // namespace korvo
