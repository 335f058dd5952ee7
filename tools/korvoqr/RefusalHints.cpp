#include "RefusalHints.h"

#include "RecordFormat.h"
#include "Terminal.h"
#include "Trimming.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace korvoqr {

namespace {

bool isAccepted(std::string_view payload) {
    return korvo::QRCodeParser::parseQRData(payload).qrCodeData() != nullptr;
}

}  // namespace

void RefusalHints::note(std::string_view payload, bool isUnsplittable) {
    ++refused_;
    // The causes below break the first or the last element.
    if (isUnsplittable) {
        noteSurroundings(payload);
        noteColumns(payload);
    }
}

void RefusalHints::note(const FileKind& kind, std::string_view file) {
    ++refused_;
    if (countOf(Cause::file)++ == 0) {
        kind_ = kind;
        file_ = file;
    }
}

void RefusalHints::noteSurroundings(std::string_view payload) {
    const std::string_view inner = trimmed(payload);
    if (inner.size() == payload.size() || inner.empty()) {
        return;
    }
    const std::string_view before =
        payload.substr(0, static_cast<std::size_t>(inner.data() - payload.data()));
    const std::string_view after = payload.substr(before.size() + inner.size());
    const auto hasQuote = [](std::string_view text) {
        return text.find_first_of("\"'") != std::string_view::npos;
    };
    countOf(Cause::carriageReturn) += payload.back() == '\r' ? 1U : 0U;
    countOf(Cause::byteOrderMark) += before.find(utf8Mark) != std::string_view::npos ? 1U : 0U;
    countOf(Cause::quotes) += hasQuote(before) && hasQuote(after) ? 1U : 0U;
    ++countOf(Cause::blanks);
}

void RefusalHints::noteColumns(std::string_view payload) {
    for (const char delimiter : {'\t', ',', ';', '|'}) {
        if (payload.find(delimiter) == std::string_view::npos) {
            continue;
        }
        std::vector<std::string> columns;
        const RecordFormat format{'\n', delimiter};
        constexpr std::size_t mostColumns = 64;
        if (!splitColumns(payload, format, mostColumns, columns)) {
            continue;
        }
        const auto found = std::find_if(columns.begin(), columns.end(), [](const std::string& column) {
            return isAccepted(trimmed(column));
        });
        if (found != columns.end()) {
            ++countOf(Cause::columns);
            if (column_ == 0) {
                column_ = static_cast<std::size_t>(found - columns.begin()) + 1;
                delimiter_ = delimiter;
            }
            return;
        }
    }
}

void RefusalHints::add(const RefusalHints& other) {
    refused_ += other.refused_;
    std::transform(counts_.begin(), counts_.end(), other.counts_.begin(), counts_.begin(), std::plus<>());
    if (!kind_) {
        kind_ = other.kind_;
        file_ = other.file_;
    }
    if (column_ == 0) {
        column_ = other.column_;
        delimiter_ = other.delimiter_;
    }
}

std::string RefusalHints::sentence(std::uint64_t accepted, const RunOptions& options) const {
    constexpr std::uint64_t least = 3;
    for (std::size_t i = 0; i < counts_.size(); ++i) {
        const std::uint64_t count = counts_.at(i);
        const bool isTried = options.input.trim && static_cast<Cause>(i) >= Cause::carriageReturn;
        if (count < least || count * 10 < refused_ * 9 || isTried) {
            continue;
        }
        std::string lines = "all " + grouped(count) + (accepted == 0 ? " lines " : " refused lines ");
        if (count < refused_) {
            lines = grouped(count) + " of " + grouped(refused_) + " refused lines ";
        }
        return sentenceOf(static_cast<Cause>(i), lines, options);
    }
    return {};
}

std::string RefusalHints::sentenceOf(Cause cause, const std::string& lines, const RunOptions& options) const {
    const std::string command = options.isExplaining ? " explain" : " parse";
    const std::string trim = options.isExplaining ? "; try korvoqr parse --trim" : "; try --trim";
    switch (cause) {
        case Cause::file: {
            const bool isPipe = kind_->remedy.find('|') != std::string::npos;
            return (file_.empty() ? "this" : visible(file_)) + ' ' + kind_->name + "; try " + kind_->remedy +
                   (isPipe ? command : "");
        }
        case Cause::columns:
            return lines + "have a payload in column " + std::to_string(column_) + "; try --payload-column " +
                   std::to_string(column_) +
                   (delimiter_ == '\t' ? "" : std::string(" --delimiter '") + delimiter_ + '\'');
        case Cause::carriageReturn:
            return lines + "end in CR" + trim;
        case Cause::byteOrderMark:
            return lines + "begin with a byte order mark" + trim;
        case Cause::quotes:
            return lines + "are in quotes" + trim;
        case Cause::blanks:
            return lines + "have white space or quotes around them" + trim;
        case Cause::count:
            break;
    }
    return {};
}

}  // namespace korvoqr
