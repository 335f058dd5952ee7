#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace korvo {

namespace {

// parseInteger for digits whose number cannot overflow. A radix that is known at compile time makes it
// quicker.
[[gnu::always_inline]] inline std::optional<std::int64_t> parseShort(std::string_view digits, int radix,
                                                                     bool isNegative) noexcept {
    std::int64_t number = 0;
    for (const char c : digits) {
        const int digit = digitValue(c);
        if (digit >= radix) {
            return std::nullopt;
        }
        number = number * radix + digit;
    }
    return isNegative ? -number : number;
}

}  // namespace

bool beginsWith(const CountedText& text, char character) {
    if (text.empty() || text.text().front() != character) {
        return false;
    }
    const auto first = text.characters().take(1);
    return first && first->size() == 1;
}

std::string_view droppingLastCharacters(std::string_view text, std::size_t count) noexcept {
    // If the tail and the byte before it are plain, each byte of the tail is one character.
    if (text.size() > count) {
        const std::string_view tail = text.substr(text.size() - count - 1);
        if (std::all_of(tail.begin(), tail.end(), [](char c) { return c > '\r' && c <= '~'; })) {
            return text.substr(0, text.size() - count);
        }
    }
    const CountedText counted(text);
    return counted.characterCount() > count
               ? substringWithOffsets(0, counted.characterCount() - count, counted)
               : text.substr(0, 0);
}

std::optional<std::string_view> substringFromOffset(std::ptrdiff_t offset, const CountedText& text) {
    if (offset < 0) {
        stopProgram("substringFromOffset", "the offset is negative");
    }
    CharacterReader reader = text.characters();
    return reader.take(static_cast<std::size_t>(offset)) ? reader.take(1) : std::nullopt;
}

std::string_view substringWithOffsets(std::size_t startOffset, std::size_t endOffset,
                                      const CountedText& text) {
    if (startOffset <= endOffset && endOffset <= text.text().size() && text.isPlain()) {
        return text.text().substr(startOffset, endOffset - startOffset);
    }
    CharacterReader reader = text.characters();
    if (startOffset <= endOffset && reader.take(startOffset)) {
        if (const auto characters = reader.take(endOffset - startOffset)) {
            return *characters;
        }
    }
    stopProgram("substringWithOffsets", "the offsets lie outside the text");
}

std::optional<std::int64_t> parseInteger(std::string_view text, int radix) noexcept {
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    // So many digits fit in any case.
    constexpr std::size_t safeDecimals = 18;
    constexpr std::size_t safeDigits = 12;  // of radix 36
    if (radix == 10 && text.size() <= safeDecimals) {
        return parseShort(text, 10, isNegative);
    }
    if (text.size() <= safeDigits) {
        return parseShort(text, radix, isNegative);
    }
    // Negative numbers count downwards, because they reach one further than positive ones.
    const std::int64_t sign = isNegative ? -1 : 1;
    std::int64_t number = 0;
    for (const char c : text) {
        const int digit = digitValue(c);
        if (digit >= radix || __builtin_mul_overflow(number, std::int64_t{radix}, &number) ||
            __builtin_add_overflow(number, sign * digit, &number)) {
            return std::nullopt;
        }
    }
    return number;
}

void stopProgram(const char* operation, const char* reason) noexcept {
    std::fprintf(stderr, "KorvoQRParser: %s: %s\n", operation, reason);
    std::abort();
}

}  // namespace korvo
