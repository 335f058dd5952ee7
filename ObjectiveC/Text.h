#ifndef KORVOQRPARSER_OBJECTIVEC_TEXT_H
#define KORVOQRPARSER_OBJECTIVEC_TEXT_H

#import <KorvoQRParser/ObjectiveC/Compatibility.h>

#include <string>
#include <string_view>

namespace korvo::objectivec {

/// What takes the place of a surrogate without its other half, which UTF-8 cannot express: in a text that is
/// kept, the replacement character; in a payload, a byte that makes it no UTF-8, so that the parser refuses
/// it.
inline constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";
inline constexpr std::string_view notUTF8 = "\xFF";

/// The string in UTF-8, NULs included; the empty text for nil. Leaves no autoreleased object behind.
std::string textFromString(NSString* string, std::string_view loneSurrogate);

/// The text, which must be valid UTF-8, as a string that the caller owns. Every character is kept, a byte
/// order mark at the start too.
NSString* newStringFromText(std::string_view text) NS_RETURNS_RETAINED;

/// The same, autoreleased.
NSString* stringFromText(std::string_view text);

/// Says on standard error that a class has no -init, and ends the program.
[[noreturn]] void stopAtInit(const char* className, const char* initialiser) noexcept;

}  // namespace korvo::objectivec

#endif
