#include "Commands.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <exception>
#include <iostream>
#include <map>
#include <new>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace {

using korvoqr::Format;

// CLI11 treats an argument in square brackets as a list, and "++" as the end of a command. Either may be a
// payload or a file name. An appended NUL, which no argument can contain, hides them from CLI11.
std::string shield(std::string argument) {
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

void unshield(korvoqr::InputOptions& input) {
    unshield(input.payloads);
    unshield(input.images);
    input.file = unshielded(input.file);
}

struct CommandLine {
    CLI::App app{"Reads the text of merchant-presented payment QR codes.", "korvoqr"};
    CLI::App* parse = nullptr;
    CLI::App* explain = nullptr;
    CLI::App* codes = nullptr;
    korvoqr::ParseOptions parseOptions;
    korvoqr::ExplainOptions explainOptions;
    korvoqr::CodesOptions codesOptions;
    const std::map<std::string, Format> textOrJSON{{"text", Format::text}, {"json", Format::json}};
    const std::map<std::string, Format> textOrEitherJSON{
        {"text", Format::text}, {"json", Format::json}, {"jsonl", Format::jsonl}};
    const std::map<std::string, korvoqr::ColourChoice> colours{{"auto", korvoqr::ColourChoice::automatic},
                                                               {"always", korvoqr::ColourChoice::always},
                                                               {"never", korvoqr::ColourChoice::never}};
};

// Adds an option that takes one of a few words.
template <class Value>
void addChoice(CLI::App* command, const std::string& name, Value& value,
               const std::map<std::string, Value>& words, const std::string& usage,
               const std::string& description) {
    command
        ->add_option_function<std::string>(
            name, [&value, &words](const std::string& word) { value = words.at(word); }, description)
        ->option_text(usage)
        ->check(CLI::IsMember(words));
}

void addColour(const CommandLine& line, CLI::App* command, korvoqr::ColourChoice& colour) {
    addChoice(command, "--color", colour, line.colours, "auto|always|never",
              "auto: on a terminal, unless NO_COLOR is set");
}

std::string refuseEmptyName(const std::string& name) {
    return name.empty() ? "the name of the file is empty" : "";
}

// Reads a number of threads. Returns the reason if the text is wrong.
std::string readJobs(const std::string& text, std::size_t& jobs) {
    constexpr std::size_t most = 1024;
    const char* const end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, jobs);
    return error == std::errc() && parsed == end && jobs > 0 && jobs <= most
               ? ""
               : "must be a number from 1 to " + std::to_string(most);
}

void addInput(CLI::App* command, korvoqr::InputOptions& input) {
    auto* const payloads =
        command->add_option("PAYLOAD", input.payloads, "Texts of QR codes; default: lines of standard input")
            ->option_text("...");
    auto* const file =
        command->add_option("-i,--input", input.file, "Read payloads from a file, one per line")
            ->option_text("FILE")
            ->check(refuseEmptyName)
            ->excludes(payloads);
    command->add_option("--image", input.images, "Read the QR codes in pictures and in folders")
        ->option_text("FILE...")
        ->check(refuseEmptyName)
        ->excludes(payloads)
        ->excludes(file);
    command->add_flag("-0,--null", input.nullDelimited, "Input payloads end with NUL, not with a line feed");
}

void addParse(CommandLine& line) {
    auto& options = line.parseOptions;
    line.parse = line.app.add_subcommand("parse", "Prints the record, or the codes of violated rules.");
    addInput(line.parse, options.input);
    addChoice(line.parse, "--format", options.format, line.textOrEitherJSON, "text|json|jsonl",
              "jsonl: one line per payload");
    line.parse
        ->add_option_function<std::string>(
            "-j,--jobs", [](const std::string&) {}, "Threads for the input; answers keep its order")
        ->option_text("N")
        ->check([&options](const std::string& text) { return readJobs(text, options.jobs); });
    line.parse->add_flag("--summary", options.summary, "Count answers and codes, on standard error");
    line.parse->add_flag("--progress", options.progress, "Show how much of a file is done, on a terminal");
    addColour(line, line.parse, options.colour);
    line.parse->footer(
        "Examples:\n"
        "  korvoqr parse --format json 04444101...   korvoqr parse --image shop.png\n"
        "  korvoqr parse --format jsonl --jobs 4 --summary < payloads.txt > answers.txt\n"
        "Exit status: 0 all accepted, 1 some rejected, 2 error.");
}

