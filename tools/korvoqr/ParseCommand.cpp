#include "Batch.h"
#include "Commands.h"
#include "InputRun.h"
#include "PayloadInput.h"
#include "PictureRows.h"
#include "Rendering.h"
#include "Summary.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include <unistd.h>

namespace korvoqr {

namespace {

// The answers to a block of payloads.
struct Answers {
    std::string text;
    Tally tally;
    std::vector<std::uint64_t> unprintable;  // the numbers of records whose JSON is empty, from 1
    std::size_t bytes = 0;                   // of input
    std::string place;                       // the picture, if a single payload comes from one

    void clear() {
        text.clear();
        tally = {};
        unprintable.clear();
    }
};

void answer(std::string_view payload, Format format, const Origin& origin, Answers& answers) {
    const auto response = korvo::QRCodeParser::parseQRData(payload);
    // In text, an empty line separates two answers.
    if (isText(format) && answers.tally.payloads() > 0) {
        answers.text += '\n';
    }
    answers.tally.count(response);
    const std::string rendered = render(response, format, origin);
    if (rendered == "\n") {
        answers.unprintable.push_back(answers.tally.payloads());
    }
    answers.text += rendered;
}

class ParseRun {
  public:
    explicit ParseRun(const ParseOptions& options)
        : options_(options),
          run_(options.input),
          progress_(options.progress && options.input.payloads.empty() && options.input.images.empty()
                        ? run_.fileSize()
                        : 0) {}

    ExitStatus run() {
        const auto begin = std::chrono::steady_clock::now();
        const bool hasArguments = run_.forEachArgument(
            [this](std::string_view payload, const Origin& origin) {
                Answers answers;
                if (isText(options_.format) && origin.isPicture()) {
                    answers.text = origin.place() + ":\n";
                }
                answers.place = origin.place();
                answer(payload, options_.format, origin, answers);
                deliver(answers);
            },
            [this](const Origin& origin, std::string_view problem) { deliverProblem(origin, problem); });
        if (!hasArguments) {
            parseFile();
        }
        progress_.clear();
        if (tally_.rejected > 0) {
            run_.noteRejected();
        }
        const ExitStatus status = run_.finish();
        if (options_.summary) {
            const std::string text = summaryText(tally_, std::chrono::steady_clock::now() - begin,
                                                 styleOf(STDERR_FILENO, options_.colour));
            std::fputs(text.c_str(), stderr);
        }
        return status;
    }

  private:
    void parseFile() {
        Batch<Answers> batch(
            options_.jobs,
            [this](const std::string& block, Answers& answers) {
                answers.clear();
                answers.bytes = block.size();
                forEachPayload(block, run_.delimiter(), [&](std::string_view payload) {
                    answer(payload, options_.format, {}, answers);
                });
            },
            [this](const Answers& answers) {
                deliver(answers);
                // The writer of the payloads may be waiting for the answers.
                run_.output().flush();
            });
        run_.forEachBlock([&batch](std::string block) { batch.add(std::move(block)); });
        batch.finish();
    }

    void deliverProblem(const Origin& origin, std::string_view problem) {
        const std::string row = problemRow(origin, problem, options_.format);
        run_.output().write(isForPerson_ ? harmlessJSON(row) : row);
        ++tally_.unreadable;
    }

    void deliver(const Answers& answers) {
        if (isText(options_.format) && tally_.payloads() > 0) {
            run_.output().write("\n");
        }
        if (!isForPerson_) {
            run_.output().write(answers.text);
        } else if (isText(options_.format)) {
            run_.output().write(harmless(answers.text));
        } else {
            run_.output().write(harmlessJSON(answers.text));
        }
        for (const std::uint64_t number : answers.unprintable) {
            progress_.clear();
            std::fprintf(stderr,
                         "korvoqr: %s is accepted, but its JSON is empty because a value is not ASCII; "
                         "type --format jsonl to see it\n",
                         answers.place.empty()
                             ? ("payload " + std::to_string(tally_.payloads() + number)).c_str()
                             : answers.place.c_str());
        }
        tally_.add(answers.tally);
        bytes_ += answers.bytes;
        progress_.update(bytes_, tally_.payloads());
    }

    const ParseOptions& options_;
    InputRun run_;
    Progress progress_;
    // A program gets a record's values unchanged; a terminal would obey some of them.
    bool isForPerson_ = isTerminal(STDOUT_FILENO);
    Tally tally_;
    std::uint64_t bytes_ = 0;
};

}  // namespace

ExitStatus runParse(const ParseOptions& options) {
    return ParseRun(options).run();
}

}  // namespace korvoqr
