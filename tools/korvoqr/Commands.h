#ifndef KORVOQR_COMMANDS_H
#define KORVOQR_COMMANDS_H

#include "Format.h"
#include "Terminal.h"

#include <cstddef>
#include <string>
#include <vector>

/// The tool's commands. Each prints its result on standard output and errors of input and output as one line
/// each on standard error; a reader that goes away ends a run quietly.
namespace korvoqr {

/// How the tool ends.
enum ExitStatus : int {
    allAccepted = 0,
    someRejected = 1,
    usageOrInputError = 2,  ///< or one of output
};

/// Where payloads come from: arguments, or pictures, or a file or standard input.
struct InputOptions {
    std::vector<std::string> payloads;
    std::vector<std::string> images;  ///< names of PNG and JPEG files
    std::string file;                 ///< read when there are neither of those; empty is standard input
    bool nullDelimited = false;       ///< payloads in the file end with NUL instead of a line feed
};

struct ParseOptions {
    InputOptions input;
    Format format = Format::text;
    std::size_t jobs = 1;  ///< threads that parse what is in the file
    bool summary = false;
    bool progress = false;
    ColourChoice colour = ColourChoice::automatic;
};

/// Parses every payload and prints each answer, in input order.
[[nodiscard]] ExitStatus runParse(const ParseOptions& options);

struct ExplainOptions {
    InputOptions input;
    Format format = Format::text;  ///< or JSON, whichever
    ColourChoice colour = ColourChoice::automatic;
};

/// Explains every payload, in input order.
[[nodiscard]] ExitStatus runExplain(const ExplainOptions& options);

struct CodesOptions {
    std::vector<std::string> codes;  ///< none means all
    Format format = Format::text;    ///< or JSON, whichever
    ColourChoice colour = ColourChoice::automatic;
};

/// Prints the catalogue of error codes, or the rows asked for.
[[nodiscard]] ExitStatus runCodes(const CodesOptions& options);

}  // namespace korvoqr

#endif
