#ifndef KORVOQR_TAGMEANINGS_H
#define KORVOQR_TAGMEANINGS_H

#include <KorvoQRParser/Decoding/PMValidTLV01AdditionalDataField.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV00.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV01.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace korvoqr {

/// What tags mean, in the order of their enumerations. Tags "16" to "51" are left out.
namespace detail {

inline constexpr std::size_t firstDroppedTag = 16;
inline constexpr auto firstHighTag =
    static_cast<std::size_t>(korvo::PayMerchantValidTLV01::MerchantCategoryCode);

inline constexpr std::array<std::string_view, 28> twoDigitMeanings{
    "Payload format indicator",
    "Point of initiation",
    "Merchant identifier",
    "Unnamed tag 03",
    "MasterCard account 1",
    "MasterCard account 2",
    "NPCI identifier 1",
    "NPCI identifier 2",
    "Unnamed tag 08",
    "Unnamed tag 09",
    "Unnamed tag 10",
    "Unnamed tag 11",
    "Unnamed tag 12",
    "Unnamed tag 13",
    "Unnamed tag 14",
    "Unnamed tag 15",
    "Merchant category code",
    "Currency code",
    "Transaction amount",
    "Tip or fee indicator",
    "Convenience fee",
    "Convenience fee percentage",
    "Country code",
    "Merchant name",
    "Merchant city",
    "Postal code",
    "Additional data field",
    "Checksum",
};

inline constexpr std::array<std::string_view, 22> subTagMeanings{
    "Bill number",           "Mobile number",       "Store identifier",    "Loyalty number",
    "Reference identifier",  "Consumer identifier", "Terminal identifier", "Purpose",
    "Consumer data request", "Unnamed tag 62/10",   "MasterCard data 1",   "MasterCard data 2",
    "NPCI data 1",           "NPCI data 2",         "Unnamed tag 62/15",   "Unnamed tag 62/16",
    "Unnamed tag 62/17",     "Unnamed tag 62/18",   "Unnamed tag 62/19",   "Unnamed tag 62/20",
    "Unnamed tag 62/21",     "Unnamed tag 62/22",
};

inline constexpr std::array<std::string_view, 12> oneCharacterMeanings{
    "Merchant identifier",  "Merchant name",        "Merchant category code", "Merchant city",
    "Country code",         "Currency code",        "Transaction amount",     "Primary identifier",
    "Secondary identifier", "Tip or fee indicator", "Convenience fee",        "Convenience fee percentage",
};

}  // namespace detail

/// A few words in English for a person who reads a payload.
constexpr std::string_view meaningOf(korvo::PayMerchantValidTLV01 tag) {
    const auto position = static_cast<std::size_t>(tag);
    if (position < detail::firstDroppedTag) {
        return detail::twoDigitMeanings[position];
    }
    return position < detail::firstHighTag
               ? "Not kept"
               : detail::twoDigitMeanings[detail::firstDroppedTag + position - detail::firstHighTag];
}

constexpr std::string_view meaningOf(korvo::PMValidTLV01AdditionalDataField subTag) {
    return detail::subTagMeanings[static_cast<std::size_t>(subTag)];
}

constexpr std::string_view meaningOf(korvo::PayMerchantValidTLV00 tag) {
    return detail::oneCharacterMeanings[static_cast<std::size_t>(tag)];
}

static_assert(meaningOf(korvo::PayMerchantValidTLV01::CRC) == "Checksum");
static_assert(!korvo::pmValidTLV01AdditionalDataField(korvo::twoDigitText(detail::subTagMeanings.size() +
                                                                          1)));
static_assert(detail::oneCharacterMeanings.size() == korvo::detail::oneCharacterTags.size());

}  // namespace korvoqr

#endif
