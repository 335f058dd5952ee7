#include <KorvoQRParser/Parser/QRCodeParserResponse.h>

#include <utility>

namespace korvo {

QRCodeParserResponse::QRCodeParserResponse(std::shared_ptr<QRCodeData> qrCodeData,
                                           std::shared_ptr<QRCodeError> qrCodeError)
    : qrCodeData_(std::move(qrCodeData)), qrCodeError_(std::move(qrCodeError)) {}

const std::shared_ptr<QRCodeData>& QRCodeParserResponse::qrCodeData() const& noexcept {
    return qrCodeData_;
}

std::shared_ptr<QRCodeData> QRCodeParserResponse::qrCodeData() && noexcept {
    return std::move(qrCodeData_);
}

const std::shared_ptr<QRCodeError>& QRCodeParserResponse::qrCodeError() const& noexcept {
    return qrCodeError_;
}

std::shared_ptr<QRCodeError> QRCodeParserResponse::qrCodeError() && noexcept {
    return std::move(qrCodeError_);
}

}  // namespace korvo
