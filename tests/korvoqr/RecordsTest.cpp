// Records and columns, held against regular expressions that describe the same.

#include "korvoqr/Columns.h"
#include "korvoqr/PayloadInput.h"
#include "korvoqr/RecordReader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <regex.h>

namespace korvoqr::test {
namespace {

std::vector<std::string> shortTexts() {
    constexpr std::size_t longest = 6;
    std::vector<std::string> texts{""};
    for (std::size_t i = 0; texts[i].size() < longest; ++i) {
        for (const char byte : {',', '"', '\n', '\r', 'a'}) {
            texts.push_back(texts[i] + byte);
        }
    }
    return texts;
}

// The number of its first line, and its text unless it is too long
using Record = std::pair<std::uint64_t, std::optional<std::string>>;

struct ReadRecords {
    std::vector<Record> records;
    std::uint64_t bytes = 0;
    std::uint64_t unclosed = 0;
    std::vector<std::size_t> ends = {};  // where each is complete; only in the model
};

// A regular expression with a group. GCC warns about std::regex in builds with sanitizers.
class Pattern {
  public:
    explicit Pattern(const std::string& pattern) {
        if (regcomp(&regex_, ('^' + pattern).c_str(), REG_EXTENDED) != 0) {
            throw std::logic_error(pattern);
        }
    }
    Pattern(const Pattern&) = delete;
    Pattern& operator=(const Pattern&) = delete;
    ~Pattern() { regfree(&regex_); }

    // The whole match at the beginning of a text, and the group.
    std::optional<std::pair<std::string, std::string>> match(const std::string& text) const {
        std::array<regmatch_t, 2> found{};
        if (regexec(&regex_, text.c_str(), found.size(), found.data(), 0) != 0) {
            return {};
        }
        const auto part = [&](const regmatch_t& match) {
            return text.substr(static_cast<std::size_t>(match.rm_so),
                               static_cast<std::size_t>(match.rm_eo - match.rm_so));
        };
        return std::pair(part(found[0]), part(found[1]));
    }

