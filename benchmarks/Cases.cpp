#include "Cases.h"

#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Decoding/TagRow.h>
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace korvo::bench {

namespace {

std::string element(unsigned tag, std::string_view value) {
    std::string text(twoDigitText(tag));
    text += twoDigitText(static_cast<unsigned>(characterCount(value)));
    return text += value;
}

std::string closed(std::string payload) {
    payload += "6304";
    std::array<char, 5> checksum{};
    std::snprintf(checksum.data(), checksum.size(), "%04X", static_cast<unsigned>(computeCRC16(payload)));
    return payload + checksum.data();
}

std::string merchant(std::string_view name, std::string_view city) {
    return element(0, "01") + element(1, "11") + element(2, "4111111111111111") + element(52, "5812") +
           element(53, "356") + element(58, "IN") + element(59, name) + element(60, city);
}

// All 64 root tags, each value as long as its rule or its length field allows.
std::string longest() {
    std::string payload;
    for (unsigned tag = 0; tag <= 62; ++tag) {
        switch (tag) {
            case 0:
                payload += element(tag, "01");
                break;
            case 2:
                payload += element(tag, "4111111111111111");
                break;
            case 52:
                payload += element(tag, "5812");
                break;
            case 53:
                payload += element(tag, "356");
                break;
            case 54:
                payload += element(tag, "1234567890.12");
                break;
            case 55:
                payload += element(tag, "03");
                break;
            case 56:
                payload += element(tag, "123456.78");
                break;
            case 57:
                payload += element(tag, "12.50");
                break;
            case 58:
                payload += element(tag, "IN");
                break;
            case 59:
                payload += element(tag, std::string(25, 'n'));
                break;
            case 60:
                payload += element(tag, std::string(13, 'c'));
                break;
            case 61:
                payload += element(tag, std::string(10, 'p'));
                break;
            case 62:
                payload +=
                    element(tag, element(1, std::string(26, 'b')) + element(5, std::string(23, 'r')) +
                                     element(7, std::string(26, 't')) + element(9, "AME") + element(10, "x"));
                break;
            default:
                payload += element(tag, std::string(99, 'v'));
                break;
        }
    }
    return closed(payload);
}

std::vector<Case> makeCases() {
    const std::string hundred =
        closed(merchant("KORVO1", "MUMBAI") + element(54, "250.00") + element(61, "400001"));
    const std::string threeHundred =
        closed(merchant("KORVO CAFE AND BAKERY", "NAVI MUMBAI") + element(4, "5412345678901234") +
               element(6, "IN0000000000000000000123456789") + element(8, std::string(57, 'k')) +
               element(54, "1234.50") + element(61, "400001") +
               element(62, element(1, "INV-2026-000123") + element(3, "STORE 17") + element(5, "REF 998877") +
                               element(7, "TERM0042") + element(8, "Lunch")));
    const std::string nonASCII = closed(
        merchant("Caf\u00E9 Kr\u00E4nzchen \u0915\u0949\u092B\u093C\u0940", "M\u00FCnchen") +
        element(4, "5412345678901234") + element(6, "IN0000000000000000000123456789") + element(61, "80331") +
        element(62, element(1, "\u092C\u093F\u0932 2026-123") + element(3, "Fil\u00EDale 17") +
                        element(7, "T42 \U0001F600\U0001F44D\U0001F3FD") +
                        element(8, "\u0926\u094B\u092A\u0939\u0930 \u0915\u093E \u0916\u093E\u0928\u093E")) +
        element(8,
                "\U0001F468\u200D\U0001F469\u200D\U0001F467 familia, ni\u00F1os y \u00E9l, a\u00F1o y "
                "coraz\u00F3n"));
    std::string tenCodes =
        "00020202"
        "011"
        "520115301154015"
        "550145802in" +
        element(59, std::string(26, 'n')) + element(60, std::string(14, 'c'));
    return {
        {"two-digit, 101 characters", hundred, true},
        {"two-digit, 307 characters", threeHundred, true},
        {"two-digit, all 64 tags full", longest(), true},
        {"two-digit, non-ASCII", nonASCII, true},
        {"one-character", "0g41111111111111111aKORVO CAFE24581236MUMBAI42IN5335666250.007a9876543210", true},
        {"one-character, with a placeholder",
         "0g41111111111111111aKORVO CAFE24581236MUMBAI42IN5335666250.0072?5", true},
        {"refused: fault in the first element", "0000" + hundred.substr(4), false},
        {"refused: fault in the last element", threeHundred.substr(0, threeHundred.size() - 1), false},
        {"refused: ten codes", closed(tenCodes), false},
    };
}

std::size_t sizeOf(const QRCodeParserResponse& response) {
    return response.qrCodeData() ? response.qrCodeData()->cityName()->size()
                                 : response.qrCodeError()->errorCodes().size();
}

bool isUTF8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        std::uint64_t eight = 0;
        if (text.size() - at >= sizeof eight) {
            std::memcpy(&eight, text.data() + at, sizeof eight);
            if ((eight & 0x8080808080808080U) == 0) {
                at += sizeof eight;
                continue;
            }
        }
        if (nextCodePoint(text, at) < 0) {
            return false;
        }
    }
    return true;
}

}  // namespace

