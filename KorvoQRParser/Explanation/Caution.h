#ifndef KORVOQRPARSER_EXPLANATION_CAUTION_H
#define KORVOQRPARSER_EXPLANATION_CAUTION_H

#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <string>
#include <string_view>

namespace korvo {

/// How identifier, amounts and fees read in a refused payload and in a repaired one.
struct MoneyChange {
    /// Whether one that the refused payload has, as far as it can be read, reads differently or is gone.
    bool isChanged = false;
    /// Says what to check, with both readings.
    std::string sentence;
};

/// Compares a refused payload, with its walk, and a repaired one. A length that is changed, that of the tag
/// with this name, changes how its value reads, even if it could not be read at all.
MoneyChange compareMoney(std::string_view payload, const PayloadWalk& walk, std::string_view repaired,
                         std::string_view changedName);

}  // namespace korvo

#endif
