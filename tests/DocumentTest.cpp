#include "Payloads.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

TEST(Documents, ReadmeKeepsInStep) {
    const std::string readme = readFile(KORVOQR_SOURCE_DIR "/README.md");
    const auto expectInReadme = [&readme](const std::string& text) {
        EXPECT_NE(readme.find(text), std::string::npos) << "README.md lacks: " << text;
    };
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

// Each row of the page ends with a payload that raises the row's code, where any does.
TEST(Documents, ErrorCodesKeepInStep) {
    std::string wanted;
    const std::string page = readFile(KORVOQR_SOURCE_DIR "/docs/error-codes.md");
    for (const ErrorCatalogueEntry& entry : errorCatalogue) {
        const std::string row = "\n| \"" + std::string(entry.code) + "\" | `" + std::string(entry.name) +
                                "` | " + std::string(entry.meaning) + " | " + std::string(entry.twoDigitTag) +
                                " | " + std::string(entry.oneCharacterTag) + " | ";
        const std::size_t at = page.find(row);
        ASSERT_NE(at, std::string::npos) << "docs/error-codes.md lacks: " << row;
        const std::string example = page.substr(at + row.size(), page.find(" |\n", at) - at - row.size());
        if (example == "-") {
            wanted += std::string(entry.code) + ' ';
            continue;
        }
        const auto error = QRCodeParser::parseQRData(example.substr(1, example.size() - 2)).qrCodeError();
        const Codes codes = error ? error->errorCodes() : Codes{};
        EXPECT_NE(std::find(codes.begin(), codes.end(), entry.code), codes.end()) << row << example;
    }
    EXPECT_EQ(wanted, "30 44 ");
}

TEST(Documents, CatalogueFindsItsRows) {
    EXPECT_EQ(findErrorCatalogueEntry("22"), nullptr);
    EXPECT_EQ(KorvoErrorConstants::merchantIdInvalidCheckDigit, "3");
}

}  // namespace
}  // namespace korvo::test
