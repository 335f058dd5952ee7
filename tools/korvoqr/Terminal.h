#ifndef KORVOQR_TERMINAL_H
#define KORVOQR_TERMINAL_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvoqr {

enum class ColourChoice : unsigned char { automatic, always, never };

/// The extras that an output may have beyond plain text.
struct Style {
    bool colour = false;
    bool boxes = false;     ///< box-drawing and block characters
    std::size_t width = 0;  ///< lines wrap at this column; 0 means that they do not wrap

    /// The width for a text that begins at a column.
    std::size_t widthFrom(std::size_t column) const noexcept { return width > column ? width - column : 0; }
};

/// The style for a file descriptor. A terminal gets colour unless NO_COLOR is set and not empty, and boxes if
/// its locale is UTF-8; anything else gets plain text. `always` and `never` override both.
Style styleOf(int fileDescriptor, ColourChoice choice);

enum class Paint : unsigned char { heading, fault, dim, good };

/// The text in a colour, or unchanged if the style has none.
std::string painted(const Style& style, Paint paint, std::string_view text);

/// Whether a file descriptor is a terminal that obeys escape sequences.
bool isTerminal(int fileDescriptor);

/// The text made safe to print. Everything that a terminal would obey, hide or reorder (controls, format
/// characters, unusual blanks, bytes that are not UTF-8) becomes an escape such as \x1B or \u{202E}.
/// Quotation marks and backslashes get a backslash.
std::string visible(std::string_view text);

/// The same, in quotation marks.
std::string inQuotes(std::string_view text);

/// The same for text with several lines: quotation marks, backslashes, and the characters in `asTheyAre` stay
/// unchanged.
std::string harmless(std::string_view text, std::string_view asTheyAre = "\n");

/// The same for JSON, in JSON's own escapes, so that its meaning does not change.
std::string harmlessJSON(std::string_view json);

/// Whether a byte of UTF-8 continues a code point, so that a text must not be cut before it.
constexpr bool isContinuationByte(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// A number with a comma before each group of three digits.
std::string grouped(std::uint64_t number);

/// The columns that a text made by `visible` takes on a terminal.
std::size_t displayWidth(std::string_view text);

/// The text, filled up with blanks to a number of columns.
std::string padded(std::string_view text, std::size_t width);

/// The same with the blanks before the text.
std::string rightAligned(std::string_view text, std::size_t width);

/// The text in lines of at most `width` columns, cut between user-perceived characters; with `atBlanks`, at
/// the last blank that fits, if there is one, and without that blank. One line for a width of 0.
std::vector<std::string_view> wrapped(std::string_view text, std::size_t width, bool atBlanks);

}  // namespace korvoqr

#endif
