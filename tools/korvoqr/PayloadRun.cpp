#include "PayloadRun.h"

#include "ArgumentHints.h"
#include "Batch.h"
#include "Columns.h"
#include "ImageReader.h"
#include "Interruption.h"
#include "LibraryInternals.h"
#include "Output.h"
#include "PayloadInput.h"
#include "Progress.h"
#include "RecordReader.h"
#include "RowHead.h"
#include "Summary.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace korvoqr {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// An input that is read as lines.
struct Source {
    std::string name;  // empty if the answers need not name it
    std::optional<FileKind> kind;
    Columns columns;
};

struct Block {
    Records records;
    std::shared_ptr<const Source> source;
};

std::uint64_t sizeOfFile(const std::string& name) {
    struct stat status {};
    const int error = isStandardInput(name) ? ::fstat(STDIN_FILENO, &status) : ::stat(name.c_str(), &status);
    return error == 0 && S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
}

// The size of all files; 0 if one of them is a pipe or a terminal.
std::uint64_t sizeOfFiles(const std::vector<std::string>& names) {
    std::uint64_t size = 0;
    for (const std::string& name : names) {
        const std::uint64_t bytes = sizeOfFile(name);
        if (bytes == 0) {
            return 0;
        }
        size += bytes;
    }
    return size;
}

RecordFormat recordFormatOf(const InputOptions& input) {
    RecordFormat format;
    format.end = input.nullDelimited ? '\0' : '\n';
    if (input.hasColumns()) {
        format.delimiter = input.delimiter.value_or('\t');
    }
    return format;
}

std::string reasonOf(int error) {
    return std::strerror(error);  // NOLINT(concurrency-mt-unsafe): one thread reads
}

class PayloadRun {
  public:
    PayloadRun(const RunOptions& options, const Responder& respond)
        : options_(options),
          respond_(respond),
          format_(recordFormatOf(options.input)),
          files_(options.input.files.empty() ? std::vector<std::string>{"-"} : options.input.files),
          readsLines_(options.input.images.empty() &&
                      (options.input.payloads.empty() || options.input.isDash())),
          progress_(options.progress && readsLines_, readsLines_ ? sizeOfFiles(files_) : 0) {
        // When the reader has gone, the write fails instead, so the run ends with its ordinary status.
        std::signal(SIGPIPE, SIG_IGN);
        if (options.summary != SummaryKind::none) {
            Interruption::expect();
        }
    }

    ExitStatus run() {
        if (readsLines_) {
            answerLines();
        } else {
            answerArguments();
            answerPictures();
        }
        return finish();
    }

  private:
    bool isGoingOn() const { return !output_.isClosed() && Interruption::signal() == 0; }

    void answerArguments() {
        Origin origin;
        for (const std::string& payload : options_.input.payloads) {
            ++origin.argument;
            if (isGoingOn()) {
                answerOne({payload, origin});
            }
        }
    }

    void answerPictures() {
        for (const std::string& name : options_.input.images) {
            for (const std::string& file : picturesIn(name)) {
                if (isGoingOn()) {
                    answerPicture(file);
                }
            }
        }
    }

    void answerPicture(const std::string& file) {
        const ImageContent content = readQRCodes(file);
        Origin origin;
        origin.file = file;
        if (!content.problem.empty()) {
            reportProblem(origin, content.problem);
        }
        origin.codes = content.codes.size();
        for (const ImageCode& code : content.codes) {
            ++origin.code;
            origin.position = code.place;
            if (code.problem.empty()) {
                answerOne({code.payload, origin});
            } else {
                reportProblem(origin, code.problem);
            }
        }
    }

    void reportProblem(const Origin& origin, const std::string& problem) {
        output_.flush();  // on a terminal, the answers before come first
        std::fprintf(stderr, "korvoqr: cannot read %s: %s; type --image FILE with pictures of QR codes\n",
                     placeOf(origin).c_str(), visible(problem).c_str());
        hasInputError_ = true;
        ++tally_.unreadable;
        output_.write(problemRow(origin, problem, options_));
    }

    void answerOne(const Request& request) {
        own_.clear();
        respond_(request, own_);
        deliver(own_);
    }

    void answerLines() {
        if (isTerminal(STDIN_FILENO) && isStandardInput(files_.front()) && isTerminal(STDERR_FILENO)) {
            std::fputs("korvoqr: paste a payload, end with Ctrl-D\n", stderr);
        }
        Batch<Block, Answers> batch(
            options_.jobs, [this](const Block& block, Answers& answers) { answerBlock(block, answers); },
            [this](const Answers& answers) {
                deliver(answers);
                // The writer of the payloads may be waiting for the answers.
                output_.flush();
            });
        for (const std::string& name : files_) {
            if (isGoingOn()) {
                readFile(name, batch);
            }
        }
        batch.finish();
    }

