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

/// What tells one level of a payload from another: how wide a tag and a length field are, and which lengths
/// are allowed.
struct TLVFormat {
    std::size_t fieldWidth;      ///< characters of a tag, and of a length field
    int lengthRadix;             ///< base of the number in the length field
    std::int64_t minimumLength;  ///< the shortest value's characters

    /// The number in a length field; negative when it holds none, which is below every shortest length.
    std::int64_t readLength(std::string_view field) const noexcept;
};

/// The format of payloads that begin with "00", and of what is inside tag 62.
inline constexpr TLVFormat twoDigitFormat{2, 10, 1};
/// The format of all other payloads. Its tags and lengths may be written in either letter case.
inline constexpr TLVFormat oneCharacterFormat{1, 36, 0};

/// One element, as views into the text it was read from.
struct TLVElement {
    std::string_view tag;     ///< as written
    std::string_view length;  ///< as written
    CountedText value;
};

/// Reads a text's elements one after the other: the one place that knows the shape of an element, in either
/// format. It checks that shape and that no tag of its level is repeated, and knows nothing about which tags
/// there are.
class TLVElementReader {
  public:
    /// Reads what `characters` has not taken yet.
    TLVElementReader(const CharacterReader& characters, const TLVFormat& format) noexcept
        : characters_(characters), format_(format) {}

    const TLVFormat& format() const noexcept { return format_; }

    /// Whether all elements have been read.
    bool atEnd() const noexcept { return characters_.atEnd(); }

    /// What has not been read: after a fault, from the part of the element that is wrong.
    std::string_view rest() const noexcept { return characters_.rest(); }

    /// Reads the next element into `element`. On a fault, InvalidTagLength or RepeatedTag, the parts that
    /// were read before it have been filled in, and the reader must not be used to read on.
    [[nodiscard]] std::optional<TLVDecodingError> next(TLVElement& element) noexcept;

  private:
    bool isRepeated(std::string_view tag) noexcept;

    CharacterReader characters_;
    TLVFormat format_;
    std::bitset<128> seenTags_;
};

}  // namespace korvo

#endif
