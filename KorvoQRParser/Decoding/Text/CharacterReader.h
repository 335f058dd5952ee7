#ifndef KORVOQRPARSER_DECODING_TEXT_CHARACTERREADER_H
#define KORVOQRPARSER_DECODING_TEXT_CHARACTERREADER_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace korvo {

/// Splits a UTF-8 text into user-perceived characters, from left to right: extended grapheme clusters (UAX
/// #29) of Unicode 15.0, with Indic conjuncts in one piece. It looks ahead by a bounded window, or by one
/// code point after the last character taken.
///
/// Taking characters costs time linear in the length of the text taken, and allocates nothing. One reader
/// belongs to one thread, and the text must outlive it.
class CharacterReader {
  public:
    explicit CharacterReader(std::string_view text) noexcept;

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

    /// The text that has not been taken, as far as every byte of it is known to be one character.
    std::string_view plainRest() const noexcept { return {text_.data() + offset_, plainEnd_ - offset_}; }

    /// Takes the next `count` characters of `plainRest`, which must have so many; this is not checked.
    void takePlain(std::size_t count) noexcept { offset_ += count; }

    /// Takes the next `count` characters. Absent, with nothing taken, when fewer remain or when bytes before
    /// their end, or right after it, are not valid UTF-8.
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

    std::string_view text_;
    std::size_t offset_ = 0;
    // Every byte from the offset to here is one character.
    std::size_t plainEnd_ = 0;
};

/// The number of characters before the first byte that is not valid UTF-8, without the one that touches it.
std::size_t characterCount(std::string_view text) noexcept;

}  // namespace korvo

#endif
