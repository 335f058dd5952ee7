#ifndef KORVOQRPARSER_KORVOQRPARSER_H
#define KORVOQRPARSER_KORVOQRPARSER_H

/// @file
/// The one header to include.

/// @mainpage
/// KorvoQRParser reads the text of a merchant-presented payment QR code. It splits the text into
/// tag-length-value elements, checks every element against the scheme's rules, and returns either the
/// merchant's record or the codes of all rules that the text violates.
///
/// KorvoQRParser/KorvoQRParser.h is the one header to include:
///
///     const auto response = korvo::QRCodeParser::parseQRData(scannedText);
///     if (response.qrCodeData()) {
///         pay(*response.qrCodeData()->korvoMerchantPAN());
///     } else {
///         show(response.qrCodeError()->errorCodes());
///     }
///
/// Start with QRCodeParser. QRCodeData is the record, and QRCodeDataProperties.h lists its properties, and
/// KorvoErrorConstants.h lists the codes. KorvoQRParserC.h is the same library for C.

#include <KorvoQRParser/Explanation/QRCodeExplainer.h>
#include <KorvoQRParser/Explanation/QRCodeExplanation.h>
#include <KorvoQRParser/KorvoQRParserExport.h>
#include <KorvoQRParser/KorvoQRParserVersion.h>
#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>
#include <KorvoQRParser/Parser/KorvoQRConstants.h>
#include <KorvoQRParser/Parser/QRCodeError.h>
#include <KorvoQRParser/Parser/QRCodeParser.h>
#include <KorvoQRParser/Parser/QRCodeParserResponse.h>
#include <KorvoQRParser/Validation/CurrencyCodes.h>
#include <KorvoQRParser/Validation/KorvoErrorConstants.h>

/// The library's C++ interface.
namespace korvo {}

#endif
