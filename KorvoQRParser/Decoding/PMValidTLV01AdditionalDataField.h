#ifndef KORVOQRPARSER_DECODING_PMVALIDTLV01ADDITIONALDATAFIELD_H
#define KORVOQRPARSER_DECODING_PMVALIDTLV01ADDITIONALDATAFIELD_H

#include <KorvoQRParser/Decoding/TagRawValues.h>

#include <optional>
#include <string_view>

namespace korvo {

/// The sub-tags inside tag "62". A case's position, counted from one, is its sub-tag: "01" to "22".
/// `MobileNumebr` is the published spelling.
// clang-format off
enum class PMValidTLV01AdditionalDataField : unsigned char {
    BillNumber, MobileNumebr, StoreID, LoyaltyNumber, ReferenceID, ConsumerID, TerminalID, Purpose,
    AdditionalConsumerDataRequest, TagSixtyTwo10, AddDataMasterCard1, AddDataMasterCard2, AddDataNPCI1,
    AddDataNPCI2, TagSixtyTwo15, TagSixtyTwo16, TagSixtyTwo17, TagSixtyTwo18, TagSixtyTwo19,
    TagSixtyTwo20, TagSixtyTwo21, TagSixtyTwo22,
};
// clang-format on

/// The sub-tag as it stands in a payload.
constexpr std::string_view rawValue(PMValidTLV01AdditionalDataField subTag) {
    return twoDigitText(static_cast<unsigned>(subTag) + 1);
}

/// The case that a payload's sub-tag names; absent when it is none of "01" to "22".
constexpr std::optional<PMValidTLV01AdditionalDataField> pmValidTLV01AdditionalDataField(
    std::string_view rawValue) noexcept {
    constexpr int last = static_cast<int>(PMValidTLV01AdditionalDataField::TagSixtyTwo22) + 1;
    const int number = twoDigitNumber(rawValue);
    if (number < 1 || number > last) {
        return std::nullopt;
    }
    return static_cast<PMValidTLV01AdditionalDataField>(number - 1);
}

}  // namespace korvo

#endif
