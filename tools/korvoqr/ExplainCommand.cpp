#include "Commands.h"
#include "ExplanationRendering.h"
#include "InputRun.h"
#include "PayloadInput.h"
#include "PictureRows.h"

#include <utility>

#include <unistd.h>

namespace korvoqr {

namespace {

class ExplainRun {
  public:
    explicit ExplainRun(const ExplainOptions& options)
        : format_(options.format), run_(options.input), style_(styleOf(STDOUT_FILENO, options.colour)) {}

    ExitStatus run() {
        const bool hasArguments = run_.forEachArgument(
            [this](std::string_view payload, const Origin& origin) { explainOne(payload, origin); },
            [this](const Origin& origin, std::string_view problem) { writeProblem(origin, problem); });
        if (!hasArguments) {
            run_.forEachBlock([this](const std::string& block) {
                forEachPayload(block, run_.delimiter(),
                               [this](std::string_view payload) { explainOne(payload, {}); });
                run_.output().flush();
            });
        }
        return run_.finish();
    }

  private:
    void explainOne(std::string_view payload, const Origin& origin) {
        const auto explanation = korvo::QRCodeExplainer::explainQRData(payload);
        if (!explanation.isAccepted()) {
            run_.noteRejected();
        }
        switch (format_) {
            case Format::text:
                writeText(explanation, origin);
                break;
            case Format::json:
            case Format::jsonl:
                writeJSON(explanation, origin);
                break;
        }
    }

    void writeText(const korvo::QRCodeExplanation& explanation, const Origin& origin) {
        if (!std::exchange(isFirst_, false)) {
            run_.output().write("\n");
        }
        if (origin.isPicture()) {
            run_.output().write(painted(style_, Paint::heading, origin.place() + ':') + '\n');
        }
        run_.output().write(explanationText(explanation, style_));
    }

    void writeProblem(const Origin& origin, std::string_view problem) {
        const std::string row = problemRow(origin, problem, isText(format_) ? Format::text : Format::jsonl);
        run_.output().write(isForPerson_ ? harmlessJSON(row) : row);
    }

    void writeJSON(const korvo::QRCodeExplanation& explanation, const Origin& origin) {
        const std::string json = explanationJSON(explanation, origin);
        run_.output().write(isForPerson_ ? harmlessJSON(json) : json);
    }

    Format format_;
    InputRun run_;
    Style style_;
    bool isForPerson_ = isTerminal(STDOUT_FILENO);
    bool isFirst_ = true;
};

}  // namespace

ExitStatus runExplain(const ExplainOptions& options) {
    return ExplainRun(options).run();
}

}  // namespace korvoqr
