#ifndef KORVOQRPARSER_PARSER_QRCODEPARSER_H
#define KORVOQRPARSER_PARSER_QRCODEPARSER_H

#include <KorvoQRParser/KorvoQRParserExport.h>
#include <KorvoQRParser/Parser/QRCodeParserResponse.h>

#include <functional>
#include <optional>
#include <string_view>

namespace korvo {

/// The way into the library. Both operations are static; an instance is never needed.
///
/// Input is the text of a scanned QR code as UTF-8, exactly as it was read: nothing is trimmed or
/// normalised, and NUL is a character like any other. Any bytes at all are allowed and every input gets a
/// defined answer, in time and memory linear in its length. A text that cannot be split into elements (the
/// empty text is one), and bytes that are not valid UTF-8, are refused with the single code "0". The text
/// needs to live for the length of the call only: what is answered holds copies.
///
/// A payload whose first two characters are "00" is in the two-digit format: tags and lengths of two decimal
/// digits, a checksum at the end. Every other payload is in the one-character format: tags and lengths of one
/// character, no checksum. Lengths count user-perceived characters (extended grapheme clusters, UAX #29), not
/// bytes.
///
/// Both operations may be called from any number of threads at once, up to the last destructor of the
/// process, and no thread sees anything of another's payload. Nothing needs to be set up before the first
/// call or released after the last. Nothing is thrown, except std::bad_alloc and what a completion handler
/// throws itself.
class KORVO_EXPORT QRCodeParser {
  public:
    /// Reads one payload. The response holds the record when every rule is kept, otherwise the error with the
    /// code of every violated rule, each once, in the order in which the rules ran; "0" alone when the text
    /// is malformed.
    [[nodiscard]] static QRCodeParserResponse parseQRData(std::string_view qrCodeString);

    /// The same for callers that prefer a callback: calls `completionHandler` exactly once, on this thread,
    /// before returning, and always with a present response. An empty handler is ignored. The handler may
    /// itself call parseQRData.
    static void parseQRData(
        std::string_view qrCodeString,
        const std::function<void(std::optional<QRCodeParserResponse>)>& completionHandler);
};

}  // namespace korvo

#endif
