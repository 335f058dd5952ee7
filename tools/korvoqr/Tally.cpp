#include "Tally.h"

namespace korvoqr {

void Tally::add(const Tally& other) {
    accepted.add(other.accepted);
    rejected.add(other.rejected);
    for (std::size_t i = 0; i < codes.size(); ++i) {
        codes.at(i).add(other.codes.at(i));
    }
    for (const auto& [kind, count] : other.faults) {
        faults[kind].add(count);
    }
    unreadable += other.unreadable;
}

}  // namespace korvoqr
