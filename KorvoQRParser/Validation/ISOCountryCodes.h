#ifndef KORVOQRPARSER_VALIDATION_ISOCOUNTRYCODES_H
#define KORVOQRPARSER_VALIDATION_ISOCOUNTRYCODES_H

#include <array>
#include <cstdint>
#include <string_view>

/// The currency and country codes that the rules accept. Lookups may be made from any thread.
namespace korvo::ISOCountryCodes {

/// A currency of ISO 4217. The letters are kept as characters, because a pointer in each row would have to be
/// relocated whenever the library is loaded.
class Currency {
  public:
    constexpr Currency(std::int16_t number, std::string_view letters)
        : number_(number), letters_{letters[0], letters[1], letters[2], 0} {}

    /// The numeric code: 8 for "008".
    constexpr std::int16_t number() const noexcept { return number_; }
    /// The alphabetic code, which NUL follows.
    constexpr std::string_view letters() const noexcept { return {letters_.data(), letters_.size() - 1}; }

  private:
    std::int16_t number_;
    std::array<char, 4> letters_;
};

/// The accepted currencies, in the order of their letters. The list is fixed and does not follow ISO 4217. It
/// includes the codes for funds and precious metals, it keeps rows that the standard has changed since (BYR,
/// LTL, MRO, STD, USS, VEF, ZWD), and newer currencies (BYN, MRU, STN, VES) are not in it.
// clang-format off
inline constexpr auto availableISOCurrencies = std::to_array<Currency>({
    {784, "AED"}, {971, "AFN"}, {  8, "ALL"}, { 51, "AMD"}, {532, "ANG"}, {973, "AOA"}, { 32, "ARS"},
    { 36, "AUD"}, {533, "AWG"}, {944, "AZN"}, {977, "BAM"}, { 52, "BBD"}, { 50, "BDT"}, {975, "BGN"},
    { 48, "BHD"}, {108, "BIF"}, { 60, "BMD"}, { 96, "BND"}, { 68, "BOB"}, {984, "BOV"}, {986, "BRL"},
    { 44, "BSD"}, { 64, "BTN"}, { 72, "BWP"}, {974, "BYR"}, { 84, "BZD"}, {124, "CAD"}, {976, "CDF"},
    {947, "CHE"}, {756, "CHF"}, {948, "CHW"}, {990, "CLF"}, {152, "CLP"}, {156, "CNY"}, {170, "COP"},
    {970, "COU"}, {188, "CRC"}, {931, "CUC"}, {192, "CUP"}, {132, "CVE"}, {203, "CZK"}, {262, "DJF"},
    {208, "DKK"}, {214, "DOP"}, { 12, "DZD"}, {818, "EGP"}, {232, "ERN"}, {230, "ETB"}, {978, "EUR"},
    {242, "FJD"}, {238, "FKP"}, {826, "GBP"}, {981, "GEL"}, {936, "GHS"}, {292, "GIP"}, {270, "GMD"},
    {324, "GNF"}, {320, "GTQ"}, {328, "GYD"}, {344, "HKD"}, {340, "HNL"}, {191, "HRK"}, {332, "HTG"},
    {348, "HUF"}, {360, "IDR"}, {376, "ILS"}, {356, "INR"}, {368, "IQD"}, {364, "IRR"}, {352, "ISK"},
    {388, "JMD"}, {400, "JOD"}, {392, "JPY"}, {404, "KES"}, {417, "KGS"}, {116, "KHR"}, {174, "KMF"},
    {408, "KPW"}, {410, "KRW"}, {414, "KWD"}, {136, "KYD"}, {398, "KZT"}, {418, "LAK"}, {422, "LBP"},
    {144, "LKR"}, {430, "LRD"}, {426, "LSL"}, {440, "LTL"}, {434, "LYD"}, {504, "MAD"}, {498, "MDL"},
    {969, "MGA"}, {807, "MKD"}, {104, "MMK"}, {496, "MNT"}, {446, "MOP"}, {478, "MRO"}, {480, "MUR"},
    {462, "MVR"}, {454, "MWK"}, {484, "MXN"}, {979, "MXV"}, {458, "MYR"}, {943, "MZN"}, {516, "NAD"},
    {566, "NGN"}, {558, "NIO"}, {578, "NOK"}, {524, "NPR"}, {554, "NZD"}, {512, "OMR"}, {590, "PAB"},
    {604, "PEN"}, {598, "PGK"}, {608, "PHP"}, {586, "PKR"}, {985, "PLN"}, {600, "PYG"}, {634, "QAR"},
    {946, "RON"}, {941, "RSD"}, {643, "RUB"}, {646, "RWF"}, {682, "SAR"}, { 90, "SBD"}, {690, "SCR"},
    {938, "SDG"}, {752, "SEK"}, {702, "SGD"}, {654, "SHP"}, {694, "SLL"}, {706, "SOS"}, {968, "SRD"},
    {728, "SSP"}, {678, "STD"}, {760, "SYP"}, {748, "SZL"}, {764, "THB"}, {972, "TJS"}, {934, "TMT"},
    {788, "TND"}, {776, "TOP"}, {949, "TRY"}, {780, "TTD"}, {901, "TWD"}, {834, "TZS"}, {980, "UAH"},
    {800, "UGX"}, {840, "USD"}, {997, "USN"}, {998, "USS"}, {940, "UYI"}, {858, "UYU"}, {860, "UZS"},
    {937, "VEF"}, {704, "VND"}, {548, "VUV"}, {882, "WST"}, {950, "XAF"}, {961, "XAG"}, {959, "XAU"},
    {955, "XBA"}, {956, "XBB"}, {957, "XBC"}, {958, "XBD"}, {951, "XCD"}, {960, "XDR"}, {952, "XOF"},
    {964, "XPD"}, {953, "XPF"}, {962, "XPT"}, {994, "XSU"}, {963, "XTS"}, {965, "XUA"}, {999, "XXX"},
    {886, "YER"}, {710, "ZAR"}, {967, "ZMW"}, {932, "ZWD"},
});
// clang-format on

/// The accepted countries: the codes of ISO 3166-1, and DG, EA, IC and XK, which are in use too. The list is
/// fixed, so that every platform accepts the same.
// clang-format off
inline constexpr auto availableISOCountries = std::to_array<std::string_view>({
    "AD", "AE", "AF", "AG", "AI", "AL", "AM", "AO", "AQ", "AR", "AS", "AT", "AU", "AW", "AX", "AZ", "BA",
    "BB", "BD", "BE", "BF", "BG", "BH", "BI", "BJ", "BL", "BM", "BN", "BO", "BQ", "BR", "BS", "BT", "BV",
    "BW", "BY", "BZ", "CA", "CC", "CD", "CF", "CG", "CH", "CI", "CK", "CL", "CM", "CN", "CO", "CR", "CU",
    "CV", "CW", "CX", "CY", "CZ", "DE", "DG", "DJ", "DK", "DM", "DO", "DZ", "EA", "EC", "EE", "EG", "EH",
    "ER", "ES", "ET", "FI", "FJ", "FK", "FM", "FO", "FR", "GA", "GB", "GD", "GE", "GF", "GG", "GH", "GI",
    "GL", "GM", "GN", "GP", "GQ", "GR", "GS", "GT", "GU", "GW", "GY", "HK", "HM", "HN", "HR", "HT", "HU",
    "IC", "ID", "IE", "IL", "IM", "IN", "IO", "IQ", "IR", "IS", "IT", "JE", "JM", "JO", "JP", "KE", "KG",
    "KH", "KI", "KM", "KN", "KP", "KR", "KW", "KY", "KZ", "LA", "LB", "LC", "LI", "LK", "LR", "LS", "LT",
    "LU", "LV", "LY", "MA", "MC", "MD", "ME", "MF", "MG", "MH", "MK", "ML", "MM", "MN", "MO", "MP", "MQ",
    "MR", "MS", "MT", "MU", "MV", "MW", "MX", "MY", "MZ", "NA", "NC", "NE", "NF", "NG", "NI", "NL", "NO",
    "NP", "NR", "NU", "NZ", "OM", "PA", "PE", "PF", "PG", "PH", "PK", "PL", "PM", "PN", "PR", "PS", "PT",
    "PW", "PY", "QA", "RE", "RO", "RS", "RU", "RW", "SA", "SB", "SC", "SD", "SE", "SG", "SH", "SI", "SJ",
    "SK", "SL", "SM", "SN", "SO", "SR", "SS", "ST", "SV", "SX", "SY", "SZ", "TC", "TD", "TF", "TG", "TH",
    "TJ", "TK", "TL", "TM", "TN", "TO", "TR", "TT", "TV", "TW", "TZ", "UA", "UG", "UM", "US", "UY", "UZ",
    "VA", "VC", "VE", "VG", "VI", "VN", "VU", "WF", "WS", "XK", "YE", "YT", "ZA", "ZM", "ZW",
});
// clang-format on

/// The row of availableISOCurrencies with this numeric code; null when there is none.
const Currency* findCurrency(std::int64_t number) noexcept;

/// Whether availableISOCountries has this code, in upper case.
bool isISOCountry(std::string_view code) noexcept;

}  // namespace korvo::ISOCountryCodes

#endif
