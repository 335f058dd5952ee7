#ifndef KORVOQRPARSER_OBJECTIVEC_TEXT_H
#define KORVOQRPARSER_OBJECTIVEC_TEXT_H

#import <KorvoQRParser/ObjectiveC/Compatibility.h>

#include <string>
#include <string_view>
#include <vector>

namespace korvo::objectivec {

/// The string in UTF-8, NULs included; the empty text for nil. A surrogate without its other half becomes the
/// three bytes that UTF-8 would use for it, which are not valid UTF-8: the parser refuses them, and JSON
/// cannot be made of them. Leaves no autoreleased object behind.
std::string textFromString(NSString* string);

/// Makes a text of textFromString, or any valid UTF-8, a string that the caller owns. Every code unit is
/// kept, a byte order mark at the start too. In other texts, such as a piece that begins or ends inside a
/// surrogate's three bytes, U+FFFD replaces what cannot be read.
NSString* newStringFromText(std::string_view text) NS_RETURNS_RETAINED;

/// The same, autoreleased.
NSString* stringFromText(std::string_view text);

/// The strings of several texts, autoreleased.
NSArray<NSString*>* arrayFromTexts(const std::vector<std::string>& texts);

/// Says on standard error that a class has no -init but an alternative, and ends the program.
[[noreturn]] void stopAtInit(const char* className, const char* alternative) noexcept;

}  // namespace korvo::objectivec

#endif
