#include "Grammar.h"

#include "OptionCheck.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace korvoqr {

namespace {

// A line for each option, so that the help of a command fits a screen.
class HelpPage : public CLI::Formatter {
  public:
    std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode /*mode*/) const override {
        std::string page = app->get_description() + "\nUsage: " + name +
                           (app->get_parent() == nullptr ? " COMMAND [OPTION...]" : " [OPTION...]");
        std::string options;
        for (const CLI::Option* const option : app->get_options({})) {
            if (option->get_positional()) {
                page += " [" + option->get_name(true) + "...]";
            } else {
                options +=
                    line(option->get_name(false, true) + make_option_opts(option), option->get_description());
            }
        }
        page += '\n';
        for (const CLI::App* const command : app->get_subcommands({})) {
            page += line(command->get_name(), command->get_description());
        }
        return page + options + app->get_footer() + '\n';
    }

  private:
    static std::string line(const std::string& name, const std::string& description) {
        constexpr std::size_t width = 24;
        return "  " + padded(name, width) + description + '\n';
    }
};

void addFlag(CLI::App* command, const std::string& name, bool& flag, const std::string& description) {
    command->add_flag(name, flag, description);
}

using Reader = std::function<std::string(const std::string&)>;

// Adds an option whose text `read` takes; it returns what is wrong with the text.
CLI::Option* addRead(CLI::App* command, const std::string& name, const std::string& usage, const Reader& read,
                     const std::string& description) {
    return command
        ->add_option_function<std::string>(
            name, [](const std::string&) {}, description)
        ->option_text(usage)
        ->check(read);
}

template <class Value>
using Words = std::vector<std::pair<std::string, Value>>;

// Reads one of a few words. Returns what is wrong with the text.
template <class Value>
std::string readWord(const std::string& text, const Words<Value>& words, Value& value) {
    std::string wanted;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i].first == text) {
            value = words[i].second;
            return {};
        }
        wanted += i == 0 ? "" : i + 1 < words.size() ? ", " : " or ";
        wanted += words[i].first;
    }
    return "must be " + wanted + ", not " + text;
}

template <class Value>
void addChoice(CLI::App* command, const std::string& name, const std::string& usage,
               const Words<Value>& words, Value& value, const std::string& description) {
    addRead(
        command, name, usage,
        [words, &value](const std::string& text) { return readWord(text, words, value); }, description);
}

void addFormat(CLI::App* command, const Words<Format>& words, Format& format,
               const std::string& description) {
    addChoice(command, "--format", "FORMAT", words, format, description);
}

void addColour(CLI::App* command, ColourChoice& colour) {
    addChoice(command, "--color", "WHEN",
              Words<ColourChoice>{{"auto", ColourChoice::automatic},
                                  {"always", ColourChoice::always},
                                  {"never", ColourChoice::never}},
              colour, "auto (unless NO_COLOR is set), always, never");
}

std::string refuseEmptyName(const std::string& name) {
    return name.empty() ? "the name of the file is empty" : "";
}

std::string refuseEmptyColumn(const std::string& column) {
    return column.empty() ? "the name of the column is empty" : "";
}

void addInput(CLI::App* command, InputOptions& input) {
    command->add_option("PAYLOAD", input.payloads)->option_text("...");
    command->add_option("-i,--input", input.files, "Read a file of payloads, a line each; repeatable")
        ->option_text("FILE")
        ->check(refuseEmptyName)
        ->allow_extra_args(false);
    command->add_option("--image", input.images, "Read the QR codes in pictures, or folders of them")
        ->option_text("PICTURE...")
        ->check(refuseEmptyName);
    addFlag(command, "-0,--null", input.nullDelimited, "Payloads end with NUL, not with a line feed");
    constexpr std::uint64_t longest = std::uint64_t{1} << 40U;
    addRead(
        command, "--max-line", "BYTES",
        [&input](const std::string& text) { return readNumber(text, longest, input.lineLimit); },
        "Do not keep longer lines (default 1048576)");
    command
        ->add_option("--payload-column", input.payloadColumn,
                     "The payload is one column: a number, or a name")
        ->option_text("COLUMN")
        ->check(refuseEmptyColumn);
    command->add_option("--key", input.keyColumn, "The column to repeat beside each answer")
        ->option_text("COLUMN")
        ->check(refuseEmptyColumn);
    addRead(
        command, "--delimiter", "CHARACTER",
        [&input](const std::string& text) { return readDelimiter(text, input.delimiter); },
        "Between columns: tab, or , for CSV");
    addFlag(command, "--header", input.header, "The first line has the names of the columns");
}

