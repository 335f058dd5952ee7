#ifndef KORVOQRPARSER_DECODING_TEXT_CHARACTERBREAKS_H
#define KORVOQRPARSER_DECODING_TEXT_CHARACTERBREAKS_H

#include <KorvoQRParser/Decoding/Text/CharacterProperties.h>

#include <array>
#include <cstddef>
#include <cstdint>

/// The boundaries between user-perceived characters: extended grapheme clusters (UAX #29), with the conjuncts
/// of six Indic scripts in one piece.
namespace korvo {

/// How much of a character has been read, as far as it matters for the next code point.
enum class BreakState : std::uint8_t {
    boundary,  ///< the next code point begins another character
    open,      ///< only prepended marks: everything except a control joins
    closed,    ///< a control: nothing joins
    carriageReturn,
    base,  ///< only marks join
    oneIndicator,
    leadingJamo,
    vowelJamo,
    trailingJamo,
    pictograph,
    joinedPictograph,  ///< another pictograph joins
    consonant,
    linkedConsonant,  ///< another consonant joins
};
inline constexpr std::size_t breakStateCount = static_cast<std::size_t>(BreakState::linkedConsonant) + 1;

namespace detail {

// The state after a code point that begins a character, or follows nothing but prepended marks.
constexpr BreakState stateOfFirst(BreakClass first) noexcept {
    switch (first) {
        case BreakClass::control:
        case BreakClass::lineFeed:
            return BreakState::closed;
        case BreakClass::carriageReturn:
            return BreakState::carriageReturn;
        case BreakClass::prepend:
            return BreakState::open;
        case BreakClass::regionalIndicator:
            return BreakState::oneIndicator;
        case BreakClass::leadingJamo:
            return BreakState::leadingJamo;
        case BreakClass::vowelJamo:
        case BreakClass::syllableLV:
            return BreakState::vowelJamo;
        case BreakClass::trailingJamo:
        case BreakClass::syllableLVT:
            return BreakState::trailingJamo;
        case BreakClass::pictograph:
            return BreakState::pictograph;
        case BreakClass::consonant:
            return BreakState::consonant;
        default:
            return BreakState::base;
    }
}

// The state after a mark, which joins every state except closed ones. Marks end a sequence of pictographs or
// consonants unless they belong to it.
constexpr BreakState stateAfterMark(BreakState state, BreakClass mark) noexcept {
    const bool inConjunct = state == BreakState::consonant || state == BreakState::linkedConsonant;
    if (state == BreakState::pictograph && mark != BreakClass::spacingMark) {
        return mark == BreakClass::joiner ? BreakState::joinedPictograph : state;
    }
    if (inConjunct && mark == BreakClass::virama) {
        return BreakState::linkedConsonant;
    }
    return inConjunct && (mark == BreakClass::mark || mark == BreakClass::joiner) ? state : BreakState::base;
}

// Whether a code point that is no mark joins a character of more than prepended marks.
constexpr bool joinsBase(BreakState state, BreakClass next) noexcept {
    switch (next) {
        case BreakClass::regionalIndicator:
            return state == BreakState::oneIndicator;
        case BreakClass::leadingJamo:
        case BreakClass::syllableLV:
        case BreakClass::syllableLVT:
            return state == BreakState::leadingJamo;
        case BreakClass::vowelJamo:
            return state == BreakState::leadingJamo || state == BreakState::vowelJamo;
        case BreakClass::trailingJamo:
            return state == BreakState::vowelJamo || state == BreakState::trailingJamo;
        case BreakClass::pictograph:
            return state == BreakState::joinedPictograph;
        case BreakClass::consonant:
            return state == BreakState::linkedConsonant;
        default:
            return false;
    }
}

constexpr bool isMark(BreakClass c) noexcept {
    return c >= BreakClass::extend && c <= BreakClass::spacingMark;
}

constexpr bool isControl(BreakClass c) noexcept {
    return c >= BreakClass::control && c <= BreakClass::lineFeed;
}

constexpr BreakState stateAfter(BreakState state, BreakClass next) noexcept {
    if (state == BreakState::carriageReturn && next == BreakClass::lineFeed) {
        return BreakState::closed;
    }
    if (state == BreakState::closed || state == BreakState::carriageReturn || isControl(next)) {
        return BreakState::boundary;
    }
    if (isMark(next)) {
        return stateAfterMark(state, next);
    }
    if (state == BreakState::open) {
        return stateOfFirst(next);
    }
    if (!joinsBase(state, next)) {
        return BreakState::boundary;
    }
    // A pair of regional indicators is complete.
    return next == BreakClass::regionalIndicator ? BreakState::base : stateOfFirst(next);
}

using BreakTable = std::array<std::array<BreakState, breakClassCount>, breakStateCount>;

// The row of `boundary` is that of a character's first code point.
inline constexpr BreakTable breakTable = [] {
    BreakTable table{};
    for (std::size_t next = 0; next < breakClassCount; ++next) {
        table[0][next] = stateOfFirst(static_cast<BreakClass>(next));
        for (std::size_t state = 1; state < breakStateCount; ++state) {
            table[state][next] = stateAfter(static_cast<BreakState>(state), static_cast<BreakClass>(next));
        }
    }
    return table;
}();

}  // namespace detail

/// The state after one more code point: BreakState::boundary when it begins another character. With that
/// state as `state`, the code point is the first of its character.
constexpr BreakState following(BreakState state, BreakClass next) noexcept {
    return detail::breakTable[static_cast<std::size_t>(state)][static_cast<std::size_t>(next)];
}

}  // namespace korvo

#endif
