#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Parser/QRCodeParser.h>
#include <KorvoQRParser/Parser/assembleQRCodeData.h>
#include <KorvoQRParser/Validation/KorvoErrorConstants.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvo {

namespace {

QRCodeParserResponse refuse(std::vector<std::string> errorCodes) {
    return {nullptr, std::make_shared<QRCodeError>(std::move(errorCodes))};
}

enum class RefusalCodes : unsigned char { ofFirstValidation, ofSecondValidation };

QRCodeParserResponse parse(std::string_view qrCodeString, RefusalCodes refusalCodes) {
    KorvoPayMerchantTLV holder;
    if (holder.decodeTLV(qrCodeString)) {
        return refuse({std::string(KorvoErrorConstants::malformedTags)});
    }
    auto& validator = KorvoPayMerchantTLVValidator::sharedValidator();
    std::vector<std::string> errorCodes = validator.validatePayMerchantTLV(&holder, qrCodeString);
    if (errorCodes.empty()) {
        return {assembleQRCodeData(holder), nullptr};
    }
    if (refusalCodes == RefusalCodes::ofSecondValidation) {
        errorCodes = validator.validatePayMerchantTLV(&holder, qrCodeString);
    }
    return refuse(std::move(errorCodes));
}

}  // namespace

QRCodeParserResponse QRCodeParser::parseQRData(std::string_view qrCodeString) {
    return parse(qrCodeString, RefusalCodes::ofFirstValidation);
}

// In this form a refused payload is validated a second time, and the codes are those of the second run.
void QRCodeParser::parseQRData(
    std::string_view qrCodeString,
    const std::function<void(std::optional<QRCodeParserResponse>)>& completionHandler) {
    QRCodeParserResponse response = parse(qrCodeString, RefusalCodes::ofSecondValidation);
    if (completionHandler) {
        completionHandler(std::move(response));
    }
}

}  // namespace korvo
