#ifndef KORVOQRPARSER_DECODING_TEXT_CHARACTERREADER_H
#define KORVOQRPARSER_DECODING_TEXT_CHARACTERREADER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace korvo {

/// The part of nextCodePoint for a byte outside ASCII.
std::int32_t nextCodePointBeyondASCII(std::string_view text, std::size_t& offset) noexcept;

/// Reads the code point at a byte offset and moves the offset past it. Negative when the bytes there are not
/// well-formed UTF-8; the offset moves past them too. The offset must be less than the text's size; this is
/// not checked.
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

/// Splits a UTF-8 text into user-perceived characters (extended grapheme clusters, UAX #29), from left to
/// right. It looks ahead by a bounded window, or to the end of the code points that may join the last
/// character taken.
///
/// Taking characters costs time linear in the length of the text taken, and the reader itself allocates
/// nothing. One reader belongs to one thread, and the text must outlive it.
class CharacterReader {
  public:
    explicit CharacterReader(std::string_view text) noexcept : text_(text) { findPlainRun(0); }

    /// A reader for a text whose bytes are known to be one character each, which saves the scan for them.
    static CharacterReader ofPlainText(std::string_view text) noexcept {
        CharacterReader reader;
        reader.text_ = text;
        reader.plainEnd_ = text.size();
        return reader;
    }

    /// Whether the whole text has been taken.
    bool atEnd() const noexcept { return offset_ == text_.size(); }

    /// The number of bytes that have been taken.
    std::size_t offset() const noexcept { return offset_; }

    /// The text that has not been taken.
    std::string_view rest() const noexcept { return text_.substr(offset_); }

    /// Takes the next `count` characters. Absent, with nothing taken, when fewer remain or when bytes before
    /// their end are not valid UTF-8.
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
    // Every byte from the offset to here is one character.
    std::size_t plainEnd_ = 0;
    // The end of the stretch that the Unicode library is cutting, kept so that it is searched for only once.
    std::size_t stretchEnd_ = 0;
};

/// The number of characters in the text, up to the first byte that is not valid UTF-8.
std::size_t characterCount(std::string_view text) noexcept;

}  // namespace korvo

#endif
