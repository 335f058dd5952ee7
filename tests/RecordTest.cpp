#include "Payloads.h"
#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Parser/assembleQRCodeData.h>
#include <KorvoQRParser/Validation/KorvoBaseConstants.h>

#include <sstream>
#include <tuple>

#include <gtest/gtest.h>

namespace korvo::test {
namespace {

std::string trimmed(std::string text) {
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

TEST(Record, RendersWhole) {
    EXPECT_EQ(QRCodeData().jsonOutput(), trimmed(readData("empty.json")));
    EXPECT_EQ(QRCodeData().description(), readData("empty.txt"));
    // Every tag and sub-tag between them, each with a value of its own.
    for (const std::string name : {"full", "placeholders"}) {
        const auto response = QRCodeParser::parseQRData(trimmed(readData(name + ".payload")));
        ASSERT_TRUE(response.qrCodeData()) << name << ": " << *response.qrCodeError();
        EXPECT_EQ(response.qrCodeData()->jsonOutput(), trimmed(readData(name + ".json")));
        EXPECT_EQ(response.qrCodeData()->description(), readData(name + ".txt"));
    }
}

TEST(Record, IdentifierFlagsTakeTheIdentifierOut) {
    QRCodeData data;
    data.setPrimaryID("p");
    data.setSecondaryID("s");
    data.setIsPrimaryIDMandatory(false);
    EXPECT_EQ(data.primaryID(), "p");
    data.setIsPrimaryIDMandatory(true);
    EXPECT_FALSE(data.primaryID());
    EXPECT_EQ(data.secondaryID(), "s");
    data.setPrimaryID("again");
    EXPECT_EQ(data.primaryID(), "again");
    data.setIsPrimaryIDMandatory(true);  // already true, and it still clears
    EXPECT_FALSE(data.primaryID());
    data.setIsPrimaryIDMandatory(false);
    EXPECT_FALSE(data.primaryID() || data.isPrimaryIDMandatory());
    data.setIsSecondaryIDMandatory(false);
    EXPECT_EQ(data.secondaryID(), "s");
    data.setIsSecondaryIDMandatory(true);
    EXPECT_FALSE(data.secondaryID());
    data.setBillID("b");
    data.setIsBillIDMandatory(true);
    EXPECT_EQ(data.billID(), "b");
}

TEST(Record, EqualityLooksAtEveryKindOfProperty) {
    QRCodeData one;
    QRCodeData other;
    EXPECT_EQ(one, other);
    one.setSecondaryIDLength("");
    EXPECT_NE(one, other);  // empty is not absent
    other = one;
    EXPECT_EQ(one, other);
    other.setIsAddDataNpci2Mandatory(true);
    EXPECT_NE(one, other);
}

TEST(Record, JSONEscapesAndRefuses) {
    const auto json = [](const std::string& value) {
        QRCodeData data;
        data.setMerchantName(value);
        testing::internal::CaptureStdout();
        const std::string output = data.jsonOutput();
        const std::string printed = testing::internal::GetCapturedStdout();
        const std::string label = "\"merchantName\": ";
        const auto start = output.find(label);
        return printed + (output.empty() ? ""
                                         : output.substr(start + label.size(),
                                                         output.find(",\n", start) - start - label.size()));
    };
    EXPECT_EQ(json(""), R"("")");
    EXPECT_EQ(json("a\"b\\c/d\n"), R"("a\"b\\c/d\n")");
    EXPECT_EQ(json(std::string("\0\x1f", 2)), R"("\u0000\u001F")");
    EXPECT_EQ(json("caf\xC3\xA9"), "");
    for (const char* const malformed : {"caf\xC3", "\x80", "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80"}) {
        EXPECT_EQ(json(malformed), "error: Account could not be serialized into json\n");
    }
}

TEST(Assembly, WidensTheMerchantIdentifier) {
    const std::string e = "e\xCC\x81";
    for (const auto& [id, pan] : Elements{{"", ""},
                                          {"412345", ""},
                                          {e + "12345", ""},
                                          {"4123456", "4123450000000006"},
                                          {e + "123456", e + "123450000000006"},
                                          {"4123456789012", "4123450006789012"},
                                          {"4111111111111111", "4111111111111111"}}) {
        EXPECT_EQ(merchantPANFromMerchantID(id), pan) << id;
    }
    EXPECT_FALSE(assembleQRCodeData({})->korvoMerchantPAN());
    EXPECT_DEATH(merchantPANFromMerchantID("41111111111111111"),
                 "merchantPANFromMerchantID: .*longer than 16");
}

TEST(Assembly, MarksPlaceholders) {
    for (const auto& row : readRows("placeholder-values.txt")) {
        const std::string value = expanded(row.at(1));
        const bool isPlaceholder = row.at(2) == "yes";
        KorvoPayMerchantTLV holder;
        if (row[0] != "none") {
            holder.payloadFormatIndicator = row[0] == "empty" ? "" : row[0].c_str();
        }
        holder.primaryID = holder.secondaryID = holder.billNumber = value;
        const auto data = assembleQRCodeData(holder);
        EXPECT_EQ(data->isPrimaryIDMandatory(), isPlaceholder) << row[1];
        EXPECT_EQ(data->primaryID().has_value(), !isPlaceholder) << row[1];
        EXPECT_EQ(data->secondaryID().has_value(), !isPlaceholder) << row[1];
        EXPECT_EQ(data->isBillIDMandatory(), isPlaceholder) << row[1];
        EXPECT_EQ(data->billID(), value);
        EXPECT_EQ(data->primaryIDLength().value_or("none"), row.at(3)) << row[1];
    }
}

TEST(Assembly, PairsEachFlagAndLengthWithItsOwnValue) {
    KorvoPayMerchantTLV identifiers;
    identifiers.primaryID = "?5";
    identifiers.secondaryID = "?a";
    EXPECT_EQ(assembleQRCodeData(identifiers)->primaryIDLength(), "5");
    EXPECT_EQ(assembleQRCodeData(identifiers)->secondaryIDLength(), "10");
    identifiers.secondaryID.reset();
    EXPECT_FALSE(assembleQRCodeData(identifiers)->isSecondaryIDMandatory());
    for (const auto& [subTag, value] : Elements{{"01", "BillID"},
                                                {"02", "MobileNumber"},
                                                {"03", "StoreID"},
                                                {"04", "LoyaltyNumber"},
                                                {"05", "ReferenceID"},
                                                {"06", "ConsumerID"},
                                                {"07", "TerminalID"},
                                                {"08", "Purpose"},
                                                {"09", "AdditonalConsumerDataRequest"},
                                                {"11", "AddDataMasterCard1"},
                                                {"12", "AddDataMasterCard2"},
                                                {"13", "AddDataNpci1"},
                                                {"14", "AddDataNpci2"}}) {
        KorvoPayMerchantTLV holder;
        holder.payloadFormatIndicator = "01";
        holder.setTLV01Value("62", subTag, "***");
        const std::string description = assembleQRCodeData(holder)->description();
        const std::size_t flag = description.find(": true\n");
        EXPECT_EQ(description.rfind(": true\n"), flag);
        EXPECT_EQ(description.rfind("\nis" + value + "Mandatory", flag), description.rfind('\n', flag))
            << subTag;
    }
}

TEST(Response, CarriesWhatItIsGiven) {
    const QRCodeParserResponse neither(nullptr, nullptr);
    EXPECT_FALSE(neither.qrCodeData() || neither.qrCodeError());
    QRCodeError error({"41", "48"});
    const QRCodeParserResponse both(std::make_shared<QRCodeData>(), std::make_shared<QRCodeError>(error));
    EXPECT_TRUE(both.qrCodeData() && both.qrCodeError());
    EXPECT_EQ(QRCodeParserResponse(both).qrCodeData(), both.qrCodeData());
    EXPECT_EQ(error.description(), "41 48 ");
    error.setErrorCodes({"9", "9"});
    EXPECT_EQ(error.description(), "9 9 ");
    EXPECT_NE(error, *both.qrCodeError());
    EXPECT_EQ(QRCodeError({}).description(), "");
    std::ostringstream printed;
    printed << error << QRCodeData();
    EXPECT_EQ(printed.str(), "9 9 " + readData("empty.txt"));
}

TEST(Response, OutlivesThePayloadAndLaterParses) {
    auto payload = std::make_unique<std::string>(with(twoDigit, {{"59", std::string(25, 'n')}}));
    const auto accepted = QRCodeParser::parseQRData(*payload);
    const auto refused = QRCodeParser::parseQRData(with(twoDigit, {{"58", "in"}}));
    payload.reset();
    std::ignore = QRCodeParser::parseQRData("0");
    QRCodeParser::parseQRData("0", nullptr);
    EXPECT_EQ(accepted.qrCodeData()->merchantName(), std::string(25, 'n'));
    EXPECT_EQ(refused.qrCodeError()->errorCodes(), Codes{"12"});
}

TEST(Library, TellsItsVersion) {
    EXPECT_EQ(KorvoQRParserVersionNumber, 1.0);
    EXPECT_STREQ(KorvoQRParserVersionString, "@(#)PROGRAM:KorvoQRParser  PROJECT:KorvoSDK-1\n");
    EXPECT_STREQ(KorvoQRConstants::KorvoQRSDKVersion.data(), "");
    EXPECT_STREQ(KorvoBaseConstants::emptyString.data(), "");
}

}  // namespace
}  // namespace korvo::test
