#include "CommandLine.h"

#include "ArgumentHints.h"
#include "FileKind.h"
#include "Grammar.h"
#include "OptionCheck.h"

#include <algorithm>
#include <cstddef>

#include <CLI/CLI.hpp>

namespace korvoqr {

namespace {

// CLI11 treats an argument in square brackets as a list, and "++" as the end of a command. Either may be a
// payload or a file name. An appended NUL, which no argument can contain, hides them from CLI11.
std::string shielded(std::string argument) {
    const bool mayLookLikeList = !argument.empty() && argument.back() == ']';
    return mayLookLikeList || argument == "++" ? argument + '\0' : argument;
}

std::string unshielded(std::string argument) {
    argument.erase(std::remove(argument.begin(), argument.end(), '\0'), argument.end());
    return argument;
}

void unshield(std::vector<std::string>& arguments) {
    std::transform(arguments.begin(), arguments.end(), arguments.begin(), unshielded);
}

void unshield(InputOptions& input) {
    unshield(input.payloads);
    unshield(input.images);
    unshield(input.files);
    input.payloadColumn = unshielded(input.payloadColumn);
    input.keyColumn = unshielded(input.keyColumn);
}

std::vector<std::string> longNamesOf(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* const option : command.get_options({})) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

// "korvoqr parse --help for the options", or the word that was meant.
std::string adviceFor(const CLI::App* command, const std::string& meant) {
    if (!meant.empty()) {
        return "did you mean " + meant + '?';
    }
    return command == nullptr ? "type korvoqr --help for the commands"
                              : "type korvoqr " + command->get_name() + " --help for the options";
}

// The first argument is neither a command nor an option.
std::string problemOfCommand(const Grammar& grammar, const std::vector<std::string>& arguments) {
    const std::string argument = arguments.empty() ? "" : arguments.front();
    if (argument.empty() || argument == "--") {
        return "the command is missing; " + adviceFor(nullptr, "");
    }
    const std::string shown = visible(argument);
    if (argument.front() == '-' && argument != "-") {
        return "there is no option " + shown + "; " +
               adviceFor(nullptr, closestWord(argument, longNamesOf(grammar.app)));
    }
    if (looksLikePayload(arguments)) {
        return "the command before the payload is missing; type korvoqr explain 'PAYLOAD'";
    }
    const auto kind = fileKindOfFile(argument);
    if (kind && kind->remedy == "--image") {
        return "the command before " + shown + " is missing; type korvoqr explain --image " + shown;
    }
    return "there is no command " + shown + "; " +
           adviceFor(nullptr, closestWord(argument, {"parse", "explain", "codes"}));
}

// An argument that no option takes.
std::string problemOfExtra(const Grammar& grammar, const CLI::App& command) {
    const std::vector<std::string> before = grammar.app.remaining();
    if (!before.empty()) {
        return visible(before.front()) + " is before the command; type it after " + command.get_name();
    }
    const std::vector<std::string> extras = command.remaining();
    const std::string extra = unshielded(extras.empty() ? "" : extras.front());
    const std::string meant = closestWord(extra.substr(0, extra.find('=')), longNamesOf(command));
    std::string problem = "there is no option " + visible(extra) + "; " + adviceFor(&command, meant);
    if (meant.empty() && &command != grammar.codes) {
        problem += ", or -- before a payload that begins with -";
    }
    return problem;
}

std::string problemOf(const Grammar& grammar, const CLI::Error& error,
                      const std::vector<std::string>& arguments) {
    const CLI::App* const command = grammar.chosen();
    if (command == nullptr) {
        return problemOfCommand(grammar, arguments);
    }
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        return problemOfExtra(grammar, *command);
    }
    std::string problem = visible(unshielded(error.what()));
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        const bool isMissing = problem.find("missing") != std::string::npos;
        problem =
            problem.substr(0, problem.find(':')) + (isMissing ? " needs a value" : " may be given only once");
    } else if (dynamic_cast<const CLI::ConversionError*>(&error) != nullptr) {
        const std::size_t option = problem.find("--");
        problem = problem.substr(std::min(option, problem.size()));
        problem = problem.substr(0, problem.find_first_of(" =:")) + " takes no value";
    }
    return problem + "; " + adviceFor(command, "");
}

RunOptions checked(RunOptions& options, const CLI::App* command) {
    unshield(options.input);
    const std::string conflict = conflictIn(options);
    if (!conflict.empty()) {
        throw UsageError(conflict + "; " + adviceFor(command, ""));
    }
    return options;
}

}  // namespace

Command commandFrom(std::vector<std::string> arguments) {
    const std::vector<std::string> typed = arguments;
    Grammar grammar;
    // CLI11 takes the arguments in reverse order.
    std::transform(arguments.begin(), arguments.end(), arguments.begin(), shielded);
    std::reverse(arguments.begin(), arguments.end());
    try {
        grammar.app.parse(arguments);
    } catch (const CLI::CallForVersion& version) {
        return Help{std::string(version.what()) + '\n'};
    } catch (const CLI::CallForHelp&) {
        return Help{grammar.app.help()};
    } catch (const CLI::Error& error) {
        throw UsageError(problemOf(grammar, error, typed));
    }
    const CLI::App* const command = grammar.chosen();
    if (command == nullptr) {
        throw UsageError(problemOfCommand(grammar, typed));
    }
    if (command == grammar.codes) {
        unshield(grammar.codesOptions.codes);
        return CodesCommand{grammar.codesOptions};
    }
    return command == grammar.parse ? Command(ParseCommand{checked(grammar.parseOptions, command)})
                                    : Command(ExplainCommand{checked(grammar.explainOptions, command)});
}

}  // namespace korvoqr