    // Hands the records of a file to the batch.
    void readFile(const std::string& name, Batch<Block, Answers>& batch) {
        auto source = std::make_shared<Source>();
        source->name = files_.size() > 1 ? name : "";
        bool isHeaderDue = options_.input.header;
        bool isFirst = true;
        bool isWanted = true;
        try {
            source->columns = isHeaderDue ? Columns() : columnsOf(options_.input, {});
            RecordReader reader(format_, options_.input.lineLimit, [&](Records records) {
                if (isHeaderDue) {
                    source->columns = columnsOf(options_.input, takeHeader(records));
                    isHeaderDue = false;
                }
                isWanted = batch.add({std::move(records), source});
            });
            const InputFile input(name);
            const int error =
                input.descriptor() < 0 ? errno : readChunks(input.descriptor(), [&](auto bytes) {
                    if (std::exchange(isFirst, false)) {
                        source->kind = fileKindOf(bytes);
                        const bool isMarked = format_.delimiter && bytes.substr(0, 3) == byteOrderMark;
                        bytes.remove_prefix(isMarked ? byteOrderMark.size() : 0);
                    }
                    reader.add(bytes);
                    return isWanted && isGoingOn();
                });
            if (error != 0) {
                throw InputError(reasonOf(error) +
                                 "; type --input FILE with a file of payloads, one per line");
            }
            // What an interruption cuts through is no record.
            if (const std::uint64_t line = isGoingOn() ? reader.finish() : 0) {
                throw InputError("the quotation mark in line " + std::to_string(line) +
                                 " is never closed, so nothing after it is read; close it");
            }
        } catch (const InputError& error) {
            inputErrors_.push_back((isStandardInput(name) ? "standard input" : visible(name)) + ": " +
                                   error.what());
        }
    }

    // Removes the first record, and returns its columns.
    std::vector<std::string> takeHeader(Records& records) const {
        std::vector<std::string> names;
        RecordScanner scanner(format_);
        const std::string_view text = records.text;
        const std::string_view header = text.substr(0, scanner.findEnd(text));
        if (records.isTooLong || !splitColumns(header, format_, header.size() + 1, names)) {
            throw InputError(
                "the header is too long or has a quotation mark out of place; type --max-line or "
                "--delimiter");
        }
        // A file may come from a system whose lines end in CR LF.
        if (!names.empty() && !names.back().empty() && names.back().back() == '\r') {
            names.back().pop_back();
        }
        records.line += static_cast<std::uint64_t>(std::count(header.begin(), header.end(), format_.end)) + 1;
        records.text.erase(0, header.size() + 1);
        return names;
    }

    // Answers the records of a block; on any thread.
    void answerBlock(const Block& block, Answers& answers) const {
        answers.clear();
        answers.bytes = block.records.bytes;
        Request request;
        request.kind = block.source->kind ? &*block.source->kind : nullptr;
        request.origin.file = block.source->name;
        if (block.records.isTooLong) {
            request.origin.line = block.records.line;
            request.isTooLong = true;
            respond_(request, answers);
            return;
        }
        std::vector<std::string> columns;
        forEachRecord(block.records, format_, [&](std::string_view record, std::uint64_t line) {
            request.payload = record;
            request.origin.line = line;
            const std::string problem =
                format_.delimiter ? takeColumns(block.source->columns, columns, request) : "";
            if (problem.empty()) {
                respond_(request, answers);
            } else {
                answers.withoutColumn.note(placeOf(request.origin) + problem);
                if (request.kind != nullptr) {
                    answers.hints.note(*request.kind, request.origin.file);
                }
            }
        });
    }

    // Takes payload and key out of the record. Returns what is wrong with the record; empty if nothing is.
    std::string takeColumns(const Columns& wanted, std::vector<std::string>& columns,
                            Request& request) const {
        request.origin.key = std::nullopt;
        if (!splitColumns(request.payload, format_, wanted.last(), columns)) {
            return " has a quotation mark out of place";
        }
        for (const std::size_t column : {wanted.payload, wanted.key}) {
            if (column > columns.size()) {
                return " has no column " + std::to_string(column);
            }
        }
        request.payload = columns[wanted.payload - 1];
        if (wanted.key > 0) {
            std::string& key = columns[wanted.key - 1];
            // The last column of a line that ends in CR LF
            key.resize(key.size() - (!key.empty() && key.back() == '\r' ? 1 : 0));
            request.origin.key = key;
        }
        return {};
    }

    void deliver(const Answers& answers) {
        if (!answers.text.empty()) {
            if (isText(options_.format) && std::exchange(hasWritten_, true)) {
                output_.write("\n");
            }
            output_.write(answers.text);
        }
        tally_.add(answers.tally);
        hints_.add(answers.hints);
        unprintable_.add(answers.unprintable);
        withoutColumn_.add(answers.withoutColumn);
        bytes_ += answers.bytes;
        progress_.update(bytes_, tally_.payloads());
    }

    ExitStatus finish() {
        progress_.clear();
        output_.flush();
        const bool isWritten = output_.reportFailure();
        if (isWritten) {
            reportInputErrors();
            giveHints();
        }
        printSummary();
        Interruption::endProcess();
        if (!isWritten || hasInputError_) {
            return usageOrInputError;
        }
        return tally_.rejected.count > 0 && !options_.exitZero ? someRejected : allAccepted;
    }

