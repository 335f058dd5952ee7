#ifndef KORVOQRPARSER_DECODING_TEXT_COUNTEDTEXT_H
#define KORVOQRPARSER_DECODING_TEXT_COUNTEDTEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace korvo {

/// A borrowed UTF-8 text that knows how many user-perceived characters (UAX #29) it has. Decoding counts them
/// while it cuts a value out of the payload; the rules, which are mostly about lengths, need not count again.
class CountedText {
  public:
    CountedText() noexcept = default;

    /// Counts the characters. Implicit, as a text is what it stands for.
    CountedText(std::string_view text);  // NOLINT(google-explicit-constructor)
    CountedText(const char* text) : CountedText(std::string_view(text)) {}         // NOLINT
    CountedText(const std::string& text) : CountedText(std::string_view(text)) {}  // NOLINT

    /// For who has counted already.
    CountedText(std::string_view text, std::size_t characterCount) noexcept
        : text_(text), characterCount_(characterCount) {}

    std::string_view text() const noexcept { return text_; }
    std::size_t characterCount() const noexcept { return characterCount_; }
    bool empty() const noexcept { return text_.empty(); }

    /// Whether each byte is one character, so that bytes may be counted and compared instead.
    bool isPlain() const noexcept { return characterCount_ == text_.size(); }

    /// Texts compare by code points, with no normalisation.
    friend bool operator==(const CountedText& left, std::string_view right) noexcept {
        return left.text_ == right;
    }

  private:
    std::string_view text_;
    std::size_t characterCount_ = 0;
};

}  // namespace korvo

#endif
