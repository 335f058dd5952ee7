#ifndef KORVOQR_RUNREPORT_H
#define KORVOQR_RUNREPORT_H

#include "Answers.h"
#include "Commands.h"
#include "PayloadInput.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace korvoqr {

/// Collects what a run says on standard error when all its answers are written: the inputs that could not be
/// read, hints, and the summary. The time of the summary begins with this object.
class RunReport {
  public:
    explicit RunReport(const RunOptions& options) : options_(options) {}

    /// Takes the counts of some answers, in the order of the run.
    void add(const Answers& answers);

    /// Takes a file of lines that could not be read, or not to its end.
    void addInputError(const std::string& file, const InputError& error);

    /// Takes a picture, or a code in one, that could not be read.
    void addUnreadable() { ++tally_.unreadable; }

    std::uint64_t payloads() const noexcept { return tally_.payloads(); }

    void printInputErrors() const;
    void printHints() const;
    void printSummary() const;

    /// The status of a run whose answers were written.
    ExitStatus status() const;

  private:
    std::string hintForArguments() const;

    const RunOptions& options_;
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    Tally tally_;
    RefusalHints hints_;
    Occurrences unprintable_;
    Occurrences withoutColumn_;
    std::vector<std::string> inputErrors_;  // for a person
};

}  // namespace korvoqr

#endif
