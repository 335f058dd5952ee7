#ifndef KORVOQRPARSER_OBJECTIVEC_QRCODEPARSERRESPONSE_H
#define KORVOQRPARSER_OBJECTIVEC_QRCODEPARSERRESPONSE_H

#import <KorvoQRParser/KorvoQRParserExport.h>
#import <KorvoQRParser/ObjectiveC/Compatibility.h>
#import <KorvoQRParser/ObjectiveC/QRCodeData.h>
#import <KorvoQRParser/ObjectiveC/QRCodeError.h>

NS_ASSUME_NONNULL_BEGIN

/// The answer to one parse: the merchant's record, or the error that says why there is none.
///
/// Every response that QRCodeParser makes holds exactly one of the two. The class itself stores whatever it
/// is given, both or neither included. Any number of threads may read one object.
KORVO_EXPORT
@interface QRCodeParserResponse : NSObject {
  @private
    QRCodeData* _Nullable _qrCodeData;
    QRCodeError* _Nullable _qrCodeError;
}

/// Keeps both references as given, without copying; nil means absent.
- (instancetype)initWithQrCodeData:(QRCodeData* _Nullable)qrCodeData
                       qrCodeError:(QRCodeError* _Nullable)qrCodeError NS_DESIGNATED_INITIALIZER;

/// A response is made of something: -init stops the program with a line on standard error.
- (instancetype)init KORVO_UNAVAILABLE;
+ (instancetype)new KORVO_UNAVAILABLE;

/// The accepted payload's record, the same object on every read; nil when the payload was refused.
@property(nonatomic, readonly) QRCodeData* _Nullable qrCodeData;

/// The refused payload's error, the same object on every read; nil when the payload was accepted.
@property(nonatomic, readonly) QRCodeError* _Nullable qrCodeError;

@end

NS_ASSUME_NONNULL_END

#endif
