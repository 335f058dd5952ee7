#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/ICUHandles.h>
#include <KorvoQRParser/Decoding/Text/Lifetimes.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>

namespace korvo {

namespace {

// The compiled pattern of this thread's last call, because callers use the same pattern again and again.
struct CompiledPattern {
    void compile(std::string_view wanted) {
        if (expression != nullptr && pattern == wanted) {
            return;
        }
        pattern = wanted;
        status = U_ZERO_ERROR;
        UText storage = UTEXT_INITIALIZER;
        const ICUHandle<UText> text = openUTF8(storage, pattern, status);
        expression.reset(uregex_openUText(text.get(), 0, nullptr, &status));
    }

    std::string pattern;
    ICUHandle<URegularExpression> expression;
    UErrorCode status = U_ZERO_ERROR;
};

// The reason why a pattern does not compile, in plain words.
const char* reasonOf(UErrorCode status) {
    switch (status) {
        case U_REGEX_MISSING_CLOSE_BRACKET:
            return "a set of characters has no closing bracket";
        case U_REGEX_MISMATCHED_PAREN:
            return "its parentheses do not match";
        case U_REGEX_BAD_ESCAPE_SEQUENCE:
            return "a backslash is followed by a character that has no meaning there";
        case U_REGEX_BAD_INTERVAL:
        case U_REGEX_MAX_LT_MIN:
        case U_REGEX_NUMBER_TOO_BIG:
            return "the numbers in braces are not a valid range";
        case U_REGEX_INVALID_RANGE:
            return "a range of characters ends before it begins";
        default:
            return "its syntax is wrong";
    }
}

// The value of each byte as a digit of radix 36; 36 for a byte that is not a digit.
constexpr std::array<std::uint8_t, 256> digitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(36);
    for (std::uint8_t i = 0; i < 36; ++i) {
        if (i < 10) {
            values[static_cast<std::size_t>('0' + i)] = i;
        } else {
            values[static_cast<std::size_t>('a' + i - 10)] = i;
            values[static_cast<std::size_t>('A' + i - 10)] = i;
        }
    }
    return values;
}();

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
    CharacterReader reader = text.characters();
    if (startOffset <= endOffset && reader.take(startOffset)) {
        if (const auto characters = reader.take(endOffset - startOffset)) {
            return *characters;
        }
    }
    stopProgram("substringWithOffsets", "the offsets lie outside the text");
}

bool matchesRegex(std::string_view text, std::string_view pattern) {
    return withThreadCache<CompiledPattern>([text, pattern](CompiledPattern& last) {
        last.compile(pattern);
        UErrorCode status = last.status;
        if (U_FAILURE(status)) {
            std::printf("\"The pattern is not a regular expression: %s.\"\n", reasonOf(status));
            return false;
        }
        UText storage = UTEXT_INITIALIZER;
        const ICUHandle<UText> subject = openUTF8(storage, text, status);
        uregex_setUText(last.expression.get(), subject.get(), &status);
        const bool found = uregex_find64(last.expression.get(), 0, &status) != 0;
        return U_SUCCESS(status) != 0 && found;
    });
}

std::string lowerCased(std::string_view text) {
    const bool isASCII =
        std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    std::string lowered(text);
    if (isASCII) {
        std::transform(lowered.begin(), lowered.end(), lowered.begin(), asciiLowerCase);
        return lowered;
    }
    // A code point's lower case takes at most three times its bytes.
    lowered.resize(3 * text.size());
    UErrorCode status = U_ZERO_ERROR;
    const ICUHandle<UCaseMap> rootLocale(ucasemap_open("", 0, &status));
    const std::int32_t length =
        ucasemap_utf8ToLower(rootLocale.get(), lowered.data(), static_cast<std::int32_t>(lowered.size()),
                             text.data(), static_cast<std::int32_t>(text.size()), &status);
    return U_SUCCESS(status) ? lowered.substr(0, static_cast<std::size_t>(length)) : std::string(text);
}

std::optional<std::int64_t> parseInteger(std::string_view text, int radix) noexcept {
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    // Negative numbers count downwards, because they reach one further than positive ones.
    const std::int64_t sign = isNegative ? -1 : 1;
    std::int64_t number = 0;
    for (const char c : text) {
        const int digit = digitValues[static_cast<unsigned char>(c)];
        if (digit >= radix || __builtin_mul_overflow(number, std::int64_t{radix}, &number) ||
            __builtin_add_overflow(number, sign * digit, &number)) {
            return std::nullopt;
        }
    }
    return number;
}

std::optional<double> parseDecimal(std::string_view text) noexcept {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc::result_out_of_range && parsed == end) {
        // Outside a double's range strtod returns infinity or zero.
        const bool isHuge = text.substr(0, text.find('.')).find_first_not_of('0') != std::string_view::npos;
        return isHuge ? std::numeric_limits<double>::infinity() : 0.0;
    }
    if (error != std::errc() || parsed != end) {
        return std::nullopt;
    }
    return number;
}

void stopProgram(const char* operation, const char* reason) noexcept {
    std::fprintf(stderr, "KorvoQRParser: %s: %s\n", operation, reason);
    std::abort();
}

}  // namespace korvo
