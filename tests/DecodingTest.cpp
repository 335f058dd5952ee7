#include "GeneratedPayloads.h"
#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Decoding/PMValidTLV01AdditionalDataField.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV00.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV01.h>
#include <KorvoQRParser/Model/QRCodeDataAccess.h>
#include <KorvoQRParser/Parser/assembleQRCodeData.h>

#include <array>
#include <map>
#include <random>
#include <set>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

using Error = TLVDecodingError;
using Result = std::optional<Error>;
constexpr auto decoded = std::nullopt;

TEST(Decoding, ReportsTheFirstFaultFromTheLeft) {
    const std::map<std::string, Result> results{{"-", decoded},
                                                {"InvalidLength", Error::InvalidLength},
                                                {"RepeatedTag", Error::RepeatedTag},
                                                {"InvalidTag", Error::InvalidTag}};
    KorvoPayMerchantTLV none;
    EXPECT_EQ(none.decodeTLV(""), Error::InvalidLength);
    for (const auto& row : readRows("decoding.txt")) {
        const ExactCopy payload(expanded(row.at(0)));
        KorvoPayMerchantTLV holder;
        EXPECT_EQ(holder.decodeTLV(payload.view()), results.at(row.at(1))) << row[0];
    }
}

TEST(Decoding, FormatPathsKeepTheTagLengthError) {
    KorvoPayMerchantTLV holder;
    EXPECT_EQ(holder.decodeTLV01("000"), Error::InvalidTagLength);
    EXPECT_EQ(holder.decodeTLV00("1"), Error::InvalidTagLength);
    EXPECT_EQ(holder.decodeTLV01(""), Error::InvalidLength);
    EXPECT_EQ(holder.decodeTLV00(""), Error::InvalidLength);
}

TEST(Decoding, KeepsWhatStoodBeforeTheFault) {
    KorvoPayMerchantTLV holder;
    EXPECT_EQ(holder.decodeTLV("00020162050101a59"), Error::InvalidLength);
    EXPECT_EQ(holder.payloadFormatIndicator, "01");
    EXPECT_EQ(holder.additionalDataField, "0101a");
    EXPECT_EQ(holder.billNumber, "a");
    EXPECT_FALSE(holder.merchantName);
}

// The property that an assembled record gives a text, or the flag that it sets; "-" for none.
std::string find(const KorvoPayMerchantTLV& holder, std::optional<std::string_view> text) {
    const auto data = assembleQRCodeData(holder);
    for (const QRCodeDataPropertyRow& row : qrCodeDataProperties) {
        if (row.isFlag ? !text && QRCodeDataAccess::flag(*data, row.index)
                       : text && QRCodeDataAccess::text(*data, row.index) == *text) {
            return std::string(row.name);
        }
    }
    return "-";
}

TEST(Holder, StoresByTag) {
    std::vector<std::vector<std::string>> rows;
    const auto addRow = [&rows](const std::string& list, auto tag, const char* raw, const char* name) {
        EXPECT_EQ(rawValue(tag), raw);
        std::vector<std::string> row{list, raw, name};
        for (const auto text : {std::optional<std::string_view>("text"), std::optional<std::string_view>()}) {
            KorvoPayMerchantTLV holder;
            if (list == "00") {
                EXPECT_TRUE(holder.setTLV00Value(raw, text.value_or("?")));
            } else {
                holder.payloadFormatIndicator = "01";
                EXPECT_TRUE(list == "62" ? holder.setTLV01Value("62", raw, text.value_or("***"))
                                         : holder.setTLV01Value(raw, std::nullopt, text.value_or("***")));
            }
            row.push_back(find(holder, text));
        }
        rows.push_back(row);
    };
#define KORVO_01(raw, name, ...) addRow("01", PayMerchantValidTLV01::name, raw, #name);
#define KORVO_62(raw, name, ...) addRow("62", PMValidTLV01AdditionalDataField::name, raw, #name);
#define KORVO_00(raw, name, ...) addRow("00", PayMerchantValidTLV00::name, raw, #name);
    KORVO_TLV01_TAGS(KORVO_01, KORVO_01) KORVO_TLV01_SUB_TAGS(KORVO_62) KORVO_TLV00_TAGS(KORVO_00);
    EXPECT_EQ(rows, readRows("tags.txt"));

    KorvoPayMerchantTLV holder;
    EXPECT_FALSE(holder.isTipAvailable);
    const QRCodeData empty = *assembleQRCodeData(holder);
    for (const char* const tag : {"64", "6A", "", "1", "001"}) {
        EXPECT_FALSE(holder.setTLV01Value(tag, std::nullopt, "v")) << tag;
    }
    for (const char* const subTag : {"23", "00", "1", ""}) {
        EXPECT_FALSE(holder.setTLV01Value("62", subTag, "v")) << subTag;
    }
    for (const char* const tag : {"c", "C", ":", "@", "/", "", "ab", "\xC3"}) {
        EXPECT_FALSE(holder.setTLV00Value(tag, "v")) << tag;
    }
    EXPECT_EQ(*assembleQRCodeData(holder), empty);
    EXPECT_TRUE(holder.setTLV01Value("59", "02", "the sub-tag is ignored"));
    EXPECT_TRUE(holder.merchantName && !holder.mobileNumber);
    EXPECT_TRUE(holder.setTLV00Value("b", "percentage"));
    EXPECT_EQ(holder.convenienceFeePercentage, "percentage");
    for (const std::string value : {"01", "02", "03", "04", "1", ""}) {
        const bool isTip = value == "01" || value == "02" || value == "03";
        KorvoPayMerchantTLV one;
        EXPECT_TRUE(one.setTLV00Value("9", value) && holder.setTLV01Value("55", std::nullopt, value));
        EXPECT_TRUE(one.isTipAvailable == isTip && holder.isTipAvailable == isTip) << value;
        EXPECT_EQ(one.tipAndFeeIndicator, value);
    }
}

