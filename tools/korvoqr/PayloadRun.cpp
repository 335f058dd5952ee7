#include "PayloadRun.h"

#include "Batch.h"
#include "Columns.h"
#include "ImageReader.h"
#include "Interruption.h"
#include "Output.h"
#include "PayloadInput.h"
#include "Progress.h"
#include "RecordReader.h"
#include "RowHead.h"
#include "RunReport.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace korvoqr {

namespace {

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

RecordFormat recordFormatOf(const InputOptions& input) {
    RecordFormat format;
    format.end = input.nullDelimited ? '\0' : '\n';
    if (input.hasColumns()) {
        format.delimiter = input.delimiter.value_or('\t');
    }
    return format;
}

class PayloadRun {
  public:
    PayloadRun(const RunOptions& options, const Responder& respond)
        : options_(options),
          respond_(respond),
          format_(recordFormatOf(options.input)),
          files_(options.input.files.empty() ? std::vector<std::string>{"-"} : options.input.files),
          progress_(options.progress && options.input.areLines(),
                    options.input.areLines() ? sizeOfInputs(files_) : 0),
          report_(options) {
        if (options.summary != SummaryKind::none) {
            Interruption::expect();
        }
    }

    ExitStatus run() {
        if (options_.input.areLines()) {
            answerLines();
        } else {
            answerArguments();
            answerPictures();
        }
        return finish();
    }

  private:
    using Blocks = Batch<Block, Answers>;

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
        report_.addUnreadable();
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
        Blocks blocks(
            options_.jobs, [this](const Block& block, Answers& answers) { answerBlock(block, answers); },
            [this](const Answers& answers) {
                deliver(answers);
                // The writer of the payloads may be waiting for the answers.
                output_.flush();
            });
        for (const std::string& file : files_) {
            try {
                if (isGoingOn()) {
                    answerFile(file, blocks);
                }
            } catch (const InputError& error) {
                report_.addInputError(file, error);
            }
        }
        blocks.finish();
    }

    // Has the records of a file answered. Throws InputError.
    void answerFile(const std::string& file, Blocks& blocks) {
        auto source = std::make_shared<Source>();
        source->name = files_.size() > 1 ? file : "";
        bool isHeaderDue = options_.input.header;
        source->columns = isHeaderDue ? Columns() : columnsOf(options_.input, {});
        bool isWanted = true;
        RecordReader reader(format_, options_.input.lineLimit, [&](Records records) {
            if (std::exchange(isHeaderDue, false)) {
                source->columns = columnsOf(options_.input, takeHeader(records, format_));
            }
            isWanted = blocks.add({std::move(records), source});
        });
        bool isFirst = true;
        readInput(file, [&](std::string_view bytes) {
            reader.add(std::exchange(isFirst, false) ? begun(*source, bytes) : bytes);
            return isWanted && isGoingOn();
        });
        // An interruption may have cut the last record.
        if (const std::uint64_t line = isGoingOn() ? reader.finish() : 0) {
            throw InputError("the quotation mark in line " + std::to_string(line) +
                             " is never closed, so nothing after it is read; close it");
        }
    }

    // Takes the kind of a file from its first bytes. Returns them without the mark before a table.
    std::string_view begun(Source& source, std::string_view bytes) const {
        source.kind = fileKindOf(bytes);
        const bool isMarked = format_.delimiter && bytes.substr(0, utf8Mark.size()) == utf8Mark;
        return bytes.substr(isMarked ? utf8Mark.size() : 0);
    }

    // Answers the records of a block; on any thread.
    void answerBlock(const Block& block, Answers& answers) const {
        answers.clear();
        answers.bytes = block.records.bytes;
        const Source& source = *block.source;
        Request request;
        request.kind = source.kind ? &*source.kind : nullptr;
        request.origin.file = source.name;
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
                format_.delimiter ? takeColumns(source.columns, format_, columns, request) : "";
            if (problem.empty()) {
                respond_(request, answers);
                return;
            }
            answers.withoutColumn.note([&] { return placeOf(request.origin) + problem; });
            if (source.kind) {
                answers.hints.note(*source.kind, source.name);
            }
        });
    }

    void deliver(const Answers& answers) {
        if (!answers.text.empty()) {
            if (isText(options_.format) && std::exchange(hasWritten_, true)) {
                output_.write("\n");
            }
            output_.write(answers.text);
        }
        report_.add(answers);
        bytes_ += answers.bytes;
        progress_.update(bytes_, report_.payloads());
    }

    ExitStatus finish() {
        progress_.clear();
        output_.flush();
        const bool isWritten = output_.reportFailure();
        if (isWritten) {
            report_.printInputErrors();
            report_.printHints();
        }
        report_.printSummary();
        Interruption::endProcess();
        return isWritten ? report_.status() : usageOrInputError;
    }

    const RunOptions& options_;
    const Responder& respond_;
    RecordFormat format_;
    std::vector<std::string> files_;
    Progress progress_;
    Output output_;
    bool hasWritten_ = false;
    Answers own_;  // for arguments and pictures
    RunReport report_;
    std::uint64_t bytes_ = 0;
};

}  // namespace

ExitStatus runPayloads(const RunOptions& options, const Responder& respond) {
    return PayloadRun(options, respond).run();
}

}  // namespace korvoqr
