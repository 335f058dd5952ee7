#ifndef KORVOQR_PAYLOADRUN_H
#define KORVOQR_PAYLOADRUN_H

#include "Answers.h"
#include "Commands.h"
#include "Request.h"

#include <functional>

namespace korvoqr {

/// Appends the answer to a payload, and counts it. Called on any thread.
using Responder = std::function<void(const Request&, Answers&)>;

/// Answers the payloads of the arguments, pictures, files or standard input that the options name, in their
/// order, on standard output. Prints errors, hints and the summary on standard error. Returns the exit
/// status.
[[nodiscard]] ExitStatus runPayloads(const RunOptions& options, const Responder& respond);

}  // namespace korvoqr

#endif
