#ifndef KORVOQRPARSER_EXPLANATION_VARIANTS_H
#define KORVOQRPARSER_EXPLANATION_VARIANTS_H

#include <KorvoQRParser/Explanation/Draft.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvo {

/// A text that a payload may have been before something happened to it as a whole.
struct Variant {
    Draft draft;
    double cost;                 ///< how improbable that is, about 1
    std::string cause;           ///< what happened, as a sentence
    bool needsChecksum = false;  ///< only believed if the written checksum confirms it
};

/// The texts that remain without white space, byte order marks and quotation marks around them, and after
/// percent-decoding. Empty if there is nothing of that kind. The text must be valid UTF-8.
std::vector<Variant> unwrappedVariants(std::string_view payload);

/// Characters that may have been inserted into a text: all of a kind, or a single one.
struct Insertions {
    std::string_view name;
    std::vector<std::size_t> places;  ///< in characters, ascending
};

/// The line breaks, tabs, zero-width spaces, second blanks and the like inside a text.
std::vector<Insertions> insertionsIn(const Characters& text);

/// The text that remains without such characters. `text` has those of the draft.
Variant withoutInsertions(const Draft& draft, const Characters& text, const Insertions& insertions);

}  // namespace korvo

#endif
