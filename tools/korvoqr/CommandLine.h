#ifndef KORVOQR_COMMANDLINE_H
#define KORVOQR_COMMANDLINE_H

#include "Commands.h"

#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace korvoqr {

/// A mistake in the arguments: one line for a person, that says what is wrong and what to type.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The text that --help and --version print.
struct Help {
    std::string text;
};

struct ParseCommand {
    RunOptions options;
};

struct ExplainCommand {
    RunOptions options;
};

struct CodesCommand {
    CodesOptions options;
};

using Command = std::variant<Help, ParseCommand, ExplainCommand, CodesCommand>;

/// The command that the arguments, without the program's name, ask for. Throws UsageError.
Command commandFrom(std::vector<std::string> arguments);

}  // namespace korvoqr

#endif
