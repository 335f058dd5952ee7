#include "Payloads.h"
#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Validation/ISOCountryCodes.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>

#include <algorithm>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

// The codes of a payload. Both forms of the parse must give the same answer, the completion form once.
Codes codesOf(const std::string& payload) {
    const ExactCopy copy(payload);
    const QRCodeParserResponse response = QRCodeParser::parseQRData(copy.view());
    EXPECT_NE(response.qrCodeData() == nullptr, response.qrCodeError() == nullptr) << payload;
    int calls = 0;
    QRCodeParser::parseQRData(copy.view(), [&](const std::optional<QRCodeParserResponse>& handed) {
        ++calls;
        ASSERT_TRUE(handed);
        if (response.qrCodeData()) {
            EXPECT_EQ(*handed->qrCodeData(), *response.qrCodeData());
            EXPECT_EQ(handed->qrCodeError(), nullptr);
        } else {
            EXPECT_EQ(*handed->qrCodeError(), *response.qrCodeError());
            EXPECT_EQ(handed->qrCodeData(), nullptr);
        }
    });
    EXPECT_EQ(calls, 1);
    return codesIn(response);
}

const std::string acute = "\xCC\x81";

TEST(Rules, RaiseTheirCodesInOrder) {
    for (const auto& row : readRows("rules.txt")) {
        const bool isTwoDigit = row[0] == "2";
        const auto arrow = std::find(row.begin(), row.end(), "->");
        Changes changes;
        std::string verbatim;
        for (auto change = row.begin() + 1; change != arrow; ++change) {
            const std::size_t end = change->find_first_of("=-:");
            const std::string tag = change->substr(0, end);
            const bool isChanged = (*change)[end] == '=';
            changes.emplace_back(tag,
                                 isChanged ? std::optional(expanded(change->substr(end + 1))) : std::nullopt);
            if ((*change)[end] == ':') {
                verbatim += tag + expanded(change->substr(end + 1));
            }
        }
        const std::string payload = join(changed(isTwoDigit ? twoDigit : oneCharacter, changes)) + verbatim;
        const bool isClosed = !isTwoDigit || verbatim.compare(0, 2, "63") == 0;
        EXPECT_EQ(codesOf(isClosed ? payload : closed(payload)), Codes(arrow + 1, row.end()))
            << testing::PrintToString(payload);
    }
}

TEST(Rules, PlaceholdersAnnounceALength) {
    for (int character = ' '; character < 0x7F; ++character) {
        const std::string value{'?', static_cast<char>(character)};
        const std::string_view allowed = "123456789abcdefghijklmnopqABCDEFGHIJKLMNOPQ";
        const bool isAllowed = allowed.find(value[1]) != std::string_view::npos;
        EXPECT_EQ(codesOf(with(oneCharacter, {{"7", value}})), isAllowed ? Codes{} : Codes{"23"}) << value;
        EXPECT_EQ(codesOf(with(oneCharacter, {{"8", value}})), isAllowed ? Codes{} : Codes{"24"}) << value;
    }
}

TEST(Rules, AdditionalDataFieldBeyondWhatPayloadsCarry) {
    KorvoPayMerchantTLV holder;
    holder.payloadFormatIndicator = "01";
    holder.billNumber = holder.additionalConsumerDataReq = "";
    KorvoPayMerchantTLVValidator validator;
    holder.postalCode = "";
    const Codes others{"5", "9", "15", "13", "7", "11", "43"};
    Codes codes = others;
    EXPECT_EQ(validator.validatePayMerchantTLV01(&holder), codes);  // without tag 62 none of its rules runs
    codes.insert(codes.end(), {"44", "45", "46"});
    const std::string longest(100, 'x');
    for (const std::string_view field : {std::string_view(), std::string_view(longest)}) {
        holder.additionalDataField = field;
        EXPECT_EQ(validator.validatePayMerchantTLV01(&holder), codes);
    }
}

TEST(Rules, Checksum) {
    EXPECT_EQ(computeCRC16("123456789"), 0x29B1);
    std::string text;
    for (int i = 0; i < 300; ++i, text += static_cast<char>(i * 7)) {
        EXPECT_EQ(computeCRC16(text), std::stoul(checksum(text), nullptr, 16)) << i;
    }
    // A checksum that begins with zero, so that a sign can replace the zero.
    std::string body;
    for (int i = 0; body.empty() || closed(body)[body.size() + 4] != '0'; ++i) {
        body = join(twoDigit) + element("03", std::to_string(i));
    }
    const std::string good = closed(body).substr(body.size() + 4);
    std::string lower = good;
    std::transform(good.begin(), good.end(), lower.begin(),
                   [](char c) { return static_cast<char>(std::tolower(c)); });
    for (const std::string& crc : {good, lower, '+' + good.substr(1)}) {
        EXPECT_EQ(codesOf(body + element("63", crc)), Codes{}) << crc;
    }
    for (const std::string& crc :
         {'-' + good.substr(1), std::string("GHIJ"), good.substr(1), good + "0", '0' + good}) {
        EXPECT_EQ(codesOf(body + element("63", crc)), Codes{"48"}) << crc;
    }
    // The checksum covers everything except the last four characters, whatever they are.
    const std::string covered = "e" + acute;
    const auto isRefused = [](const std::string& crc, const std::string& payload) {
        KorvoPayMerchantTLV holder;
        holder.payloadFormatIndicator = "01";
        holder.crc = crc;
        return KorvoPayMerchantTLVValidator().validatePayMerchantTLV(&holder, payload).back() == "48";
    };
    EXPECT_FALSE(isRefused(checksum(covered), covered + "\r\ne" + acute + "ab"));
    EXPECT_TRUE(isRefused(checksum(covered), covered + "e" + acute + "ab"));
    EXPECT_TRUE(isRefused(checksum(covered), "abc"));
    EXPECT_TRUE(isRefused('0' + checksum(covered), covered + "abcd"));
}