void addExplain(CommandLine& line) {
    auto& options = line.explainOptions;
    line.explain = line.app.add_subcommand("explain", "Shows each element of a payload, and what is wrong.");
    addInput(line.explain, options.input);
    addChoice(line.explain, "--format", options.format, line.textOrJSON, "text|json",
              "json: one object per line and payload");
    addColour(line, line.explain, options.colour);
    line.explain->footer(
        "Examples:\n"
        "  korvoqr explain 00020101021102104123456784...\n"
        "  korvoqr explain --image sticker.jpg counter.png\n"
        "Exit status: 0 all accepted, 1 some rejected, 2 error.");
}

void addCodes(CommandLine& line) {
    auto& options = line.codesOptions;
    line.codes = line.app.add_subcommand("codes", "Prints what error codes mean.");
    line.codes->add_option("CODE", options.codes, "Numbers of codes; default: all")->option_text("...");
    addChoice(line.codes, "--format", options.format, line.textOrJSON, "text|json", "json: one array");
    addColour(line, line.codes, options.colour);
    line.codes->footer(
        "Examples:\n"
        "  korvoqr codes 3 48\n"
        "  korvoqr codes --format json");
}

// The reason for a usage error, for a person.
std::string reasonOf(const CommandLine& line, const CLI::Error& error, const std::string& firstArgument) {
    std::string reason = korvoqr::visible(unshielded(error.what()));
    if (line.app.get_subcommands().empty() && !firstArgument.empty()) {
        return std::string(firstArgument.front() == '-' ? "there is no option " : "there is no command ") +
               korvoqr::visible(firstArgument);
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        const bool isMissing = reason.find("missing") != std::string::npos;
        return reason.substr(0, reason.find(':')) +
               (isMissing ? " needs a value" : " may be given only once");
    }
    return reason;
}

int reportUsageError(const CommandLine& line, const CLI::Error& error, const std::string& firstArgument) {
    const std::string reason = reasonOf(line, error, firstArgument);
    std::string command;
    for (const CLI::App* const used : line.app.get_subcommands()) {
        command = ' ' + used->get_name();
    }
    const bool mayBePayload =
        dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr && !line.codes->parsed();
    std::fprintf(stderr, "korvoqr: %s; type korvoqr%s --help for the %s%s\n", reason.c_str(), command.c_str(),
                 command.empty() ? "commands" : "options",
                 mayBePayload ? ", or -- before a payload that begins with -" : "");
    return korvoqr::usageOrInputError;
}

int run(int argc, char** argv) {
    CommandLine line;
    line.app.set_version_flag("--version", "korvoqr " KORVOQR_VERSION);
    line.app.require_subcommand(1);
    line.app.get_formatter()->column_width(26);
    line.app.footer(
        "Examples:\n"
        "  korvoqr explain --image sticker.jpg\n"
        "  korvoqr parse --format jsonl < payloads.txt\n"
        "  korvoqr codes 48");
    addParse(line);
    addExplain(line);
    addCodes(line);

    // CLI11 takes the arguments in reverse order.
    std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    std::transform(arguments.begin(), arguments.end(), arguments.begin(), shield);
    std::reverse(arguments.begin(), arguments.end());
    try {
        line.app.parse(arguments);
    } catch (const CLI::Success& wanted) {
        const int status = line.app.exit(wanted);
        if (std::cout.flush()) {
            return status;
        }
        std::fputs("korvoqr: cannot write standard output\n", stderr);
        return korvoqr::usageOrInputError;
    } catch (const CLI::Error& error) {
        return reportUsageError(line, error, argc > 1 ? argv[1] : "");
    }
    unshield(line.parseOptions.input);
    unshield(line.explainOptions.input);
    unshield(line.codesOptions.codes);
    if (line.parse->parsed()) {
        return korvoqr::runParse(line.parseOptions);
    }
    return line.explain->parsed() ? korvoqr::runExplain(line.explainOptions)
                                  : korvoqr::runCodes(line.codesOptions);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("korvoqr: there is not enough memory for the longest payload and its answer\n", stderr);
        return korvoqr::usageOrInputError;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "korvoqr: %s\n", error.what());
        return korvoqr::usageOrInputError;
    }
}
