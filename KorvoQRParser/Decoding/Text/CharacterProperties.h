#ifndef KORVOQRPARSER_DECODING_TEXT_CHARACTERPROPERTIES_H
#define KORVOQRPARSER_DECODING_TEXT_CHARACTERPROPERTIES_H

#include <KorvoQRParser/Decoding/Text/CharacterTables.h>

#include <cstddef>
#include <cstdint>

namespace korvo {

/// How a code point joins its neighbours into one user-perceived character: its Grapheme_Cluster_Break (UAX
/// #29), with the classes that the rules for emoji and for the conjuncts of six Indic scripts need as well.
enum class BreakClass : std::uint8_t {
    other,
    control,
    carriageReturn,
    lineFeed,
    extend,  ///< Extend with combining class 0
    mark,    ///< Extend with any other combining class
    virama,  ///< the mark that links two consonants
    joiner,  ///< zero width joiner
    spacingMark,
    prepend,
    regionalIndicator,
    leadingJamo,
    vowelJamo,
    trailingJamo,
    syllableLV,
    syllableLVT,
    pictograph,  ///< Extended_Pictographic
    consonant,   ///< a consonant that a virama can link
};
inline constexpr std::size_t breakClassCount = static_cast<std::size_t>(BreakClass::consonant) + 1;

/// The general categories that the character sets need.
enum class CharacterGroup : std::uint8_t { other, letter, mark, decimalDigit, otherNumber, spaceSeparator };

struct CharacterProperties {
    BreakClass breakClass;
    CharacterGroup group;
};

/// The properties of a code point, 0 to 0x10FFFF.
constexpr CharacterProperties propertiesOf(std::int32_t codePoint) noexcept {
    using namespace detail;
    auto position = static_cast<std::uint32_t>(codePoint);
    if (position >= ordinaryEnd) {
        if (position < specialBegin || position >= specialEnd) {
            return {BreakClass::other, CharacterGroup::other};
        }
        position = position - specialBegin + ordinaryEnd;
    }
    const std::uint32_t block = position / blockSize;
    const std::size_t offset = blockOffsets[pageOffsets[block / pageSize] + std::size_t{block % pageSize}];
    const unsigned properties = blockProperties[offset + position % blockSize];
    return {static_cast<BreakClass>(properties % 32), static_cast<CharacterGroup>(properties / 32)};
}

}  // namespace korvo

#endif
