#ifndef KORVOQR_EXPLANATIONRENDERING_H
#define KORVOQR_EXPLANATIONRENDERING_H

#include "Explanation.h"
#include "Origin.h"
#include "Terminal.h"

#include <string>
#include <string_view>

namespace korvoqr {

/// The explanation for a person: a verdict, the elements as a table with their codes below each, rules about
/// absent elements, and the fault with its place. Ends with a line feed.
std::string explanationText(const Explanation& explanation, const Style& style);

/// The same facts for a program: one JSON object on one line, which begins with the file and the number of
/// the code where the payload comes from a picture. Bytes of the payload that are not UTF-8 appear as U+FFFD.
std::string explanationJSON(const Explanation& explanation, const Origin& origin);

}  // namespace korvoqr

#endif
