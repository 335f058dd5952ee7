#ifndef KORVOQRPARSER_EXPLANATION_READINGS_H
#define KORVOQRPARSER_EXPLANATION_READINGS_H

#include <KorvoQRParser/Explanation/Characters.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace korvo {

/// An element as a reading takes it: places in the text, counted in characters.
struct Piece {
    std::string name;                ///< as QRCodeElement::name
    std::size_t tag;                 ///< where the tag begins
    std::size_t length;              ///< where the length field begins
    std::size_t value;               ///< where the value begins
    std::size_t end;                 ///< where it ends
    std::int64_t written;            ///< the number in the length field; negative if it is none
    bool isDuplicate = false;        ///< an exact copy of an earlier element, to be left out
    bool isBroken = false;           ///< a checksum of a wrong length, to be written anew
    std::vector<Piece> inside = {};  ///< of tag 62

    std::size_t fieldWidth() const noexcept { return value - length; }
};

/// A way to split the text completely, after some mistakes in its form.
struct Reading {
    std::vector<Piece> pieces;
    LengthUnit unit = LengthUnit::characters;  ///< that the written lengths count
    double cost = 0;                           ///< how improbable the mistakes are: about 1 for each
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

/// All readings of a text with at most so many mistakes, which are looked for up to the first place where the
/// written lengths lead astray. The text is taken to be in one of the two formats, whatever it begins with.
/// The work is bounded.
std::vector<Reading> findReadings(const Characters& text, bool isTwoDigit, int mostMistakes);

/// The reading in which all lengths count this unit; none if the text does not split so.
std::vector<Reading> findReadingsInUnit(const Characters& text, bool isTwoDigit, LengthUnit unit);

}  // namespace korvo

#endif
