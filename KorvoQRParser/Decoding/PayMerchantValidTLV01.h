#ifndef KORVOQRPARSER_DECODING_PAYMERCHANTVALIDTLV01_H
#define KORVOQRPARSER_DECODING_PAYMERCHANTVALIDTLV01_H

#include <KorvoQRParser/Decoding/TagRow.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace korvo {

// The root tags of the two-digit format, one row per tag: raw value, enumerator, the field of
// KorvoPayMerchantTLV that keeps the value, meaning. A DROPPED tag is accepted, but its value is not kept. To
// keep it, make the row a KEPT one with a field.
// clang-format off
#define KORVO_TLV01_TAGS(KEPT, DROPPED)                                                          \
    KEPT("00", PayloadFormatIndicator, payloadFormatIndicator, "Payload format indicator")       \
    KEPT("01", PointOfInitiation, pointOfInitiation, "Point of initiation")                      \
    KEPT("02", MerchantID, korvoMerchantID, "Merchant identifier")                               \
    KEPT("03", Tag03, tag03, "Unnamed tag 03")                                                   \
    KEPT("04", MasterCardPAN1, masterCardPAN1, "MasterCard account 1")                           \
    KEPT("05", MasterCardPAN2, masterCardPAN2, "MasterCard account 2")                           \
    KEPT("06", NPCIID1, NPCIID1, "NPCI identifier 1")                                            \
    KEPT("07", NPCIID2, NPCIID2, "NPCI identifier 2")                                            \
    KEPT("08", Tag08, tag08, "Unnamed tag 08")                                                   \
    KEPT("09", Tag09, tag09, "Unnamed tag 09")                                                   \
    KEPT("10", Tag10, tag10, "Unnamed tag 10")                                                   \
    KEPT("11", Tag11, tag11, "Unnamed tag 11")                                                   \
    KEPT("12", Tag12, tag12, "Unnamed tag 12")                                                   \
    KEPT("13", Tag13, tag13, "Unnamed tag 13")                                                   \
    KEPT("14", Tag14, tag14, "Unnamed tag 14")                                                   \
    KEPT("15", Tag15, tag15, "Unnamed tag 15")                                                   \
    DROPPED("16", Tag16)                                                                         \
    DROPPED("17", Tag17)                                                                         \
    DROPPED("18", Tag18)                                                                         \
    DROPPED("19", Tag19)                                                                         \
    DROPPED("20", Tag20)                                                                         \
    DROPPED("21", Tag21)                                                                         \
    DROPPED("22", Tag22)                                                                         \
    DROPPED("23", Tag23)                                                                         \
    DROPPED("24", Tag24)                                                                         \
    DROPPED("25", Tag25)                                                                         \
    DROPPED("26", Tag26)                                                                         \
    DROPPED("27", Tag27)                                                                         \
    DROPPED("28", Tag28)                                                                         \
    DROPPED("29", Tag29)                                                                         \
    DROPPED("30", Tag30)                                                                         \
    DROPPED("31", Tag31)                                                                         \
    DROPPED("32", Tag32)                                                                         \
    DROPPED("33", Tag33)                                                                         \
    DROPPED("34", Tag34)                                                                         \
    DROPPED("35", Tag35)                                                                         \
    DROPPED("36", Tag36)                                                                         \
    DROPPED("37", Tag37)                                                                         \
    DROPPED("38", Tag38)                                                                         \
    DROPPED("39", Tag39)                                                                         \
    DROPPED("40", Tag40)                                                                         \
    DROPPED("41", Tag41)                                                                         \
    DROPPED("42", Tag42)                                                                         \
    DROPPED("43", Tag43)                                                                         \
    DROPPED("44", Tag44)                                                                         \
    DROPPED("45", Tag45)                                                                         \
    DROPPED("46", Tag46)                                                                         \
    DROPPED("47", Tag47)                                                                         \
    DROPPED("48", Tag48)                                                                         \
    DROPPED("49", Tag49)                                                                         \
    DROPPED("50", Tag50)                                                                         \
    DROPPED("51", Tag51)                                                                         \
    KEPT("52", MerchantCategoryCode, merchantCategoryCode, "Merchant category code")             \
    KEPT("53", CurrencyCode, currencyCode, "Currency code")                                      \
    KEPT("54", TransactionAmount, transactionAmount, "Transaction amount")                       \
    KEPT("55", TipAndFeeIndicator, tipAndFeeIndicator, "Tip or fee indicator")                   \
    KEPT("56", ConvenienceFeeAmount, convenienceFeeAmount, "Convenience fee")                    \
    KEPT("57", ConvenienceFeePercentage, convenienceFeePercentage, "Convenience fee percentage") \
    KEPT("58", CountryCode, countryCode, "Country code")                                         \
    KEPT("59", MerchantName, merchantName, "Merchant name")                                      \
    KEPT("60", MerchantCity, cityName, "Merchant city")                                          \
    KEPT("61", PostalCode, postalCode, "Postal code")                                            \
    KEPT("62", AdditionalDataField, additionalDataField, "Additional data field")                \
    KEPT("63", CRC, crc, "Checksum")

/// The root tags of the two-digit format, in numeric order.
enum class PayMerchantValidTLV01 : unsigned char {
#define KORVO_KEPT(rawValue, name, field, meaning) name,
#define KORVO_DROPPED(rawValue, name) name,
    KORVO_TLV01_TAGS(KORVO_KEPT, KORVO_DROPPED)
#undef KORVO_DROPPED
#undef KORVO_KEPT
};

/// The rows of the tags, in the order of the enumerators.
inline constexpr std::array tlv01TagRows{
#define KORVO_KEPT(rawValue, name, field, meaning) TagRow{rawValue, meaning},
#define KORVO_DROPPED(rawValue, name) TagRow{rawValue, "Not kept"},
    KORVO_TLV01_TAGS(KORVO_KEPT, KORVO_DROPPED)
#undef KORVO_DROPPED
#undef KORVO_KEPT
};
// clang-format on
static_assert(areConsecutive(tlv01TagRows) && tlv01TagRows.front().rawValue == "00");

/// The row of a tag.
constexpr const TagRow& tagRow(PayMerchantValidTLV01 tag) noexcept {
    return tlv01TagRows[static_cast<std::size_t>(tag)];
}

/// The tag as written in a payload.
constexpr std::string_view rawValue(PayMerchantValidTLV01 tag) noexcept {
    return tagRow(tag).rawValue;
}

/// The enumerator of a tag's number; absent unless it is one of 0 to 63.
constexpr std::optional<PayMerchantValidTLV01> tlv01Tag(int number) noexcept {
    if (number < 0 || number >= static_cast<int>(tlv01TagRows.size())) {
        return std::nullopt;
    }
    return static_cast<PayMerchantValidTLV01>(number);
}

/// The enumerator of a tag as written in a payload; absent unless it is one of "00" to "63".
constexpr std::optional<PayMerchantValidTLV01> payMerchantValidTLV01(std::string_view rawValue) noexcept {
    return tlv01Tag(twoDigitNumber(rawValue));
}

}  // namespace korvo

#endif
