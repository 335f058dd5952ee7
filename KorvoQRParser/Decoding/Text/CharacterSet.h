#ifndef KORVOQRPARSER_DECODING_TEXT_CHARACTERSET_H
#define KORVOQRPARSER_DECODING_TEXT_CHARACTERSET_H

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace korvo {

/// A set of Unicode code points: whole general categories and single code points. A plain value: any number
/// of threads may use one set while none changes it.
class CharacterSet {
  public:
    /// The ten ASCII digits; no other Unicode digit is a member.
    static CharacterSet numericCharacterSet();
    /// Every decimal digit (Nd).
    static CharacterSet decimalDigitCharacterSet();
    /// Every letter (L*).
    static CharacterSet letterCharacterSet();
    /// Every letter, mark and number (L*, M*, N*).
    static CharacterSet alphanumericCharacterSet();
    /// Every space separator (Zs), and the tab.
    static CharacterSet whitespaceCharacterSet();
    /// Exactly the code points of a text, which must be valid UTF-8.
    static CharacterSet characterSetWithCharactersInString(std::string_view text);
    /// The alphanumeric set with the members of `set` added.
    static CharacterSet unionAlphaNumericCharacterSetWith(const CharacterSet& set);
    /// Letters, marks, numbers, space separators and the tab; line feeds are not members.
    static CharacterSet alphaNumericWhiteSpaceCharacterSet();

    /// Adds all members of `other`.
    CharacterSet& formUnionWith(const CharacterSet& other);

    /// Whether a code point is a member. A negative number, which nextCodePoint returns for malformed bytes,
    /// never is.
    bool contains(std::int32_t codePoint) const {
        const auto position = static_cast<std::uint32_t>(codePoint);
        return position < ascii_.size() ? ascii_[position] : containsBeyondASCII(codePoint);
    }

  private:
    explicit CharacterSet(std::uint32_t groups);
    void insert(std::int32_t codePoint);
    bool containsBeyondASCII(std::int32_t codePoint) const;

    // ASCII members have a table of their own, so that an ordinary text needs no other lookup.
    std::array<bool, 128> ascii_{};
    std::uint32_t groups_ = 0;
    std::vector<std::int32_t> others_;
};

/// Whether any code point of the text is a member of the set; false for an empty text.
bool containsCharacterOf(std::string_view text, const CharacterSet& set);

/// Whether every code point of the text is a member of the set; true for an empty text.
bool consistsOfCharactersOf(std::string_view text, const CharacterSet& set);

}  // namespace korvo

#endif
