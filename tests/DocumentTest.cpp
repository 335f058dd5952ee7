#include "Payloads.h"
#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Parser/assembleQRCodeData.h>

#include <algorithm>
#include <map>
#include <regex>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

void expectIn(const std::string& document, const std::string& text) {
    EXPECT_NE(readFile(KORVOQR_SOURCE_DIR "/" + document).find(text), std::string::npos)
        << document << " lacks: " << text;
}

TEST(Documents, SamplesKeepInStep) {
    expectIn("README.md", "```cpp\n" + readFile(KORVOQR_SOURCE_DIR "/examples/pay.cpp") + "```\n");
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
bool namesTag(std::string_view list, const std::string& tag) {
    const auto dash = list.find('-', 1);
    return dash == std::string::npos
               ? tag != "-" && (", " + std::string(list) + ',').find(", " + tag + ',') != std::string::npos
               : dash == tag.size() && list.substr(0, dash) <= tag && tag <= list.substr(dash + 1);
}

// For each tag its meaning, and the property that gets its value.
std::map<std::string, std::string> factsOfTags() {
    std::map<std::string, std::string> tags;
    const auto addTag = [&tags](const std::string& tag, const TagRow& row,
                                const KorvoPayMerchantTLV& holder) {
        const std::string json = assembleQRCodeData(holder)->jsonOutput();
        std::smatch property;
        const bool isKept = std::regex_search(json, property, std::regex(R"re("(\w+)": "x")re"));
        EXPECT_NE(isKept, row.meaning == "Not kept") << "the property of tag " << tag;
        tags[tag] = std::string(row.meaning) + " | " + (isKept ? '`' + property.str(1) + '`' : "-");
    };
    for (const TagRow& row : tlv01TagRows) {
        KorvoPayMerchantTLV holder;
        holder.setTLV01Value(row.rawValue, std::nullopt, "x");
        addTag(std::string(row.rawValue), row, holder);
    }
    for (const TagRow& row : tlv01SubTagRows) {
        KorvoPayMerchantTLV holder;
        holder.setTLV01Value("62", row.rawValue, "x");
        addTag("62/" + std::string(row.rawValue), row, holder);
    }
    for (const TagRow& row : tlv00TagRows) {
        KorvoPayMerchantTLV holder;
        holder.setTLV00Value(row.rawValue, "x");
        addTag(std::string(row.rawValue), row, holder);
    }
    return tags;
}

TEST(Documents, PayloadFormatsKeepInStep) {
    const auto tags = factsOfTags();
    auto missing = tags;
    const std::string page = readFile(KORVOQR_SOURCE_DIR "/docs/payload-formats.md");
    const std::regex row(R"(\| ([-0-9/]+) \| (\S) \| (.+ \| \S+) \| .+ \| (.+) \|)");
    for (std::sregex_iterator at(page.begin(), page.end(), row), end; at != end; ++at) {
        bool isKnown = false;
        for (const auto& [tag, facts] : tags) {
            if (namesTag(at->str(1), tag) || namesTag(at->str(2), tag)) {
                EXPECT_EQ(at->str(3), facts) << at->str();
                missing.erase(tag);
                isKnown = true;
            }
        }
        EXPECT_TRUE(isKnown) << "there is no such tag: " << at->str();
        std::string codes;
        for (const ErrorCatalogueEntry& entry : errorCatalogue) {
            if (namesTag(entry.twoDigitTag, at->str(1)) || namesTag(entry.oneCharacterTag, at->str(2))) {
                codes += (codes.empty() ? "" : ", ") + std::string(entry.code);
            }
        }
        EXPECT_EQ(at->str(4), codes.empty() ? "-" : codes) << at->str();
    }
    EXPECT_TRUE(missing.empty()) << "docs/payload-formats.md lacks a row for tag " << missing.begin()->first;
}

TEST(Documents, PayloadFormatExamplesHold) {
    const std::string page = readFile(KORVOQR_SOURCE_DIR "/docs/payload-formats.md");
    const std::regex example(R"(\| `(.+)` \| (accepted|[0-9 ]+) \|)");
    ASSERT_TRUE(std::regex_search(page, example));
    for (std::sregex_iterator at(page.begin(), page.end(), example), end; at != end; ++at) {
        const auto error = QRCodeParser::parseQRData(at->str(1)).qrCodeError();
        EXPECT_EQ(at->str(2) + ' ', error ? error->description() : "accepted ") << at->str(1);
    }
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
