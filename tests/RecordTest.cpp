#include "Payloads.h"
#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>
#include <KorvoQRParser/Parser/assembleQRCodeData.h>

#include <map>
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
    // The two payloads have every tag and sub-tag, each with a value of its own.
    for (const std::string name : {"full", "placeholders"}) {
        const auto response = QRCodeParser::parseQRData(trimmed(readData(name + ".payload")));
        ASSERT_TRUE(response.qrCodeData()) << name << ": " << *response.qrCodeError();
        EXPECT_EQ(response.qrCodeData()->jsonOutput(), trimmed(readData(name + ".json")));
        EXPECT_EQ(response.qrCodeData()->description(), readData(name + ".txt"));
    }
}

struct Property {
    std::string name;
    bool isFlag;
    void (*set)(QRCodeData&);  // a text to its own name, a flag to true
    std::string (*get)(const QRCodeData&);
};
// clang-format off
#define KORVO_TEXT(name, Name) {#name, false, [](QRCodeData& data) { data.set##Name(#name); }, \
    [](const QRCodeData& data) { return data.name().value_or("nil"); }},
#define KORVO_FLAG(name, Name) {#name, true, [](QRCodeData& data) { data.set##Name(true); }, \
    [](const QRCodeData& data) { return std::string(data.name() ? "true" : "false"); }},
const std::vector<Property> properties{KORVO_QRCODEDATA_PROPERTIES(KORVO_TEXT, KORVO_FLAG)};
// clang-format on

using Values = std::map<std::string, std::string>;

// The rendering of an empty record, with these values instead.
std::string filled(const std::string& rendering, const Values& values) {
    std::istringstream lines(readData(rendering));
    std::string text;
    for (std::string line; std::getline(lines, line); text += line + '\n') {
        const std::size_t colon = line.find(':');
        if (colon != std::string::npos) {
            const std::size_t begin = line.find_first_not_of(" \"");
            const std::size_t old = line.find_first_of("nf", colon);
            const std::string name = line.substr(begin, line.find_first_of("\":", begin) - begin);
            line.replace(old, line[old] == 'n' ? 3 : 5, values.at(name));
        }
    }
    return text;
}

void expectValues(const QRCodeData& data, const Values& values) {
    for (const Property& property : properties) {
        EXPECT_EQ(property.get(data), values.at(property.name)) << property.name;
        const QRCodeDataProperty index = propertyNamed(property.name).value();
        EXPECT_EQ(property.isFlag ? data.flag(index) ? "true" : "false" : data.text(index).value_or("nil"),
                  values.at(property.name));
        EXPECT_FALSE(property.isFlag ? data.text(index).has_value() : data.flag(index));
    }
    EXPECT_EQ(data.jsonOutput(), trimmed(filled("empty.json", values)));
    EXPECT_EQ(data.description(), filled("empty.txt", values));
}

TEST(Record, KeepsItsPropertiesApart) {
    QRCodeData data;
    Values values;
    for (const Property& property : properties) {
        values[property.name] = property.isFlag ? "false" : property.name;
        QRCodeData one;
        property.set(property.isFlag ? one : data);
        property.set(one);
        EXPECT_NE(one, QRCodeData()) << property.name;
        EXPECT_EQ(one, QRCodeData(one));
    }
    expectValues(data, values);
    for (const Property& property : properties) {
        QRCodeData flagged = data;
        Values wanted = values;
        property.set(flagged);
        wanted[property.name] = property.isFlag ? "true" : property.name;
        if (property.name == "isPrimaryIDMandatory" || property.name == "isSecondaryIDMandatory") {
            wanted[property.name == "isPrimaryIDMandatory" ? "primaryID" : "secondaryID"] = "nil";
        }
        expectValues(flagged, wanted);
    }
}

