#include "Properties.h"

#include "../tests/Payloads.h"
#include <KorvoQRParser/Decoding/TLVElementReader.h>
#include <KorvoQRParser/Decoding/TagRow.h>
#include <KorvoQRParser/Model/QRCodeDataAccess.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <set>

#include <nlohmann/json.hpp>

namespace korvo::fuzz {

void promise(bool isKept, const char* what) {
    if (!isKept) {
        std::fprintf(stderr, "broken promise: %s\n", what);
        std::abort();
    }
}

namespace {

// The texts of the record that were copied from the payload; the others are derived.
std::vector<std::string> receivedTexts(const QRCodeData& data) {
    std::vector<std::string> texts;
    for (const QRCodeDataPropertyRow& row : qrCodeDataProperties) {
        const bool isDerived = row.name == "korvoMerchantPAN" || row.name == "primaryIDLength" ||
                               row.name == "secondaryIDLength";
        if (!row.isFlag && !isDerived && QRCodeDataAccess::text(data, row.index)) {
            texts.push_back(*QRCodeDataAccess::text(data, row.index));
        }
    }
    return texts;
}

void checkJSON(const QRCodeData& data) {
    const auto json = nlohmann::json::parse(data.jsonOutput(), nullptr, false);
    promise(json.is_object() && json.size() == qrCodeDataProperties.size(),
            "the JSON output of an ASCII record is an object of all properties");
    promise(json["merchantName"] == *data.merchantName(), "JSON output holds the values");
}

// The payload, rebuilt from its elements in another order, with lengths written without a sign.
std::string reassembled(std::string_view payload, const TLVFormat& format) {
    std::vector<std::string> elements;
    TLVElementReader reader(CharacterReader(payload), format);
    for (TLVElement element; !reader.atEnd();) {
        promise(!reader.next(element), "an accepted payload can be split");
        if (element.tag != "63" || format.fieldWidth == 1) {
            const std::size_t length = element.value.characterCount();
            std::string text(element.tag);
            text += format.fieldWidth == 2 ? std::string(twoDigitText(static_cast<unsigned>(length)))
                                           : std::string(1, "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[length]);
            elements.push_back(text += element.value.text());
        }
    }
    // Tag 00 stays first. In the one-character format, where no checksum follows, the last element stays
    // last, because the end of its value may join the next character.
    const bool isTwoDigitFormat = format.fieldWidth == 2;
    std::reverse(elements.begin() + (isTwoDigitFormat ? 1 : 0), elements.end() - (isTwoDigitFormat ? 0 : 1));
    std::string again;
    for (const std::string& element : elements) {
        again += element;
    }
    return format.fieldWidth == 2 ? test::closed(again) : again;
}

void checkAccepted(std::string_view payload, const QRCodeData& data) {
    for (const std::string& text : receivedTexts(data)) {
        promise(payload.find(text) != std::string_view::npos, "a record's texts are in the payload");
    }
    if (std::all_of(payload.begin(), payload.end(),
                    [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
        checkJSON(data);
    }
    promise(!data.description().empty(), "a record has a description");

    const bool twoDigit = data.payloadFormatIndicator().has_value();
    const std::string again = reassembled(payload, twoDigit ? twoDigitFormat : oneCharacterFormat);
    const auto response = QRCodeParser::parseQRData(again);
    promise(response.qrCodeData() != nullptr, "the same elements in another order are accepted");
    response.qrCodeData()->setCrc(data.crc());
    promise(*response.qrCodeData() == data, "the same elements in another order give the same record");

    if (twoDigit) {
        const auto isMalformed = [](const std::string& text) {
            return test::codesIn(QRCodeParser::parseQRData(text)) == test::Codes{"0"};
        };
        promise(isMalformed(std::string(payload) + 'x'), "a longer two-digit payload is malformed");
        promise(isMalformed(std::string(payload.substr(0, payload.size() - 1))),
                "a shorter two-digit payload is malformed");
    }
}

void checkRefused(std::string_view payload, const std::vector<std::string>& codes) {
    promise(!codes.empty(), "a refusal has a code");
    promise(std::set<std::string>(codes.begin(), codes.end()).size() == codes.size(),
            "each code appears once");
    for (const std::string& code : codes) {
        promise(findErrorCatalogueEntry(code) != nullptr, "each code is in the catalogue");
        promise(code != "0" || codes.size() == 1, "the code of a malformed payload comes alone");
        promise(code != "48" || (&code == &codes.back() && payload.substr(0, 2) == "00"),
                "the checksum's code is last, and never in the one-character format");
    }
}

}  // namespace

void checkPromises(std::string_view payload) {
    const auto response = QRCodeParser::parseQRData(payload);
    promise((response.qrCodeData() == nullptr) != (response.qrCodeError() == nullptr),
            "exactly one of record and error");

    const auto isSame = [&response](const QRCodeParserResponse& other) {
        return response.qrCodeData() ? other.qrCodeData() && *other.qrCodeData() == *response.qrCodeData()
                                     : other.qrCodeError() && *other.qrCodeError() == *response.qrCodeError();
    };
    promise(isSame(QRCodeParser::parseQRData(payload)), "a second parse gives the same answer");
    int calls = 0;
    QRCodeParser::parseQRData(payload, [&](const std::optional<QRCodeParserResponse>& handed) {
        ++calls;
        promise(handed && isSame(*handed), "both forms give the same answer");
    });
    promise(calls == 1, "the handler is called once");

    if (response.qrCodeData()) {
        checkAccepted(payload, *response.qrCodeData());
    } else {
        checkRefused(payload, response.qrCodeError()->errorCodes());
    }
}

}  // namespace korvo::fuzz
