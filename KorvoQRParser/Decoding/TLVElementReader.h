#ifndef KORVOQRPARSER_DECODING_TLVELEMENTREADER_H
#define KORVOQRPARSER_DECODING_TLVELEMENTREADER_H

#include <KorvoQRParser/Decoding/TLVDecodingError.h>
#include <KorvoQRParser/Decoding/TagRow.h>
#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/CountedText.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>

#include <bit>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace korvo {

namespace detail {

// The one character outside ASCII whose lower case is a digit: "k".
inline constexpr std::string_view kelvinSign = "\u212A";

// The bit of a tag in the set of seen tags; negative when it has none. Only tags of two digits or of one
// ASCII character have a bit: every other tag is unknown, and decoding ends at the first unknown tag.
inline int seenTagBit(std::string_view tag) {
    if (tag.size() == 1) {
        return static_cast<unsigned char>(asciiLowerCase(tag[0]));
    }
    return twoDigitNumber(tag);
}

struct TwoNumbers {
    std::size_t first;
    std::size_t second;
};

// The numbers that four ASCII digits write, two digits each. Both are 0 if one of the bytes is no digit. All
// four bytes are worked on at once.
inline TwoNumbers twoNumbers(const char* bytes) noexcept {
    std::uint32_t digits = 0;
    std::memcpy(&digits, bytes, sizeof digits);
    if constexpr (std::endian::native == std::endian::big) {
        digits = __builtin_bswap32(digits);  // the first byte is the lowest
    }
    digits ^= 0x30303030U;
    // A byte above 9 gets its high bit from the sum, or has it already.
    if (((digits | (digits + 0x76767676U)) & 0x80808080U) != 0) {
        return {0, 0};
    }
    const std::uint32_t pairs = 10 * digits + (digits >> 8U);  // no byte exceeds 99
    return {pairs & 0xFFU, pairs >> 16U & 0xFFU};
}

}  // namespace detail

/// The shape of the elements on one level of a payload: the width of tags and length fields, and the allowed
/// lengths.
struct TLVFormat {
    std::size_t fieldWidth;      ///< length of a tag, and of a length field, in characters
    int lengthRadix;             ///< base of the number in the length field
    std::int64_t minimumLength;  ///< length of the shortest value, in characters

    /// The number in a length field. Negative, and so below every minimum, when the field is not a number.
    std::int64_t readLength(std::string_view field) const noexcept {
        // Nearly every length field takes this path, which avoids the general parse.
        if (const int number = twoDigitNumber(field); number >= 0) {
            return number;
        }
        if (fieldWidth == 1) {
            const int digit = field.size() == 1             ? digitValue(field[0])
                              : field == detail::kelvinSign ? digitValue('k')
                                                            : lengthRadix;
            return digit < lengthRadix ? digit : -1;
        }
        return parseInteger(field, lengthRadix).value_or(-1);
    }
};

/// The format of payloads that begin with "00", and of the elements inside tag 62.
inline constexpr TLVFormat twoDigitFormat{2, 10, 1};
/// The format of all other payloads. Its tags and lengths may be written in either letter case.
inline constexpr TLVFormat oneCharacterFormat{1, 36, 0};

namespace detail {

// The numbers of the tag and the length at the beginning of an element of plain characters. The length is too
// small or too large for every text if one of the two is no number.
template <const TLVFormat& shape>
[[gnu::always_inline]] inline TwoNumbers plainHead(const char* bytes) noexcept {
    if constexpr (shape.fieldWidth == 2) {
        return twoNumbers(bytes);
    } else {
        const int length = digitValue(bytes[1]);
        return {static_cast<unsigned char>(asciiLowerCase(bytes[0])),
                length < shape.lengthRadix ? static_cast<std::size_t>(length) : std::string_view::npos};
    }
}

}  // namespace detail

/// One element, as views into the text that it was read from.
struct TLVElement {
    std::string_view tag;     ///< as written
    std::string_view length;  ///< as written
    CountedText value;
};

