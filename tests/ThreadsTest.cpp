#include "Payloads.h"

#include <cstdio>
#include <cstdlib>
#include <thread>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

TEST(Threads, NeverSeeEachOthersAnswers) {
    const std::vector<std::pair<std::string, Codes>> cases{
        {with(twoDigit, {}), {}},
        {with(twoDigit, {{"58", "in"}, {"53", "933"}}), {"14", "12"}},
        {with(oneCharacter, {{"7", "?5"}}), {}},
        {with(oneCharacter, {{"7", "?r"}, {"6", ""}}), {"16", "17", "18", "23"}},
        {join(oneCharacter) + "72e\u0301e", {}},
        {"00", {"0"}},
    };
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < 8; ++t) {
        threads.emplace_back([&, t] {
            for (std::size_t i = 0; i < 500; ++i) {
                const auto& [payload, codes] = cases[(t + i) % cases.size()];
                EXPECT_EQ(codesIn(QRCodeParser::parseQRData(payload)), codes);
                QRCodeParser::parseQRData(payload, [&, &mine = codes](const auto& response) {
                    // A handler may parse again.
                    const auto& [other, others] = cases[t % cases.size()];
                    EXPECT_EQ(codesIn(QRCodeParser::parseQRData(other)), others);
                    EXPECT_EQ(codesIn(*response), mine);
                });
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

// The answers to payloads that need the character sets, the pattern and the tables of characters.
Codes answersAtTheEnd() {
    const std::string hangul = "\xE1\x84\x80\xE1\x85\xA1";
    Codes answers;
    for (const std::string& payload :
         {with(twoDigit, {{"62", element("09", "AMX")}, {"54", "1a"}}), with(oneCharacter, {{"7", "?r"}}),
          join(oneCharacter) + "72" + hangul + hangul, std::string(1, '\xFF')}) {
        const Codes codes = codesIn(QRCodeParser::parseQRData(payload));
        answers.push_back(codes.empty() ? "" : codes.back());
    }
    return answers;
}

// Constructed before the first parse, so destroyed after everything that a parse keeps.
struct ParsesWhenDestroyed {
    bool isArmed = false;
    ~ParsesWhenDestroyed() {
        if (isArmed) {
            std::fputs(answersAtTheEnd() == expected ? "as ever\n" : "different\n", stderr);
        }
    }
    const Codes expected{"46", "23", "", "0"};
};
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): the test is about their destruction
ParsesWhenDestroyed globalObject;
thread_local ParsesWhenDestroyed threadObject;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

TEST(ThreadsDeathTest, TheEndOfAProcessOrThreadChangesNoAnswer) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(
        {
            std::thread([] {
                threadObject.isArmed = true;
                answersAtTheEnd();
            }).join();
            globalObject.isArmed = true;
            answersAtTheEnd();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "as ever\nas ever\n");
}

}  // namespace
}  // namespace korvo::test
