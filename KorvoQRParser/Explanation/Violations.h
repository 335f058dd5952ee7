#ifndef KORVOQRPARSER_EXPLANATION_VIOLATIONS_H
#define KORVOQRPARSER_EXPLANATION_VIOLATIONS_H

#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <string>
#include <vector>

namespace korvo {

/// Gives each code of a payload that can be split to the elements that violate its rule, with the fact that
/// was found. Returns the codes that a missing element raises. The checksum is the one that the payload
/// should have.
std::vector<QRCodeViolation> assignViolations(const std::vector<std::string>& codes, bool isTwoDigit,
                                              const std::string& computedChecksum,
                                              std::vector<WalkedElement>& elements);

/// Whether a code says that an element which every payload must have is missing.
bool isAboutMissingElement(std::string_view code);

}  // namespace korvo

#endif
