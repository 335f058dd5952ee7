#include <KorvoQRParser/Decoding/Text/CharacterProperties.h>
#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>

#include <algorithm>
#include <cstddef>

namespace korvo {

namespace {

using Group = CharacterGroup;

constexpr std::uint32_t bitOf(Group group) noexcept {
    return 1U << static_cast<unsigned>(group);
}

constexpr std::uint32_t letters = bitOf(Group::letter);
constexpr std::uint32_t alphanumerics =
    letters | bitOf(Group::mark) | bitOf(Group::decimalDigit) | bitOf(Group::otherNumber);

// Apart from the loop over ASCII, which is quicker without it.
[[gnu::noinline]] bool consistsOfCodePointsOf(std::string_view text, const CharacterSet& set) {
    for (std::size_t offset = 0; offset < text.size();) {
        if (!set.contains(nextCodePoint(text, offset))) {
            return false;
        }
    }
    return true;
}

}  // namespace

CharacterSet::CharacterSet(std::uint32_t groups) : groups_(groups) {
    for (std::int32_t c = 0; c < 0x80 && groups != 0; ++c) {
        ascii_[static_cast<std::size_t>(c)] = (bitOf(propertiesOf(c).group) & groups) != 0;
    }
}

void CharacterSet::insert(std::int32_t codePoint) {
    if (codePoint >= 0x80) {
        others_.push_back(codePoint);
    } else if (codePoint >= 0) {
        ascii_[static_cast<std::size_t>(codePoint)] = true;
    }
}

CharacterSet CharacterSet::numericCharacterSet() {
    return characterSetWithCharactersInString("0123456789");
}

CharacterSet CharacterSet::decimalDigitCharacterSet() {
    return CharacterSet(bitOf(Group::decimalDigit));
}

CharacterSet CharacterSet::letterCharacterSet() {
    return CharacterSet(letters);
}

CharacterSet CharacterSet::alphanumericCharacterSet() {
    return CharacterSet(alphanumerics);
}

CharacterSet CharacterSet::whitespaceCharacterSet() {
    CharacterSet set(bitOf(Group::spaceSeparator));
    set.insert('\t');
    return set;
}

CharacterSet CharacterSet::characterSetWithCharactersInString(std::string_view text) {
    CharacterSet set(0);
    for (std::size_t offset = 0; offset < text.size();) {
        set.insert(nextCodePoint(text, offset));
    }
    return set;
}

CharacterSet CharacterSet::unionAlphaNumericCharacterSetWith(const CharacterSet& set) {
    return alphanumericCharacterSet().formUnionWith(set);
}

CharacterSet CharacterSet::alphaNumericWhiteSpaceCharacterSet() {
    return unionAlphaNumericCharacterSetWith(whitespaceCharacterSet());
}

CharacterSet& CharacterSet::formUnionWith(const CharacterSet& other) {
    std::transform(ascii_.begin(), ascii_.end(), other.ascii_.begin(), ascii_.begin(),
                   [](bool mine, bool theirs) { return mine || theirs; });
    groups_ |= other.groups_;
    others_.insert(others_.end(), other.others_.begin(), other.others_.end());
    return *this;
}

bool CharacterSet::containsBeyondASCII(std::int32_t codePoint) const {
    return codePoint >= 0 && ((bitOf(propertiesOf(codePoint).group) & groups_) != 0 ||
                              std::find(others_.begin(), others_.end(), codePoint) != others_.end());
}

bool containsCharacterOf(std::string_view text, const CharacterSet& set) {
    for (std::size_t offset = 0; offset < text.size();) {
        if (set.contains(nextCodePoint(text, offset))) {
            return true;
        }
    }
    return false;
}

bool consistsOfCharactersOf(std::string_view text, const CharacterSet& set) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0x80) {
            return consistsOfCodePointsOf(text.substr(i), set);
        }
        if (!set.contains(byte)) {
            return false;
        }
    }
    return true;
}

}  // namespace korvo
