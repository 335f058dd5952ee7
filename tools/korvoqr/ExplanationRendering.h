#ifndef KORVOQR_EXPLANATIONRENDERING_H
#define KORVOQR_EXPLANATIONRENDERING_H

#include "Explanation.h"
#include "Terminal.h"

#include <string>
#include <string_view>

namespace korvoqr {

/// The explanation for a person: a verdict, the elements as a table with their codes below each, rules about
/// absent elements, and the fault with its place. Ends with a line feed.
std::string explanationText(const Explanation& explanation, const Style& style);

/// The same facts for a program: one JSON object on one line, with the file that the payload comes from as
/// "file" unless that is empty. Bytes of the payload that are not UTF-8 appear as U+FFFD.
std::string explanationJSON(const Explanation& explanation, std::string_view file);

}  // namespace korvoqr

#endif
