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

// A published number is never used again, so every number up to the last belongs to exactly one code, in the
// catalogue or reserved.
constexpr bool isInOrderWithoutGaps() {
    int wanted = 0;
    const auto skipReserved = [&wanted] {
        while (std::any_of(reserved.begin(), reserved.end(),
                           [wanted](std::string_view code) { return detail::codeNumber(code) == wanted; })) {
            ++wanted;
        }
    };
    for (const ErrorCatalogueEntry& entry : errorCatalogue) {
        skipReserved();
        if (detail::codeNumber(entry.code) != wanted) {
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
