#include <KorvoQRParser/Decoding/Text/CharacterBreaks.h>
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

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

// The high bit of each of the next eight bytes that may not be plain, the first byte lowest. Bytes after the
// first such byte may be marked without reason.
std::uint64_t notPlainAmongEight(const char* bytes) noexcept {
    constexpr std::uint64_t ones = 0x0101010101010101U;
    constexpr std::uint64_t highBits = ones << 7U;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    if constexpr (std::endian::native == std::endian::big) {
        word = __builtin_bswap64(word);
    }
    const std::uint64_t zeroWhereCR = word ^ (ones * '\r');
    const std::uint64_t highWhereZero = (zeroWhereCR - ones) & ~zeroWhereCR;
    return (word | highWhereZero) & highBits;
}

// The end of the run of one-byte characters that begins at `from`, as far as one scan goes.
std::size_t endOfPlainRun(std::string_view text, std::size_t from) noexcept {
    constexpr std::size_t step = 8;
    const std::size_t limit = from + std::min(text.size() - from, plainWindow);
    std::size_t end = from;
    if (limit - from < step) {
        while (end < limit && isPlain(text[end])) {
            ++end;
        }
    } else {
        // The last eight bytes overlap those before them, which are plain then.
        const std::size_t lastStep = limit - step;
        std::uint64_t notPlain = 0;
        while (end < lastStep && (notPlain = notPlainAmongEight(text.data() + end)) == 0) {
            end += step;
        }
        if (notPlain == 0) {
            end = lastStep;
            notPlain = notPlainAmongEight(text.data() + end);
        }
        end += static_cast<std::size_t>(std::countr_zero(notPlain)) / step;  // bits to bytes
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
