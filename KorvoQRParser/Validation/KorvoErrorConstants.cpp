#include <KorvoQRParser/Validation/KorvoErrorConstants.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace korvo {

namespace {

namespace Codes = KorvoErrorConstants;

constexpr std::array reserved{Codes::primaryIdNotPresentForMerchant, Codes::secondayrIdNotPresentForMerchant,
                              Codes::secondaryIdNoSubscriberIdForMerchant,
                              Codes::additionalDataFieldTagCount};

// The number that a code writes without leading zeros; negative for any other text.
constexpr int numberOf(std::string_view code) {
    int number = code.empty() || (code.size() > 1 && code.front() == '0') ? -1 : 0;
    for (const char c : code) {
        number = number < 0 || c < '0' || c > '9' ? -1 : 10 * number + (c - '0');
    }
    return number;
}

// A published number is never used again, so every number up to the last belongs to exactly one code, in the
// catalogue or reserved.
constexpr bool isInOrderWithoutGaps() {
    int wanted = 0;
    const auto skipReserved = [&wanted] {
        while (std::any_of(reserved.begin(), reserved.end(),
                           [wanted](std::string_view code) { return numberOf(code) == wanted; })) {
            ++wanted;
        }
    };
    for (const ErrorCatalogueEntry& entry : errorCatalogue) {
        skipReserved();
        if (numberOf(entry.code) != wanted) {
            return false;
        }
        ++wanted;
    }
    return true;
}
static_assert(isInOrderWithoutGaps(),
              "a code of the catalogue is reserved, used twice, out of order, or leaves a gap");

}  // namespace

}  // namespace korvo
