#ifndef KORVOQRPARSER_PARSER_QRCODEERROR_H
#define KORVOQRPARSER_PARSER_QRCODEERROR_H

#include <KorvoQRParser/KorvoQRParserExport.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace korvo {

/// The error of a refused payload: the codes of the rules that it violates.
///
/// An error that a parse returns has at least one code, and each code once. The class itself is a plain
/// value: it keeps exactly the list that it was given, neither sorted nor filtered. There is no default
/// constructor, because an error without a list means nothing. Any number of threads may read one object as
/// long as none calls the setter.
class KORVO_EXPORT QRCodeError {
  public:
    /// Keeps the codes as given. An empty list stays empty.
    explicit QRCodeError(std::vector<std::string> errorCodes);

    /// The codes, decimal numbers as text, in the order in which the rules raised them. The reference is
    /// valid as long as the error and shows what the setter changes. KorvoErrorConstants.h has the names and
    /// meanings of the codes.
    const std::vector<std::string>& errorCodes() const noexcept;

    /// Replaces the whole list.
    void setErrorCodes(std::vector<std::string> errorCodes);

    /// The codes as one line of text: each code followed by one space, the last one too ("41 48 "), with no
    /// line feed. Empty for an empty list. Made anew on every call.
    [[nodiscard]] std::string description() const;

  private:
    std::vector<std::string> errorCodes_;
};

/// True when both hold the same codes in the same order.
KORVO_EXPORT bool operator==(const QRCodeError& left, const QRCodeError& right);
/// The opposite of ==.
KORVO_EXPORT bool operator!=(const QRCodeError& left, const QRCodeError& right);

/// Writes the error's description to the stream.
KORVO_EXPORT std::ostream& operator<<(std::ostream& stream, const QRCodeError& error);

}  // namespace korvo

#endif
