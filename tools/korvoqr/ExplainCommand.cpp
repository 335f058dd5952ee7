#include "Commands.h"
#include "ExplanationRendering.h"
#include "PayloadRun.h"
#include "RefusalCodes.h"

#include <string>

#include <unistd.h>

namespace korvoqr {

namespace {

class Explainer {
  public:
    explicit Explainer(const RunOptions& options) : options_(options) {}

    void answer(const Request& request, Answers& answers) const {
        if (request.isTooLong) {
            answers.count(request, codesOfTooLong(), options_);
            append(isText(options_.format) ? textForTooLong(request, options_, style_)
                                           : jsonForTooLong(request, options_),
                   answers);
            return;
        }
        const auto explanation = korvo::QRCodeExplainer::explainQRData(request.payload);
        answers.count(request, explanation.errorCodes(), options_);
        if (!explanation.isAccepted() || !options_.refusedOnly) {
            append(isText(options_.format) ? explanationText(explanation, request, style_)
                                           : explanationJSON(explanation, request, options_),
                   answers);
        }
    }

  private:
    void append(const std::string& answer, Answers& answers) const {
        answers.begin(options_.format);
        answers.text += isForPerson_ && !isText(options_.format) ? harmlessJSON(answer) : answer;
    }

    const RunOptions& options_;
    Style style_ = styleOf(STDOUT_FILENO, options_.colour);
    bool isForPerson_ = isTerminal(STDOUT_FILENO);
};

}  // namespace

ExitStatus runExplain(const RunOptions& options) {
    const Explainer explainer(options);
    return runPayloads(options, [&explainer](const Request& request, Answers& answers) {
        explainer.answer(request, answers);
    });
}

}  // namespace korvoqr
