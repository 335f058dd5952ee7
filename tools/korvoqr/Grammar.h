#ifndef KORVOQR_GRAMMAR_H
#define KORVOQR_GRAMMAR_H

#include "Commands.h"

#include <string>

#include <CLI/CLI.hpp>

namespace korvoqr {

/// The commands and options that the tool has. When `app` has parsed arguments, the options of the chosen
/// command are filled.
struct Grammar {
    CLI::App app{"Reads the text of merchant-presented payment QR codes.", "korvoqr"};
    CLI::App* parse = app.add_subcommand("parse", "Prints the record, or the codes of violated rules.");
    CLI::App* explain = app.add_subcommand("explain", "Shows each element of a payload, and what is wrong.");
    CLI::App* codes = app.add_subcommand("codes", "Prints what error codes mean.");
    RunOptions parseOptions;
    RunOptions explainOptions;
    CodesOptions codesOptions;
    std::string summaryWord;  ///< the check of --summary reads it

    Grammar();

    /// The command among the arguments; null if there is none.
    const CLI::App* chosen() const;
};

}  // namespace korvoqr

#endif
