#ifndef KORVOQRPARSER_PARSER_QRCODEERROR_H
#define KORVOQRPARSER_PARSER_QRCODEERROR_H

#include <KorvoQRParser/KorvoQRParserExport.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace korvo {

/// Why a payload was refused: the codes of the rules that it violates.
///
/// Those that a parse answers with have at least one code, and each code once. The class itself is a plain
/// value: it keeps exactly the list that it was given, unsorted and unfiltered. There is no default
/// constructor, because an error without a list means nothing. Any number of threads may read one object
/// while none uses the setter.
class KORVO_EXPORT QRCodeError {
  public:
    /// Takes the codes as given; an empty list is kept as an empty list.
    explicit QRCodeError(std::vector<std::string> errorCodes);

    /// The codes, in the order in which the rules raised them; the list lives as long as the error and
    /// changes with the setter. The names and meanings of the codes are in KorvoErrorConstants.h.
    const std::vector<std::string>& errorCodes() const noexcept;

    /// Replaces the whole list.
    void setErrorCodes(std::vector<std::string> errorCodes);

    /// The codes as one line of text: each code followed by one blank, the last one too ("41 48 "); the
    /// empty text for an empty list. Made anew on every call.
    [[nodiscard]] std::string description() const;

  private:
    std::vector<std::string> errorCodes_;
};

/// True when both hold the same codes in the same order.
KORVO_EXPORT bool operator==(const QRCodeError& left, const QRCodeError& right);
/// The opposite of ==.
KORVO_EXPORT bool operator!=(const QRCodeError& left, const QRCodeError& right);

/// Prints the error's description.
KORVO_EXPORT std::ostream& operator<<(std::ostream& stream, const QRCodeError& error);

}  // namespace korvo

#endif
