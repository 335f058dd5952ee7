#include "Payloads.h"
#include <KorvoQRParser/Decoding/PMValidTLV01AdditionalDataField.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV00.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV01.h>

#include <map>
#include <sstream>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

void expectIn(const std::string& document, const std::string& text) {
    EXPECT_NE(readFile(KORVOQR_SOURCE_DIR "/" + document).find(text), std::string::npos)
        << document << " lacks: " << text;
}

TEST(Documents, SamplesKeepInStep) {
    expectIn("README.md", "```cpp\n" + readFile(KORVOQR_SOURCE_DIR "/examples/pay.cpp") + "```\n");
    expectIn("README.md", "```cpp\n" + readFile(KORVOQR_SOURCE_DIR "/examples/explain.cpp") + "```\n");
    expectIn("README.md", "```c\n" + readFile(KORVOQR_SOURCE_DIR "/examples/c/pay.c") + "```\n");
    expectIn("README.md", "```python\n" + readFile(KORVOQR_SOURCE_DIR "/examples/python/pay.py") + "```\n");
    expectIn("README.md", "```objc\n" + readFile(KORVOQR_SOURCE_DIR "/examples/objc/record.m") + "```\n");
    const std::string run = readFile(KORVOQR_SOURCE_DIR "/scripts/run");
    const auto start = run.find("sample='") + 8;
    const std::string sample = run.substr(start, run.find('\'', start) - start);
    const auto response = QRCodeParser::parseQRData(sample);
    ASSERT_TRUE(response.qrCodeData()) << sample;
    expectIn("docs/payload-formats.md", "```\n" + sample + "\n```\n");
    expectIn("docs/payload-formats.md", "```\n" + response.qrCodeData()->description() + "```\n");
}

// Whether a list of tags such as "56, 57" or "62/01-62/08" names a tag.
bool namesTag(const std::string& list, const std::string& tag) {
    const auto dash = list.find('-', 1);
    return dash == std::string::npos
               ? tag != "-" && (", " + list + ',').find(", " + tag + ',') != std::string::npos
               : dash == tag.size() && list.substr(0, dash) <= tag && tag <= list.substr(dash + 1);
}

// The meaning of each tag, and the property that gets its value. Holder.StoresByTag checks the rows.
std::map<std::string, std::string> factsOfTags() {
    std::map<std::string, std::string> facts;
    for (const auto& row : readRows("tags.txt")) {
        const std::string& raw = row.at(1);
        const TagRow& tag = row[0] == "01"   ? tagRow(*payMerchantValidTLV01(raw))
                            : row[0] == "62" ? tagRow(*pmValidTLV01AdditionalDataField(raw))
                                             : tagRow(*payMerchantValidTLV00(raw));
        EXPECT_EQ(row.at(3) == "-", tag.meaning == "Not kept") << raw;
        facts[(row[0] == "62" ? "62/" : "") + raw] =
            std::string(tag.meaning) + (row[3] == "-" ? " | -" : " | `" + row[3] + '`');
    }
    return facts;
}

// The cells of the rows of a page's tables, without their headings.
std::vector<std::vector<std::string>> tableRows(const std::string& document, std::size_t columns) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(readFile(KORVOQR_SOURCE_DIR "/" + document));
    std::vector<std::string> cells;
    for (std::string line; std::getline(lines, line);) {
        if (cells.size() == columns && line.compare(0, 2, "|-") != 0) {
            rows.push_back(cells);
        }
        cells.clear();
        for (std::size_t at = 2, end = 0; (end = line.find(" |", at)) != std::string::npos; at = end + 3) {
            cells.push_back(line.substr(at, end - at));
        }
    }
    EXPECT_FALSE(rows.empty()) << document;
    return rows;
}

// The codes of the payload in a cell; "accepted" for an accepted one.
std::string answerTo(const std::string& cell) {
    const auto error = QRCodeParser::parseQRData(cell.substr(1, cell.size() - 2)).qrCodeError();
    return error ? error->description() : "accepted ";
}

TEST(Documents, PayloadFormatsKeepInStep) {
    const auto tags = factsOfTags();
    auto missing = tags;
    for (const auto& row : tableRows("docs/payload-formats.md", 6)) {
        bool isKnown = false;
        for (const auto& [tag, facts] : tags) {
            if (namesTag(row[0], tag) || namesTag(row[1], tag)) {
                EXPECT_EQ(row[2] + " | " + row[3], facts) << tag;
                missing.erase(tag);
                isKnown = true;
            }
        }
        EXPECT_TRUE(isKnown) << "there is no such tag: " << row[0];
        std::string codes;
        for (const ErrorCatalogueEntry& entry : errorCatalogue) {
            if (namesTag(std::string(entry.twoDigitTag), row[0]) ||
                namesTag(std::string(entry.oneCharacterTag), row[1])) {
                codes += (codes.empty() ? "" : ", ") + std::string(entry.code);
            }
        }
        EXPECT_EQ(row[5], codes.empty() ? "-" : codes) << row[0];
    }
    EXPECT_TRUE(missing.empty()) << "docs/payload-formats.md lacks a row for tag " << missing.begin()->first;
    for (const auto& row : tableRows("docs/payload-formats.md", 3)) {
        if (row[0].front() == '`') {
            EXPECT_EQ(answerTo(row[0]), row[1] + ' ') << row[0];
        }
    }
}

// Each row of the page ends with a payload that raises the row's code, if any does.
TEST(Documents, ErrorCodesKeepInStep) {
    const auto rows = tableRows("docs/error-codes.md", 6);
    ASSERT_EQ(rows.size(), errorCatalogue.size());
    std::string unraised;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto& [code, name, twoDigitTag, oneCharacterTag, meaning] = errorCatalogue.at(i);
        const Codes facts{'"' + std::string(code) + '"', '`' + std::string(name) + '`', std::string(meaning),
                          std::string(twoDigitTag), std::string(oneCharacterTag)};
        EXPECT_EQ(Codes(rows[i].begin(), rows[i].end() - 1), facts);
        EXPECT_EQ(findErrorCatalogueEntry(errorCodeFromText(code).value())->name, name);
        const std::string answer = rows[i][5] == "-" ? "" : ' ' + answerTo(rows[i][5]);
        unraised +=
            answer.find(' ' + std::string(code) + ' ') == std::string::npos ? std::string(code) + ' ' : "";
    }
    EXPECT_EQ(unraised, "30 44 ");
    EXPECT_FALSE(findErrorCatalogueEntry("22") || errorCodeFromText("22") || errorCodeFromText("048"));
    EXPECT_EQ(findErrorCatalogueEntry(static_cast<ErrorCode>(22)), nullptr);
    EXPECT_EQ(errorCodeFromText("48"), ErrorCode::crcInvalidValue);
}

}  // namespace
}  // namespace korvo::test
