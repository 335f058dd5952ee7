#ifndef KORVOQRPARSER_EXPLANATION_CAUTION_H
#define KORVOQRPARSER_EXPLANATION_CAUTION_H

#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvo {

/// How identifier, amounts and fees read in a refused payload and in a repaired one.
struct MoneyChange {
    /// Whether one that the refused payload has, as far as it can be read, reads differently or is gone.
    bool isChanged = false;
    /// Says what to check, with both readings.
    std::string sentence;
};

/// Compares a refused payload, with its walk, and a repaired one. A value whose length is changed reads
/// differently, even if it could not be read at all before.
MoneyChange compareMoney(std::string_view payload, const PayloadWalk& walk, std::string_view repaired,
                         const std::vector<std::string>& changedNames);

}  // namespace korvo

#endif
