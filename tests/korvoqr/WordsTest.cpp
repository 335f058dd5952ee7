#include "korvoqr/ArgumentHints.h"
#include "korvoqr/OptionCheck.h"
#include "korvoqr/RefusalHints.h"
#include "korvoqr/Trimming.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace korvoqr::test {
namespace {

using namespace std::string_literals;
using Rows = std::vector<std::pair<std::string, std::string>>;

TEST(Words, AreTrimmed) {
    const Rows rows{
        {"", ""},
        {" \t\r\n", ""},
        {" a b ", "a b"},
        {"\xEF\xBB\xBF\"a\"\r", "a"},
        {"\u201Ca\u00BB`\u3000", "a"},
        {"'\u00E9'", "\u00E9"},
        {" \xFF ", "\xFF"},                  // no text
        {" a\x80 ", "a\x80"},                // a byte that continues nothing
        {"\xE2\x80", "\xE2\x80"},            // a cut blank
        {"a\xC2\xA0\xA0", "a\xC2\xA0\xA0"},  // a byte that continues nothing, after a blank
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(trimmed(text), expected) << text;
    }
}

TEST(Words, ThatAreCloseAreSuggested) {
    const std::vector<std::string> words{"--format", "--image", "--input", "json", "text", "explain"};
    const std::vector<std::pair<std::string, std::vector<std::string>>> rows{
        {"--format", {"--fromat", "--frmt", "--forrmaat"}},
        {"--input", {"--imput"}},
        {"--image", {"--i"}},
        {"explain", {"exp", "expaln"}},
        {"text", {"txt"}},
        {"json", {"josn", "jxxn"}},
        {"", {"", "ex", "tt", "nosj", "--formabcd", std::string(33, 't')}},
    };
    for (const auto& [meant, mistakes] : rows) {
        for (const std::string& typed : mistakes) {
            EXPECT_EQ(closestWord(typed, words), meant) << typed;
        }
    }
}

TEST(Words, OfOptionsAreChecked) {
    for (const std::string good : {"1", "10", "007"}) {
        std::uint64_t number = 0;
        EXPECT_EQ(readNumber(good, 10, number), "");
        EXPECT_EQ(number, std::stoull(good));
    }
    for (const std::string bad : {"", "0", "11", "-1", "+1", " 1", "1 ", "1x", "18446744073709551617"}) {
        std::uint64_t number = 0;
        EXPECT_EQ(readNumber(bad, 10, number), "must be a number from 1 to 10") << bad;
    }
    for (const auto& [text, expected] : Rows{{"tab", "\t"}, {"\\t", "\t"}, {";", ";"}, {" ", " "}}) {
        std::optional<char> delimiter;
        EXPECT_EQ(readDelimiter(text, delimiter), "");
        EXPECT_EQ(delimiter, expected.front());
    }
    for (const std::string bad : {"", "\n", "\"", ",,", "\u00E9"}) {
        std::optional<char> delimiter;
        EXPECT_EQ(readDelimiter(bad, delimiter), "must be one character of ASCII, or tab") << bad;
    }
}

TEST(Words, OfFilesWithoutLinesNameTheirKind) {
    const std::vector<std::pair<std::string, std::vector<std::string>>> rows{
        {"is a PNG", {"\x89PNG\r\n"}},
        {"is an SVG", {"<svg ", "\xEF\xBB\xBF\n<?xml?><svg>"}},
        {"is a PDF", {"%PDF-1.4"}},
        {"is a gzip file", {"\x1F\x8B\x08"}},
        {"looks like UTF-16", {"\xFF\xFEx", "\xFE\xFF", "0\0000\0"s, "\0000\0000"s}},
        {"", {"", "PK", "0002", "0\0000"s, "\0\0\0\0"s}},
    };
    for (const auto& [name, files] : rows) {
        for (const std::string& bytes : files) {
            const auto kind = fileKindOf(bytes);
            EXPECT_EQ(kind ? kind->name : "", name) << bytes;
        }
    }
    EXPECT_EQ(fileKindOf("0\0000\0"s).value_or(FileKind{}).remedy,
              "iconv -f UTF-16LE -t UTF-8 FILE | korvoqr");
    EXPECT_EQ(fileKindOf("\0000\0000"s).value_or(FileKind{}).remedy,
              "iconv -f UTF-16BE -t UTF-8 FILE | korvoqr");
}

// The hint about some refused lines, which is the same if they come in parts.
std::string hintFor(const std::vector<std::pair<int, std::string>>& lines, std::uint64_t accepted,
                    const RunOptions& options) {
    RefusalHints all;
    RefusalHints sum;
    for (const auto& [times, line] : lines) {
        for (int i = 0; i < times; ++i) {
            RefusalHints one;
            one.note(line, true);
            all.note(line, true);
            sum.add(one);
        }
    }
    EXPECT_EQ(all.sentence(accepted, options), sum.sentence(accepted, options));
    return all.sentence(accepted, options);
}

TEST(Words, AboutRefusalsNameWhatNineOfTenShare) {
    const std::string payload = "0g411111111111111112hi24581231M42IN53356";
    RunOptions options;
    EXPECT_EQ(hintFor({{2, "x\r"}}, 0, options), "");
    EXPECT_EQ(hintFor({{3, "x\r"}}, 0, options), "all 3 lines end in CR; try --trim");
    EXPECT_EQ(hintFor({{3, "x\r"}}, 1, options), "all 3 refused lines end in CR; try --trim");
    EXPECT_EQ(hintFor({{89, "x\r"}, {11, "x"}}, 0, options), "");
    EXPECT_EQ(hintFor({{10, "x"}, {90, "x\r"}}, 0, options), "90 of 100 refused lines end in CR; try --trim");
    EXPECT_EQ(hintFor({{1, "\xEF\xBB\xBFx"}, {8, "'x'"}, {1, "x "}}, 0, options),
              "all 10 lines have white space or quotes around them; try --trim");
    EXPECT_EQ(
        hintFor({{1, "x"}, {1, "7;'" + payload + "'"}, {9, "a;7;" + payload + ";" + payload}}, 9, options),
        "10 of 11 refused lines have a payload in column 2; try --payload-column 2 --delimiter ';'");
    options.isExplaining = true;
    EXPECT_EQ(hintFor({{5, "\"x\""}}, 0, options), "all 5 lines are in quotes; try korvoqr parse --trim");
    options.input.trim = true;
    EXPECT_EQ(hintFor({{5, "\"x\""}}, 0, options), "");
}

}  // namespace
}  // namespace korvoqr::test
