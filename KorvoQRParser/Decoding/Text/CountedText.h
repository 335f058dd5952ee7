#ifndef KORVOQRPARSER_DECODING_TEXT_COUNTEDTEXT_H
#define KORVOQRPARSER_DECODING_TEXT_COUNTEDTEXT_H

#include <KorvoQRParser/Decoding/Text/CharacterReader.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace korvo {

/// The same as ==. Compilers turn this into one instruction where the second text is a short literal, but
/// call a function for ==.
constexpr bool isSame(std::string_view left, std::string_view right) noexcept {
    return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin());
}

/// A view of a UTF-8 text, with its number of user-perceived characters (UAX #29). Decoding counts them while
/// it cuts a value out of the payload, so the rules, which are mostly about lengths, need not count again.
class CountedText {
  public:
    CountedText() noexcept = default;

    /// Counts the characters. Implicit, because a counted text is a text.
    CountedText(std::string_view text) : CountedText(text, korvo::characterCount(text)) {}  // NOLINT
    CountedText(const char* text) : CountedText(std::string_view(text)) {}                  // NOLINT
    CountedText(const std::string& text) : CountedText(std::string_view(text)) {}           // NOLINT

    /// For callers that know the count already; it is not checked.
    CountedText(std::string_view text, std::size_t characterCount) noexcept
        : text_(text), characterCount_(characterCount) {}

    std::string_view text() const noexcept { return text_; }
    std::size_t characterCount() const noexcept { return characterCount_; }
    bool empty() const noexcept { return text_.empty(); }

    /// Whether each byte is one character, so that bytes can be counted and compared instead of characters.
    bool isPlain() const noexcept { return characterCount_ == text_.size(); }

    /// A reader for the characters of the text.
    CharacterReader characters() const noexcept {
        return isPlain() ? CharacterReader::ofPlainText(text_) : CharacterReader(text_);
    }

    /// Compares by code points, without normalisation.
    friend bool operator==(const CountedText& left, std::string_view right) noexcept {
        return isSame(left.text_, right);
    }

  private:
    std::string_view text_;
    std::size_t characterCount_ = 0;
};

/// Calls `use` with each character of the text, from left to right.
template <class Use>
void forEachCharacter(const CountedText& text, Use use) {
    if (text.isPlain()) {
        for (const char& byte : text.text()) {
            use(std::string_view(&byte, 1));
        }
        return;
    }
    CharacterReader characters = text.characters();
    while (const auto character = characters.take(1)) {
        use(*character);
    }
}

}  // namespace korvo

#endif