// A second implementation of the grammar, over a plain list of characters: slow, and without state that could
// go wrong. The only combining mark that it knows is the acute accent.
class Model {
  public:
    using Characters = std::vector<std::string>;

    static Result decode(const std::string& payload, KorvoPayMerchantTLV& holder) {
        const Characters all = split(payload);
        if (all.size() < 2) {
            return Error::InvalidLength;
        }
        const bool isTwoDigit = all[0] == "0" && all[1] == "0";
        std::string last;
        const Result error =
            level(all, isTwoDigit ? 2 : 1, [&](const std::string& tag, const Characters& value) -> Result {
                last = tag;
                if (!isTwoDigit) {
                    return holder.setTLV00Value(tag, keep(value)) ? decoded : Result(Error::InvalidTag);
                }
                if (!holder.setTLV01Value(tag, std::nullopt, keep(value))) {
                    return Error::InvalidTag;
                }
                return tag != "62"
                           ? decoded
                           : level(value, 2, [&](const std::string& subTag, const Characters& subValue) {
                                 return holder.setTLV01Value("62", subTag, keep(subValue))
                                            ? decoded
                                            : Result(Error::InvalidTag);
                             });
            });
        return error || !isTwoDigit || last == "63" ? error : Error::InvalidTag;
    }

  private:
    static Characters split(const std::string& text) {
        Characters characters;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool isMark = text.compare(i, 2, "\xCC\x81") == 0;
            std::string codePoint = text.substr(i, isMark ? 2 : 1);
            i += isMark ? 1 : 0;
            if (isMark && !characters.empty()) {
                characters.back() += codePoint;
            } else {
                characters.push_back(codePoint);
            }
        }
        return characters;
    }

    static std::string joined(const Characters& all, std::size_t from, std::size_t count) {
        std::string text;
        for (std::size_t i = from; i < from + count; ++i) {
            text += all[i];
        }
        return text;
    }

    template <class Store>
    static Result level(const Characters& all, std::size_t width, Store store) {
        std::set<std::string> seen;
        for (std::size_t at = 0; at < all.size();) {
            if (all.size() - at < width) {
                return Error::InvalidLength;
            }
            std::string tag = joined(all, at, width);
            if (width == 1 && tag.size() == 1) {
                tag[0] = static_cast<char>(std::tolower(tag[0]));
            }
            if (!seen.insert(tag).second) {
                return Error::RepeatedTag;
            }
            at += width;
            if (all.size() - at < width) {
                return Error::InvalidLength;
            }
            const std::string length = joined(all, at, width);
            at += width;
            char* end = nullptr;
            const long number = std::strtol(length.c_str(), &end, width == 2 ? 10 : 36);
            if (*end != '\0' || end == length.c_str() || number < (width == 2 ? 1 : 0) ||
                all.size() - at < static_cast<std::size_t>(number)) {
                return Error::InvalidLength;
            }
            const auto from = all.begin() + static_cast<std::ptrdiff_t>(at);
            if (const Result error = store(tag, Characters(from, from + number))) {
                return error;
            }
            at += static_cast<std::size_t>(number);
        }
        return decoded;
    }

    // The holder keeps views, so the texts must outlive it.
    static std::string_view keep(const Characters& value) {
        static std::set<std::string> texts;
        return *texts.insert(joined(value, 0, value.size())).first;
    }
};

void expectModelAgrees(const std::string& payload) {
    const ExactCopy copy(payload);
    KorvoPayMerchantTLV real;
    KorvoPayMerchantTLV model;
    const Result result = real.decodeTLV(copy.view());
    ASSERT_EQ(result, Model::decode(payload, model)) << testing::PrintToString(payload);
    if (!result && (!real.korvoMerchantID || real.korvoMerchantID->characterCount() <= 16)) {
        ASSERT_EQ(*assembleQRCodeData(real), *assembleQRCodeData(model)) << testing::PrintToString(payload);
    }
}

const std::array<std::string, 10> alphabet{"0", "1", "6", "3", "2", "A", "a", "+", "?", "\xCC\x81"};

struct AlphabetChoices {
    unsigned below(unsigned n) { return static_cast<unsigned>(random()) % n; }
    bool atEnd() { return below(3) == 0; }
    std::string text(std::size_t length) {
        std::string text;
        for (; length > 0; --length) {
            text += alphabet.at(below(10));
        }
        return text;
    }
    std::mt19937 random;
};

// Every short text, and payloads that are nearly right
TEST(Decoding, AgreesWithTheModel) {
    for (unsigned length = 0, texts = 1; length <= 5; ++length, texts *= 10) {
        for (unsigned number = 0; number < texts; ++number) {
            std::string payload;
            for (unsigned i = 0, rest = number; i < length; ++i, rest /= 10) {
                payload += alphabet.at(rest % 10);
            }
            expectModelAgrees(payload);
        }
    }
    AlphabetChoices choices;
    for (int round = 0; round < 60000; ++round) {
        expectModelAgrees(generatedPayload(choices));
    }
}

}  // namespace
}  // namespace korvo::test
