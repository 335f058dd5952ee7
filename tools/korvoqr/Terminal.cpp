#include "Terminal.h"

#include "LibraryInternals.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <langinfo.h>
#include <sys/ioctl.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unistd.h>

namespace korvoqr {

namespace {

constexpr std::int32_t zeroWidthNonJoiner = 0x200C;
constexpr std::int32_t zeroWidthJoiner = 0x200D;
constexpr std::int32_t emojiVariation = 0xFE0F;

bool isSet(const char* variable) {
    const char* const value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): no thread sets any
    return value != nullptr && *value != '\0';
}

bool isLocaleUTF8() {
    std::setlocale(LC_CTYPE, "");                            // NOLINT(concurrency-mt-unsafe)
    return std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;  // NOLINT(concurrency-mt-unsafe)
}

std::size_t widthOf(int fileDescriptor) {
    constexpr std::size_t narrowest = 60;  // a table does not fit into less
    winsize size{};
    if (ioctl(fileDescriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return 80;
    }
    return std::max<std::size_t>(size.ws_col, narrowest);
}

bool isEmoji(std::int32_t codePoint) {
    return codePoint >= 0x80 && u_hasBinaryProperty(codePoint, UCHAR_EMOJI) != 0;
}

// A joiner is legitimate between letters and their marks, which it shapes, and between emoji, which it
// combines.
bool isJoinable(std::int32_t codePoint) {
    constexpr std::uint32_t mask = U_GC_L_MASK | U_GC_M_MASK;
    return codePoint >= 0x80 && ((U_GET_GC_MASK(codePoint) & mask) != 0 || isEmoji(codePoint));
}

// Whether a person does not see the code point or mistakes it for another, or a terminal obeys it.
bool isInvisible(std::int32_t codePoint, std::int32_t previous, std::int32_t next) {
    constexpr std::uint32_t mask = U_GC_C_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK | U_GC_ZS_MASK;
    if (codePoint == ' ') {
        return false;
    }
    if (codePoint == zeroWidthJoiner || codePoint == zeroWidthNonJoiner) {
        return !isJoinable(previous) || !isJoinable(next);
    }
    if (codePoint == emojiVariation) {
        return !isEmoji(previous);
    }
    return (U_GET_GC_MASK(codePoint) & mask) != 0 ||
           u_hasBinaryProperty(codePoint, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) != 0;
}

std::size_t columnsOf(std::int32_t codePoint) {
    if ((U_GET_GC_MASK(codePoint) & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0) {
        return 0;
    }
    switch (u_getIntPropertyValue(codePoint, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
        case U_GCB_V:
        case U_GCB_T:
            return 0;  // drawn into the syllable before it
        default:
            break;
    }
    const int width = u_getIntPropertyValue(codePoint, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

std::string formatted(const char* format, std::uint32_t number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), format, static_cast<unsigned>(number));
    return text.data();
}

// As \x1B or \u{202E}; bytes that are not a code point, one by one.
std::string escapedForPerson(std::int32_t codePoint, std::string_view bytes) {
    if (codePoint >= 0x80) {
        return formatted("\\u{%X}", static_cast<std::uint32_t>(codePoint));
    }
    std::string escaped;
    for (const char byte : bytes) {
        escaped += formatted("\\x%02X", static_cast<unsigned char>(byte));
    }
    return escaped;
}

// In UTF-16 code units, as JSON requires.
std::string escapedForJSON(std::int32_t codePoint, std::string_view bytes) {
    constexpr std::int32_t beyondOneUnit = 0x10000;
    if (codePoint < 0) {
        return std::string(bytes);
    }
    const auto number = static_cast<std::uint32_t>(codePoint);
    return codePoint < beyondOneUnit
               ? formatted("\\u%04X", number)
               : formatted("\\u%04X", U16_LEAD(number)) + formatted("\\u%04X", U16_TRAIL(number));
}

// The text with invisible code points escaped, except those in `asItIs`. Those in `withBackslash` get a
// backslash.
std::string shown(std::string_view text, std::string_view withBackslash, std::string_view asItIs,
                  std::string (*escape)(std::int32_t, std::string_view)) {
    constexpr std::int32_t none = -1;
    std::string result;
    std::int32_t previous = none;
    for (std::size_t offset = 0; offset < text.size();) {
        const std::size_t start = offset;
        const std::int32_t codePoint = korvo::nextCodePoint(text, offset);
        std::size_t ahead = offset;
        const std::int32_t next = ahead < text.size() ? korvo::nextCodePoint(text, ahead) : none;
        const std::string_view bytes = text.substr(start, offset - start);
        if (codePoint < 0 ||
            (asItIs.find(bytes) == std::string_view::npos && isInvisible(codePoint, previous, next))) {
            result += escape(codePoint, bytes);
        } else {
            result += withBackslash.find(bytes) != std::string_view::npos ? "\\" : "";
            result += bytes;
        }
        previous = codePoint;
    }
    return result;
}

}  // namespace

bool isTerminal(int fileDescriptor) {
    const char* const terminal = std::getenv("TERM");  // NOLINT(concurrency-mt-unsafe)
    return isatty(fileDescriptor) != 0 && terminal != nullptr && std::strcmp(terminal, "dumb") != 0;
}

Style styleOf(int fileDescriptor, ColourChoice choice) {
    Style style;
    if (choice == ColourChoice::always || isTerminal(fileDescriptor)) {
        style.width = widthOf(fileDescriptor);
    }
    switch (choice) {
        case ColourChoice::automatic:
            style.colour = isTerminal(fileDescriptor) && !isSet("NO_COLOR");
            style.boxes = isTerminal(fileDescriptor) && isLocaleUTF8();
            break;
        case ColourChoice::always:
            style.colour = style.boxes = true;
            break;
        case ColourChoice::never:
            break;
    }
    return style;
}

std::string painted(const Style& style, Paint paint, std::string_view text) {
    std::string result;
    if (!style.colour || text.empty()) {
        return result += text;
    }
    switch (paint) {
        case Paint::heading:
            result += "\x1B[1m";
            break;
        case Paint::fault:
            result += "\x1B[31m";
            break;
        case Paint::dim:
            result += "\x1B[2m";
            break;
        case Paint::good:
            result += "\x1B[32m";
            break;
    }
    result += text;
    return result += "\x1B[0m";
}

std::string visible(std::string_view text) {
    return shown(text, "\"\\", "", escapedForPerson);
}

std::string inQuotes(std::string_view text) {
    return '"' + visible(text) + '"';
}

std::string harmless(std::string_view text, std::string_view asTheyAre) {
    return shown(text, "", asTheyAre, escapedForPerson);
}

std::string harmlessJSON(std::string_view json) {
    return shown(json, "", "\n", escapedForJSON);
}

std::string grouped(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t i = digits.size(); i > 3; i -= 3) {
        digits.insert(i - 3, 1, ',');
    }
    return digits;
}

// Terminals differ on emoji. This counts a skin colour as wide as an emoji, as some terminals do, so that no
// line is too long.
std::size_t displayWidth(std::string_view text) {
    std::size_t columns = 0;
    std::int32_t previous = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const std::int32_t codePoint = korvo::nextCodePoint(text, offset);
        if (codePoint == emojiVariation) {
            // It turns a narrow sign into a wide emoji.
            columns += isEmoji(previous) && columnsOf(previous) == 1 ? 1 : 0;
        } else if (previous != zeroWidthJoiner || !isEmoji(codePoint)) {
            columns += columnsOf(codePoint);
        }
        previous = codePoint;
    }
    return columns;
}

std::string padded(std::string_view text, std::size_t width) {
    return std::string(text) + std::string(width - std::min(width, displayWidth(text)), ' ');
}

std::string rightAligned(std::string_view text, std::size_t width) {
    return std::string(width - std::min(width, displayWidth(text)), ' ') + std::string(text);
}

std::vector<std::string_view> wrapped(std::string_view text, std::size_t width, bool atBlanks) {
    std::vector<std::string_view> lines;
    korvo::CharacterReader characters(text);
    std::size_t start = 0;
    std::size_t breakAt = 0;  // after the last blank of this line; not after `start` if there is none
    std::size_t columns = 0;
    while (width > 0) {
        const std::size_t before = characters.offset();
        const auto character = characters.take(1);
        if (!character) {
            break;
        }
        columns += displayWidth(*character);
        if (atBlanks && *character == " ") {
            breakAt = characters.offset();
        }
        if (columns > width && before > start) {
            const bool isAtBlank = breakAt > start;
            const std::size_t next = isAtBlank ? breakAt : before;
            lines.push_back(text.substr(start, next - start - (isAtBlank ? 1 : 0)));
            start = next;
            columns = displayWidth(text.substr(start, characters.offset() - start));
        }
    }
    if (start < text.size() || lines.empty()) {
        lines.push_back(text.substr(start));
    }
    return lines;
}

}  // namespace korvoqr
