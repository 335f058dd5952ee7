#ifndef KORVOQR_COMMANDS_H
#define KORVOQR_COMMANDS_H

#include "Format.h"
#include "Terminal.h"

#include <cstddef>
#include <string>
#include <vector>

/// The tool's commands. Each prints its result on standard output, and one line on standard error for each
/// input or output error. If the reader of the output goes away, the run ends without a message.
namespace korvoqr {

/// The exit status of the tool.
enum ExitStatus : int {
    allAccepted = 0,
    someRejected = 1,
    usageOrInputError = 2,  ///< or an output error
};

/// The source of the payloads: arguments, pictures, a file, or standard input.
struct InputOptions {
    std::vector<std::string> payloads;
    std::vector<std::string> images;  ///< names of pictures and folders; "-" is standard input
    std::string file;                 ///< read if there are neither; empty means standard input
    bool nullDelimited = false;       ///< payloads in the file end with NUL instead of a line feed
};

struct ParseOptions {
    InputOptions input;
    Format format = Format::text;
    std::size_t jobs = 1;  ///< threads that parse the file
    bool summary = false;
    bool progress = false;
    ColourChoice colour = ColourChoice::automatic;
};

/// Parses every payload and prints each answer, in input order.
[[nodiscard]] ExitStatus runParse(const ParseOptions& options);

struct ExplainOptions {
    InputOptions input;
    Format format = Format::text;  ///< json and jsonl are the same: its JSON is one object on each line
    ColourChoice colour = ColourChoice::automatic;
};

/// Explains every payload, in input order.
[[nodiscard]] ExitStatus runExplain(const ExplainOptions& options);

struct CodesOptions {
    std::vector<std::string> codes;  ///< none means all
    Format format = Format::text;    ///< json and jsonl are the same: one array
    ColourChoice colour = ColourChoice::automatic;
};

/// Prints the catalogue of error codes, or some rows of it.
[[nodiscard]] ExitStatus runCodes(const CodesOptions& options);

}  // namespace korvoqr

#endif
