#ifndef KORVOQR_TALLY_H
#define KORVOQR_TALLY_H

#include <KorvoQRParser/KorvoQRParser.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace korvoqr {

/// How often something occurred, and its first example as a JSON object, if examples are kept.
struct Count {
    std::uint64_t count = 0;
    std::string example;

    void add(const Count& other) {
        example = count == 0 ? other.example : example;
        count += other.count;
    }
};

/// The number of accepted and of rejected payloads, and how often each code and each kind of fault occurred.
struct Tally {
    Count accepted;
    Count rejected;
    std::array<Count, korvo::errorCatalogue.size()> codes{};  ///< in the catalogue's order
    std::map<std::string, Count> faults;                      ///< by kind; only counted with examples
    std::uint64_t unreadable = 0;                             ///< pictures, and codes in pictures

    /// Adds those of a later part of the run.
    void add(const Tally& other);

    std::uint64_t payloads() const noexcept { return accepted.count + rejected.count; }
};

}  // namespace korvoqr

#endif
