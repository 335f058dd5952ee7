#ifndef KORVOQR_REFUSALCODES_H
#define KORVOQR_REFUSALCODES_H

#include <KorvoQRParser/KorvoQRParser.h>

#include <string>
#include <vector>

namespace korvoqr {

/// The codes of the answer to a payload; empty if it is accepted.
const std::vector<std::string>& codesOf(const korvo::QRCodeParserResponse& response);

/// Whether these are the codes of a text that cannot be split into elements.
bool isUnsplittable(const std::vector<std::string>& codes);

/// The codes of a line that is too long to be kept: those of a text that cannot be split.
const std::vector<std::string>& codesOfTooLong();

}  // namespace korvoqr

#endif
