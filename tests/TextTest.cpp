#include "Payloads.h"
#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>

#include <random>
#include <sstream>

#include <gtest/gtest.h>
#include <unicode/ubrk.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

namespace korvo::test {
namespace {

const std::string acute = "\xCC\x81";

TEST(Text, ParsesIntegers) {
    for (const auto& row : readRows("integers.txt")) {
        const auto number = parseInteger(expanded(row.at(0)), std::stoi(row.at(1)));
        EXPECT_EQ(number ? std::to_string(*number) : "none", row.at(2)) << row[0];
    }
    EXPECT_FALSE(parseInteger("", 10));
    EXPECT_EQ(parseDecimal(std::string(400, '9')), std::numeric_limits<double>::infinity());
    EXPECT_EQ(parseDecimal("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(parseDecimal("1.5"), 1.5);
    EXPECT_FALSE(parseDecimal("") || parseDecimal("1.5 ") || parseDecimal(std::string(400, '9') + "x") ||
                 parseDecimal("."));
}

TEST(Text, CutsByUserPerceivedCharacters) {
    const std::string text = "a" + acute + "b\r\nc";
    EXPECT_EQ(characterCount(text), 4U);
    EXPECT_EQ(characterCount(""), 0U);
    CharacterReader retried(std::string_view("\u00E9aaaa"));
    EXPECT_FALSE(retried.take(10));
    EXPECT_EQ(retried.take(3), "\u00E9aa");  // a failed take takes nothing
    std::string hangul;
    while (hangul.size() < 300000) {
        hangul += "\uAC00";
    }
    EXPECT_EQ(characterCount(hangul), 100000U);  // slow if every character reads the whole text
    EXPECT_EQ(substringFromOffset(0, text), "a" + acute);
    EXPECT_EQ(substringFromOffset(2, text), "\r\n");
    EXPECT_EQ(substringFromOffset(3, text), "c");
    EXPECT_FALSE(substringFromOffset(4, text) || substringFromOffset(0, "") || substringFromOffset(9, text));
    EXPECT_DEATH((void)substringFromOffset(-1, text), "substringFromOffset: the offset is negative");
    EXPECT_EQ(substringWithOffsets(1, 3, text), "b\r\n");
    EXPECT_EQ(substringWithOffsets(4, 4, text), "");
    EXPECT_DEATH((void)substringWithOffsets(3, 5, text), "substringWithOffsets: the offsets lie outside");
    EXPECT_DEATH((void)substringWithOffsets(3, 2, text), "substringWithOffsets");
    EXPECT_EQ(droppingLastCharacters(text, 2), "a" + acute + "b");
    EXPECT_EQ(droppingLastCharacters("abcdef", 4), "ab");
    EXPECT_EQ(droppingLastCharacters("abc\r\ndef", 4), "abc");
    EXPECT_EQ(droppingLastCharacters("abcd", 4), "");
    EXPECT_EQ(droppingLastCharacters("\xDB\x9D"
                                     "1234",
                                     4),
              "");  // a prepended mark joins the next character
    EXPECT_FALSE(beginsWith("?\x80", '?'));
    EXPECT_TRUE(beginsWith("?", '?') && !beginsWith("?" + acute, '?') && !beginsWith("", '?') &&
                !beginsWith("!?", '?'));
    EXPECT_EQ(lowerCased("AbZ[\xC3\x89\xE2\x84\xAA"), "abz[\xC3\xA9k");
    EXPECT_EQ(lowerCased("AbZ[1"), "abz[1");
    EXPECT_EQ(lowerCased("\xC4\xB0"), "i\xCC\x87");  // the lower case is longer
}

TEST(Text, MatchesRegex) {
    const std::string pattern = "^[1-9a-qA-Q]";
    for (const auto& [text, matches] : std::vector<std::pair<std::string, bool>>{{"7abc", true},
                                                                                 {"Q", true},
                                                                                 {"0", false},
                                                                                 {"r", false},
                                                                                 {"", false},
                                                                                 {"\n7", false},
                                                                                 {"7" + acute, true}}) {
        EXPECT_EQ(matchesRegex(text, pattern), matches) << text;
    }
    EXPECT_TRUE(matchesRegex("xx7", "7$"));
    testing::internal::CaptureStdout();
    EXPECT_FALSE(matchesRegex("a", "["));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "\"The pattern is not a regular expression: a set of characters has no closing bracket.\"\n");
    EXPECT_TRUE(matchesRegex("7", pattern));
}

TEST(Text, CharacterSets) {
    const auto digits = CharacterSet::numericCharacterSet();
    const auto words = CharacterSet::alphaNumericWhiteSpaceCharacterSet();
    EXPECT_TRUE(consistsOfCharactersOf("0123456789", digits));
    // Digits, letters, every kind of number (Nd, Nl, No), of mark (Mn, Mc, Me) and of blank
    for (const char* const word : {"\u0661", "\uFF11", "\u2160", "\u00BD", "\u00E9", "a", "\u0301", "\u0903",
                                   "\u20DD", " ", "\t", "\u00A0"}) {
        EXPECT_FALSE(containsCharacterOf(word, digits)) << word;
        EXPECT_TRUE(consistsOfCharactersOf(word, words)) << word;
    }
    // Line ends, VT, FF, a zero width space, a line separator, malformed bytes
    for (const char* const other : {"\n", "\r", ".", "\v", "\f", "\u200B", "\u2028", "\u0080", "\x80"}) {
        EXPECT_FALSE(containsCharacterOf(other, words)) << testing::PrintToString(other);
    }
    auto set = CharacterSet::characterSetWithCharactersInString("a\x80\u0080\u20AC");
    EXPECT_TRUE(consistsOfCharactersOf("\u20ACa", set) && !containsCharacterOf("b\u00E8", set));
    EXPECT_TRUE(containsCharacterOf("\u20AC", CharacterSet::unionAlphaNumericCharacterSetWith(set)));
    EXPECT_TRUE(consistsOfCharactersOf("\u20ACaZ", set.formUnionWith(CharacterSet::letterCharacterSet())));
    EXPECT_TRUE(consistsOfCharactersOf("", set) && !containsCharacterOf("", set));
}

std::string utf8(char32_t codePoint) {
    std::string text(U8_MAX_LENGTH, '\0');
    std::size_t length = 0;
    U8_APPEND_UNSAFE(text, length, codePoint);
    return text.substr(0, length);
}

// The cases of the Unicode Consortium, each with its number of characters.
std::vector<std::pair<std::string, std::size_t>> graphemeBreakTest() {
    std::vector<std::pair<std::string, std::size_t>> cases;
    std::istringstream lines(readFile(KORVOQR_GRAPHEME_BREAK_TEST));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line.substr(0, line.find('#')));
        std::string text;
        std::size_t boundaries = 0;
        for (std::string field; fields >> field;) {
            const bool isBoundary = field == "\xC3\xB7";
            boundaries += isBoundary ? 1 : 0;
            text += isBoundary || field == "\xC3\x97"
                        ? ""
                        : utf8(static_cast<char32_t>(std::stoul(field, nullptr, 16)));
        }
        if (boundaries > 0) {
            cases.emplace_back(text, boundaries - 1);
        }
    }
    return cases;
}

// Those cases and random mixes of all classes are cut as ICU cuts them, in pieces of any size.
TEST(Text, CutsCharactersAsUnicodeAndICUDo) {
    auto cases = graphemeBreakTest();
    EXPECT_GT(cases.size(), 600U);
    // Every class of UAX #29 and every kind of mark: linking, enclosing, spacing, emoji modifiers.
    const std::u32string alphabet =
        U"a\r\n\t\u00E9\u00AD\u0301\u200D\u200C\u0600\u0903\u0915\u0937\u094D\u09CD\u0E33\u1100\u1161\u11A8"
        U"\uAC00\uAC01\u20E3\uA9C0\u1039\u2764\uFE0F\U0001F1E6\U0001F468\U0001F3FD\U000E0061\U0001D165";
    std::mt19937 random(15);
    for (int round = 0; round < 40000; ++round) {
        std::string text(random() % 3 == 0 ? random() % 20 : 0, 'x');
        for (std::size_t length = random() % 12; length > 0; --length) {
            text += utf8(alphabet[random() % alphabet.size()]);
        }
        cases.emplace_back(text, 0);
    }
    UErrorCode status = U_ZERO_ERROR;
    UBreakIterator* const iterator = ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status);
    for (const auto& [text, characters] : cases) {
        const ExactCopy copy(text);
        EXPECT_TRUE(characters == 0 || characterCount(copy.view()) == characters)
            << testing::PrintToString(text);
        UText* const whole =
            utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status);
        ubrk_setUText(iterator, whole, &status);
        CharacterReader reader(copy.view());
        while (!reader.atEnd()) {
            const std::size_t count = 1 + random() % 3;
            std::int32_t end = 0;
            for (std::size_t i = 0; i < count && end != UBRK_DONE; ++i) {
                end = ubrk_next(iterator);
            }
            const bool isTaken = reader.take(count).has_value();
            ASSERT_EQ(isTaken, end != UBRK_DONE) << testing::PrintToString(text);
            if (!isTaken) {
                break;
            }
            ASSERT_EQ(reader.offset(), static_cast<std::size_t>(end)) << testing::PrintToString(text);
        }
        utext_close(whole);
    }
    ubrk_close(iterator);
    EXPECT_TRUE(U_SUCCESS(status));
}

}  // namespace
}  // namespace korvo::test
