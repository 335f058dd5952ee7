#ifndef KORVOQR_RECORDREADER_H
#define KORVOQR_RECORDREADER_H

#include "RecordFormat.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace korvoqr {

/// A piece of an input: some complete records, each with its end. Or one record that is too long to keep:
/// then it has no text.
struct Records {
    std::string text;
    std::uint64_t line = 1;   ///< the number of the first record's first line
    std::uint64_t bytes = 0;  ///< of the input, also those that were not kept
    bool isTooLong = false;
};

/// Collects an input's bytes, which come in pieces, into complete records. Memory is bounded by the limit of
/// a record and the size of the pieces.
class RecordReader {
  public:
    /// Each call of `handle` gets the records that a piece has completed, so that none waits for the next
    /// piece. Records of more than `mostBytes` bytes, without their end, are skipped.
    RecordReader(const RecordFormat& format, std::uint64_t mostBytes, std::function<void(Records)> handle)
        : format_(format), scanner_(format), mostBytes_(mostBytes), handle_(std::move(handle)) {}

    /// Takes the input's next bytes.
    void add(std::string_view bytes);

    /// Takes the input's end. The last record may lack its end. Returns the line of a quotation mark that is
    /// never closed; then the record that begins there is dropped. 0 if there is none.
    [[nodiscard]] std::uint64_t finish();

  private:
    void append(std::string_view part);
    void endRecord();
    void handOver();

    RecordFormat format_;
    RecordScanner scanner_;
    std::uint64_t mostBytes_;
    std::function<void(Records)> handle_;
    Records records_;
    std::string begun_;        // the record that goes on in the next piece
    bool isSkipping_ = false;  // it is too long
    std::uint64_t skipped_ = 0;
    std::uint64_t line_ = 1;          // where it begins
    std::uint64_t breaksInside_ = 0;  // line breaks in it
};

/// Calls `use(record, line)` with each record and the number of its first line.
template <class Use>
void forEachRecord(const Records& records, const RecordFormat& format, Use use) {
    RecordScanner scanner(format);
    std::string_view text = records.text;
    std::uint64_t line = records.line;
    while (!text.empty()) {
        const std::string_view record = text.substr(0, scanner.findEnd(text));
        use(record, line);
        for (const char byte : format.isQuoted() ? record : std::string_view()) {
            line += byte == format.end ? 1 : 0;
        }
        ++line;
        text.remove_prefix(record.size() < text.size() ? record.size() + 1 : record.size());
    }
}

}  // namespace korvoqr

#endif
