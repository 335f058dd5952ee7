#ifndef KORVOQRPARSER_EXPLANATION_REPAIRS_H
#define KORVOQRPARSER_EXPLANATION_REPAIRS_H

#include <KorvoQRParser/Explanation/QRCodeExplanation.h>
#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvo {

/// What a refused payload may have been before a mistake in its form, with the mistakes as sentences.
struct Diagnosis {
    std::vector<QRCodeRepair> repairs;     ///< those that the written checksum vouches for
    std::vector<QRCodeRepair> unverified;  ///< all others
    std::vector<std::string> causes;       ///< the likeliest first; also of mistakes that cannot be repaired
    double leastCost = 99;                 ///< how improbable the first cause is: about 1, or much more
};

/// Looks for the mistakes in a refused payload, which must be short and valid UTF-8.
Diagnosis diagnose(std::string_view payload, const PayloadWalk& walk, bool isMatching,
                   const std::vector<std::string>& codes);

}  // namespace korvo

#endif
