#ifndef KORVOQRPARSER_DECODING_TEXT_TEXTHELPERS_H
#define KORVOQRPARSER_DECODING_TEXT_TEXTHELPERS_H

#include <KorvoQRParser/Decoding/Text/CountedText.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Small operations on texts that decoding, validation and record assembly share. Texts are valid UTF-8;
/// lengths and offsets count user-perceived characters. All may be called from any thread.
namespace korvo {

/// Whether the text's first character is this ASCII character, with no mark joined to it.
bool beginsWith(const CountedText& text, char character);

/// The text without its last `count` characters; empty when it has no more than that.
std::string_view droppingLastCharacters(std::string_view text, std::size_t count) noexcept;

/// The one character at `offset`; absent when the text has no character there. A negative offset is a
/// programming error and stops the program.
[[nodiscard]] std::optional<std::string_view> substringFromOffset(std::ptrdiff_t offset,
                                                                  const CountedText& text);

/// The characters from `startOffset` up to but not including `endOffset`. Both must lie within the text and
/// the start must not exceed the end; anything else is a programming error and stops the program.
[[nodiscard]] std::string_view substringWithOffsets(std::size_t startOffset, std::size_t endOffset,
                                                    const CountedText& text);

/// The integer in a text that consists of one optional sign and at least one ASCII digit of the radix (2 to
/// 36, letters in either case). Absent for any other text, and for a number that does not fit into 64 bits
/// with a sign.
[[nodiscard]] std::optional<std::int64_t> parseInteger(std::string_view text, int radix) noexcept;

/// Prints "KorvoQRParser: <operation>: <reason>" to standard error and aborts, in every build. A caller's
/// mistake that has no right answer must not get a wrong one.
[[noreturn]] void stopProgram(const char* operation, const char* reason) noexcept;

}  // namespace korvo

#endif
