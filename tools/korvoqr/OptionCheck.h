#ifndef KORVOQR_OPTIONCHECK_H
#define KORVOQR_OPTIONCHECK_H

#include "Commands.h"

#include <optional>
#include <string>

namespace korvoqr {

/// The reason why some of the options do not go together, for a person; empty if all do.
std::string conflictIn(const RunOptions& options);

/// Reads a number from 1 to `most`. Returns what is wrong with the text; empty if nothing is.
std::string readNumber(const std::string& text, std::uint64_t most, std::uint64_t& number);

/// Reads the character between columns: one byte, or the word tab. Returns what is wrong with the text.
std::string readDelimiter(const std::string& text, std::optional<char>& delimiter);

}  // namespace korvoqr

#endif