const std::vector<Case>& cases() {
    static const std::vector<Case> all = [] {
        std::vector<Case> made = makeCases();
        for (const Case& one : made) {
            const auto response = QRCodeParser::parseQRData(one.payload);
            if ((response.qrCodeData() != nullptr) != one.isAccepted) {
                std::fprintf(
                    stderr, "%s: %s: %s\n", one.name.c_str(), one.payload.c_str(),
                    response.qrCodeError() ? response.qrCodeError()->description().c_str() : "accepted");
                std::abort();
            }
        }
        return made;
    }();
    return all;
}

const Case& findCase(const std::string& name) {
    for (const Case& one : cases()) {
        if (one.name == name) {
            return one;
        }
    }
    std::fprintf(stderr, "no case is named %s\n", name.c_str());
    std::abort();
}

Floor::Floor(const Case& accepted) : payload_(accepted.payload) {
    const auto data = QRCodeParser::parseQRData(payload_).qrCodeData();
    const auto addText = [this](TextSetter setter, const std::optional<std::string>& value) {
        if (value) {
            texts_.emplace_back(setter, *value);
        }
    };
    const auto addFlag = [this](FlagSetter setter, bool value) {
        if (value) {
            flags_.push_back(setter);
        }
    };
#define KORVO_TEXT(name, Name) addText(&QRCodeData::set##Name, data->name());
#define KORVO_FLAG(name, Name) addFlag(&QRCodeData::set##Name, data->name());
    KORVO_QRCODEDATA_PROPERTIES(KORVO_TEXT, KORVO_FLAG)
#undef KORVO_FLAG
#undef KORVO_TEXT
}

std::size_t Floor::run() const {
    std::size_t result = isUTF8(payload_) ? 1 : 0;
    result += computeCRC16(std::string_view(payload_).substr(0, payload_.size() - 4));
    const auto data = std::make_shared<QRCodeData>();
    for (const auto& [setter, value] : texts_) {
        ((*data).*setter)(value);
    }
    for (const FlagSetter setter : flags_) {
        ((*data).*setter)(true);
    }
    return result + data->cityName()->size();
}

std::vector<Work> allWork() {
    std::vector<Work> work;
    for (const Case& one : cases()) {
        work.push_back(
            {"parse/" + one.name, [&one] { return sizeOf(QRCodeParser::parseQRData(one.payload)); }});
        if (one.isAccepted) {
            work.push_back({"floor/" + one.name, [floor = Floor(one)] { return floor.run(); }});
        }
    }
    const Case& usual = cases().front();
    work.push_back({"completion form/" + usual.name, [&usual] {
                        std::size_t size = 0;
                        QRCodeParser::parseQRData(
                            usual.payload, [&size](const auto& response) { size = sizeOf(*response); });
                        return size;
                    }});
    for (const char* const name : {"two-digit, 307 characters", "two-digit, non-ASCII"}) {
        const Case& one = findCase(name);
        work.push_back({"character count/" + one.name, [&one] { return characterCount(one.payload); }});
    }
    const Case& longer = findCase("two-digit, 307 characters");
    const auto data = QRCodeParser::parseQRData(longer.payload).qrCodeData();
    work.push_back(
        {"checksum/" + longer.name, [&longer] { return std::size_t{computeCRC16(longer.payload)}; }});
    work.push_back({"jsonOutput/" + longer.name, [data] { return data->jsonOutput().size(); }});
    work.push_back({"description/" + longer.name, [data] { return data->description().size(); }});
    return work;
}

}  // namespace korvo::bench
