#ifndef KORVOQR_COLUMNS_H
#define KORVOQR_COLUMNS_H

#include "Commands.h"
#include "RecordReader.h"
#include "Request.h"

#include <cstddef>
#include <string>
#include <vector>

namespace korvoqr {

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

/// Removes the first of some records, the header, and returns its columns. Throws InputError if it cannot be
/// split into columns.
std::vector<std::string> takeHeader(Records& records, const RecordFormat& format);

/// Replaces the payload of a request, which is a whole record, by the wanted columns. The request then has
/// views into `columns`. Returns what is wrong with the record, for a message that begins with its place;
/// empty if nothing is.
[[nodiscard]] std::string takeColumns(const Columns& wanted, const RecordFormat& format,
                                      std::vector<std::string>& columns, Request& request);

}  // namespace korvoqr

#endif
