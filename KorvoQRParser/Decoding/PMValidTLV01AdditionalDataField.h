#ifndef KORVOQRPARSER_DECODING_PMVALIDTLV01ADDITIONALDATAFIELD_H
#define KORVOQRPARSER_DECODING_PMVALIDTLV01ADDITIONALDATAFIELD_H

#include <KorvoQRParser/Decoding/TagRow.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace korvo {

// The sub-tags inside tag 62, one row per sub-tag: raw value, enumerator, the field of KorvoPayMerchantTLV
// that keeps the value, meaning. `MobileNumebr` is the published spelling.
// clang-format off
#define KORVO_TLV01_SUB_TAGS(KEPT)                                                                \
    KEPT("01", BillNumber, billNumber, "Bill number")                                             \
    KEPT("02", MobileNumebr, mobileNumber, "Mobile number")                                       \
    KEPT("03", StoreID, storeID, "Store identifier")                                              \
    KEPT("04", LoyaltyNumber, loyaltyNumber, "Loyalty number")                                    \
    KEPT("05", ReferenceID, referenceID, "Reference identifier")                                  \
    KEPT("06", ConsumerID, consumerID, "Consumer identifier")                                     \
    KEPT("07", TerminalID, terminalId, "Terminal identifier")                                     \
    KEPT("08", Purpose, purpose, "Purpose")                                                       \
    KEPT("09", AdditionalConsumerDataRequest, additionalConsumerDataReq, "Consumer data request") \
    KEPT("10", TagSixtyTwo10, tagSixtyTwo10, "Unnamed tag 62/10")                                 \
    KEPT("11", AddDataMasterCard1, addDataMasterCard1, "MasterCard data 1")                       \
    KEPT("12", AddDataMasterCard2, addDataMasterCard2, "MasterCard data 2")                       \
    KEPT("13", AddDataNPCI1, addDataNPCI1, "NPCI data 1")                                         \
    KEPT("14", AddDataNPCI2, addDataNPCI2, "NPCI data 2")                                         \
    KEPT("15", TagSixtyTwo15, tagSixtyTwo15, "Unnamed tag 62/15")                                 \
    KEPT("16", TagSixtyTwo16, tagSixtyTwo16, "Unnamed tag 62/16")                                 \
    KEPT("17", TagSixtyTwo17, tagSixtyTwo17, "Unnamed tag 62/17")                                 \
    KEPT("18", TagSixtyTwo18, tagSixtyTwo18, "Unnamed tag 62/18")                                 \
    KEPT("19", TagSixtyTwo19, tagSixtyTwo19, "Unnamed tag 62/19")                                 \
    KEPT("20", TagSixtyTwo20, tagSixtyTwo20, "Unnamed tag 62/20")                                 \
    KEPT("21", TagSixtyTwo21, tagSixtyTwo21, "Unnamed tag 62/21")                                 \
    KEPT("22", TagSixtyTwo22, tagSixtyTwo22, "Unnamed tag 62/22")

/// The sub-tags inside tag 62, in numeric order.
enum class PMValidTLV01AdditionalDataField : unsigned char {
#define KORVO_KEPT(rawValue, name, field, meaning) name,
    KORVO_TLV01_SUB_TAGS(KORVO_KEPT)
#undef KORVO_KEPT
};

/// The rows of the sub-tags, in the order of the enumerators.
inline constexpr std::array tlv01SubTagRows{
#define KORVO_KEPT(rawValue, name, field, meaning) TagRow{rawValue, meaning},
    KORVO_TLV01_SUB_TAGS(KORVO_KEPT)
#undef KORVO_KEPT
};
// clang-format on
static_assert(areConsecutive(tlv01SubTagRows) && tlv01SubTagRows.front().rawValue == "01");

/// The row of a sub-tag.
constexpr const TagRow& tagRow(PMValidTLV01AdditionalDataField subTag) noexcept {
    return tlv01SubTagRows[static_cast<std::size_t>(subTag)];
}

/// The sub-tag as written in a payload.
constexpr std::string_view rawValue(PMValidTLV01AdditionalDataField subTag) noexcept {
    return tagRow(subTag).rawValue;
}

/// The enumerator of a sub-tag's number; absent unless it is one of 1 to 22.
constexpr std::optional<PMValidTLV01AdditionalDataField> tlv01SubTag(int number) noexcept {
    if (number < 1 || number > static_cast<int>(tlv01SubTagRows.size())) {
        return std::nullopt;
    }
    return static_cast<PMValidTLV01AdditionalDataField>(number - 1);
}

/// The enumerator of a sub-tag as written in a payload; absent unless it is one of "01" to "22".
constexpr std::optional<PMValidTLV01AdditionalDataField> pmValidTLV01AdditionalDataField(
    std::string_view rawValue) noexcept {
    return tlv01SubTag(twoDigitNumber(rawValue));
}

}  // namespace korvo

#endif
