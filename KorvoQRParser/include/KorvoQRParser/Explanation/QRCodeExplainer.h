#ifndef KORVOQRPARSER_EXPLANATION_QRCODEEXPLAINER_H
#define KORVOQRPARSER_EXPLANATION_QRCODEEXPLAINER_H

#include <KorvoQRParser/Explanation/QRCodeExplanation.h>
#include <KorvoQRParser/KorvoQRParserExport.h>

#include <string_view>

namespace korvo {

/// Says why a payload is refused: where, by which rules, what probably happened, and how it could be mended.
///
///     const auto explanation = korvo::QRCodeExplainer::explainQRData(scannedText);
///     if (!explanation.isAccepted()) {
///         show(explanation.causes().front());
///     }
///
/// It is a part of its own: a program that only parses does not link it. It has no state; any number of
/// threads may use it at once. Nothing is thrown except std::bad_alloc.
class KORVO_EXPORT QRCodeExplainer {
  public:
    /// Explains one payload, as QRCodeParser::parseQRData takes it. Any bytes are allowed. Takes time linear
    /// in the payload's length, and little memory besides the copies that the explanation holds.
    ///
    /// Causes and repairs are guesses, made from faults that are common. They are looked for only in texts of
    /// up to 8192 bytes; no QR code holds more than 7089 characters.
    [[nodiscard]] static QRCodeExplanation explainQRData(std::string_view qrCodeString);

    /// The same without causes, repairs and unverified repairs, which are empty. They need a search, so this
    /// is much faster for a refused payload: for programs that list or count many refusals.
    [[nodiscard]] static QRCodeExplanation describeQRData(std::string_view qrCodeString);
};

}  // namespace korvo

#endif
