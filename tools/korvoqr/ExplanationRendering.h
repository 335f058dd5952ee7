#ifndef KORVOQR_EXPLANATIONRENDERING_H
#define KORVOQR_EXPLANATIONRENDERING_H

#include "Explanation.h"
#include "Origin.h"
#include "Terminal.h"

#include <string>
#include <string_view>

namespace korvoqr {

/// The explanation for a person: a verdict, a table of the elements with the codes below each, the rules
/// about missing elements, and the fault with its place. Ends with a line feed.
std::string explanationText(const Explanation& explanation, const Style& style);

/// The same facts for a program: one JSON object on one line. If the payload comes from a picture, the object
/// begins with the file and the number of the code in it. Bytes that are not UTF-8 become U+FFFD.
std::string explanationJSON(const Explanation& explanation, const Origin& origin);

}  // namespace korvoqr

#endif
