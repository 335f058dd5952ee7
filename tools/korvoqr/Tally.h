#ifndef KORVOQR_TALLY_H
#define KORVOQR_TALLY_H

#include <KorvoQRParser/KorvoQRParser.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace korvoqr {

/// How often something happened in a run, and where first.
struct Occurrences {
    std::uint64_t count = 0;
    std::string first;

    /// Counts one more. `describe` is called for the first one only.
    template <class Describe>
    void note(const Describe& describe) {
        if (count++ == 0) {
            first = describe();
        }
    }

    /// Adds those of a later part of the run.
    void add(const Occurrences& other) {
        first = count == 0 ? other.first : first;
        count += other.count;
    }
};

/// The number of accepted and of rejected payloads, and how often each code and each kind of fault occurred.
/// If examples are kept, the first one of each is a JSON object.
struct Tally {
    Occurrences accepted;
    Occurrences rejected;
    std::array<Occurrences, korvo::errorCatalogue.size()> codes{};  ///< in the catalogue's order
    std::map<std::string, Occurrences> faults;                      ///< by kind; only counted with examples
    std::uint64_t unreadable = 0;                                   ///< pictures, and codes in pictures

    /// Adds those of a later part of the run.
    void add(const Tally& other);

    std::uint64_t payloads() const noexcept { return accepted.count + rejected.count; }
};

}  // namespace korvoqr

#endif
