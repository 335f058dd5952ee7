#ifndef KORVOQR_INPUTRUN_H
#define KORVOQR_INPUTRUN_H

#include "Commands.h"
#include "Origin.h"
#include "Output.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace korvoqr {

/// The common part of a command's run over its payloads: pictures, standard output, errors, and the exit
/// status.
class InputRun {
  public:
    explicit InputRun(const InputOptions& options);

    /// Calls `handle` with each payload of the arguments and pictures, and `handleProblem` with each picture
    /// and each code that cannot be read; its message is printed already. False if there are no arguments and
    /// no pictures; then read the input file.
    [[nodiscard]] bool forEachArgument(
        const std::function<void(std::string_view payload, const Origin& origin)>& handle,
        const std::function<void(const Origin& origin, std::string_view problem)>& handleProblem);

    /// Calls `handle` with blocks of payloads from the input file.
    void forEachBlock(const std::function<void(std::string)>& handle);

    /// The size of the input file in bytes; 0 if it is not a regular file.
    std::uint64_t fileSize() const;

    char delimiter() const noexcept { return options_.nullDelimited ? '\0' : '\n'; }
    Output& output() noexcept { return output_; }
    void noteRejected() noexcept { someRejected_ = true; }

    /// Writes the remaining output and returns the exit status of the run.
    [[nodiscard]] ExitStatus finish();

  private:
    void reportProblem(const Origin& origin, const std::string& problem);

    const InputOptions& options_;
    Output output_;
    bool someRejected_ = false;
    bool someInputError_ = false;
    std::string readError_;  // for a person; printed at the end, when no other thread writes
};

}  // namespace korvoqr

#endif