    void printSummary() {
        const auto time = std::chrono::steady_clock::now() - begin_;
        std::string summary;
        switch (options_.summary) {
            case SummaryKind::none:
                return;
            case SummaryKind::text:
                summary = summaryText(tally_, time, styleOf(STDERR_FILENO, options_.colour));
                break;
            case SummaryKind::json:
                summary = summaryJSON(tally_, time);
                break;
        }
        std::fputs(summary.c_str(), stderr);
    }

    void reportInputErrors() {
        for (const std::string& error : inputErrors_) {
            std::fprintf(stderr, "korvoqr: cannot read %s\n", error.c_str());
            hasInputError_ = true;
        }
        if (withoutColumn_.count > 0) {
            const std::uint64_t others = withoutColumn_.count - 1;
            const std::string more = others == 0 ? ""
                                                 : " (and " + grouped(others) +
                                                       (others == 1 ? " more line is" : " more lines are") +
                                                       " wrong)";
            std::fprintf(stderr,
                         "korvoqr: %s%s; type --payload-column, --key and --delimiter for columns that every "
                         "line has\n",
                         withoutColumn_.first.c_str(), more.c_str());
            hasInputError_ = true;
        }
    }

    void giveHints() {
        if (unprintable_.count > 0) {
            const bool isOne = unprintable_.count == 1;
            const std::string payloads = isOne ? unprintable_.first + " is accepted, but its"
                                               : grouped(unprintable_.count) + " payloads, the first in " +
                                                     unprintable_.first + ", are accepted, but their";
            std::fprintf(
                stderr,
                "korvoqr: %s JSON is empty because a value is not ASCII; type --format jsonl to see it\n",
                payloads.c_str());
        }
        const std::string hint =
            readsLines_ ? hints_.sentence(tally_.accepted.count, options_) : hintForArguments();
        if (!hint.empty()) {
            std::fprintf(stderr, "korvoqr: %s\n", hint.c_str());
        }
    }

    std::string hintForArguments() const {
        const auto& payloads = options_.input.payloads;
        const bool isWord = std::find(payloads.begin(), payloads.end(), "json") != payloads.end();
        return isWord && options_.summary != SummaryKind::none
                   ? "json is read as a payload; type --summary=json"
                   : argumentHint(payloads);
    }

    const RunOptions& options_;
    const Responder& respond_;
    RecordFormat format_;
    std::vector<std::string> files_;
    bool readsLines_;
    Progress progress_;
    Output output_;
    bool hasWritten_ = false;
    bool hasInputError_ = false;
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    Answers own_;  // for arguments and pictures
    Tally tally_;
    RefusalHints hints_;
    Occurrences unprintable_;
    Occurrences withoutColumn_;
    std::vector<std::string> inputErrors_;  // for a person; printed at the end, when no other thread writes
    std::uint64_t bytes_ = 0;
};

// The first example of what a summary counts.
std::string exampleOf(const Request& request) {
    constexpr std::size_t longestExample = 4096;  // a QR code holds less
    korvo::JSONWriter json(korvo::JSONWriter::Layout::oneLine);
    json.beginObject();
    appendHead(json, request, {true, request.payload.size() <= longestExample});
    return json.endObject().takeText();
}

std::string faultOf(const Request& request, const RunOptions& options) {
    if (request.isTooLong) {
        return reasonForLength(options);
    }
    const auto explanation = korvo::QRCodeExplainer::describeQRData(request.payload);
    return explanation.fault() != nullptr ? std::string(explanation.fault()->kindText()) : "";
}

}  // namespace

void countAnswer(const Request& request, const std::vector<std::string>& codes, const RunOptions& options,
                 Answers& answers) {
    const bool keepsExamples = options.summary == SummaryKind::json;
    const auto count = [&](Count& counted) {
        if (counted.count++ == 0 && keepsExamples) {
            counted.example = exampleOf(request);
        }
    };
    if (codes.empty()) {
        count(answers.tally.accepted);
        return;
    }
    count(answers.tally.rejected);
    for (const std::string& code : codes) {
        if (const auto* const entry = korvo::findErrorCatalogueEntry(code)) {
            count(answers.tally.codes.at(static_cast<std::size_t>(entry - korvo::errorCatalogue.data())));
        }
    }
    const bool isUnsplittable = codes.front() == korvo::KorvoErrorConstants::malformedTags;
    if (isUnsplittable && keepsExamples) {
        count(answers.tally.faults[faultOf(request, options)]);
    }
    if (request.kind != nullptr) {
        answers.hints.note(*request.kind, request.origin.file);
    } else if (!request.isTooLong) {
        answers.hints.note(request.payload, isUnsplittable);
    }
}

ExitStatus runPayloads(const RunOptions& options, const Responder& respond) {
    return PayloadRun(options, respond).run();
}

}  // namespace korvoqr
