#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Decoding/Text/ICUHandles.h>
#include <KorvoQRParser/Decoding/Text/Lifetimes.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace korvo {

namespace {

// A sentinel instead of an offset: the bytes cannot be read as text.
constexpr std::size_t noText = std::string_view::npos;

// How far one scan for plain characters looks ahead. That is longer than any payload in use, and short enough
// that a huge text costs nothing when its beginning already decides the answer.
constexpr std::size_t plainWindow = 4096;

// Whether a byte is a whole character when the next byte is ASCII too. CR is not, because CR LF is one
// character.
bool isPlain(char byte) noexcept {
    return static_cast<unsigned char>(byte) < 0x80 && byte != '\r';
}

// isPlain for eight bytes at once: no byte has its high bit set, and none is CR.
bool areEightPlain(const char* bytes) noexcept {
    constexpr std::uint64_t ones = 0x0101010101010101U;
    constexpr std::uint64_t highBits = ones << 7U;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    const std::uint64_t zeroWhereCR = word ^ (ones * '\r');
    const std::uint64_t highWhereZero = (zeroWhereCR - ones) & ~zeroWhereCR;
    return ((word | highWhereZero) & highBits) == 0;
}

// How a code point joins its neighbours, as far as all versions of UAX #29 agree.
enum class Joining : unsigned char {
    none,       // joins only the marks that follow it
    control,    // joins nothing, except that CR LF is one character
    mark,       // joins the character before it and, after it, only other marks
    complex,    // everything else; the Unicode library decides
    malformed,  // not a code point
};

Joining joiningOf(std::int32_t codePoint) noexcept {
    constexpr int viramaClass = 9;  // the combining class of all marks that may link two letters
    if (codePoint < 0) {
        return Joining::malformed;
    }
    switch (u_getIntPropertyValue(codePoint, UCHAR_GRAPHEME_CLUSTER_BREAK)) {
        case U_GCB_OTHER:
            return Joining::none;
        case U_GCB_CONTROL:
        case U_GCB_CR:
        case U_GCB_LF:
            return Joining::control;
        case U_GCB_EXTEND:
        case U_GCB_SPACING_MARK:
            return u_getCombiningClass(codePoint) == viramaClass ? Joining::complex : Joining::mark;
        default:
            return Joining::complex;
    }
}

// A code point, how it joins, and where it ends.
struct CodePoint {
    CodePoint(std::string_view text, std::size_t offset) noexcept
        : end(offset), value(nextCodePoint(text, end)), joining(joiningOf(value)) {}

    bool standsAlone() const noexcept { return joining == Joining::none || joining == Joining::control; }

    std::size_t end;
    std::int32_t value;
    Joining joining;
};

bool isCRLF(const CodePoint& first, const CodePoint& second) noexcept {
    return first.value == '\r' && second.value == '\n';
}

// The end of the character at `start`, if it can be found without the Unicode library: an ordinary code point
// with its marks, or a control. Otherwise `start` itself.
std::size_t endOfSimpleCharacter(std::string_view text, std::size_t start) noexcept {
    const CodePoint first(text, start);
    if (!first.standsAlone()) {
        return start;
    }
    std::size_t end = first.end;
    while (end < text.size()) {
        const CodePoint next(text, end);
        if (first.joining == Joining::control) {
            return isCRLF(first, next) ? next.end : end;
        }
        if (next.joining != Joining::mark) {
            return next.standsAlone() ? end : start;
        }
        end = next.end;
    }
    return end;
}

// The end of the stretch that begins at `start` and can be cut on its own. It ends between two code points
// that both stand alone. noText when it contains bytes that are not a code point.
std::size_t endOfStretch(std::string_view text, std::size_t start) noexcept {
    CodePoint previous(text, start);
    while (previous.joining != Joining::malformed && previous.end < text.size()) {
        const CodePoint next(text, previous.end);
        if (previous.standsAlone() && next.standsAlone() && !isCRLF(previous, next)) {
            break;
        }
        previous = next;
    }
    return previous.joining == Joining::malformed ? noText : previous.end;
}

// Cuts up to `count` characters off the beginning of a stretch, subtracts their number from `count`, and
// returns their length in bytes. noText when the Unicode library refuses, as it does beyond 2 GiB.
std::size_t cutStretch(UBreakIterator* iterator, std::string_view stretch, std::size_t& count) {
    if (iterator == nullptr || stretch.size() > std::numeric_limits<std::int32_t>::max()) {
        return noText;
    }
    UErrorCode status = U_ZERO_ERROR;
    UText text = UTEXT_INITIALIZER;
    const ICUHandle<UText> opened = openUTF8(text, stretch, status);
    ubrk_setUText(iterator, opened.get(), &status);
    if (U_FAILURE(status)) {
        return noText;
    }
    std::size_t end = 0;
    while (count > 0 && end < stretch.size()) {
        end = static_cast<std::size_t>(ubrk_next(iterator));
        --count;
    }
    return end;
}

// The iterator costs far more to open than to use, so each thread keeps one.
struct CharacterIterator {
    UErrorCode status = U_ZERO_ERROR;
    ICUHandle<UBreakIterator> handle{ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status)};
};

}  // namespace

std::int32_t nextCodePointBeyondASCII(std::string_view text, std::size_t& offset) noexcept {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::int32_t codePoint = 0;
    U8_NEXT(bytes, offset, text.size(), codePoint);
    return codePoint;
}

// Sets plainEnd_ to the end of the run of one-byte characters that begins at `from`, as far as one scan goes.
void CharacterReader::findPlainRun(std::size_t from) noexcept {
    const std::size_t limit = from + std::min(text_.size() - from, plainWindow);
    std::size_t end = from;
    while (limit - end >= sizeof(std::uint64_t) && areEightPlain(text_.data() + end)) {
        end += sizeof(std::uint64_t);
    }
    while (end < limit && isPlain(text_[end])) {
        ++end;
    }
    // A mark that follows the run would join its last byte.
    if (end > from && end < text_.size() && static_cast<unsigned char>(text_[end]) >= 0x80) {
        --end;
    }
    plainEnd_ = end;
}

// Takes `count` characters, at least one of them after the plain run. Takes nothing and returns false when
// there are fewer.
bool CharacterReader::skip(std::size_t count) noexcept {
    const std::size_t plainEndBefore = plainEnd_;
    std::size_t end = offset_;
    while (count > 0 && end < text_.size()) {
        if (end >= plainEnd_ && isPlain(text_[end])) {
            findPlainRun(end);
        }
        if (end < plainEnd_) {
            const std::size_t step = std::min(count, plainEnd_ - end);
            end += step;
            count -= step;
            continue;
        }
        const std::size_t simpleEnd = endOfSimpleCharacter(text_, end);
        if (simpleEnd != end) {
            end = simpleEnd;
            --count;
            continue;
        }
        if (stretchEnd_ <= end) {
            const std::size_t stretchEnd = endOfStretch(text_, end);
            stretchEnd_ = stretchEnd == noText ? 0 : stretchEnd;
        }
        if (stretchEnd_ == 0) {
            break;
        }
        const std::string_view stretch = text_.substr(end, stretchEnd_ - end);
        const std::size_t cut =
            withThreadCache<CharacterIterator>([stretch, &count](const CharacterIterator& characters) {
                return cutStretch(characters.handle.get(), stretch, count);
            });
        if (cut == noText) {
            break;
        }
        end += cut;
    }
    if (count > 0) {
        plainEnd_ = plainEndBefore;
        return false;
    }
    offset_ = end;
    plainEnd_ = std::max(plainEnd_, end);
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
