#ifndef KORVOQR_ANSWERS_H
#define KORVOQR_ANSWERS_H

#include "Commands.h"
#include "RefusalHints.h"
#include "Request.h"
#include "Tally.h"

#include <cstdint>
#include <string>
#include <vector>

namespace korvoqr {

/// The answers to some payloads of a run.
struct Answers {
    std::string text;
    Tally tally;
    RefusalHints hints;
    Occurrences unprintable;    ///< records whose JSON is empty
    Occurrences withoutColumn;  ///< lines that lack a column, or have a quotation mark out of place
    std::uint64_t bytes = 0;    ///< of input

    /// Counts the answer to a payload for the summary and the hints. Accepted payloads have no codes.
    void count(const Request& request, const std::vector<std::string>& codes, const RunOptions& options);

    /// Begins an answer: in text, an empty line separates it from the one before.
    void begin(Format format);

    /// Forgets everything, and keeps the memory of the text.
    void clear();
};

}  // namespace korvoqr

#endif
