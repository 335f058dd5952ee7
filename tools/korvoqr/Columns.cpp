#include "Columns.h"

#include <algorithm>
#include <charconv>
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

}  // namespace korvoqr
