#include "Payloads.h"
#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Decoding/TagRow.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <tuple>

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace korvo::test {
namespace {

long peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

TEST(Hostile, HugeTextsAreAnsweredAtOnceAndInPlace) {
    constexpr std::size_t huge = 100'000'000;
    const std::string marks = "\xCC\x81";
    const std::string regionalIndicator = "\xF0\x9F\x87\xAE";
    const std::string womanAndJoiner = "\xF0\x9F\x91\xA9\xE2\x80\x8D";
    const std::string hangul = "\xE1\x84\x80\xE1\x85\xA1";
    const std::string nearlyAll = join(changed(oneCharacter, {{"0", std::nullopt}}));
    const std::vector<std::tuple<std::string, std::string, Codes>> rows{
        {"", "0", {"0"}},
        {"", "7", {"0"}},
        {"", std::string(1, '\0'), {"0"}},
        {"", "\xFF", {"0"}},
        {"", "\r", {"0"}},
        {"", "6206", {"0"}},
        {"", regionalIndicator, {"0"}},
        {"000201", marks, {"0"}},
        {"0002015901a", marks, {"0"}},
        {with(twoDigit, {}), "0", {"0"}},
        {with(twoDigit, {}), marks, {"48"}},  // the marks join the checksum's last digit
        {nearlyAll + "0941234567", "8" + marks, {"0"}},
        {join(oneCharacter) + "61a", marks, {"16"}},
        {join(oneCharacter) + "71a", marks, {}},  // one character may have any number of marks
        {join(oneCharacter) + "71", womanAndJoiner, {}},
        {join(oneCharacter) + "7z", hangul, {"0"}},
    };
    for (const auto& [head, unit, codes] : rows) {
        std::string payload = head;
        payload.reserve(huge + unit.size());
        while (payload.size() < huge) {
            payload += unit;
        }
        const long before = peakMegabytes();
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(codesIn(QRCodeParser::parseQRData(payload)), codes) << head << " and " << unit;
        const auto seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        // A quadratic algorithm would take days. A refusal needs no copy of the text, a record needs one.
        EXPECT_LT(seconds, 60) << head << " and " << unit;
        EXPECT_LT(peakMegabytes() - before, codes.empty() ? 120 : 16) << head << " and " << unit;
        // An explanation holds copies of the payload and of its values.
        EXPECT_EQ(QRCodeExplainer::explainQRData(payload).errorCodes(), codes);
        EXPECT_LT(peakMegabytes() - before, 220) << head << " and " << unit;
    }
}

// Seconds of the processor for the fastest of some runs. A busy machine takes longer by the clock on the
// wall.
template <class Work>
double fastest(Work work) {
    double least = 1e9;
    for (int run = 0; run < 5; ++run) {
        const std::clock_t start = std::clock();
        work();
        least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return least;
}

TEST(Hostile, ExplanationsAreQuick) {
    for (const std::string head : {"", "000201", "0002015902", "000201590163"}) {
        for (const std::string unit :
             {"0", "7", " ", "\n", "%30", "https", "\xCC\x81", "\xF0\x9F\x91\xA9\xE2\x80\x8D",
              "\xE0\xA4\x95\xE0\xA5\x8D", "0102", "6304ABCD", "5902ab6304"}) {
            std::string payload = head;
            while (payload.size() < 1'000'000) {
                payload += unit;
            }
            std::size_t answers = 0;
            const double floor =
                fastest([&] { answers += computeCRC16(payload) + (isUTF8(payload) ? 1U : 0U); });
            const double explained =
                fastest([&] { answers += QRCodeExplainer::explainQRData(payload).causes().size(); });
            EXPECT_GT(answers, 0U);
            EXPECT_LT(explained, 20 * floor) << head << " and " << unit;
        }
    }
    // A text that nearly splits in many ways: the search for wrong lengths gives up.
    std::string nearly = "000201";
    for (unsigned tag = 1; tag < 62; ++tag) {
        nearly += std::string(twoDigitText(tag)) + "10" + "0101010101";
    }
    EXPECT_LT(fastest([&] { EXPECT_FALSE(QRCodeExplainer::explainQRData(nearly).isAccepted()); }), 1);
}

TEST(Hostile, CutOrChangedPayloadsAreNeverAccepted) {
    const std::string payload = with(twoDigit, {{"62", element("01", "***")}, {"54", "1.5"}});
    for (std::size_t at = 0; at < payload.size() - 4; ++at) {
        EXPECT_EQ(codesIn(QRCodeParser::parseQRData(payload.substr(0, at))), Codes{"0"}) << at;
        for (int byte = 0; byte < 256; ++byte) {
            std::string changed = payload;
            changed[at] = static_cast<char>(byte);
            EXPECT_EQ(codesIn(QRCodeParser::parseQRData(changed)).empty(), changed == payload) << at << byte;
        }
    }
}

}  // namespace
}  // namespace korvo::test
