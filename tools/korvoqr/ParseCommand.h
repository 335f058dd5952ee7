#ifndef KORVOQR_PARSECOMMAND_H
#define KORVOQR_PARSECOMMAND_H

#include "Rendering.h"

#include <string>
#include <vector>

namespace korvoqr {

/// How the tool ends.
enum ExitStatus : int {
    allAccepted = 0,
    someRejected = 1,
    usageOrInputError = 2,  ///< or one of output
};

struct ParseOptions {
    std::vector<std::string> payloads;  ///< none means: read them from standard input
    Format format = Format::text;
    bool nullDelimited = false;  ///< payloads on standard input end with NUL instead of a line feed
};

/// Parses every payload and prints each answer, in input order, on standard output. Errors of input and
/// output are one line on standard error; a reader that goes away ends the run quietly.
ExitStatus runParse(const ParseOptions& options);

}  // namespace korvoqr

#endif
