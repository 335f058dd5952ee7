#include "Commands.h"
#include "ExplanationRendering.h"
#include "PayloadRun.h"

#include <string>

#include <unistd.h>

namespace korvoqr {

namespace {

void answer(const Request& request, const RunOptions& options, const Style& style, Answers& answers) {
    // A line that was not kept has an empty payload here, which is refused with the same code.
    const auto explanation = korvo::QRCodeExplainer::explainQRData(request.payload);
    countAnswer(request, explanation.errorCodes(), options, answers);
    if (explanation.isAccepted() && options.refusedOnly) {
        return;
    }
    if (isText(options.format)) {
        // An empty line separates two answers.
        answers.text += answers.text.empty() ? "" : "\n";
        answers.text += request.isTooLong ? textForTooLong(request, options, style)
                                          : explanationText(explanation, request, style);
        return;
    }
    const std::string json =
        request.isTooLong ? jsonForTooLong(request, options) : explanationJSON(explanation, request, options);
    answers.text += isTerminal(STDOUT_FILENO) ? harmlessJSON(json) : json;
}

}  // namespace

ExitStatus runExplain(const RunOptions& options) {
    const Style style = styleOf(STDOUT_FILENO, options.colour);
    return runPayloads(options, [&options, &style](const Request& request, Answers& answers) {
        answer(request, options, style, answers);
    });
}

}  // namespace korvoqr
