#include "../GeneratedPayloads.h"
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Validation/ISOCountryCodes.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <set>
#include <sstream>

#include <gtest/gtest.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/uloc.h>
#include <unicode/uscript.h>
#include <unicode/utext.h>
#include <unicode/utf.h>

namespace korvo::test {
namespace {

using B = BreakClass;

// By the number of a Grapheme_Cluster_Break in ICU. Those from 13 to 16 are not in use any more.
// clang-format off
constexpr std::array breakClasses{
    B::other, B::control, B::carriageReturn, B::extend, B::leadingJamo, B::lineFeed, B::syllableLV, B::syllableLVT,
    B::trailingJamo, B::vowelJamo, B::spacingMark, B::prepend, B::regionalIndicator, B::other, B::other, B::other,
    B::other, B::joiner};
// clang-format on

BreakClass breakClassInICU(std::int32_t c) {
    static const std::set<int> conjunctScripts{USCRIPT_BENGALI,   USCRIPT_DEVANAGARI, USCRIPT_GUJARATI,
                                               USCRIPT_MALAYALAM, USCRIPT_ORIYA,      USCRIPT_TELUGU};
    UErrorCode status = U_ZERO_ERROR;
    const int syllabic = u_getIntPropertyValue(c, UCHAR_INDIC_SYLLABIC_CATEGORY);
    const bool isLinking = conjunctScripts.contains(uscript_getScript(c, &status));
    const B found =
        breakClasses[static_cast<unsigned>(u_getIntPropertyValue(c, UCHAR_GRAPHEME_CLUSTER_BREAK))];
    return isLinking && syllabic == U_INSC_CONSONANT                                       ? B::consonant
           : isLinking && syllabic == U_INSC_VIRAMA                                        ? B::virama
           : found == B::other && u_hasBinaryProperty(c, UCHAR_EXTENDED_PICTOGRAPHIC) != 0 ? B::pictograph
           : found == B::extend && u_getCombiningClass(c) != 0                             ? B::mark
                                                                                           : found;
}

CharacterGroup groupInICU(std::int32_t c) {
    const std::uint32_t category = U_GET_GC_MASK(c);
    return (category & U_GC_L_MASK) != 0    ? CharacterGroup::letter
           : (category & U_GC_M_MASK) != 0  ? CharacterGroup::mark
           : (category & U_GC_ND_MASK) != 0 ? CharacterGroup::decimalDigit
           : (category & U_GC_N_MASK) != 0  ? CharacterGroup::otherNumber
           : (category & U_GC_ZS_MASK) != 0 ? CharacterGroup::spaceSeparator
                                            : CharacterGroup::other;
}

TEST(ICU, HasTheSamePropertiesOfEveryCodePoint) {
    std::vector<std::int32_t> letters;
    for (std::int32_t c = 0; c < 0x110000; ++c) {
        std::size_t offset = 0;
        ASSERT_TRUE(U_IS_SURROGATE(c) || nextCodePoint(utf8(static_cast<std::uint32_t>(c)), offset) == c);
        const auto [breakClass, group] = propertiesOf(c);
        ASSERT_TRUE(breakClass == breakClassInICU(c) && group == groupInICU(c)) << std::hex << c;
        if (c >= 0x80 && u_tolower(c) < 0x80) {
            letters.push_back(c);
        }
    }
    // The full lower case of the first is two code points, so only the Kelvin sign can be a length.
    EXPECT_EQ(letters, (std::vector<std::int32_t>{0x130, 0x212A}));
}

TEST(Unicode, CutsItsOwnTestTheSameWay) {
    std::istringstream lines(readFile("/usr/share/unicode/auxiliary/GraphemeBreakTest.txt"));
    int cases = 0;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line.substr(0, line.find('#')));
        std::string text;
        std::vector<std::size_t> ends;
        for (std::string field; fields >> field;) {
            if (field == "\u00F7") {
                ends.push_back(text.size());
            } else if (field != "\u00D7") {
                text += utf8(static_cast<std::uint32_t>(std::stoul(field, nullptr, 16)));
            }
        }
        CharacterReader reader(text);
        for (std::size_t i = 1; i < ends.size(); ++i) {
            EXPECT_TRUE(reader.take(1) && reader.offset() == ends[i]) << line;
        }
        cases += reader.atEnd() && !text.empty() ? 1 : 0;
    }
    EXPECT_EQ(cases, 602);
}

// Where user-perceived characters end in a valid UTF-8 text.
std::vector<std::size_t> endsInICU(const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    static UText view = UTEXT_INITIALIZER;
    static UBreakIterator* const iterator =  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)
        ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status);
    utext_openUTF8(&view, text.data(), static_cast<std::int64_t>(text.size()), &status);
    ubrk_setUText(iterator, &view, &status);
    std::vector<std::size_t> ends;
    for (std::int32_t end = ubrk_next(iterator); end != UBRK_DONE; end = ubrk_next(iterator)) {
        ends.push_back(static_cast<std::size_t>(end));
    }
    return ends;
}

// Random texts over all break classes. Any code point of a class may occur.
TEST(ICU, CutsTheSameCharacters) {
    const TextsByBreakClass classes;
    std::mt19937 random(15);
    for (int round = 0; round < 3000000; ++round) {
        // Half of the texts use few classes, so that long sequences of one kind occur.
        const std::size_t kinds = random() % 2 == 0 ? breakClassCount : 1 + random() % 4;
        std::array<std::size_t, breakClassCount> chosen{};
        std::generate_n(chosen.begin(), kinds, [&random] { return random() % breakClassCount; });
        std::string text(random() % 8 == 0 ? random() % 20 : 0, 'x');
        for (std::size_t length = random() % 10; length > 0; --length) {
            const auto& members = classes.at(chosen.at(random() % kinds));
            text += members[random() % members.size()];
        }
        const auto ends = endsInICU(text);
        CharacterReader reader(text);
        for (std::size_t taken = 0; taken < ends.size();) {
            const std::size_t count = 1 + random() % std::min<std::size_t>(4, ends.size() - taken);
            taken += count;
            ASSERT_TRUE(reader.take(count) && reader.offset() == ends[taken - 1])
                << testing::PrintToString(text);
        }
        ASSERT_TRUE(reader.atEnd() && !reader.take(1));
    }
}

// ICU's list is that of ISO 3166-1 and four codes more; both are read from where they are kept.
TEST(ICU, KnowsTheSameCountries) {
    std::set<std::string> inICU;
    for (const char* const* code = uloc_getISOCountries(); *code != nullptr; ++code) {
        inICU.insert(*code);
    }
    const std::string standard = readFile("/usr/share/iso-codes/json/iso_3166-1.json");
    for (char first = 0; first < 127; ++first) {
        for (char second = 0; second < 127; ++second) {
            const std::string code{first, second};
            const bool isExtra = code == "DG" || code == "EA" || code == "IC" || code == "XK";
            const bool isStandard = standard.find(R"("alpha_2": ")" + code + '"') != std::string::npos;
            EXPECT_EQ(inICU.contains(code), isExtra || isStandard) << code;
            EXPECT_EQ(inICU.contains(code), ISOCountryCodes::isISOCountry(code)) << code;
        }
    }
}

}  // namespace
}  // namespace korvo::test

int main(int argc, char** argv) {
    constexpr int level = 72;
    UVersionInfo version{};
    u_getVersion(version);
    if (version[0] != level) {
        std::fprintf(stderr,
                     "korvo_icu_tests: the character tables are those of ICU %d, but this is ICU %d\n", level,
                     version[0]);
        return 1;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
