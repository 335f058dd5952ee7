#include "Columns.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <system_error>

namespace korvoqr {

namespace {

std::size_t numberOf(const std::string& option, const std::vector<std::string>& header) {
    const auto found = std::find(header.begin(), header.end(), option);
    if (found == header.end()) {
        if (option.empty() || columnNumber(option) > 0) {
            return columnNumber(option);
        }
        std::string names;
        for (const std::string& name : header) {
            names += (names.empty() ? "" : ", ") + visible(name);
        }
        throw std::runtime_error("the header has no column " + visible(option) + "; it has " + names);
    }
    if (std::find(found + 1, header.end(), option) != header.end()) {
        throw std::runtime_error("the header has two columns " + visible(option));
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
