#include "Payloads.h"

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

TEST(Documents, ReadmeKeepsInStep) {
    const std::string readme = readFile(KORVOQR_SOURCE_DIR "/README.md");
    const auto expectInReadme = [&readme](const std::string& text) {
        EXPECT_NE(readme.find(text), std::string::npos) << "README.md lacks: " << text;
    };
    for (const ErrorCatalogueEntry& entry : errorCatalogue) {
        expectInReadme("\n| \"" + std::string(entry.code) + "\" | `" + std::string(entry.name) + "` | " +
                       std::string(entry.meaning) + " | " + std::string(entry.twoDigitTag) + " | " +
                       std::string(entry.oneCharacterTag) + " |\n");
    }
    expectInReadme("```cpp\n" + readFile(KORVOQR_SOURCE_DIR "/examples/pay.cpp") + "```\n");
    expectInReadme("```objc\n" + readFile(KORVOQR_SOURCE_DIR "/examples/objc/record.m") + "```\n");
    const std::string run = readFile(KORVOQR_SOURCE_DIR "/scripts/run");
    const auto start = run.find("sample='") + 8;
    const std::string sample = run.substr(start, run.find('\'', start) - start);
    const auto response = QRCodeParser::parseQRData(sample);
    ASSERT_TRUE(response.qrCodeData()) << sample;
    expectInReadme(sample);
    expectInReadme("```\n" + response.qrCodeData()->description() + "```\n");
}

TEST(Documents, CatalogueFindsItsRows) {
    EXPECT_EQ(errorCatalogue.size(), 45U);
    EXPECT_EQ(findErrorCatalogueEntry("48")->name, "crcInvalidValue");
    EXPECT_EQ(findErrorCatalogueEntry("22"), nullptr);
    EXPECT_EQ(KorvoErrorConstants::merchantIdInvalidCheckDigit, "3");
}

}  // namespace
}  // namespace korvo::test
