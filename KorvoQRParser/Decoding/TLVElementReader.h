#ifndef KORVOQRPARSER_DECODING_TLVELEMENTREADER_H
#define KORVOQRPARSER_DECODING_TLVELEMENTREADER_H

#include <KorvoQRParser/Decoding/TLVDecodingError.h>
#include <KorvoQRParser/Decoding/Text/CountedText.h>

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace korvo {

/// The shape of the elements on one level of a payload: the width of tags and length fields, and the allowed
/// lengths.
struct TLVFormat {
    std::size_t fieldWidth;      ///< length of a tag, and of a length field, in characters
    int lengthRadix;             ///< base of the number in the length field
    std::int64_t minimumLength;  ///< length of the shortest value, in characters

    /// The number in a length field. Negative, and so below every minimum, when the field is not a number.
    std::int64_t readLength(std::string_view field) const noexcept;
};

/// The format of payloads that begin with "00", and of the elements inside tag 62.
inline constexpr TLVFormat twoDigitFormat{2, 10, 1};
/// The format of all other payloads. Its tags and lengths may be written in either letter case.
inline constexpr TLVFormat oneCharacterFormat{1, 36, 0};

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

}  // namespace korvo

#endif
