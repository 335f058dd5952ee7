#ifndef KORVOQRPARSER_OBJECTIVEC_QRCODEEXPLAINER_H
#define KORVOQRPARSER_OBJECTIVEC_QRCODEEXPLAINER_H

#import <KorvoQRParser/KorvoQRParserExport.h>
#import <KorvoQRParser/ObjectiveC/Compatibility.h>
#import <KorvoQRParser/ObjectiveC/QRCodeExplanation.h>

NS_ASSUME_NONNULL_BEGIN

/// Says why a payload is refused: where, by which rules, what probably happened, and how it could be mended.
///
///     QRCodeExplanation *explanation = [QRCodeExplainer explainQRDataWithQrCodeString:scannedText];
///     if (!explanation.isAccepted) {
///         [self show:explanation.causes.firstObject];
///     }
///
/// It is a part of its own: a program that only parses does not link it from the static libraries. Any number
/// of threads may use it at once, and it throws nothing of its own.
KORVO_EXPORT
@interface QRCodeExplainer : NSObject

/// Explains one payload, as QRCodeParser takes it; nil is explained as the empty text. Takes time linear in
/// the payload's length, and little memory besides the copies that the explanation holds.
///
/// Causes and repairs are guesses, made from faults that are common. They are looked for only in texts of up
/// to 8192 bytes of UTF-8; no QR code holds more than 7089 characters.
+ (QRCodeExplanation*)explainQRDataWithQrCodeString:(NSString*)qrCodeString
    KORVO_SWIFT_NAME(explainQRData(qrCodeString:));

/// The same without causes, repairs and unverified repairs, which are empty. They need a search, so this is
/// much faster for a refused payload: for programs that list or count many refusals.
+ (QRCodeExplanation*)describeQRDataWithQrCodeString:(NSString*)qrCodeString
    KORVO_SWIFT_NAME(describeQRData(qrCodeString:));

@end

NS_ASSUME_NONNULL_END

#endif
