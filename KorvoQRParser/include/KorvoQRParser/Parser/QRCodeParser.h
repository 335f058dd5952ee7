#ifndef KORVOQRPARSER_PARSER_QRCODEPARSER_H
#define KORVOQRPARSER_PARSER_QRCODEPARSER_H

#include <KorvoQRParser/KorvoQRParserExport.h>
#include <KorvoQRParser/Parser/QRCodeParserResponse.h>

#include <functional>
#include <optional>
#include <string_view>

namespace korvo {

/// The entry to the library. Both operations are static; no instance is ever needed.
///
/// The input is the text of a scanned QR code as UTF-8, exactly as it was read: nothing is trimmed or
/// normalised, and NUL is a character like any other. Any bytes are allowed, and every input gets a defined
/// answer, in time and memory linear in its length. A text that cannot be split into elements, such as the
/// empty text, and bytes that are not valid UTF-8 are refused with the single code "0". The text need not
/// outlive the call, because the answer holds copies.
///
/// A payload whose first two characters are "00" is in the two-digit format: tags and lengths of two decimal
/// digits, a checksum at the end. Every other payload is in the one-character format: tags and lengths of one
/// character, no checksum. Lengths count user-perceived characters (extended grapheme clusters, UAX #29), not
/// bytes.
///
/// Both operations may be called from any number of threads at once, until the last destructor of the process
/// has run. No thread sees anything of another thread's payload. Nothing needs to be set up before the first
/// call or released after the last. Nothing is thrown except std::bad_alloc and what a completion handler
/// throws itself.
class KORVO_EXPORT QRCodeParser {
  public:
    /// Parses one payload. The response holds the record when the payload keeps every rule. Otherwise it
    /// holds the error with the code of every violated rule, each once, in the order in which the rules ran,
    /// or with "0" alone when the text is malformed.
    [[nodiscard]] static QRCodeParserResponse parseQRData(std::string_view qrCodeString);

    /// The same for callers that prefer a callback: calls `completionHandler` exactly once, on this thread,
    /// before returning. The response is always present. An empty handler is ignored. The handler may itself
    /// call parseQRData, because no lock is held while it runs.
    static void parseQRData(
        std::string_view qrCodeString,
        const std::function<void(std::optional<QRCodeParserResponse>)>& completionHandler);
};

}  // namespace korvo

#endif
