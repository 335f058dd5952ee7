#ifndef KORVOQR_ANSWERS_H
#define KORVOQR_ANSWERS_H

#include "RefusalHints.h"
#include "Tally.h"

#include <cstdint>
#include <string>

namespace korvoqr {

/// Something that happened several times in a run: how often, and where first.
struct Occurrences {
    std::uint64_t count = 0;
    std::string first;  ///< for a person

    void note(const std::string& place) {
        if (count++ == 0) {
            first = place;
        }
    }
    void add(const Occurrences& other) {
        first = count == 0 ? other.first : first;
        count += other.count;
    }
};

/// The answers to some payloads of a run.
struct Answers {
    std::string text;
    Tally tally;
    RefusalHints hints;
    Occurrences unprintable;    ///< records whose JSON is empty
    Occurrences withoutColumn;  ///< lines that lack a column, or have a quotation mark out of place
    std::uint64_t bytes = 0;    ///< of input

    /// Forgets everything, and keeps the memory of the text.
    void clear() {
        text.clear();
        tally = {};
        hints = {};
        unprintable = {};
        withoutColumn = {};
        bytes = 0;
    }
};

}  // namespace korvoqr

#endif
