#ifndef KORVOQR_COLUMNS_H
#define KORVOQR_COLUMNS_H

#include "Commands.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvoqr {

/// A problem with an input, for a person: the reason, and after a semicolon what to type.
class InputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The columns of an input that a run reads, as numbers from 1; 0 for none.
struct Columns {
    std::size_t payload = 0;
    std::size_t key = 0;

    std::size_t last() const noexcept { return payload > key ? payload : key; }
};

/// The number that the option names a column with; 0 if it is no number from 1 to a million.
std::size_t columnNumber(const std::string& option) noexcept;

/// The columns that the options choose. `header` has the names; it is empty if the input has no header.
/// Throws InputError if a name is not in the header, or is in it twice.
Columns columnsOf(const InputOptions& options, const std::vector<std::string>& header);

}  // namespace korvoqr

#endif