TEST(Rules, CurrencyTable) {
    std::string sum;
    for (int number = -1; number <= 1000; ++number) {
        if (const auto* const currency = ISOCountryCodes::findCurrency(number)) {
            sum += std::to_string(currency->number()) + std::string(currency->letters());
            EXPECT_EQ(currency->number(), number);
        }
    }
    EXPECT_EQ(checksum(sum), "A449");
}

TEST(Validator, DispatchesByPayloadFormatIndicator) {
    KorvoPayMerchantTLVValidator validator;
    KorvoPayMerchantTLV holder;
    EXPECT_EQ(validator.validatePayMerchantTLV(nullptr, ""), Codes{});
    const Codes missing{"5", "7", "9", "11", "13", "15"};
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder, "text"), missing);
    EXPECT_EQ(validator.validatePayMerchantTLV(nullptr, "text"), Codes{});
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder), missing);
    // Present but empty: no rule runs, and the codes of the last run come back.
    KorvoPayMerchantTLV empty;
    empty.payloadFormatIndicator = "";
    EXPECT_EQ(validator.validatePayMerchantTLV(&empty, "text"), missing);
    EXPECT_EQ(validator.validatePayMerchantTLV(&empty), missing);
    validator.resetErrorCodes();
    EXPECT_EQ(validator.validatePayMerchantTLV(&empty, "text"), Codes{});

    holder.payloadFormatIndicator = "01";
    const Codes missing01{"5", "9", "15", "13", "7", "11"};
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder, "text"),
              missing01);  // without tag 63 there is no checksum
    holder.crc = "12345";
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder), missing01);
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder, std::nullopt), missing01);
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder, "text").back(), "48");
    EXPECT_FALSE(validator.isDiggingDeepTLVRequired());
    validator.setIsDiggingDeepTLVRequired(true);
    EXPECT_TRUE(validator.isDiggingDeepTLVRequired());
    EXPECT_EQ(validator.validatePayMerchantTLV01(nullptr), Codes{});
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder), missing01);
    EXPECT_EQ(validator.validatePayMerchantTLV00(nullptr), Codes{});

    // The two-digit rules without an indicator, and the rule for a percentage with an empty one.
    KorvoPayMerchantTLV bare;
    bare.tipAndFeeIndicator = "03";
    bare.convenienceFeeAmount = "5";
    EXPECT_EQ(validator.validatePayMerchantTLV01(&bare), (Codes{"5", "9", "15", "40", "13", "7", "11"}));
    bare.payloadFormatIndicator = "";
    EXPECT_EQ(validator.validatePayMerchantTLV01(&bare), (Codes{"41", "5", "9", "15", "13", "7", "11"}));

    validator.resetErrorCodes();
    EXPECT_TRUE(validator.validateMerchantID("4111111111111111"));
    for (const char* const id : {"5111111111111118", "412346", "4111111111111112", "412345000001"}) {
        EXPECT_FALSE(KorvoPayMerchantTLVValidator().validateMerchantID(id)) << id;
    }
    EXPECT_FALSE(validator.validateAmount("0"));
    EXPECT_FALSE(validator.validateAmount("0"));  // raised again, although the list holds it already
    EXPECT_TRUE(validator.validateAmount("1"));
    EXPECT_EQ(validator.errorCodes(), Codes{"17"});
    EXPECT_FALSE(validator.validateMerchantID(std::nullopt));
    EXPECT_FALSE(validator.validateMerchantID("4111111111111111"));
}

TEST(Validator, IsSharedByAllParses) {
    const auto& shared = KorvoPayMerchantTLVValidator::sharedValidator();
    EXPECT_EQ(codesOf(with(oneCharacter, {{"4", "in"}})), Codes{"12"});
    EXPECT_EQ(codesOf("00"), Codes{"0"});  // a malformed payload is not validated
    EXPECT_EQ(shared.errorCodes(), Codes{"12"});
    EXPECT_EQ(codesOf(with(oneCharacter, {})), Codes{});
    EXPECT_EQ(shared.errorCodes(), Codes{});
    EXPECT_FALSE(shared.isDiggingDeepTLVRequired());
}

}  // namespace
}  // namespace korvo::test

namespace korvo {

// A friend of the validator, because its names for the indicators are private.
struct TipAndFeeIndicatorTypes : testing::Test {
    static constexpr auto typeOf = KorvoPayMerchantTLVValidator::tipAndFeeIndicatorType;
};

TEST_F(TipAndFeeIndicatorTypes, HaveTheirPublishedNames) {
    EXPECT_TRUE(typeOf("Tip") < typeOf("Fee") && typeOf("Fee") < typeOf("Percentage") && !typeOf("tip"));
}

}  // namespace korvo
