#include <KorvoQRParser/Parser/QRCodeError.h>

#include <ostream>
#include <utility>

namespace korvo {

QRCodeError::QRCodeError(std::vector<std::string> errorCodes) : errorCodes_(std::move(errorCodes)) {}

const std::vector<std::string>& QRCodeError::errorCodes() const noexcept {
    return errorCodes_;
}

void QRCodeError::setErrorCodes(std::vector<std::string> errorCodes) {
    errorCodes_ = std::move(errorCodes);
}

std::string QRCodeError::description() const {
    std::string text;
    for (const std::string& code : errorCodes_) {
        text += code;
        text += ' ';
    }
    return text;
}

bool operator==(const QRCodeError& left, const QRCodeError& right) {
    return left.errorCodes() == right.errorCodes();
}

bool operator!=(const QRCodeError& left, const QRCodeError& right) {
    return !(left == right);
}

std::ostream& operator<<(std::ostream& stream, const QRCodeError& error) {
    return stream << error.description();
}

}  // namespace korvo
