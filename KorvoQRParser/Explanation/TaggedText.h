#ifndef KORVOQRPARSER_EXPLANATION_TAGGEDTEXT_H
#define KORVOQRPARSER_EXPLANATION_TAGGEDTEXT_H

#include <KorvoQRParser/Decoding/TLVElementReader.h>
#include <KorvoQRParser/Explanation/Characters.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvo {

/// An element as a reading takes it: places in the text, counted in characters.
struct Piece {
    std::string name;                ///< as QRCodeElement::name
    std::size_t tag = 0;             ///< where the tag begins
    std::size_t length = 0;          ///< where the length field begins
    std::size_t value = 0;           ///< where the value begins
    std::size_t end = 0;             ///< where it ends
    std::int64_t written = -1;       ///< the number in the length field; negative if it is none
    bool isDuplicate = false;        ///< an exact copy of an earlier element, to be left out
    bool isBroken = false;           ///< a checksum of a wrong length, to be written anew
    std::vector<Piece> inside = {};  ///< of tag 62

    std::size_t fieldWidth() const noexcept { return value - length; }
    std::size_t valueLength() const noexcept { return end - value; }
};

/// A piece that may be at a place, and how improbable the mistake in its length is: 0 for none, else about 1.
struct PossiblePiece {
    Piece piece;
    double cost = 0;
};

/// Which mistakes in a length are thought of.
enum class Tolerance : unsigned char { none, likely, all };

/// Where elements are: directly in the payload or inside tag 62, up to a place.
struct Level {
    bool isInside;
    std::size_t end;
};

/// A text in one of the formats, whatever it begins with, and the elements that may be in it.
class TaggedText {
  public:
    /// `text` must outlive the object.
    TaggedText(const Characters& text, bool isTwoDigit);

    const Characters& text() const noexcept { return text_; }
    const TLVFormat& format() const noexcept { return format_; }
    /// The characters of a tag, and of a length.
    std::size_t width() const noexcept { return format_.fieldWidth; }
    bool isTwoDigit() const noexcept { return width() == twoDigitFormat.fieldWidth; }

    /// The known tag at a place, as its place in the list of tags.
    std::optional<std::size_t> tagAt(std::size_t place, bool isInside) const;
    /// The name of such a tag, as in Piece::name.
    std::string nameOf(std::size_t tag, bool isInside) const;
    /// The piece at a place with an empty value. Its length field must be in the text.
    Piece headAt(std::size_t place, std::size_t tag, bool isInside) const;
    /// The pieces that may be at a place: first as written, then with other lengths.
    std::vector<PossiblePiece> piecesAt(std::size_t place, std::size_t tag, const Level& level,
                                        Tolerance tolerance) const;
    /// A piece at a place that repeats an earlier one; absent if the text there is not the same.
    std::optional<Piece> copyAt(std::size_t place, std::size_t limit, const Piece& earlier) const;

    /// Whether an element, as written, has a sequence of elements in it.
    bool holdsElements(std::size_t place) const;
    /// Whether a changed length could hide elements in a tag that the record does not keep. Such a value must
    /// not grow, and may only shrink to a sequence of elements.
    bool couldHide(const Piece& piece) const;
    /// Whether a length was written with characters that are no digits and do not look like any.
    bool isStrange(const Piece& piece) const;

  private:
    bool isSequence(std::size_t place, std::size_t end) const;
    void appendOtherLengths(std::vector<PossiblePiece>& pieces, Piece piece, std::size_t limit,
                            double highestCost) const;
    void appendOneDigit(std::vector<PossiblePiece>& pieces, Piece piece, std::size_t limit) const;

    const Characters& text_;
    TLVFormat format_;
};

/// Whether a payload may have this root tag of the two-digit format, but the record does not keep it.
bool isUnkeptTag(std::string_view name) noexcept;

}  // namespace korvo

#endif
