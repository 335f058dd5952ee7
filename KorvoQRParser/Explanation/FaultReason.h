#ifndef KORVOQRPARSER_EXPLANATION_FAULTREASON_H
#define KORVOQRPARSER_EXPLANATION_FAULTREASON_H

#include <KorvoQRParser/Explanation/QRCodeExplanation.h>
#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <string_view>

namespace korvo {

/// Puts the fault of a walk into words, with its place and an excerpt. The walk must have a fault.
QRCodeFault explainFault(std::string_view payload, const PayloadWalk& walk);

}  // namespace korvo

#endif
