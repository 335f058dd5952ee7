#include "Text.h"

#include "Ownership.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace korvo::objectivec {

namespace {

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void appendUTF8(std::string& text, char32_t character) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
        return;
    }
    if (character < 0x800) {
        append(0xC0U | character >> 6U);
    } else {
        if (character < 0x10000) {
            append(0xE0U | character >> 12U);
        } else {
            append(0xF0U | character >> 18U);
            append(0x80U | (character >> 12U & 0x3FU));
        }
        append(0x80U | (character >> 6U & 0x3FU));
    }
    append(0x80U | (character & 0x3FU));
}

char32_t joined(char32_t high, char32_t low) {
    return 0x10000U + ((high - 0xD800U) << 10U) + (low - 0xDC00U);
}

constexpr char32_t replacementCharacter = 0xFFFD;

// The character at `at`, which moves behind it. Only texts that textFromString did not make, or that were cut
// since, have bytes that need the replacement.
char32_t takeUTF8(std::string_view text, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0x80) {
        return lead;
    }
    if (lead < 0xC0 || lead > 0xF4) {
        return replacementCharacter;
    }
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if (at == text.size() || (static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U) {
            return replacementCharacter;
        }
        character = character << 6U | (static_cast<unsigned char>(text[at++]) & 0x3FU);
    }
    return character <= 0x10FFFF ? character : replacementCharacter;
}

// The byte order is named because GNUstep takes a U+FEFF or U+FFFE at the start of UTF-8, or of UTF-16
// without a named order, as a mark: it drops the character and may swap all others' bytes.
NSString* newStringOfWholeCharacters(const std::vector<unichar>& units) NS_RETURNS_RETAINED {
    std::vector<unsigned char> bytes;
    bytes.reserve(2 * units.size());
    for (const unichar unit : units) {
        bytes.push_back(static_cast<unsigned char>(unit & 0xFFU));
        bytes.push_back(static_cast<unsigned char>(unit >> 8U));
    }
    return [[NSString alloc] initWithBytes:bytes.data()
                                    length:bytes.size()
                                  encoding:NSUTF16LittleEndianStringEncoding];
}

// Every initialiser of GNUstep answers a surrogate without its other half with nil.
NSString* newStringUnitByUnit(const std::vector<unichar>& units) NS_RETURNS_RETAINED {
    NSMutableString* string = [[NSMutableString alloc] initWithCapacity:units.size()];
    for (const unichar unit : units) {
        [string appendFormat:@"%C", unit];
    }
    return string;
}

}  // namespace

// By code units and not by -UTF8String and its kin: those stop at a NUL, or answer a lone surrogate with null
// on one Foundation and with an exception on another.
std::string textFromString(NSString* string) {
    std::vector<unichar> units(static_cast<std::size_t>([string length]));
    if (units.empty()) {
        return {};
    }
    [string getCharacters:units.data() range:NSMakeRange(0, units.size())];
    std::string text;
    text.reserve(units.size());
    for (std::size_t at = 0; at < units.size(); ++at) {
        char32_t character = units[at];
        if (isHighSurrogate(character) && at + 1 < units.size() && isLowSurrogate(units[at + 1])) {
            character = joined(character, units[++at]);
        }
        appendUTF8(text, character);
    }
    return text;
}

NSString* newStringFromText(std::string_view text) {
    std::vector<unichar> units;
    units.reserve(text.size());
    bool isWhole = true;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = takeUTF8(text, at);
        if (character < 0x10000) {
            isWhole = isWhole && !isHighSurrogate(character) && !isLowSurrogate(character);
            units.push_back(static_cast<unichar>(character));
        } else {
            units.push_back(static_cast<unichar>(0xD7C0U + (character >> 10U)));
            units.push_back(static_cast<unichar>(0xDC00U + (character & 0x3FFU)));
        }
    }
    return isWhole ? newStringOfWholeCharacters(units) : newStringUnitByUnit(units);
}

NSString* stringFromText(std::string_view text) {
    return KORVO_AUTORELEASE(newStringFromText(text));
}

NSArray<NSString*>* arrayFromTexts(const std::vector<std::string>& texts) {
    NSMutableArray<NSString*>* array = [[NSMutableArray alloc] initWithCapacity:texts.size()];
    for (const std::string& text : texts) {
        NSString* string = newStringFromText(text);
        [array addObject:string];
        KORVO_RELEASE(string);
    }
    return KORVO_AUTORELEASE(array);
}

void stopAtInit(const char* className, const char* alternative) noexcept {
    std::fprintf(stderr, "KorvoQRParser: initialiser init() of KorvoQRParser.%s is not implemented; use %s\n",
                 className, alternative);
    std::abort();
}

}  // namespace korvo::objectivec
