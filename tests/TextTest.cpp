#include "Payloads.h"
#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>
#include <KorvoQRParser/Validation/DecimalText.h>
#include <KorvoQRParser/Validation/Pattern.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <random>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

const std::string acute = "\xCC\x81";

// Every class of UAX #29, and every kind of mark
constexpr std::u32string_view alphabet =
    U"a\r\n\t\u00E9\u00AD\u0301\u200D\u200C\u0600\u0903\u0915\u0937\u094D\u0995\u09CD\u0C15\u0E33\u1100\u1161"
    U"\u11A8"
    U"\uAC00\uAC01\u20E3\uA9C0\u1039\u2764\uFE0F\U0001F1E6\U0001F468\U0001F3FD\U0001FAFF\U000E0061\U0001D165";

TEST(Text, ParsesIntegers) {
    for (const auto& row : readRows("integers.txt")) {
        const auto number = parseInteger(expanded(row.at(0)), std::stoi(row.at(1)));
        EXPECT_EQ(number ? std::to_string(*number) : "none", row.at(2)) << row[0];
    }
    EXPECT_FALSE(parseInteger("", 10));
}

// Halfway where a long double has more bits than a double; elsewhere one of the two.
std::string middle(double number, double neighbour) {
    std::array<char, 1200> text{};
    std::snprintf(text.data(), text.size(), "%.1100Lf", (static_cast<long double>(number) + neighbour) / 2);
    return text.data();
}

TEST(Text, ReadsAmountsAsADoubleWould) {
    std::vector<std::string> texts{"",    ".",  "1.2.3", "1.5 ",   "1x",     "0",
                                   "0.0", ".5", "12.",   "99.990", "99.991", "+1"};
    for (const double number : {0.0, 0.01, 99.99}) {
        for (const double neighbour : {std::nextafter(number, 0.0), std::nextafter(number, 100.0)}) {
            const std::string halfway = middle(number, neighbour);
            const std::string shorter = halfway.substr(0, halfway.find_last_not_of('0'));
            texts.insert(texts.end(), {halfway, halfway + "1", "000" + halfway + "000", shorter});
        }
    }
    std::mt19937 random(3);
    for (int round = 0; round < 200000; ++round) {
        const std::string tiny = "0." + std::string(315 + random() % 12, '0');
        std::string text = std::array<std::string, 4>{"", "0.00", "99.99", tiny}.at(random() % 4);
        for (std::size_t length = random() % 24; length > 0; --length) {
            text += "00123456789999."[random() % 15];
        }
        texts.push_back(text);
    }
    for (const auto& text : texts) {
        char* end = nullptr;
        const double number = std::strtod(text.c_str(), &end);
        const bool isNumber =
            !text.empty() && *end == '\0' && text.find_first_not_of("0123456789.") == std::string::npos;
        EXPECT_EQ(isAboveZero(text), isNumber && number > 0) << text;
        EXPECT_EQ(isPercentage(text), isNumber && number >= 0.01 && number <= 99.99) << text;
    }
}

TEST(Text, CutsByUserPerceivedCharacters) {
    const std::string text = "a" + acute + "b\r\nc";
    EXPECT_EQ(characterCount(text), 4U);
    CharacterReader retried(std::string_view("\u00E9aaaa"));
    EXPECT_FALSE(retried.take(10));
    EXPECT_EQ(retried.take(3), "\u00E9aa");  // a failed take takes nothing
    EXPECT_EQ(substringFromOffset(2, text), "\r\n");
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
}

TEST(Text, MatchesRegex) {
    for (const auto& row : readRows("patterns.txt")) {
        const Pattern pattern(row[0]);
        const std::string fault = pattern.fault() == nullptr ? "" : pattern.fault();
        const bool isFound = pattern.isFoundIn(expanded(row.at(1)));
        EXPECT_EQ(isFound         ? "found"
                  : fault.empty() ? "-"
                                  : std::to_string(pattern.offset()),
                  row.at(2))
            << row[0];
        EXPECT_EQ(fault.find(row.size() > 3 ? row[3] : ""), 0U) << row[0];
    }
    testing::internal::CaptureStdout();
    EXPECT_FALSE(matchesRegex("a|b", Pattern("a|b")));
    EXPECT_EQ(
        testing::internal::GetCapturedStdout(),
        "\"The pattern does not compile: groups, alternatives and counts are not supported, at byte 1.\"\n");
    EXPECT_STREQ(Pattern(std::string(64, 'a')).fault(), "the pattern has more than 15 items");
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
    EXPECT_FALSE(containsCharacterOf("\n\r.\v\f\u200B\u2028\u0080\x80", words));
    auto set = CharacterSet::characterSetWithCharactersInString("a\x80\u0080\u20AC");
    EXPECT_TRUE(consistsOfCharactersOf("\u20ACa", set) && !containsCharacterOf("b\u00E8", set));
    EXPECT_TRUE(containsCharacterOf("\u20AC", CharacterSet::unionAlphaNumericCharacterSetWith(set)));
    EXPECT_TRUE(consistsOfCharactersOf("\u20ACaZ", set.formUnionWith(CharacterSet::letterCharacterSet())));
    EXPECT_TRUE(consistsOfCharactersOf("", set) && !containsCharacterOf("", set));
}

// The digest of where a million random texts are cut is the same on every platform. The tests with ICU check
// that these places are right.
TEST(Text, CutsTheSameCharactersOnEveryPlatform) {
    std::mt19937 random(15);
    std::uint64_t digest = 0xCBF29CE484222325U;
    for (int round = 0; round < 1000000; ++round) {
        std::string text;
        for (std::size_t length = 1 + random() % 8; length > 0; --length) {
            text += utf8(alphabet[random() % alphabet.size()]);
        }
        const ExactCopy copy(text);
        for (CharacterReader reader(copy.view()); reader.take(1);) {
            digest = (digest ^ reader.offset()) * 0x100000001B3U;
        }
    }
    EXPECT_EQ(digest, 6511546295747130766U);
}

}  // namespace
}  // namespace korvo::test