// `sink` takes the word of --summary, which is read by its check.
void addRun(CLI::App* command, RunOptions& options, std::string& sink) {
    addFlag(command, "--line-number", options.lineNumber, "Show the number of each payload's line");
    addFlag(command, "--refused-only", options.refusedOnly, "Show no accepted payloads");
    addRead(
        command, "-j,--jobs", "N",
        [&options](const std::string& text) {
            constexpr std::uint64_t most = 1024;
            std::uint64_t jobs = 0;
            std::string problem = readNumber(text, most, jobs);
            options.jobs = static_cast<std::size_t>(jobs);
            return problem;
        },
        "Threads for the lines; answers keep their order");
    command->add_flag("--summary", sink, "Count answers and codes at the end; or =json")
        ->check([&options](const std::string& text) {
            const Words<SummaryKind> words{{"text", SummaryKind::text}, {"json", SummaryKind::json}};
            return readWord(text == "true" ? "text" : text, words, options.summary);
        });
    addFlag(command, "--progress", options.progress, "Show how far the run has come, on a terminal");
    addFlag(command, "--exit-zero", options.exitZero, "Exit with 0 also if some are refused");
    addColour(command, options.colour);
}

constexpr const char* exitStatus = "Exit status: 0 all accepted, 1 some refused, 2 error.";

void addParse(CLI::App* parse, RunOptions& options, std::string& summaryWord) {
    parse->footer(exitStatus);
    addInput(parse, options.input);
    addFlag(parse, "--trim", options.input.trim, "Try refused ones without blanks and quotes around");
    addFormat(
        parse,
        {{"text", Format::text}, {"json", Format::json}, {"jsonl", Format::jsonl}, {"copy", Format::copy}},
        options.format, "text, json, jsonl (a line each), copy (PostgreSQL)");
    addFlag(parse, "--compact", options.compact, "Leave null and false out of jsonl");
    addFlag(parse, "--reasons", options.reasons, "Give reason and offset for each code in JSON");
    addFlag(parse, "--with-payload", options.withPayload, "Repeat the payload beside its answer");
    addRun(parse, options, summaryWord);
}

void addExplain(CLI::App* explain, RunOptions& options, std::string& summaryWord) {
    options.isExplaining = true;
    explain->footer(exitStatus);
    addInput(explain, options.input);
    addFormat(explain, {{"text", Format::text}, {"json", Format::json}}, options.format,
              "text, json (an object on a line each)");
    addRun(explain, options, summaryWord);
}

void addCodes(CLI::App* codes, CodesOptions& options) {
    codes->footer("Example: korvoqr codes 3 crcInvalidValue");
    codes->add_option("CODE", options.codes)->option_text("...");
    addFormat(codes, {{"text", Format::text}, {"json", Format::json}}, options.format,
              "text, json (one array)");
    addColour(codes, options.colour);
}

}  // namespace

Grammar::Grammar() {
    app.set_version_flag("--version", "korvoqr " KORVOQR_VERSION, "Print the version");
    app.footer("Example: korvoqr explain --image sticker.jpg");
    addParse(parse, parseOptions, summaryWord);
    addExplain(explain, explainOptions, summaryWord);
    addCodes(codes, codesOptions);
    for (CLI::App* const command : {&app, parse, explain, codes}) {
        command->formatter(std::make_shared<HelpPage>());
        command->set_help_flag("-h,--help", "Print this help");
    }
}

const CLI::App* Grammar::chosen() const {
    const auto used = app.get_subcommands();
    return used.empty() ? nullptr : used.front();
}

}  // namespace korvoqr
