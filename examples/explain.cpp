// Explains why a payload is refused: prints the code, the name, the tag and the meaning of each violated
// rule. Usage: explain PAYLOAD

#include <KorvoQRParser/KorvoQRParser.h>

#include <iostream>
#include <string_view>

namespace {

void explain(std::string_view code, bool isTwoDigitFormat) {
    const korvo::ErrorCatalogueEntry* const entry = korvo::findErrorCatalogueEntry(code);
    if (entry == nullptr) {
        // This program may run with a newer library than it was built with.
        std::cout << "  " << code << ": a rule that this program does not know\n";
        return;
    }
    const std::string_view tag = isTwoDigitFormat ? entry->twoDigitTag : entry->oneCharacterTag;
    std::cout << "  " << code << " (" << entry->name << ')';
    if (tag != "any") {
        std::cout << ", tag " << tag;
    }
    std::cout << ": " << entry->meaning << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: explain PAYLOAD\n";
        return 2;
    }
    const std::string_view payload = argv[1];
    const auto response = korvo::QRCodeParser::parseQRData(payload);
    if (response.qrCodeData()) {
        std::cout << "Accepted: every rule is kept.\n";
        return 0;
    }
    const auto& codes = response.qrCodeError()->errorCodes();
    const bool isTwoDigitFormat = payload.substr(0, 2) == "00";
    std::cout << "Refused, in the " << (isTwoDigitFormat ? "two-digit" : "one-character") << " format, by "
              << codes.size() << (codes.size() == 1 ? " rule:\n" : " rules:\n");
    for (const std::string_view code : codes) {
        explain(code, isTwoDigitFormat);
    }
    return 1;
}
