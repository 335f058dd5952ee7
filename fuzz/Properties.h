#ifndef KORVOQR_FUZZ_PROPERTIES_H
#define KORVOQR_FUZZ_PROPERTIES_H

#include <string_view>

namespace korvo::fuzz {

/// Prints a line that names a broken promise, and stops the program.
void promise(bool isKept, const char* what);

/// Explains a payload, and checks what the explanation promises.
void checkExplanation(std::string_view payload);

/// Parses a payload. When the library breaks a promise, prints a line that names it and stops the program.
void checkPromises(std::string_view payload);

}  // namespace korvo::fuzz

#endif
