#ifndef KORVOQR_FUZZ_PROPERTIES_H
#define KORVOQR_FUZZ_PROPERTIES_H

#include <string>
#include <string_view>

namespace korvo::fuzz {

/// Parses a payload. When the library breaks a promise, prints a line that names it and stops the program.
void checkPromises(std::string_view payload);

/// The checksum element of the two-digit payload that begins with `before`.
std::string checksumElement(std::string_view before);

}  // namespace korvo::fuzz

#endif
