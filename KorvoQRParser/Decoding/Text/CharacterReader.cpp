#include <KorvoQRParser/Decoding/Text/CharacterBreaks.h>
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>

#include <algorithm>
#include <bit>
#include <cstdint>

namespace korvo {

namespace {

// How far one scan for plain characters looks ahead. That is longer than any payload in use, and short enough
// that a huge text costs nothing when its beginning already decides the answer.
constexpr std::size_t plainWindow = 4096;

// Whether a byte is a whole character when the next byte is ASCII too. CR is not, because CR LF is one
// character.
bool isPlain(char byte) noexcept {
    return static_cast<unsigned char>(byte) < 0x80 && byte != '\r';
}

// The number of plain bytes among the next eight, up to the first that is not plain.
std::size_t plainAmongEight(const char* bytes) noexcept {
    constexpr std::uint64_t ones = 0x0101010101010101U;
    constexpr std::uint64_t highBits = ones << 7U;
    std::uint64_t word = 0;  // the first byte is the lowest, on every machine
    for (unsigned i = 0; i < 8; ++i) {
        word |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << 8 * i;
    }
    const std::uint64_t zeroWhereCR = word ^ (ones * '\r');
    const std::uint64_t highWhereZero = (zeroWhereCR - ones) & ~zeroWhereCR;
    return static_cast<std::size_t>(std::countr_zero((word | highWhereZero) & highBits)) / 8;
}

// The end of the run of one-byte characters that begins at `from`, as far as one scan goes.
std::size_t endOfPlainRun(std::string_view text, std::size_t from) noexcept {
    const std::size_t limit = from + std::min(text.size() - from, plainWindow);
    std::size_t end = from;
    std::size_t plain = 8;
    while (plain == 8 && limit - end >= 8) {
        plain = plainAmongEight(text.data() + end);
        end += plain;
    }
    while (plain == 8 && end < limit && isPlain(text[end])) {
        ++end;
    }
    // A mark that follows the run would join its last byte.
    const bool isMarked = end > from && end < text.size() && static_cast<unsigned char>(text[end]) >= 0x80;
    return isMarked ? end - 1 : end;
}

// Moves `offset` past up to `count` characters and subtracts their number from `count`. It stops early at a
// character that may begin a plain run, and fails at bytes that are not valid UTF-8.
bool skipCharacters(std::string_view text, std::size_t& offset, std::size_t& count) noexcept {
    auto state = BreakState::boundary;
    for (std::size_t next = offset; next < text.size();) {
        const std::size_t begin = next;
        const std::int32_t codePoint = nextCodePoint(text, next);
        if (codePoint < 0) {
            return false;
        }
        const BreakClass breakClass = propertiesOf(codePoint).breakClass;
        state = following(state, breakClass);
        if (state == BreakState::boundary) {
            offset = begin;
            --count;
            if (count == 0 || isPlain(text[begin])) {
                return true;
            }
            state = following(state, breakClass);
        }
    }
    offset = text.size();
    --count;
    return true;
}

}  // namespace

CharacterReader::CharacterReader(std::string_view text) noexcept
    : text_(text), plainEnd_(endOfPlainRun(text, 0)) {}

// Takes `count` characters, at least one of them after the plain run. Takes nothing and returns false when
// there are fewer.
bool CharacterReader::skip(std::size_t count) noexcept {
    std::size_t end = offset_;
    std::size_t plainEnd = plainEnd_;
    while (count > 0 && end < text_.size()) {
        if (end >= plainEnd) {
            plainEnd = endOfPlainRun(text_, end);
        }
        const std::size_t step = std::min(count, plainEnd - end);
        end += step;
        count -= step;
        if (step == 0 && !skipCharacters(text_, end, count)) {
            return false;
        }
    }
    if (count > 0) {
        return false;
    }
    offset_ = end;
    plainEnd_ = std::max(plainEnd, end);
    return true;
}

std::size_t characterCount(std::string_view text) noexcept {
    std::size_t count = 0;
    for (CharacterReader reader(text); reader.take(1).has_value();) {
        ++count;
    }
    return count;
}

}  // namespace korvo
