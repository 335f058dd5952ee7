#ifndef KORVOQRPARSER_KORVOQRPARSEROBJC_H
#define KORVOQRPARSER_KORVOQRPARSEROBJC_H

/// KorvoQRParser for Objective-C and Swift. It reads the text of a merchant-presented payment QR code and
/// answers with the merchant's record or with the codes of all the rules that the text violates.
///
/// This is the one header to import:
///
///     QRCodeParserResponse *response = [QRCodeParser parseQRDataWithQrCodeString:scannedText];
///     if (response.qrCodeData != nil) {
///         [self payTo:response.qrCodeData.korvoMerchantPAN];
///     } else {
///         [self show:response.qrCodeError.errorCodes];
///     }
///
/// In Swift, after `import KorvoQRParser`:
///
///     let response = QRCodeParser.parseQRData(qrCodeString: scannedText)
///     if let data = response.qrCodeData {
///         pay(data.korvoMerchantPAN)
///     } else if let error = response.qrCodeError {
///         show(error.errorCodes)
///     }
///
/// QRCodeExplainer says why a payload was refused, and what probably happened to it.
///
/// Texts go in and come out code unit for code unit: NUL, characters beyond the Basic Multilingual Plane, and
/// in properties and error codes even a surrogate without its other half. A payload that holds such a half is
/// malformed, and a record that holds one has no JSON. Objects that an operation returns are autoreleased, as
/// usual; the form with a completion handler leaves none behind, so it suits threads that have no autorelease
/// pool.

#import <KorvoQRParser/KorvoQRParserVersion.h>
#import <KorvoQRParser/ObjectiveC/NSCharacterSet+KorvoQRParser.h>
#import <KorvoQRParser/ObjectiveC/QRCodeData.h>
#import <KorvoQRParser/ObjectiveC/QRCodeDataProperty.h>
#import <KorvoQRParser/ObjectiveC/QRCodeError.h>
#import <KorvoQRParser/ObjectiveC/QRCodeErrorCode.h>
#import <KorvoQRParser/ObjectiveC/QRCodeExplainer.h>
#import <KorvoQRParser/ObjectiveC/QRCodeExplanation.h>
#import <KorvoQRParser/ObjectiveC/QRCodeParser.h>
#import <KorvoQRParser/ObjectiveC/QRCodeParserResponse.h>

#endif
