#include "RunReport.h"

#include "ArgumentHints.h"
#include "Summary.h"

#include <algorithm>
#include <cstdio>

#include <unistd.h>

namespace korvoqr {

void RunReport::add(const Answers& answers) {
    tally_.add(answers.tally);
    hints_.add(answers.hints);
    unprintable_.add(answers.unprintable);
    withoutColumn_.add(answers.withoutColumn);
}

void RunReport::addInputError(const std::string& file, const InputError& error) {
    inputErrors_.push_back((isStandardInput(file) ? "standard input" : visible(file)) + ": " + error.what());
}

void RunReport::printInputErrors() const {
    for (const std::string& error : inputErrors_) {
        std::fprintf(stderr, "korvoqr: cannot read %s\n", error.c_str());
    }
    if (withoutColumn_.count == 0) {
        return;
    }
    const std::uint64_t others = withoutColumn_.count - 1;
    const std::string more =
        others == 0
            ? ""
            : " (and " + grouped(others) + (others == 1 ? " more line is" : " more lines are") + " wrong)";
    std::fprintf(
        stderr,
        "korvoqr: %s%s; type --payload-column, --key and --delimiter for columns that every line has\n",
        withoutColumn_.first.c_str(), more.c_str());
}

void RunReport::printHints() const {
    if (unprintable_.count > 0) {
        const bool isOne = unprintable_.count == 1;
        const std::string payloads = isOne ? unprintable_.first + " is accepted, but its"
                                           : grouped(unprintable_.count) + " payloads, the first in " +
                                                 unprintable_.first + ", are accepted, but their";
        std::fprintf(
            stderr, "korvoqr: %s JSON is empty because a value is not ASCII; type --format jsonl to see it\n",
            payloads.c_str());
    }
    const std::string hint =
        options_.input.areLines() ? hints_.sentence(tally_.accepted.count, options_) : hintForArguments();
    if (!hint.empty()) {
        std::fprintf(stderr, "korvoqr: %s\n", hint.c_str());
    }
}

std::string RunReport::hintForArguments() const {
    const auto& payloads = options_.input.payloads;
    const bool isWord = std::find(payloads.begin(), payloads.end(), "json") != payloads.end();
    return isWord && options_.summary != SummaryKind::none ? "json is read as a payload; type --summary=json"
                                                           : argumentHint(payloads);
}

void RunReport::printSummary() const {
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

ExitStatus RunReport::status() const {
    if (!inputErrors_.empty() || withoutColumn_.count > 0 || tally_.unreadable > 0) {
        return usageOrInputError;
    }
    return tally_.rejected.count > 0 && !options_.exitZero ? someRejected : allAccepted;
}

}  // namespace korvoqr
