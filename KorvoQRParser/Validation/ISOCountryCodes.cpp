#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>
#include <KorvoQRParser/Validation/CurrencyCodes.h>
#include <KorvoQRParser/Validation/ISOCountryCodes.h>

#include <algorithm>
#include <cstddef>
#include <optional>

namespace korvo::ISOCountryCodes {

namespace {

constexpr std::size_t numericCodes = 1000;
constexpr std::uint8_t noRow = 0xFF;
static_assert(availableISOCurrencies.size() < noRow);

// The row of each numeric code, so that a lookup is one step.
constexpr std::array<std::uint8_t, numericCodes> makeRowsByNumber() {
    std::array<std::uint8_t, numericCodes> rows{};
    rows.fill(noRow);
    for (std::size_t row = 0; row < availableISOCurrencies.size(); ++row) {
        rows[static_cast<std::size_t>(availableISOCurrencies[row].number())] = static_cast<std::uint8_t>(row);
    }
    return rows;
}

constexpr auto rowsByNumber = makeRowsByNumber();

constexpr std::optional<std::size_t> countryPosition(std::string_view code) noexcept {
    if (code.size() != 2 || code[0] < 'A' || code[0] > 'Z' || code[1] < 'A' || code[1] > 'Z') {
        return std::nullopt;
    }
    return static_cast<std::size_t>((code[0] - 'A') * 26 + (code[1] - 'A'));
}

// Whether there is a country at each position, so that a lookup is one step.
constexpr auto countries = [] {
    std::array<bool, std::size_t{26} * 26> table{};
    for (const std::string_view code : availableISOCountries) {
        table[countryPosition(code).value()] = true;
    }
    return table;
}();

}  // namespace

const Currency* findCurrency(std::int64_t number) noexcept {
    if (number < 0 || number >= static_cast<std::int64_t>(numericCodes)) {
        return nullptr;
    }
    const std::uint8_t row = rowsByNumber[static_cast<std::size_t>(number)];
    return row == noRow ? nullptr : &availableISOCurrencies[row];
}

bool isISOCountry(std::string_view code) noexcept {
    const auto position = countryPosition(code);
    return position && countries[*position];
}

}  // namespace korvo::ISOCountryCodes

namespace korvo {

namespace {

bool isDigit(char c) {
    return digitValue(c) < 10;
}

}  // namespace

std::string_view alphabeticCurrencyCode(std::string_view numericCode) noexcept {
    const bool isNumber =
        numericCode.size() == 3 && std::all_of(numericCode.begin(), numericCode.end(), isDigit);
    const auto* const currency =
        isNumber ? ISOCountryCodes::findCurrency(*parseInteger(numericCode, 10)) : nullptr;
    return currency == nullptr ? std::string_view() : currency->letters();
}

}  // namespace korvo
