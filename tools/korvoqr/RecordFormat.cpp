#include "RecordFormat.h"

namespace korvoqr {

namespace {

constexpr char quote = '"';

// Reads a quoted column, whose opening quotation mark has been removed, into `column`. Leaves the text after
// the closing one. False if there is none.
bool takeQuoted(std::string_view& text, std::string& column) {
    while (true) {
        const std::size_t end = text.find(quote);
        if (end == std::string_view::npos) {
            return false;
        }
        column += text.substr(0, end);
        text.remove_prefix(end + 1);
        if (text.empty() || text.front() != quote) {
            return true;
        }
        column += quote;
        text.remove_prefix(1);
    }
}

}  // namespace

std::size_t RecordScanner::findEnd(std::string_view bytes) noexcept {
    if (!format_.isQuoted()) {
        return bytes.find(format_.end);
    }
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char byte = bytes[i];
        if (place_ == Place::quoted) {
            place_ = byte == quote ? Place::afterQuote : Place::quoted;
        } else if (byte == format_.end) {
            place_ = Place::columnBegin;
            return i;
        } else if (byte == quote && place_ != Place::unquoted) {
            place_ = Place::quoted;
        } else {
            place_ = byte == format_.delimiter ? Place::columnBegin : Place::unquoted;
        }
    }
    return std::string_view::npos;
}

bool splitColumns(std::string_view record, const RecordFormat& format, std::size_t most,
                  std::vector<std::string>& columns) {
    if (format.isQuoted() && !record.empty() && record.back() == '\r') {
        record.remove_suffix(1);
    }
    columns.clear();
    while (columns.size() < most) {
        std::string& column = columns.emplace_back();
        if (format.isQuoted() && !record.empty() && record.front() == quote) {
            record.remove_prefix(1);
            if (!takeQuoted(record, column)) {
                return false;
            }
            if (!record.empty() && record.front() != format.delimiter) {
                return false;
            }
        } else {
            column = record.substr(0, record.find(*format.delimiter));
            record.remove_prefix(column.size());
        }
        if (record.empty()) {
            break;
        }
        record.remove_prefix(1);
    }
    return true;
}

}  // namespace korvoqr
