#ifndef KORVOQRPARSER_OBJECTIVEC_TEXT_H
#define KORVOQRPARSER_OBJECTIVEC_TEXT_H

#import <KorvoQRParser/ObjectiveC/Compatibility.h>

#include <string>
#include <string_view>

namespace korvo::objectivec {

/// The string in UTF-8, NULs included; the empty text for nil. A surrogate without its other half becomes the
/// three bytes that UTF-8 would use for it, which are not valid UTF-8: the parser refuses them, and JSON
/// cannot be made of them. Leaves no autoreleased object behind.
std::string textFromString(NSString* string);

/// Makes a text of textFromString, or any valid UTF-8, a string that the caller owns. Every code unit is
/// kept, a byte order mark at the start too.
NSString* newStringFromText(std::string_view text) NS_RETURNS_RETAINED;

/// The same, autoreleased.
NSString* stringFromText(std::string_view text);

/// Says on standard error that a class has no -init, and ends the program.
[[noreturn]] void stopAtInit(const char* className, const char* initialiser) noexcept;

}  // namespace korvo::objectivec

#endif
