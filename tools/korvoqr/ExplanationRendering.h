#ifndef KORVOQR_EXPLANATIONRENDERING_H
#define KORVOQR_EXPLANATIONRENDERING_H

#include "Origin.h"
#include "Terminal.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <string>

namespace korvoqr {

/// The explanation for a person: a verdict, the likeliest cause, a table of the elements with the codes below
/// each, the rules about missing elements, the fault with its place, and the repair. Ends with a line feed.
std::string explanationText(const korvo::QRCodeExplanation& explanation, const Style& style);

/// The library's JSON, on a line. If the payload comes from a picture, the object begins with the file and
/// the number of the code in it.
std::string explanationJSON(const korvo::QRCodeExplanation& explanation, const Origin& origin);

}  // namespace korvoqr

#endif