/// Reads the elements of one level, one after the other. Only this class knows the shape of an element, in
/// either format. It checks that shape, and that no tag is repeated on its level. It does not know which tags
/// exist.
class TLVElementReader {
  public:
    /// Reads the text that `characters` has not taken yet. The text must outlive the reader and its elements.
    TLVElementReader(const CharacterReader& characters, const TLVFormat& format) noexcept
        : characters_(characters), format_(format) {}

    const TLVFormat& format() const noexcept { return format_; }

    /// Whether all elements have been read.
    bool atEnd() const noexcept { return characters_.atEnd(); }

    /// The unread text. After a fault it begins after the parts of the element that were read.
    std::string_view rest() const noexcept { return characters_.rest(); }

    /// Takes the next element if it has only plain characters and nothing wrong, as nearly all have, and
    /// returns the number of its tag: of two digits, or of one ASCII character. Otherwise takes nothing and
    /// returns a negative number; then `next` takes it or tells the fault. `shape` is the reader's format,
    /// as a constant.
    template <const TLVFormat& shape>
    [[nodiscard]] int takePlain(TLVElement& element) noexcept;

    /// Reads the next element into `element`. Returns the fault, InvalidTagLength or RepeatedTag; absent on
    /// success. After a fault, `element` holds the parts that were read, its other parts are empty, and the
    /// reader must not be used again.
    [[nodiscard]] std::optional<TLVDecodingError> next(TLVElement& element) noexcept;

  private:
    bool isRepeated(std::string_view tag) noexcept;

    CharacterReader characters_;
    TLVFormat format_;
    std::bitset<128> seenTags_;
};

// Inline, because the loops of the walk know the format and leave out what it does not need.
[[gnu::always_inline]] inline std::optional<TLVDecodingError> TLVElementReader::next(
    TLVElement& element) noexcept {
    const auto tag = characters_.take(format_.fieldWidth);
    if (!tag) {
        element = {};
        return TLVDecodingError::InvalidTagLength;
    }
    element = {*tag, {}, {}};
    if (isRepeated(*tag)) {
        return TLVDecodingError::RepeatedTag;
    }
    const auto lengthField = characters_.take(format_.fieldWidth);
    if (!lengthField) {
        return TLVDecodingError::InvalidTagLength;
    }
    element.length = *lengthField;
    const std::int64_t length = format_.readLength(*lengthField);
    if (length < format_.minimumLength) {
        return TLVDecodingError::InvalidTagLength;
    }
    const auto valueLength = static_cast<std::size_t>(length);
    const auto value = characters_.take(valueLength);
    if (!value) {
        return TLVDecodingError::InvalidTagLength;
    }
    element.value = {*value, valueLength};
    return std::nullopt;
}

template <const TLVFormat& shape>
[[gnu::always_inline]] inline int TLVElementReader::takePlain(TLVElement& element) noexcept {
    constexpr std::size_t width = shape.fieldWidth;
    const std::string_view plain = characters_.plainRest();
    if (plain.size() < 2 * width) {
        return -1;
    }
    const auto [tag, length] = detail::plainHead<shape>(plain.data());
    if (length < static_cast<std::size_t>(shape.minimumLength) || length > plain.size() - 2 * width ||
        seenTags_[tag]) {
        return -1;
    }
    seenTags_[tag] = true;
    const char* const begin = plain.data();
    element = {{begin, width}, {begin + width, width}, {{begin + 2 * width, length}, length}};
    characters_.takePlain(2 * width + length);
    return static_cast<int>(tag);
}

inline bool TLVElementReader::isRepeated(std::string_view tag) noexcept {
    const int bit = detail::seenTagBit(tag);
    if (bit < 0) {
        return false;
    }
    const bool repeated = seenTags_[static_cast<std::size_t>(bit)];
    seenTags_[static_cast<std::size_t>(bit)] = true;
    return repeated;
}

}  // namespace korvo

#endif
