#include "Payloads.h"

#include <thread>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

TEST(Threads, NeverSeeEachOthersAnswers) {
    struct Case {
        std::string payload;
        Codes codes;
    };
    const std::string acute = "\xCC\x81";
    const std::vector<Case> cases{
        {with(twoDigit, {}), {}},
        {with(twoDigit, {{"58", "in"}, {"53", "933"}}), {"14", "12"}},
        {with(oneCharacter, {{"7", "?5"}}), {}},
        {with(oneCharacter, {{"7", "?r"}, {"6", ""}}), {"16", "17", "18", "23"}},
        {join(oneCharacter) + "72e" + acute + "e", {}},
        {"00", {"0"}},
    };
    const auto expectAnswer = [](const Case& expected, const QRCodeParserResponse& response) {
        EXPECT_EQ(response.qrCodeError() ? response.qrCodeError()->errorCodes() : Codes{}, expected.codes);
    };
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < 8; ++t) {
        threads.emplace_back([&, t] {
            for (std::size_t i = 0; i < 500; ++i) {
                const Case& mine = cases[(t + i) % cases.size()];
                expectAnswer(mine, QRCodeParser::parseQRData(mine.payload));
                QRCodeParser::parseQRData(mine.payload, [&](const auto& response) {
                    // A handler may parse again.
                    expectAnswer(cases[t % cases.size()],
                                 QRCodeParser::parseQRData(cases[t % cases.size()].payload));
                    expectAnswer(mine, *response);
                });
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
}  // namespace korvo::test
