#ifndef KORVOQR_FUZZ_PROPERTIES_H
#define KORVOQR_FUZZ_PROPERTIES_H

#include <string>
#include <string_view>

namespace korvo::fuzz {

/// Parses a payload and stops the program, with a line that says why, when any promise of the library is
/// broken.
void checkPromises(std::string_view payload);

/// A two-digit payload's checksum element, for what stands before it.
std::string checksumElement(std::string_view before);

}  // namespace korvo::fuzz

#endif
