#ifndef KORVOQR_TERMINAL_H
#define KORVOQR_TERMINAL_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvoqr {

enum class ColourChoice : unsigned char { automatic, always, never };

/// How much more than plain text a stream may carry.
struct Style {
    bool colour = false;
    bool boxes = false;     ///< box-drawing and block characters
    std::size_t width = 0;  ///< columns to wrap at; 0 for none

    /// The columns to wrap at for a text that begins at a column; 0 for none.
    std::size_t widthFrom(std::size_t column) const noexcept { return width > column ? width - column : 0; }
};

/// What suits a file descriptor. Everything on a terminal whose locale is UTF-8, but for colour where
/// NO_COLOR is set; plain text elsewhere. `always` and `never` overrule that, and always does NO_COLOR too.
Style styleOf(int fileDescriptor, ColourChoice choice);

enum class Paint : unsigned char { heading, fault, dim, good };

/// The text in a colour or, where the style has none, as it is.
std::string painted(const Style& style, Paint paint, std::string_view text);

/// Whether a file descriptor is a terminal that can do more than print.
bool isTerminal(int fileDescriptor);

/// The text as it can be shown without harm: what a terminal would obey, hide or reorder (controls, format
/// characters, unusual blanks, bytes that are not UTF-8) is written as \x1B or \u{202E}. Quotation marks and
/// backslashes get a backslash.
std::string visible(std::string_view text);

/// The same between quotation marks.
std::string inQuotes(std::string_view text);

/// The same for a text of several lines, without the backslashes: those two characters and line feeds stay.
std::string harmless(std::string_view text);

/// The same for JSON text, whose meaning stays what it is.
std::string harmlessJSON(std::string_view json);

/// Whether a byte of a UTF-8 text continues a code point, so that the text must not be cut before it.
constexpr bool isContinuationByte(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// How many columns a terminal gives to a text that `visible` has made.
std::size_t displayWidth(std::string_view text);

/// The text with blanks behind it up to a number of columns.
std::string padded(std::string_view text, std::size_t width);

/// The text with blanks before it up to a number of columns.
std::string rightAligned(std::string_view text, std::size_t width);

/// The text in pieces of at most `width` columns, cut between user-perceived characters; with `atBlanks`
/// after the last blank that fits, where there is one. The whole text for a width of 0.
std::vector<std::string_view> wrapped(std::string_view text, std::size_t width, bool atBlanks);

}  // namespace korvoqr

#endif
