#include <KorvoQRParser/KorvoQRParser.h>

#include <iostream>

int main(int argc, char** argv) {
    const auto response = korvo::QRCodeParser::parseQRData(argc > 1 ? argv[1] : "");
    if (const auto& data = response.qrCodeData()) {
        std::cout << "Pay " << data->transactionAmount().value_or("any amount") << " to "
                  << *data->merchantName() << ", account " << *data->korvoMerchantPAN() << '\n';
        return 0;
    }
    for (const std::string& code : response.qrCodeError()->errorCodes()) {
        const auto* entry = korvo::findErrorCatalogueEntry(code);
        std::cout << code << ": " << (entry != nullptr ? entry->meaning : "a newer rule") << '\n';
    }
    return 1;
}
