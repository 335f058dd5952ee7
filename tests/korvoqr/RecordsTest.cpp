// Records and columns, held against regular expressions that describe the same.

#include "korvoqr/Columns.h"
#include "korvoqr/PayloadInput.h"
#include "korvoqr/RecordReader.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <regex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

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

class RecordModel {
  public:
    explicit RecordModel(const RecordFormat& format) : end_(format.end) {
        const std::string column = format.isQuoted()
                                       ? std::string(R"re((?:"(?:[^"]|"")*")?(?!")[^,)re") + end_ + "]*"
                                       : std::string("[^") + end_ + "]*";
        const std::string record = format.isQuoted() ? column + "(?:," + column + ")*" : column;
        ended_ = '(' + record + ')' + end_;
        last_ = '(' + record + ')';
    }

    ReadRecords read(const std::string& text, std::uint64_t limit) const {
        ReadRecords read;
        std::uint64_t line = 1;
        for (auto begin = text.begin(); begin != text.end();) {
            std::smatch match;
            const bool isEnded =
                std::regex_search(begin, text.end(), match, ended_, std::regex_constants::match_continuous);
            if (!isEnded && !std::regex_match(begin, text.end(), match, last_)) {
                read.unclosed = line;
                break;
            }
            const std::string record = match[1];
            read.records.emplace_back(line, record.size() <= limit ? std::optional(record) : std::nullopt);
            read.bytes += record.size() + 1;
            read.ends.push_back(read.bytes);
            line += 1 + static_cast<std::uint64_t>(std::count(record.begin(), record.end(), end_));
            begin = match[0].second;
        }
        return read;
    }

  private:
    char end_;
    std::regex ended_;
    std::regex last_;
};

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
        const RecordModel model(format);
        for (const std::string& text : shortTexts()) {
            for (std::uint64_t limit = 0; limit <= 4; ++limit) {
                const ReadRecords expected = model.read(text, limit);
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
    static const std::regex quoted(R"re("((?:[^"]|"")*)")re");
    static const std::regex twoMarks("\"\"");
    if (delimiter == ',' && !record.empty() && record.back() == '\r') {
        record.pop_back();
    }
    std::vector<std::string> columns;
    for (std::size_t begin = 0; columns.size() < most; ++begin) {
        std::size_t end = std::min(record.find(delimiter, begin), record.size());
        std::string column = record.substr(begin, end - begin);
        if (delimiter == ',' && record.substr(begin, 1) == "\"") {
            std::smatch match;
            const auto first = record.cbegin() + static_cast<std::ptrdiff_t>(begin);
            if (!std::regex_search(first, record.cend(), match, quoted,
                                   std::regex_constants::match_continuous)) {
                return {};
            }
            column = std::regex_replace(match[1].str(), twoMarks, "\"");
            end = begin + static_cast<std::size_t>(match.length());
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
