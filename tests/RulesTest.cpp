#include "Payloads.h"
#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Validation/ISOCountryCodes.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>

#include <algorithm>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

// The codes of a payload, after making sure that both forms of the parse answer, once and alike.
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
    return response.qrCodeError() ? response.qrCodeError()->errorCodes() : Codes{};
}

constexpr auto absent = std::nullopt;
const std::string acute = "\xCC\x81";

TEST(Rules, RaiseTheirCodesInOrder) {
    for (const auto& row : readRows("rules.txt")) {
        const auto arrow = std::find(row.begin(), row.end(), "->");
        Changes changes;
        for (auto change = row.begin() + 1; change != arrow; ++change) {
            const std::size_t end = change->find_first_of("=-");
            changes.emplace_back(
                change->substr(0, end),
                (*change)[end] == '-' ? absent : std::optional(expanded(change->substr(end + 1))));
        }
        const std::string payload = with(row[0] == "2" ? twoDigit : oneCharacter, changes);
        EXPECT_EQ(codesOf(payload), Codes(arrow + 1, row.end())) << payload;
    }
    for (const auto& [indicator, code] :
         Elements{{"1", "41"}, {"0A", "41"}, {"011", "41"}, {"02", "42"}, {"10", "42"}}) {
        Elements elements = twoDigit;
        elements[0].second = indicator;
        EXPECT_EQ(codesOf(closed(join(elements))), Codes{code}) << indicator;
        elements[1].second = "1";
        EXPECT_EQ(codesOf(join(elements) + "63040000"), (Codes{code, "1", "2", "3", "48"})) << indicator;
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

TEST(Rules, CompareCharactersNotCodePoints) {
    // With a mark joined to it, a "4" or a "?" is another character, and no digit.
    EXPECT_EQ(codesOf(join(changed(oneCharacter, {{"0", absent}})) + "0a4" + acute + "111111118"),
              (Codes{"1", "2"}));
    EXPECT_EQ(codesOf(join(oneCharacter) + "73?" + acute + "00"), Codes{});
    EXPECT_EQ(codesOf(join(oneCharacter) + "72?5" + acute), Codes{});
}

TEST(Rules, AdditionalDataFieldBeyondWhatPayloadsCarry) {
    KorvoPayMerchantTLV holder;
    holder.payloadFormatIndicator = "01";
    holder.billNumber = holder.additionalConsumerDataReq = "";
    KorvoPayMerchantTLVValidator validator;
    holder.postalCode = "";
    const Codes others{"5", "9", "15", "13", "7", "11", "43"};
    Codes codes = others;
    EXPECT_EQ(validator.validatePayMerchantTLV01(&holder), codes);  // no tag 62, no rule of it
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
    // One whose checksum begins with zero, so that a sign may stand there.
    std::string body;
    for (int i = 0; body.empty() || closed(body)[body.size() + 4] != '0'; ++i) {
        body = join(twoDigit) + element("03", std::to_string(i));
    }
    const std::string good = closed(body).substr(body.size() + 4);
    std::string lower = good;
    std::transform(good.begin(), good.end(), lower.begin(),
                   [](char c) { return static_cast<char>(std::tolower(c)); });
    for (const std::string& crc : {good, lower, "+" + good.substr(1)}) {
        EXPECT_EQ(codesOf(body + element("63", crc)), Codes{}) << crc;
    }
    for (const std::string& crc :
         {"-" + good.substr(1), std::string("GHIJ"), good.substr(1), good + "0", "0" + good}) {
        EXPECT_EQ(codesOf(body + element("63", crc)), Codes{"48"}) << crc;
    }
    // The covered text ends four characters before the end, whatever those are.
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
    EXPECT_TRUE(isRefused("0" + checksum(covered), covered + "abcd"));
}

TEST(Rules, CountUserPerceivedCharacters) {
    const std::string flag = "\xF0\x9F\x87\xAE\xF0\x9F\x87\xB3";
    const std::string family = "\xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7";
    const std::string ni = "\xE0\xA4\xA8\xE0\xA4\xBF";
    const auto payload = [](const std::string& length, const std::string& name) {
        return closed(join(changed(twoDigit, {{"59", absent}})) + "59" + length + name);
    };
    for (const std::string& character :
         {flag, family, ni, "e" + acute, std::string("\r\n"), std::string("\n"), std::string(1, '\0'),
          std::string("\xC3\xA9"), std::string("\xF0\x9F\x98\x80"), "a" + acute + acute}) {
        std::string name;
        for (int i = 0; i < 25; ++i) {
            name += character;
        }
        EXPECT_EQ(codesOf(payload("25", name)), Codes{}) << character;
        EXPECT_EQ(codesOf(payload("26", name + character)), Codes{"6"}) << character;
        EXPECT_EQ(codesOf(payload("26", name)), Codes{"0"}) << character;
    }
    const std::string arabicDigits = "\xD9\xA3\xD9\xA5\xD9\xA6\xD9\xA6";
    const auto oneWith = [](const std::string& tag, const std::string& length, const std::string& value) {
        return join(changed(oneCharacter, {{tag, absent}})) + tag + length + value;
    };
    EXPECT_EQ(codesOf(oneWith("5", "3", arabicDigits.substr(0, 6))), Codes{"14"});
    EXPECT_EQ(codesOf(oneWith("2", "4", arabicDigits)), Codes{});
    EXPECT_EQ(codesOf(oneWith("6", "3", arabicDigits.substr(0, 6))), Codes{"17"});
    EXPECT_EQ(codesOf(oneWith("6", "1", "\xC3\xA9")), Codes{"16"});  // a letter
    EXPECT_EQ(codesOf(oneWith("6", "1", "5" + acute)), Codes{"19"});
    EXPECT_EQ(codesOf(oneWith("6", "1", "\xD8\xA7")), Codes{"16"});  // a letter without case
    EXPECT_EQ(codesOf(oneWith("2", "4",
                              "58\xC2\xBD"
                              "2")),
              Codes{"8"});  // a half is no digit
    EXPECT_EQ(codesOf(oneWith("4", "2", "I" + acute + "N")), Codes{"12"});
}

TEST(Rules, CurrencyTable) {
    std::size_t known = 0;
    std::string sum;
    for (int number = -1; number <= 1000; ++number) {
        if (const auto* const currency = ISOCountryCodes::findCurrency(number)) {
            ++known;
            sum += std::to_string(currency->number) + std::string(currency->letters);
            EXPECT_EQ(currency->number, number);
        }
    }
    EXPECT_EQ(known, 179U);
    EXPECT_EQ(checksum(sum), "A449");
}

TEST(Validator, DispatchesByPayloadFormatIndicator) {
    KorvoPayMerchantTLVValidator validator;
    KorvoPayMerchantTLV holder;
    EXPECT_EQ(validator.validatePayMerchantTLV(nullptr, ""), Codes{});
    const Codes missing{"5", "7", "9", "11", "13", "15"};
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder, "text"), missing);
    // Present but empty: no rule runs, and the codes of the run before come back.
    KorvoPayMerchantTLV empty;
    empty.payloadFormatIndicator = "";
    EXPECT_EQ(validator.validatePayMerchantTLV(&empty, "text"), missing);
    EXPECT_EQ(validator.validatePayMerchantTLV(&empty), missing);
    validator.resetErrorCodes();
    EXPECT_EQ(validator.validatePayMerchantTLV(&empty, "text"), Codes{});

    holder.payloadFormatIndicator = "01";
    const Codes missing01{"5", "9", "15", "13", "7", "11"};
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder, "text"), missing01);  // no tag 63, no checksum
    holder.crc = "12345";
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder), missing01);
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder, std::nullopt), missing01);
    EXPECT_EQ(validator.validatePayMerchantTLV(&holder, "text").back(), "48");
    EXPECT_FALSE(validator.isDiggingDeepTLVRequired());
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
    EXPECT_FALSE(validator.validateAmount("0"));  // raised again, though the list holds it already
    EXPECT_TRUE(validator.validateAmount("1"));
    EXPECT_EQ(validator.errorCodes(), Codes{"17"});
    EXPECT_FALSE(validator.validateMerchantID(std::nullopt));
    EXPECT_FALSE(validator.validateMerchantID("4111111111111111"));
}

}  // namespace
}  // namespace korvo::test
