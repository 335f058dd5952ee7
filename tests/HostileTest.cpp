#include "Payloads.h"

#include <chrono>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

std::string repeated(const std::string& unit, std::size_t bytes) {
    std::string text;
    text.reserve(bytes + unit.size());
    while (text.size() < bytes) {
        text += unit;
    }
    return text;
}

Codes codesOf(const std::string& payload) {
    const auto response = QRCodeParser::parseQRData(payload);
    return response.qrCodeError() ? response.qrCodeError()->errorCodes() : Codes{};
}

TEST(Hostile, HugeTextsAreAnsweredAtOnce) {
    constexpr std::size_t huge = 20'000'000;
    const std::string marks = repeated("\xCC\x81", huge);
    const std::vector<std::pair<std::string, Codes>> rows{
        {std::string(huge, '0'), {"0"}},
        {std::string(huge, '7'), {"0"}},
        {std::string(huge, '\0'), {"0"}},
        {std::string(huge, '\xFF'), {"0"}},
        {std::string(huge, '\r'), {"0"}},
        {repeated("\xF0\x9F\x87\xAE", huge), {"0"}},
        {repeated("6206", huge), {"0"}},
        {with(twoDigit, {}) + std::string(huge, '0'), {"0"}},
        {with(twoDigit, {}) + marks, {"48"}},  // they join the checksum's last digit
        {"000201" + marks, {"0"}},
        {"00020159a" + marks, {"0"}},
        // One character may be as long as it likes.
        {join(oneCharacter) + "71a" + marks, {}},
        {join(oneCharacter) + "72?5" + marks, {}},
        {join(changed(oneCharacter, {{"0", std::nullopt}})) + "09412345678" + marks, {"2"}},
        {join(oneCharacter) + "61a" + marks, {"16"}},
        {closed(join(twoDigit) + "6101a" + marks), {}},
    };
    for (const auto& [payload, codes] : rows) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(codesOf(payload), codes) << payload.substr(0, 150);
        const auto seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        // What grew with the square of the length would take days.
        EXPECT_LT(seconds, 60) << payload.substr(0, 150);
    }
}

TEST(Hostile, CutOrChangedPayloadsAreNeverAccepted) {
    const std::string payload = with(twoDigit, {{"62", element("01", "***")}, {"54", "1.5"}});
    ASSERT_EQ(codesOf(payload), Codes{});
    for (std::size_t length = 0; length < payload.size(); ++length) {
        EXPECT_EQ(codesOf(payload.substr(0, length)), Codes{"0"}) << length;
    }
    for (std::size_t at = 0; at < payload.size() - 4; ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string changed = payload;
            changed[at] = static_cast<char>(byte);
            EXPECT_EQ(codesOf(changed).empty(), changed == payload) << at << ' ' << byte;
        }
    }
}

}  // namespace
}  // namespace korvo::test
