#ifndef KORVOQR_FAULTEXPLANATION_H
#define KORVOQR_FAULTEXPLANATION_H

#include "Explanation.h"
#include "LibraryInternals.h"

#include <string_view>
#include <vector>

namespace korvoqr {

/// Explains why and where a walk over a payload ended early. `elements` are those that the walk visited. The
/// result has views into the payload.
[[nodiscard]] ExplainedFault explainFault(std::string_view payload,
                                          const std::vector<ExplainedElement>& elements,
                                          const korvo::TLVFault& fault);

}  // namespace korvoqr

#endif
