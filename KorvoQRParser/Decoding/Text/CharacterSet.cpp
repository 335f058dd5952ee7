#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>

#include <algorithm>
#include <cstddef>

#include <unicode/uchar.h>

namespace korvo {

CharacterSet::CharacterSet(std::uint32_t categories) : categories_(categories) {
    for (std::size_t c = 0; c < ascii_.size() && categories != 0; ++c) {
        ascii_[c] = (U_GET_GC_MASK(static_cast<UChar32>(c)) & categories) != 0;
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
    return CharacterSet(U_GC_ND_MASK);
}

CharacterSet CharacterSet::letterCharacterSet() {
    return CharacterSet(U_GC_L_MASK);
}

CharacterSet CharacterSet::alphanumericCharacterSet() {
    return CharacterSet(U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK);
}

CharacterSet CharacterSet::whitespaceCharacterSet() {
    CharacterSet set(U_GC_ZS_MASK);
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
    categories_ |= other.categories_;
    others_.insert(others_.end(), other.others_.begin(), other.others_.end());
    return *this;
}

bool CharacterSet::containsBeyondASCII(std::int32_t codePoint) const {
    return codePoint >= 0 && ((U_GET_GC_MASK(codePoint) & categories_) != 0 ||
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
    for (std::size_t offset = 0; offset < text.size();) {
        if (!set.contains(nextCodePoint(text, offset))) {
            return false;
        }
    }
    return true;
}

}  // namespace korvo
