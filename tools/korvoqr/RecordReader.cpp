#include "RecordReader.h"

#include <algorithm>
#include <utility>

namespace korvoqr {

void RecordReader::add(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t end = scanner_.findEnd(bytes);
        const std::string_view part = bytes.substr(0, end);
        append(part);
        if (end == std::string_view::npos) {
            break;
        }
        endRecord();
        bytes.remove_prefix(end + 1);
    }
    handOver();
}

std::uint64_t RecordReader::finish() {
    if (scanner_.isInsideQuotes()) {
        handOver();
        return line_;
    }
    if (isSkipping_ || !begun_.empty()) {
        endRecord();
    }
    handOver();
    return 0;
}

void RecordReader::append(std::string_view part) {
    if (format_.isQuoted()) {
        breaksInside_ += static_cast<std::uint64_t>(std::count(part.begin(), part.end(), format_.end));
    }
    if (!isSkipping_ && begun_.size() + part.size() <= mostBytes_) {
        begun_ += part;
        return;
    }
    isSkipping_ = true;
    skipped_ += begun_.size() + part.size();
    begun_ = {};
}

void RecordReader::endRecord() {
    if (isSkipping_) {
        handOver();
        handle_({{}, line_, skipped_ + 1, true});
        isSkipping_ = false;
        skipped_ = 0;
    } else {
        if (records_.text.empty()) {
            records_.line = line_;
        }
        records_.text += begun_;
        records_.text += format_.end;
        begun_.clear();
    }
    line_ += std::exchange(breaksInside_, 0) + 1;
}

void RecordReader::handOver() {
    if (!records_.text.empty()) {
        records_.bytes = records_.text.size();
        handle_(std::exchange(records_, {}));
    }
}

}  // namespace korvoqr
