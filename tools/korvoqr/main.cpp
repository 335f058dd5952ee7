#include "ParseCommand.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace {

// CLI11 takes an argument in square brackets for a list and "++" for the end of a command. Both may be
// payloads, and a NUL, which no argument can hold, hides them from it.
std::string shield(std::string argument) {
    const bool looksLikeList = argument.size() > 1 && argument.front() == '[' && argument.back() == ']';
    return looksLikeList || argument == "++" ? argument + '\0' : argument;
}

std::string unshield(std::string argument) {
    if (!argument.empty() && argument.back() == '\0') {
        argument.pop_back();
    }
    return argument;
}

int reportUsageError(const CLI::Error& error) {
    std::string reason = error.what();
    // One line, whatever was typed.
    std::replace_if(
        reason.begin(), reason.end(), [](unsigned char c) { return c < ' '; }, ' ');
    const bool isUnexpected = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
    std::fprintf(stderr, "korvoqr: %s; type korvoqr parse --help for the options%s\n", reason.c_str(),
                 isUnexpected ? ", or -- before a payload that begins with -" : "");
    return korvoqr::usageOrInputError;
}

int run(int argc, char** argv) {
    CLI::App app("Reads the text of merchant-presented payment QR codes.", "korvoqr");
    app.set_version_flag("--version", "korvoqr " KORVOQR_VERSION);
    app.require_subcommand(1);

    korvoqr::ParseOptions options;
    CLI::App* const parse = app.add_subcommand(
        "parse",
        "Prints each payload's record, or the codes of the rules that it violates.\n"
        "Exit status: 0 when every payload was accepted, 1 when any was rejected, 2 for an error.");
    parse->add_option(
        "PAYLOAD", options.payloads,
        "The text of a QR code; without any, payloads are read from standard input, one a line");
    const std::map<std::string, korvoqr::Format> formats{
        {"text", korvoqr::Format::text}, {"json", korvoqr::Format::json}, {"jsonl", korvoqr::Format::jsonl}};
    std::string format = "text";
    parse->add_option("--format", format, "text (default), json, or jsonl: one line for each payload")
        ->option_text("text|json|jsonl")
        ->check(CLI::IsMember(formats));
    parse->add_flag("-0,--null", options.nullDelimited,
                    "Payloads on standard input are ended by NUL and may hold line feeds");

    // The parser takes its arguments from the back.
    std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    std::transform(arguments.begin(), arguments.end(), arguments.begin(), shield);
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(arguments);
    } catch (const CLI::Success& wanted) {
        return app.exit(wanted);
    } catch (const CLI::Error& error) {
        return reportUsageError(error);
    }
    options.format = formats.at(format);
    std::transform(options.payloads.begin(), options.payloads.end(), options.payloads.begin(), unshield);
    return korvoqr::runParse(options);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "korvoqr: %s\n", error.what());
        return korvoqr::usageOrInputError;
    }
}
