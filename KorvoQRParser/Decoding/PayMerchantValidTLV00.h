#ifndef KORVOQRPARSER_DECODING_PAYMERCHANTVALIDTLV00_H
#define KORVOQRPARSER_DECODING_PAYMERCHANTVALIDTLV00_H

#include <KorvoQRParser/Decoding/TagRow.h>
#include <KorvoQRParser/Decoding/Text/ASCII.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace korvo {

// The tags of the one-character format, one row per tag: raw value, enumerator, the field of
// KorvoPayMerchantTLV that keeps the value, meaning.
// clang-format off
#define KORVO_TLV00_TAGS(KEPT)                                                                  \
    KEPT("0", MerchantID, korvoMerchantID, "Merchant identifier")                               \
    KEPT("1", MerchantName, merchantName, "Merchant name")                                      \
    KEPT("2", MerchantCategoryCode, merchantCategoryCode, "Merchant category code")             \
    KEPT("3", CityName, cityName, "Merchant city")                                              \
    KEPT("4", CountryCode, countryCode, "Country code")                                         \
    KEPT("5", CurrencyCode, currencyCode, "Currency code")                                      \
    KEPT("6", TransactionAmount, transactionAmount, "Transaction amount")                       \
    KEPT("7", PrimaryID, primaryID, "Primary identifier")                                       \
    KEPT("8", SecondaryID, secondaryID, "Secondary identifier")                                 \
    KEPT("9", TipAndFeeIndicator, tipAndFeeIndicator, "Tip or fee indicator")                   \
    KEPT("A", ConvenienceFeeAmount, convenienceFeeAmount, "Convenience fee")                    \
    KEPT("B", ConvenienceFeePercentage, convenienceFeePercentage, "Convenience fee percentage")

/// The tags of the one-character format.
enum class PayMerchantValidTLV00 : unsigned char {
#define KORVO_KEPT(rawValue, name, field, meaning) name,
    KORVO_TLV00_TAGS(KORVO_KEPT)
#undef KORVO_KEPT
};

/// The rows of the tags, in the order of the enumerators.
inline constexpr std::array tlv00TagRows{
#define KORVO_KEPT(rawValue, name, field, meaning) TagRow{rawValue, meaning},
    KORVO_TLV00_TAGS(KORVO_KEPT)
#undef KORVO_KEPT
};
// clang-format on

/// The row of a tag.
constexpr const TagRow& tagRow(PayMerchantValidTLV00 tag) noexcept {
    return tlv00TagRows[static_cast<std::size_t>(tag)];
}

/// The tag as written in a payload, letters in upper case.
constexpr std::string_view rawValue(PayMerchantValidTLV00 tag) noexcept {
    return tagRow(tag).rawValue;
}

namespace detail {

// The row number of each ASCII character, counted from 1; 0 for a character that is not a tag.
inline constexpr std::array<unsigned char, 128> tlv00RowNumbers = [] {
    std::array<unsigned char, 128> numbers{};
    for (std::size_t i = 0; i < tlv00TagRows.size(); ++i) {
        numbers.at(static_cast<unsigned char>(tlv00TagRows[i].rawValue.front())) =
            static_cast<unsigned char>(i + 1);
    }
    return numbers;
}();

constexpr bool areCharactersOfTheirOwn() noexcept {
    for (std::size_t i = 0; i < tlv00TagRows.size(); ++i) {
        const std::string_view rawValue = tlv00TagRows[i].rawValue;
        if (rawValue.size() != 1 || asciiUpperCase(rawValue[0]) != rawValue[0] ||
            tlv00RowNumbers[static_cast<unsigned char>(rawValue[0])] != i + 1) {
            return false;
        }
    }
    return true;
}

}  // namespace detail

static_assert(detail::areCharactersOfTheirOwn(), "each raw value is one upper-case character and unique");

/// The enumerator of a tag in upper case; absent when there is no such tag.
constexpr std::optional<PayMerchantValidTLV00> payMerchantValidTLV00(std::string_view rawValue) noexcept {
    const auto character = rawValue.size() == 1 ? static_cast<unsigned char>(rawValue[0]) : 0U;
    const unsigned number =
        character < detail::tlv00RowNumbers.size() ? detail::tlv00RowNumbers[character] : 0;
    return number == 0 ? std::nullopt : std::optional(static_cast<PayMerchantValidTLV00>(number - 1));
}

/// The same for a tag in either letter case. Converting ASCII is enough: no character outside ASCII has a tag
/// as its upper case.
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
