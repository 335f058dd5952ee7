#ifndef KORVOQRPARSER_DECODING_TEXT_CHARACTERREADER_H
#define KORVOQRPARSER_DECODING_TEXT_CHARACTERREADER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace korvo {

/// What nextCodePoint does where the text's byte at the offset is not ASCII.
std::int32_t nextCodePointBeyondASCII(std::string_view text, std::size_t& offset) noexcept;

/// Reads the code point at a byte offset and moves the offset behind it. Negative when the bytes there are
/// not well-formed UTF-8. The offset must lie before the text's end.
inline std::int32_t nextCodePoint(std::string_view text, std::size_t& offset) noexcept {
    const auto byte = static_cast<unsigned char>(text[offset]);
    if (byte < 0x80) {
        ++offset;
        return byte;
    }
    return nextCodePointBeyondASCII(text, offset);
}

/// Whether all bytes of a text are well-formed UTF-8.
inline bool isUTF8(std::string_view text) noexcept {
    for (std::size_t offset = 0; offset < text.size();) {
        if (nextCodePoint(text, offset) < 0) {
            return false;
        }
    }
    return true;
}

/// Takes a UTF-8 text apart into user-perceived characters (extended grapheme clusters, UAX #29), from left
/// to right, looking at no more of the text than the characters asked for.
///
/// The whole walk is linear in the length of what was taken, and allocates nothing of its own. One reader
/// belongs to one thread; the text must outlive it.
class CharacterReader {
  public:
    explicit CharacterReader(std::string_view text) noexcept : text_(text) { findPlainRun(0); }

    /// Reads a text whose bytes are known to be one character each, which saves looking for that.
    static CharacterReader ofPlainText(std::string_view text) noexcept {
        CharacterReader reader;
        reader.text_ = text;
        reader.plainEnd_ = text.size();
        return reader;
    }

    /// Whether everything has been taken.
    bool atEnd() const noexcept { return offset_ == text_.size(); }

    /// How many bytes have been taken.
    std::size_t offset() const noexcept { return offset_; }

    /// What has not been taken.
    std::string_view rest() const noexcept { return text_.substr(offset_); }

    /// The next `count` characters. Absent when fewer remain or the bytes on the way are not valid UTF-8;
    /// then nothing has been taken.
    [[nodiscard]] std::optional<std::string_view> take(std::size_t count) noexcept {
        const std::size_t start = offset_;
        if (count <= plainEnd_ - start) {
            offset_ += count;
        } else if (!skip(count)) {
            return std::nullopt;
        }
        return std::string_view(text_.data() + start, offset_ - start);
    }

  private:
    CharacterReader() = default;
    bool skip(std::size_t count) noexcept;
    void findPlainRun(std::size_t from) noexcept;

    std::string_view text_;
    std::size_t offset_ = 0;
    // From the offset to here, each byte is one character.
    std::size_t plainEnd_ = 0;
    // Where the stretch ends that the Unicode library is cutting, so that it is looked for only once.
    std::size_t stretchEnd_ = 0;
};

/// How many characters the text has, up to the first byte that is not valid UTF-8.
std::size_t characterCount(std::string_view text) noexcept;

}  // namespace korvo

#endif
