#ifndef KORVOQR_COMMANDS_H
#define KORVOQR_COMMANDS_H

#include "Format.h"
#include "Terminal.h"

#include <cstddef>
#include <cstdint>
#include <optional>
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

/// The longest line that is kept if no other limit is given, in bytes. No QR code holds more than 2,953.
constexpr std::uint64_t usualLineLimit = std::uint64_t{1024} * 1024;

/// The source of the payloads: arguments, pictures, files, or standard input.
struct InputOptions {
    std::vector<std::string> payloads;  ///< "-" alone means standard input
    std::vector<std::string> images;    ///< names of pictures and folders; "-" is standard input
    std::vector<std::string> files;     ///< read if there are neither; none means standard input
    bool nullDelimited = false;         ///< payloads in a file end with NUL instead of a line feed
    std::uint64_t lineLimit = usualLineLimit;
    std::string payloadColumn;      ///< a number from 1, or a name; empty if the whole line is the payload
    std::string keyColumn;          ///< the column that the answers repeat; empty for none
    std::optional<char> delimiter;  ///< between columns; a tab if absent
    bool header = false;            ///< the first line has the names of the columns
    bool trim = false;              ///< try refused payloads again without white space and quotes around them

    /// Whether the payload is standard input, by the argument "-".
    bool isDash() const { return payloads.size() == 1 && payloads.front() == "-"; }

    /// Whether the payloads are lines, of files or of standard input.
    bool areLines() const { return images.empty() && (payloads.empty() || isDash()); }

    bool hasColumns() const noexcept { return !payloadColumn.empty() || !keyColumn.empty(); }
};

enum class SummaryKind : unsigned char { none, text, json };

/// The options of a run over payloads.
struct RunOptions {
    InputOptions input;
    Format format = Format::text;
    std::size_t jobs = 1;  ///< threads that answer lines
    SummaryKind summary = SummaryKind::none;
    bool progress = false;
    bool lineNumber = false;    ///< answers have the number of their line
    bool withPayload = false;   ///< and their payload
    bool compact = false;       ///< a record has no absent texts and no false flags
    bool reasons = false;       ///< refusals have the reason and the offset for each code
    bool refusedOnly = false;   ///< no answers for accepted payloads
    bool isExplaining = false;  ///< explanations are asked for, not records
    bool exitZero = false;      ///< refused payloads are no failure
    ColourChoice colour = ColourChoice::automatic;
};

/// Parses every payload and prints each answer, in input order.
[[nodiscard]] ExitStatus runParse(const RunOptions& options);

/// Explains every payload, in input order. Its JSON is one object on each line.
[[nodiscard]] ExitStatus runExplain(const RunOptions& options);

struct CodesOptions {
    std::vector<std::string> codes;  ///< numbers or names; none means all
    Format format = Format::text;    ///< json is one array
    ColourChoice colour = ColourChoice::automatic;
};

/// Prints the catalogue of error codes, or some rows of it.
[[nodiscard]] ExitStatus runCodes(const CodesOptions& options);

}  // namespace korvoqr

#endif
