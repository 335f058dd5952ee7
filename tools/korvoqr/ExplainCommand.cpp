#include "Commands.h"
#include "Explanation.h"
#include "ExplanationRendering.h"
#include "InputRun.h"
#include "PayloadInput.h"

#include <utility>

#include <unistd.h>

namespace korvoqr {

ExitStatus runExplain(const ExplainOptions& options) {
    InputRun run(options.input);
    const Style style = styleOf(STDOUT_FILENO, options.colour);
    const bool isForPerson = isTerminal(STDOUT_FILENO);
    bool isFirst = true;
    const auto explainOne = [&](std::string_view payload, const Origin& origin) {
        const Explanation explanation = explain(payload);
        if (!explanation.codes.empty()) {
            run.noteRejected();
        }
        if (options.asJSON) {
            const std::string json = explanationJSON(explanation, origin);
            run.output().write(isForPerson ? harmlessJSON(json) : json);
            return;
        }
        run.output().write(std::exchange(isFirst, false) ? "" : "\n");
        run.output().write(origin.isPicture() ? painted(style, Paint::heading, origin.place() + ':') + '\n'
                                              : "");
        run.output().write(explanationText(explanation, style));
    };
    if (!run.forEachArgument(explainOne)) {
        run.forEachBlock([&](const std::string& block) {
            forEachPayload(block, run.delimiter(),
                           [&](std::string_view payload) { explainOne(payload, {}); });
            run.output().flush();
        });
    }
    return run.finish();
}

}  // namespace korvoqr
