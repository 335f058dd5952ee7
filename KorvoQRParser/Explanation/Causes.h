#ifndef KORVOQRPARSER_EXPLANATION_CAUSES_H
#define KORVOQRPARSER_EXPLANATION_CAUSES_H

#include <KorvoQRParser/Explanation/ExplanationFacts.h>
#include <KorvoQRParser/Explanation/Repairs.h>
#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <string>
#include <vector>

namespace korvo {

/// Puts the likely causes of a refusal in order, those of the diagnosis and those that the violated rules or
/// the fault tell by themselves. `facts` has everything else about the payload.
std::vector<std::string> orderedCauses(const QRCodeExplanation::Facts& facts, const PayloadWalk& walk,
                                       const Diagnosis& diagnosis);

}  // namespace korvo

#endif
