#include "Ownership.h"
#include "Text.h"
#import <KorvoQRParser/ObjectiveC/QRCodeParserResponse.h>

@implementation QRCodeParserResponse

- (instancetype)init {
    korvo::objectivec::stopAtInit("QRCodeParserResponse", "initWithQrCodeData:qrCodeError:");
}

- (instancetype)initWithQrCodeData:(QRCodeData*)qrCodeData qrCodeError:(QRCodeError*)qrCodeError {
    self = [super init];
    if (self != nil) {
        _qrCodeData = KORVO_RETAIN(qrCodeData);
        _qrCodeError = KORVO_RETAIN(qrCodeError);
    }
    return self;
}

- (void)dealloc {
    KORVO_RELEASE(_qrCodeData);
    KORVO_RELEASE(_qrCodeError);
    KORVO_SUPER_DEALLOC;
}

- (QRCodeData*)qrCodeData {
    return _qrCodeData;
}

- (QRCodeError*)qrCodeError {
    return _qrCodeError;
}

@end
