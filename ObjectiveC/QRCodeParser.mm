#include "Objects.h"
#include "Ownership.h"
#include "Text.h"
#import <KorvoQRParser/ObjectiveC/QRCodeParser.h>
#include <KorvoQRParser/Parser/QRCodeParser.h>

#include <optional>
#include <string>

namespace {

QRCodeParserResponse* newResponse(const korvo::QRCodeParserResponse& response) NS_RETURNS_RETAINED {
    QRCodeData* data = korvo::objectivec::newQRCodeData(response.qrCodeData());
    QRCodeError* error = korvo::objectivec::newQRCodeError(response.qrCodeError());
    QRCodeParserResponse* object = [[QRCodeParserResponse alloc] initWithQrCodeData:data qrCodeError:error];
    KORVO_RELEASE(data);
    KORVO_RELEASE(error);
    return object;
}

using Handler = void (^)(QRCodeParserResponse*);

/// Owns a copy of a block, and gives it back when the block throws too. Block_copy and not -copy: blocks are
/// no objects for the GNU runtime.
class HandlerCopy {
  public:
#if __has_feature(objc_arc)
    explicit HandlerCopy(Handler handler) : handler_([handler copy]) {}
#else
    explicit HandlerCopy(Handler handler) : handler_(Block_copy(handler)) {}
    ~HandlerCopy() {
        Block_release(handler_);
    }
#endif
    HandlerCopy(const HandlerCopy&) = delete;
    HandlerCopy& operator=(const HandlerCopy&) = delete;

    void operator()(QRCodeParserResponse* response) const {
        handler_(response);
    }

  private:
    Handler handler_;
};

/// Owns a response while the handler runs, for the same reason.
class ResponseOwner {
  public:
    explicit ResponseOwner(QRCodeParserResponse* response) : response_(response) {}
    ~ResponseOwner() { KORVO_RELEASE(response_); }
    ResponseOwner(const ResponseOwner&) = delete;
    ResponseOwner& operator=(const ResponseOwner&) = delete;

    QRCodeParserResponse* get() const { return response_; }

  private:
    QRCodeParserResponse* response_;
};

}  // namespace

@implementation QRCodeParser

+ (QRCodeParserResponse*)parseQRDataWithQrCodeString:(NSString*)qrCodeString {
    const std::string payload = korvo::objectivec::textFromString(qrCodeString);
    return KORVO_AUTORELEASE(newResponse(korvo::QRCodeParser::parseQRData(payload)));
}

+ (void)parseQRDataWithQrCodeString:(NSString*)qrCodeString
                  completionHandler:(void (^)(QRCodeParserResponse*))completionHandler {
    if (completionHandler == nil) {
        return;
    }
    const HandlerCopy handler(completionHandler);
    const std::string payload = korvo::objectivec::textFromString(qrCodeString);
    korvo::QRCodeParser::parseQRData(payload,
                                     [&handler](const std::optional<korvo::QRCodeParserResponse>& response) {
                                         handler(ResponseOwner(newResponse(*response)).get());
                                     });
}

@end
