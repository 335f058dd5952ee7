#ifndef KORVOQRPARSER_EXPLANATION_READINGS_H
#define KORVOQRPARSER_EXPLANATION_READINGS_H

#include <KorvoQRParser/Explanation/Characters.h>
#include <KorvoQRParser/Explanation/TaggedText.h>

#include <cstddef>
#include <string>
#include <vector>

namespace korvo {

/// A way to split the text completely, after some mistakes in its form.
struct Reading {
    std::vector<Piece> pieces;
    LengthUnit unit = LengthUnit::characters;  ///< that the written lengths count
    double cost = 0;                           ///< how improbable the mistakes are: about 1 for each
    int mistakes = 0;                          ///< the most that the search allowed
    /// The elements whose lengths were taken to be wrong, as in Piece::name.
    std::vector<std::string> changedNames;
    bool isFormatMoved = false;      ///< tag 00 is not first
    bool isFormatMissing = false;    ///< there is no tag 00
    bool isChecksumMoved = false;    ///< tag 63 is not last
    bool isChecksumMissing = false;  ///< there is no tag 63
    bool isGuessed = false;          ///< a changed length is not obvious
    bool isDoubtful = false;         ///< only believable if the checksum of the repaired text confirms it
    bool isForbidden = false;  ///< a cause, but its repair could hide elements in a tag that is not kept
};

/// The length that a piece has in the repaired payload.
std::size_t repairedLength(const Piece& piece) noexcept;

/// The likeliest readings of a text with at most so many mistakes, the likeliest first. The text is taken to
/// be in one of the two formats, whatever it begins with. Work and memory are bounded.
std::vector<Reading> findReadings(const Characters& text, bool isTwoDigit, int mostMistakes);

/// The reading in which all lengths count this unit; none if the text does not split so.
std::vector<Reading> findReadingsInUnit(const Characters& text, bool isTwoDigit, LengthUnit unit);

}  // namespace korvo

#endif
