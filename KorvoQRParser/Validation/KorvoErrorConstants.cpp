#include <KorvoQRParser/Validation/KorvoErrorConstants.h>

#include <algorithm>

namespace korvo {

namespace {

// A published number is never used again, so every number up to the last belongs to exactly one code, in the
// catalogue or reserved.
constexpr bool isInOrderWithoutGaps() {
    int wanted = 0;
    const auto skipReserved = [&wanted] {
        while (std::any_of(
            reservedErrorCodes.begin(), reservedErrorCodes.end(),
            [wanted](const ReservedErrorCode& row) { return detail::codeNumber(row.code) == wanted; })) {
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
