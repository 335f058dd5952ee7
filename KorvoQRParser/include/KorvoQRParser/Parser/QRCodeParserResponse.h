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
/// is given, both or neither included. Copies share the record and the error. There is no default
/// constructor, and responses are not compared or printed; their contents are. What the two operations return
/// is a reference into the response, or the pointer itself where the response is a temporary one: copy the
/// pointer to keep the record longer. Any number of threads may read one object.
class KORVO_EXPORT QRCodeParserResponse {
  public:
    /// Keeps both references as given; null means absent.
    QRCodeParserResponse(std::shared_ptr<QRCodeData> qrCodeData, std::shared_ptr<QRCodeError> qrCodeError);

    /// The accepted payload's record; null when the payload was refused.
    const std::shared_ptr<QRCodeData>& qrCodeData() const& noexcept;
    /// The same from a response that is about to end, which gives its reference away.
    std::shared_ptr<QRCodeData> qrCodeData() && noexcept;

    /// The refused payload's error; null when the payload was accepted.
    const std::shared_ptr<QRCodeError>& qrCodeError() const& noexcept;
    /// The same from a response that is about to end, which gives its reference away.
    std::shared_ptr<QRCodeError> qrCodeError() && noexcept;

  private:
    std::shared_ptr<QRCodeData> qrCodeData_;
    std::shared_ptr<QRCodeError> qrCodeError_;
};

}  // namespace korvo

#endif
