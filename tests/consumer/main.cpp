#include <KorvoQRParser/KorvoQRParser.h>

#include <iostream>

// Parses its argument in both forms. Prints the version, then the answer.
int main(int /*argc*/, char** argv) {
    std::cout << KorvoQRParserVersionNumber << ' ' << KorvoQRParserVersionString;
    const auto response = korvo::QRCodeParser::parseQRData(argv[1]);
    korvo::QRCodeParser::parseQRData(argv[1], [&](std::optional<korvo::QRCodeParserResponse> other) {
        const bool agrees = response.qrCodeData() ? *response.qrCodeData() == *other->qrCodeData()
                                                  : *response.qrCodeError() == *other->qrCodeError();
        std::cout << (agrees ? "both forms\n" : "the forms differ\n");
    });
    if (const auto& data = response.qrCodeData()) {
        std::cout << *data << data->jsonOutput() << '\n';
    } else {
        std::cout << *response.qrCodeError() << '\n';
    }
}
