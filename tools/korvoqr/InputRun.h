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

/// What a command's run over its payloads has in common with any other's: pictures, standard output, the
/// errors on the way and the status at the end.
class InputRun {
  public:
    explicit InputRun(const InputOptions& options);

    /// Calls `handle` with each payload of the arguments and pictures. False when there are neither, and the
    /// input file is to be read.
    [[nodiscard]] bool forEachArgument(
        const std::function<void(std::string_view payload, const Origin& origin)>& handle);

    /// Calls `handle` with blocks of payloads from the input file.
    void forEachBlock(const std::function<void(std::string)>& handle);

    /// Bytes of the input file; 0 when it is no regular file.
    std::uint64_t fileSize() const;

    char delimiter() const noexcept { return options_.nullDelimited ? '\0' : '\n'; }
    Output& output() noexcept { return output_; }
    void noteRejected() noexcept { someRejected_ = true; }

    /// Writes what is left and tells how the run went.
    [[nodiscard]] ExitStatus finish();

  private:
    const InputOptions& options_;
    Output output_;
    bool someRejected_ = false;
    bool someInputError_ = false;
    std::string readError_;  // for a person; told at the end, when nobody else writes
};

}  // namespace korvoqr

#endif