  private:
    regex_t regex_{};
};

// A record and its end. A column has quotes if it begins with one.
std::string recordPattern(const RecordFormat& format) {
    const std::string other = std::string("[^") + format.end + (format.isQuoted() ? ",]" : "]");
    const std::string unquoted = std::string("([^\",") + format.end + ']' + other + "*)?";
    const std::string column = R"(("([^"]|"")*")?)" + unquoted;
    return '(' + (format.isQuoted() ? column + "(," + column + ")*" : other + '*') + ")(" + format.end +
           "|$)";
}

ReadRecords modelRecords(std::string text, const RecordFormat& format, const Pattern& pattern,
                         std::uint64_t limit) {
    ReadRecords read;
    std::uint64_t line = 1;
    while (!text.empty()) {
        const auto match = pattern.match(text);
        if (!match) {
            read.unclosed = line;
            break;
        }
        const auto& [whole, record] = *match;
        read.records.emplace_back(line, record.size() <= limit ? std::optional(record) : std::nullopt);
        read.bytes += record.size() + 1;
        read.ends.push_back(read.bytes);
        line += 1 + static_cast<std::uint64_t>(std::count(record.begin(), record.end(), format.end));
        text.erase(0, whole.size());
    }
    return read;
}

void take(ReadRecords& read, const Records& records, const RecordFormat& format) {
    read.bytes += records.bytes;
    if (records.isTooLong) {
        read.records.emplace_back(records.line, std::nullopt);
    }
    forEachRecord(records, format, [&](std::string_view record, std::uint64_t line) {
        read.records.emplace_back(line, record);
    });
}

TEST(Records, AreThoseOfTheModelHoweverTheInputIsCut) {
    for (const RecordFormat& format :
         {RecordFormat{'\n', ','}, RecordFormat{'a', ','}, RecordFormat{'\n', {}}, RecordFormat{'\r', {}}}) {
        const Pattern pattern(recordPattern(format));
        for (const std::string& text : shortTexts()) {
            for (std::uint64_t limit = 0; limit <= 4; ++limit) {
                const ReadRecords expected = modelRecords(text, format, pattern, limit);
                for (std::size_t cut = 0; cut <= text.size(); ++cut) {
                    ReadRecords read;
                    RecordReader reader(format, limit,
                                        [&](const Records& records) { take(read, records, format); });
                    reader.add(text.substr(0, cut));
                    // None waits for the next piece.
                    const auto ready = std::count_if(expected.ends.begin(), expected.ends.end(),
                                                     [cut](std::size_t end) { return end <= cut; });
                    ASSERT_EQ(read.records.size(), static_cast<std::size_t>(ready)) << text << '|' << cut;
                    reader.add(text.substr(cut));
                    read.unclosed = reader.finish();
                    ASSERT_EQ(read.records, expected.records) << text << '|' << cut << ' ' << limit;
                    ASSERT_EQ(read.bytes, expected.bytes) << text << '|' << cut << ' ' << limit;
                    ASSERT_EQ(read.unclosed, expected.unclosed) << text << '|' << cut;
                }
            }
        }
    }
}

// At most so many columns; none if a quotation mark is out of place.
std::optional<std::vector<std::string>> modelColumns(std::string record, char delimiter, std::size_t most) {
    static const Pattern quoted("\"(([^\"]|\"\")*)\"");
    if (delimiter == ',' && !record.empty() && record.back() == '\r') {
        record.pop_back();
    }
    std::vector<std::string> columns;
    for (std::size_t begin = 0; columns.size() < most; ++begin) {
        std::size_t end = std::min(record.find(delimiter, begin), record.size());
        std::string column = record.substr(begin, end - begin);
        if (delimiter == ',' && record.substr(begin, 1) == "\"") {
            const auto match = quoted.match(record.substr(begin));
            if (!match) {
                return {};
            }
            end = begin + match->first.size();
            column = match->second;
            for (std::size_t mark = 0; (mark = column.find("\"\"", mark)) != std::string::npos; ++mark) {
                column.erase(mark, 1);
            }
        }
        columns.push_back(column);
        if (end == record.size()) {
            break;
        }
        if (record[end] != delimiter) {
            return {};
        }
        begin = end;
    }
    return columns;
}

TEST(Records, SplitIntoTheColumnsOfTheModel) {
    for (const std::string& record : shortTexts()) {
        for (const char delimiter : {',', 'a'}) {
            for (std::size_t most = 1; most <= 4; ++most) {
                std::vector<std::string> columns;
                const bool isSplit = splitColumns(record, {'\n', delimiter}, most, columns);
                const auto expected = modelColumns(record, delimiter, most);
                ASSERT_EQ(isSplit, expected.has_value()) << record << ' ' << most;
                ASSERT_TRUE(!isSplit || columns == *expected) << record << ' ' << most;
            }
        }
    }
}

TEST(Records, GiveThePayloadAndTheKeyOfTheirColumns) {
    const RecordFormat sheet{'\n', ','};
    Records records{"id,\"the\n\"\"code\"\"\"\r\n1,x\n", 5};
    EXPECT_EQ(takeHeader(records, sheet), (std::vector<std::string>{"id", "the\n\"code\""}));
    EXPECT_EQ(records.line, 7U);
    EXPECT_EQ(records.text, "1,x\n");

    // A payload keeps its CR, even if its column is also the key.
    std::vector<std::string> columns;
    Request request;
    request.payload = "a\tb\r";
    EXPECT_EQ(takeColumns({2, 2}, {'\n', '\t'}, columns, request), "");
    EXPECT_EQ(request.payload, "b\r");
    EXPECT_EQ(request.origin.key, "b");
    request.payload = "a";
    EXPECT_EQ(takeColumns({1, 2}, {'\n', '\t'}, columns, request), " has no column 2");
}

TEST(Columns, AreNumbersOrNamesOfTheHeader) {
    struct Row {
        std::string payload;
        std::string key;
        std::vector<std::string> header;
        std::string expected;
    };
    const std::vector<Row> rows{
        {"2", "", {}, "2 0"},
        {"b", "1", {"a", "b"}, "2 1"},
        {"2", "3", {"x", "y", "2"}, "3 3"},  // a name comes before a number
        {"1000001", "", {"x"}, "the header has no column 1000001; type one of its names: x"},
        {"c", "", {"a", "b"}, "the header has no column c; type one of its names: a, b"},
        {"a", "b", {"a", "b", "b"}, "the header has two columns b; type the number of one"},
    };
    for (const Row& row : rows) {
        InputOptions options;
        options.payloadColumn = row.payload;
        options.keyColumn = row.key;
        std::string result;
        try {
            const Columns columns = columnsOf(options, row.header);
            result = std::to_string(columns.payload) + ' ' + std::to_string(columns.key);
        } catch (const InputError& error) {
            result = error.what();
        }
        EXPECT_EQ(result, row.expected);
    }
}

}  // namespace
}  // namespace korvoqr::test
