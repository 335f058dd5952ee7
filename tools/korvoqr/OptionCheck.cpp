#include "OptionCheck.h"

#include "Columns.h"

#include <charconv>
#include <system_error>

namespace korvoqr {

namespace {

std::string conflictOfColumns(const InputOptions& input) {
    const bool areNames = columnNumber(input.payloadColumn) == 0 ||
                          (!input.keyColumn.empty() && columnNumber(input.keyColumn) == 0);
    if (!input.hasColumns()) {
        return input.header      ? "--header needs --payload-column"
               : input.delimiter ? "--delimiter needs --payload-column"
                                 : "";
    }
    if (input.payloadColumn.empty()) {
        return "--key needs --payload-column";
    }
    if (!input.areLines()) {
        return "--payload-column is for lines, from --input or standard input";
    }
    return areNames && !input.header ? "a column is a number from 1, or with --header a name" : "";
}

}  // namespace

std::string conflictIn(const RunOptions& options) {
    const InputOptions& input = options.input;
    if (!input.payloads.empty() && !input.files.empty()) {
        return "PAYLOAD and --input do not go together";
    }
    if (!input.payloads.empty() && !input.images.empty()) {
        return "PAYLOAD and --image do not go together";
    }
    if (!input.files.empty() && !input.images.empty()) {
        return "--input and --image do not go together";
    }
    if (options.compact && options.format != Format::jsonl && options.format != Format::copy) {
        return "--compact needs --format jsonl or copy";
    }
    if (options.reasons && options.format != Format::jsonl && options.format != Format::json) {
        return "--reasons needs --format json or jsonl";
    }
    return conflictOfColumns(input);
}

std::string readNumber(const std::string& text, std::uint64_t most, std::uint64_t& number) {
    const char* const end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && parsed == end && number > 0 && number <= most
               ? ""
               : "must be a number from 1 to " + std::to_string(most);
}

std::string readDelimiter(const std::string& text, std::optional<char>& delimiter) {
    if (text == "tab" || text == "\\t") {
        delimiter = '\t';
        return {};
    }
    if (text.size() != 1 || text == "\n" || text == "\"") {
        return "must be one character of ASCII, or tab";
    }
    delimiter = text.front();
    return {};
}

}  // namespace korvoqr
