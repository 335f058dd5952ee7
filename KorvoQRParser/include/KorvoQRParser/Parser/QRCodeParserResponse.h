#ifndef KORVOQRPARSER_PARSER_QRCODEPARSERRESPONSE_H
#define KORVOQRPARSER_PARSER_QRCODEPARSERRESPONSE_H

#include <KorvoQRParser/KorvoQRParserExport.h>
#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Parser/QRCodeError.h>

#include <memory>

namespace korvo {

/// The answer to one parse: the merchant's record, or the error that says why there is none.
///
/// Every response that QRCodeParser makes holds exactly one of the two. The class itself stores whatever it
/// is given, even both or neither. Copies share the record and the error. There is no default constructor.
/// Responses cannot be compared or printed, but their contents can. On an lvalue a getter returns a reference
/// into the response; copy the pointer to keep the record longer. On an rvalue it returns the pointer itself.
/// Any number of threads may read one object.
class KORVO_EXPORT QRCodeParserResponse {
  public:
    /// Keeps both pointers as given; null means absent.
    QRCodeParserResponse(std::shared_ptr<QRCodeData> qrCodeData, std::shared_ptr<QRCodeError> qrCodeError);

    /// The accepted payload's record; null when the payload was refused.
    const std::shared_ptr<QRCodeData>& qrCodeData() const& noexcept;
    /// The rvalue overload: moves the pointer out of the response.
    std::shared_ptr<QRCodeData> qrCodeData() && noexcept;

    /// The refused payload's error; null when the payload was accepted.
    const std::shared_ptr<QRCodeError>& qrCodeError() const& noexcept;
    /// The rvalue overload: moves the pointer out of the response.
    std::shared_ptr<QRCodeError> qrCodeError() && noexcept;

  private:
    std::shared_ptr<QRCodeData> qrCodeData_;
    std::shared_ptr<QRCodeError> qrCodeError_;
};

}  // namespace korvo

#endif
