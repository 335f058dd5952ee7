#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/CharacterProperties.h>
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Explanation/VisibleText.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace korvo {

namespace {

void appendHex(std::string& text, std::uint32_t number) {
    int digits = 1;
    while (digits < 8 && number >> (4 * digits) != 0) {
        ++digits;
    }
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
        text += "0123456789ABCDEF"[number >> shift & 0xFU];
    }
}

void appendBytes(std::string& result, std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (const char byte : bytes) {
        const auto number = static_cast<unsigned char>(byte);
        const std::array escape{'\\', 'x', digits[number >> 4U], digits[number & 0xFU]};
        result.append(escape.data(), escape.size());
    }
}

// Whether a person cannot see a code point, or takes it for a plain blank.
bool isInvisible(std::int32_t codePoint) {
    const auto [breakClass, group] = propertiesOf(codePoint);
    return breakClass == BreakClass::control || breakClass == BreakClass::carriageReturn ||
           breakClass == BreakClass::lineFeed ||
           (group == CharacterGroup::spaceSeparator && codePoint != ' ');
}

void appendVisible(std::string& result, std::string_view text) {
    for (std::size_t offset = 0; offset < text.size();) {
        const std::size_t start = offset;
        const std::int32_t codePoint = nextCodePoint(text, offset);
        const std::string_view bytes = text.substr(start, offset - start);
        if (codePoint < 0 || (codePoint < 0x80 && isInvisible(codePoint))) {
            appendBytes(result, bytes);
        } else if (isInvisible(codePoint)) {
            result += "\\u{";
            appendHex(result, static_cast<std::uint32_t>(codePoint));
            result += '}';
        } else {
            result += codePoint == '"' || codePoint == '\\' ? "\\" : "";
            result += bytes;
        }
    }
}

}  // namespace

std::string inQuotes(std::string_view text) {
    constexpr std::size_t mostCharacters = 40;
    constexpr std::size_t mostBytes = 400;  // a character can have any number of marks
    std::string result = "\"";
    CharacterReader characters(text);
    std::size_t end = 0;
    for (std::size_t i = 0; i < mostCharacters && characters.take(1) && characters.offset() <= mostBytes;
         ++i) {
        end = characters.offset();
    }
    // What is not UTF-8, or a character of very many marks, is cut between code points.
    while (end < std::min(text.size(), mostCharacters)) {
        nextCodePoint(text, end);
    }
    appendVisible(result, text.substr(0, end));
    return result += end == text.size() ? "\"" : "...\"";
}

std::size_t firstMalformedByte(std::string_view text) noexcept {
    for (std::size_t offset = 0; offset < text.size();) {
        const std::size_t start = offset;
        if (nextCodePoint(text, offset) < 0) {
            return start;
        }
    }
    return text.size();
}

std::string withVisibleBytes(std::string_view text) {
    if (isUTF8(text)) {
        return std::string(text);
    }
    std::string result;
    result.reserve(2 * text.size());
    std::size_t written = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const std::size_t start = offset;
        const bool isBackslash = text[offset] == '\\';
        if (nextCodePoint(text, offset) < 0 || isBackslash) {
            result.append(text, written, start - written);
            if (isBackslash) {
                result += "\\\\";
            } else {
                appendBytes(result, text.substr(start, offset - start));
            }
            written = offset;
        }
    }
    return result.append(text, written);
}

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += part;
    }
    return text;
}

std::string capitalised(std::string sentence) {
    sentence[0] = asciiUpperCase(sentence[0]);
    return sentence;
}

std::string counted(std::size_t count, std::string_view noun) {
    return joined({std::to_string(count), " ", noun, count == 1 ? "" : "s"});
}

}  // namespace korvo