TEST(Record, IdentifierFlagsClearOnlyWhenTrue) {
    QRCodeData data;
    for (const bool wasMandatory : {false, true}) {
        data.setPrimaryID("p");
        data.setSecondaryID("s");
        EXPECT_EQ(data.isPrimaryIDMandatory() && data.isSecondaryIDMandatory(), wasMandatory);
        data.setIsPrimaryIDMandatory(true);  // clears even if it is true already
        EXPECT_TRUE(!data.primaryID() && data.secondaryID() == "s");
        data.setIsSecondaryIDMandatory(true);
        EXPECT_FALSE(data.secondaryID());
    }
    data.setPrimaryID("p");
    data.setSecondaryID("");
    data.setIsPrimaryIDMandatory(false);
    data.setIsSecondaryIDMandatory(false);
    EXPECT_TRUE(data.primaryID() == "p" && data.secondaryID() == "");
    const QRCodeData empty = data;
    data.setSecondaryID(std::nullopt);
    EXPECT_NE(data, empty);  // empty is not absent
}

TEST(Record, JSONEscapesAndRefuses) {
    const auto json = [](const std::string& value, auto setter) {
        QRCodeData data;
        (data.*setter)(value);
        testing::internal::CaptureStdout();
        const std::string output = data.jsonOutput();
        const std::string printed = testing::internal::GetCapturedStdout();
        const std::string label = "\"merchantName\": ";
        const auto start = output.find(label);
        return printed + (output.empty() ? ""
                                         : output.substr(start + label.size(),
                                                         output.find(",\n", start) - start - label.size()));
    };
    const auto name = &QRCodeData::setMerchantName;
    EXPECT_EQ(json("", name), R"("")");
    EXPECT_EQ(json("a\"b\\c/d\n", name), R"("a\"b\\c/d\n")");
    EXPECT_EQ(json(std::string("\0\x1f\b\f\r\t\x7f ", 8), name), "\"\\u0000\\u001F\\b\\f\\r\\t\x7f \"");
    EXPECT_EQ(json(std::string("\0caf\xC3\xA9", 6), name), "");
    for (const auto setter : {name, &QRCodeData::setPrimaryIDLength, &QRCodeData::setSecondaryIDLength}) {
        EXPECT_EQ(json("caf\xC3\xA9", setter), "");
        for (const char* const malformed :
             {"caf\xC3", "\x80", "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80"}) {
            EXPECT_EQ(json(malformed, setter), "error: Account could not be serialized into json\n");
        }
    }
}

TEST(Record, JSONInUTF8) {
    QRCodeData data;
    data.setMerchantName("\u4E2D\"\U0001F600");
    data.setIsBillIDMandatory(true);
    std::string wanted;
    for (const QRCodeDataPropertyRow& row : qrCodeDataProperties) {
        const std::string value = row.name == "merchantName"        ? "\"\u4E2D\\\"\U0001F600\""
                                  : row.name == "isBillIDMandatory" ? "true"
                                  : row.isFlag                      ? "false"
                                                                    : "null";
        wanted += (wanted.empty() ? "{\"" : ",\"") + std::string(row.name) + "\":" + value;
    }
    EXPECT_EQ(data.utf8JSON(), wanted + '}');
    data.setMerchantName("\xFF");
    testing::internal::CaptureStdout();
    EXPECT_EQ(data.utf8JSON(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "error: Account could not be serialized into json\n");
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
        EXPECT_EQ(data->secondaryIDLength().value_or("none"), row.at(3)) << row[1];
    }
}

TEST(Assembly, KeepsIdentifiersApart) {
    KorvoPayMerchantTLV holder;
    holder.primaryID = "?5";
    holder.secondaryID = "?a";
    EXPECT_EQ(assembleQRCodeData(holder)->primaryIDLength(), "5");
    EXPECT_EQ(assembleQRCodeData(holder)->secondaryIDLength(), "10");
    holder.secondaryID.reset();
    EXPECT_FALSE(assembleQRCodeData(holder)->isSecondaryIDMandatory());
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
}

}  // namespace
}  // namespace korvo::test
