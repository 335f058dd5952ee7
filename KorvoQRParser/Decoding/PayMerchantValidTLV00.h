#ifndef KORVOQRPARSER_DECODING_PAYMERCHANTVALIDTLV00_H
#define KORVOQRPARSER_DECODING_PAYMERCHANTVALIDTLV00_H

#include <KorvoQRParser/Decoding/Text/ASCII.h>

#include <cstddef>
#include <optional>
#include <string_view>

namespace korvo {

/// The tags of the one-character format, in the order of their characters: "0" to "9", "A", "B".
// clang-format off
enum class PayMerchantValidTLV00 : unsigned char {
    MerchantID, MerchantName, MerchantCategoryCode, CityName, CountryCode, CurrencyCode,
    TransactionAmount, PrimaryID, SecondaryID, TipAndFeeIndicator, ConvenienceFeeAmount,
    ConvenienceFeePercentage,
};
// clang-format on

namespace detail {

inline constexpr std::string_view oneCharacterTags = "0123456789AB";

}  // namespace detail

/// The tag as it stands in a payload, letters in upper case.
constexpr std::string_view rawValue(PayMerchantValidTLV00 tag) {
    return detail::oneCharacterTags.substr(static_cast<std::size_t>(tag), 1);
}

/// The case that a tag in upper case names; absent when there is none.
constexpr std::optional<PayMerchantValidTLV00> payMerchantValidTLV00(std::string_view rawValue) noexcept {
    if (rawValue.size() != 1) {
        return std::nullopt;
    }
    const char character = rawValue[0];
    const int position = character >= '0' && character <= '9'   ? character - '0'
                         : character == 'A' || character == 'B' ? character - 'A' + 10
                                                                : -1;
    return position < 0 ? std::nullopt : std::optional(static_cast<PayMerchantValidTLV00>(position));
}

/// The same for a tag as it stands in a payload, in either letter case. No text outside ASCII has an upper
/// case that is a tag.
constexpr std::optional<PayMerchantValidTLV00> payMerchantValidTLV00InEitherCase(
    std::string_view tag) noexcept {
    if (tag.size() != 1) {
        return std::nullopt;
    }
    const char upperCase = asciiUpperCase(tag[0]);
    return payMerchantValidTLV00(std::string_view(&upperCase, 1));
}

}  // namespace korvo

#endif
