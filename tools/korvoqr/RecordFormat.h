#ifndef KORVOQR_RECORDFORMAT_H
#define KORVOQR_RECORDFORMAT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvoqr {

/// The form of the records in an input, which are lines unless they end with NUL.
struct RecordFormat {
    char end = '\n';
    std::optional<char> delimiter;  ///< between columns; absent if the whole record is the payload

    /// With a comma, columns may be in quotation marks, as RFC 4180 has them.
    bool isQuoted() const noexcept { return delimiter == ','; }
};

/// Finds the ends of records in bytes that come in pieces. A quoted column may contain the end character.
class RecordScanner {
  public:
    explicit RecordScanner(const RecordFormat& format) : format_(format) {}

    /// The offset of the end of the current record, or npos if the record goes on after these bytes.
    std::size_t findEnd(std::string_view bytes) noexcept;

    /// Whether the bytes so far end inside a quoted column.
    bool isInsideQuotes() const noexcept { return place_ == Place::quoted; }

  private:
    enum class Place : unsigned char { columnBegin, unquoted, quoted, afterQuote };

    RecordFormat format_;
    Place place_ = Place::columnBegin;
};

/// Splits a record into its columns, up to the `most`th. False if text follows a closing quotation mark, or
/// if there is none. RFC 4180 has records end with CR LF, so with quoting, a CR before the end is no part of
/// the last column.
[[nodiscard]] bool splitColumns(std::string_view record, const RecordFormat& format, std::size_t most,
                                std::vector<std::string>& columns);

}  // namespace korvoqr

#endif
