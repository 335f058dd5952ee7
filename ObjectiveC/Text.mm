#include "Text.h"

#include "Ownership.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <vector>

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

void appendUTF16LittleEndian(std::vector<unsigned char>& bytes, char32_t unit) {
    bytes.push_back(static_cast<unsigned char>(unit & 0xFFU));
    bytes.push_back(static_cast<unsigned char>(unit >> 8U));
}

}  // namespace

// By code units and not by -UTF8String and its kin: those stop at a NUL, or answer a lone surrogate with null
// on one Foundation and with an exception on another.
std::string textFromString(NSString* string, std::string_view loneSurrogate) {
    std::vector<unichar> units(static_cast<std::size_t>([string length]));
    if (units.empty()) {
        return {};
    }
    [string getCharacters:units.data() range:NSMakeRange(0, units.size())];
    std::string text;
    text.reserve(units.size());
    for (std::size_t at = 0; at < units.size(); ++at) {
        const char32_t unit = units[at];
        if (isHighSurrogate(unit) && at + 1 < units.size() && isLowSurrogate(units[at + 1])) {
            ++at;
            appendUTF8(text, 0x10000U + ((unit - 0xD800U) << 10U) + (units[at] - 0xDC00U));
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            text += loneSurrogate;
        } else {
            appendUTF8(text, unit);
        }
    }
    return text;
}

// The byte order is named because GNUstep takes a U+FEFF or U+FFFE at the start of UTF-8, or of UTF-16
// without a named order, as a mark: it drops the character and may swap all others' bytes.
NSString* newStringFromText(std::string_view text) {
    std::vector<unsigned char> bytes;
    bytes.reserve(2 * text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
        for (std::size_t i = 1; i < length; ++i) {
            character = character << 6U | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
        }
        at += length;
        if (character < 0x10000) {
            appendUTF16LittleEndian(bytes, character);
        } else {
            appendUTF16LittleEndian(bytes, 0xD7C0U + (character >> 10U));
            appendUTF16LittleEndian(bytes, 0xDC00U + (character & 0x3FFU));
        }
    }
    return [[NSString alloc] initWithBytes:bytes.data()
                                    length:bytes.size()
                                  encoding:NSUTF16LittleEndianStringEncoding];
}

NSString* stringFromText(std::string_view text) {
    return KORVO_AUTORELEASE(newStringFromText(text));
}

void stopAtInit(const char* className, const char* initialiser) noexcept {
    std::fprintf(stderr, "KorvoQRParser: initialiser init() of KorvoQRParser.%s is not implemented; use %s\n",
                 className, initialiser);
    std::abort();
}

}  // namespace korvo::objectivec
