#ifndef KORVOQR_FUZZ_PROPERTIES_H
#define KORVOQR_FUZZ_PROPERTIES_H

#include <string_view>

namespace korvo::fuzz {

/// Parses a payload. When the library breaks a promise, prints a line that names it and stops the program.
void checkPromises(std::string_view payload);

}  // namespace korvo::fuzz

#endif
