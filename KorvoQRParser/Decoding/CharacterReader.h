#ifndef KORVOQRPARSER_DECODING_CHARACTERREADER_H
#define KORVOQRPARSER_DECODING_CHARACTERREADER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace korvo {

/// Reads the code point at a byte offset and moves the offset behind it. Negative when the bytes there are
/// not well-formed UTF-8. The offset must lie before the text's end.
std::int32_t nextCodePoint(std::string_view text, std::size_t& offset) noexcept;

/// Takes a UTF-8 text apart into user-perceived characters (extended grapheme clusters, UAX #29), from left
/// to right, looking at no more of the text than the characters asked for.
///
/// The whole walk is linear in the length of what was taken, and allocates nothing of its own. One reader
/// belongs to one thread; the text must outlive it.
class CharacterReader {
  public:
    explicit CharacterReader(std::string_view text) noexcept : text_(text) { findPlainRun(0); }

    /// Whether everything has been taken.
    bool atEnd() const noexcept { return offset_ == text_.size(); }

    /// How many bytes have been taken.
    std::size_t offset() const noexcept { return offset_; }

    /// The next `count` characters. Absent when fewer remain or the bytes on the way are not valid UTF-8;
    /// then nothing has been taken.
    std::optional<std::string_view> take(std::size_t count) {
        const std::size_t start = offset_;
        if (count <= plainEnd_ - start) {
            offset_ += count;
        } else if (!skip(count)) {
            return std::nullopt;
        }
        return text_.substr(start, offset_ - start);
    }

  private:
    bool skip(std::size_t count);
    void findPlainRun(std::size_t from) noexcept;

    std::string_view text_;
    std::size_t offset_ = 0;
    // From the offset to here, each byte is one character.
    std::size_t plainEnd_ = 0;
};

}  // namespace korvo

#endif
