#ifndef KORVOQRPARSER_OBJECTIVEC_QRCODEPARSER_H
#define KORVOQRPARSER_OBJECTIVEC_QRCODEPARSER_H

#import <KorvoQRParser/KorvoQRParserExport.h>
#import <KorvoQRParser/ObjectiveC/Compatibility.h>
#import <KorvoQRParser/ObjectiveC/QRCodeParserResponse.h>

NS_ASSUME_NONNULL_BEGIN

/// The way into the library. Both operations are class methods; an instance is never needed.
///
/// Input is the text of a scanned QR code exactly as it was read: nothing is trimmed or normalised, and NUL
/// is a character like any other. Every text gets a defined answer, in time and memory linear in its length.
/// A text that cannot be split into elements, one with a lone surrogate, and nil are refused with the single
/// code "0". Lengths in the payload count user-perceived characters.
///
/// Both operations may be called from any number of threads at once, and throw nothing of their own.
KORVO_EXPORT
@interface QRCodeParser : NSObject

/// Reads one payload. The response holds the record when every rule is kept, otherwise the error with the
/// code of every violated rule, each once, in the order in which the rules ran; "0" alone when the text is
/// malformed.
+ (QRCodeParserResponse*)parseQRDataWithQrCodeString:(NSString*)qrCodeString
    KORVO_SWIFT_NAME(parseQRData(qrCodeString:));

#if KORVO_HAS_BLOCKS
/// The same for callers that prefer a block: calls a copy of `completionHandler` exactly once, on this
/// thread, before returning, and always with a response. The copy lives no longer than the call. A nil
/// handler is ignored. The handler may itself parse, and what it throws reaches the caller.
+ (void)parseQRDataWithQrCodeString:(NSString*)qrCodeString
                  completionHandler:(void (^)(QRCodeParserResponse* _Nullable response))completionHandler
    KORVO_SWIFT_NOT_ASYNC KORVO_SWIFT_NAME(parseQRData(qrCodeString:completionHandler:));
#endif

@end

NS_ASSUME_NONNULL_END

#endif
