#include "Columns.h"

#include "PayloadInput.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

namespace korvoqr {

namespace {

// The names for a message, as far as they fit into a line.
std::string listOf(const std::vector<std::string>& names) {
    constexpr std::size_t longest = 200;
    std::string list;
    for (const std::string& name : names) {
        if (list.size() + name.size() > longest) {
            return list + (list.empty() ? "..." : ", ...");
        }
        list += (list.empty() ? "" : ", ") + visible(name);
    }
    return list;
}

std::size_t numberOf(const std::string& option, const std::vector<std::string>& header) {
    if (option.empty()) {
        return 0;
    }
    const auto found = std::find(header.begin(), header.end(), option);
    if (found == header.end()) {
        if (columnNumber(option) > 0) {
            return columnNumber(option);
        }
        throw InputError("the header has no column " + visible(option) +
                         "; type one of its names: " + listOf(header));
    }
    if (std::find(found + 1, header.end(), option) != header.end()) {
        throw InputError("the header has two columns " + visible(option) + "; type the number of one");
    }
    return static_cast<std::size_t>(found - header.begin()) + 1;
}

bool endsInCR(std::string_view text) {
    return !text.empty() && text.back() == '\r';
}

}  // namespace

std::size_t columnNumber(const std::string& option) noexcept {
    constexpr std::size_t most = 1'000'000;
    std::size_t number = 0;
    const char* const end = option.data() + option.size();
    const auto [parsed, error] = std::from_chars(option.data(), end, number);
    return error == std::errc() && parsed == end && number <= most ? number : 0;
}

Columns columnsOf(const InputOptions& options, const std::vector<std::string>& header) {
    return {numberOf(options.payloadColumn, header), numberOf(options.keyColumn, header)};
}

std::vector<std::string> takeHeader(Records& records, const RecordFormat& format) {
    std::vector<std::string> names;
    RecordScanner scanner(format);
    const std::string_view text = records.text;
    const std::string_view header = text.substr(0, scanner.findEnd(text));
    if (records.isTooLong || !splitColumns(header, format, header.size() + 1, names)) {
        throw InputError(
            "the header is too long or has a quotation mark out of place; type --max-line or --delimiter");
    }
    // A file may come from a system whose lines end in CR LF.
    if (endsInCR(names.back())) {
        names.back().pop_back();
    }
    records.line += static_cast<std::uint64_t>(std::count(header.begin(), header.end(), format.end)) + 1;
    records.text.erase(0, header.size() + 1);
    return names;
}

std::string takeColumns(const Columns& wanted, const RecordFormat& format, std::vector<std::string>& columns,
                        Request& request) {
    request.origin.key = std::nullopt;
    if (!splitColumns(request.payload, format, wanted.last(), columns)) {
        return " has a quotation mark out of place";
    }
    for (const std::size_t column : {wanted.payload, wanted.key}) {
        if (column > columns.size()) {
            return " has no column " + std::to_string(column);
        }
    }
    request.payload = columns[wanted.payload - 1];
    if (wanted.key > 0) {
        std::string_view key = columns[wanted.key - 1];
        key.remove_suffix(endsInCR(key) ? 1 : 0);
        request.origin.key = key;
    }
    return {};
}

}  // namespace korvoqr
