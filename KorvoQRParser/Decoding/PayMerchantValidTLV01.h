#ifndef KORVOQRPARSER_DECODING_PAYMERCHANTVALIDTLV01_H
#define KORVOQRPARSER_DECODING_PAYMERCHANTVALIDTLV01_H

#include <KorvoQRParser/Decoding/TagRawValues.h>

#include <optional>
#include <string_view>

namespace korvo {

/// The root tags of the two-digit format. A case's position is its tag: "00" to "63".
// clang-format off
enum class PayMerchantValidTLV01 : unsigned char {
    PayloadFormatIndicator, PointOfInitiation, MerchantID, Tag03, MasterCardPAN1, MasterCardPAN2,
    NPCIID1, NPCIID2, Tag08, Tag09, Tag10, Tag11, Tag12, Tag13, Tag14, Tag15, Tag16, Tag17, Tag18,
    Tag19, Tag20, Tag21, Tag22, Tag23, Tag24, Tag25, Tag26, Tag27, Tag28, Tag29, Tag30, Tag31, Tag32,
    Tag33, Tag34, Tag35, Tag36, Tag37, Tag38, Tag39, Tag40, Tag41, Tag42, Tag43, Tag44, Tag45, Tag46,
    Tag47, Tag48, Tag49, Tag50, Tag51, MerchantCategoryCode, CurrencyCode, TransactionAmount,
    TipAndFeeIndicator, ConvenienceFeeAmount, ConvenienceFeePercentage, CountryCode, MerchantName,
    MerchantCity, PostalCode, AdditionalDataField, CRC,
};
// clang-format on

/// The tag as it stands in a payload.
constexpr std::string_view rawValue(PayMerchantValidTLV01 tag) {
    return twoDigitText(static_cast<unsigned>(tag));
}

/// The case that a payload's tag names; absent when it is none of "00" to "63".
constexpr std::optional<PayMerchantValidTLV01> payMerchantValidTLV01(std::string_view rawValue) noexcept {
    const int number = twoDigitNumber(rawValue);
    if (number < 0 || number > static_cast<int>(PayMerchantValidTLV01::CRC)) {
        return std::nullopt;
    }
    return static_cast<PayMerchantValidTLV01>(number);
}

}  // namespace korvo

#endif
