#ifndef KORVOQRPARSER_EXPLANATION_CHARACTERS_H
#define KORVOQRPARSER_EXPLANATION_CHARACTERS_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace korvo {

/// A short text with the places of its user-perceived characters, so that any of them is found at once.
class Characters {
  public:
    /// The text must be valid UTF-8 and outlive the object.
    explicit Characters(std::string_view text);

    std::size_t count() const noexcept { return starts_.size() - 1; }
    std::string_view text() const noexcept { return text_; }

    /// The byte at which a character begins; the text's size for count().
    std::size_t byteOf(std::size_t character) const noexcept { return starts_[character]; }
    /// The characters before a byte; a character that the byte is inside counts.
    std::size_t charactersBefore(std::size_t byte) const noexcept;
    /// The characters from one place up to another.
    std::string_view between(std::size_t begin, std::size_t end) const noexcept {
        return text_.substr(starts_[begin], starts_[end] - starts_[begin]);
    }
    std::string_view at(std::size_t character) const noexcept { return between(character, character + 1); }

  private:
    std::string_view text_;
    std::vector<std::uint32_t> starts_;
};

/// What a program may count where characters are meant.
enum class LengthUnit : unsigned char { characters, utf8Bytes, utf16Units, codePoints };

/// The length of a text in a unit; the text must be valid UTF-8.
std::size_t lengthIn(LengthUnit unit, std::string_view text) noexcept;

}  // namespace korvo

#endif
