#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Explanation/ReadingCauses.h>
#include <KorvoQRParser/Explanation/Violations.h>
#include <KorvoQRParser/Explanation/VisibleText.h>
#include <KorvoQRParser/Explanation/WalkedElements.h>

namespace korvo {

namespace {

std::string_view nameOf(LengthUnit unit) {
    switch (unit) {
        case LengthUnit::characters:
            return "characters";
        case LengthUnit::utf8Bytes:
            return "UTF-8 bytes";
        case LengthUnit::utf16Units:
            return "UTF-16 units";
        case LengthUnit::codePoints:
            return "code points";
    }
    return "";
}

class Sentences {
  public:
    Sentences(const Characters& text, const Reading& reading, bool isTwoDigit, bool keepsChecksum)
        : text_(text), reading_(reading), isTwoDigit_(isTwoDigit), keepsChecksum_(keepsChecksum) {}

    std::vector<std::string> all() {
        if (reading_.unit != LengthUnit::characters) {
            addUnit(*changedPiece(reading_.pieces), reading_.unit, true);
        } else {
            addLengths(reading_.pieces);
        }
        if (reading_.isFormatMissing) {
            add("Tag 00 is missing, with which every payload of the two-digit format begins.");
        }
        if (reading_.isFormatMoved) {
            add("Tag 00 is not first, as it must be in the two-digit format.");
        }
        if (reading_.isChecksumMissing) {
            add(std::string(causeOfMissingChecksum));
        }
        if (reading_.isChecksumMoved) {
            add("The checksum, tag 63, is not last.");
        }
        return std::move(sentences_);
    }

  private:
    void add(std::string sentence) { sentences_.push_back(std::move(sentence)); }

    static bool isChanged(const Piece& piece) {
        const bool isWhole = piece.fieldWidth() == piece.length - piece.tag;
        return !piece.isDuplicate && !piece.isBroken &&
               (!isWhole || static_cast<std::int64_t>(repairedLength(piece)) != piece.written);
    }

    static const Piece* changedPiece(const std::vector<Piece>& pieces) {
        for (const Piece& piece : pieces) {
            if (isChanged(piece)) {
                return &piece;
            }
            if (const Piece* const inside = changedPiece(piece.inside)) {
                return inside;
            }
        }
        return nullptr;
    }

    void addLengths(const std::vector<Piece>& pieces) {
        for (const Piece& piece : pieces) {
            const std::size_t before = sentences_.size();
            addLengths(piece.inside);
            // A length outside only follows the one inside.
            if (isChanged(piece) && sentences_.size() == before) {
                addLength(piece);
            } else if (piece.isDuplicate) {
                add(joined({capitalised(namedTag(piece.name)), " occurs twice with the same value."}));
            } else if (piece.isBroken) {
                addBroken(piece);
            } else if (piece.name == checksumTag && isTwoDigit_ && &piece == &pieces.back()) {
                addWrongChecksumLength(piece);
            }
        }
    }

    void addLength(const Piece& piece) {
        const std::string tag = capitalised(namedTag(piece.name));
        const std::string_view value = text_.between(piece.value, piece.end);
        const std::size_t length = repairedLength(piece);
        const std::string_view field = text_.between(piece.length, piece.value);
        if (piece.fieldWidth() < piece.length - piece.tag) {
            add(joined({tag, " has a length of one digit, ", inQuotes(field), "; lengths have two."}));
            return;
        }
        if (piece.written < 0) {
            add(joined({tag, " has a length that is no number, ", inQuotes(field), "; its value has ",
                        counted(length, "character"), "."}));
            return;
        }
        for (const LengthUnit unit :
             {LengthUnit::utf8Bytes, LengthUnit::utf16Units, LengthUnit::codePoints}) {
            if (static_cast<std::int64_t>(lengthIn(unit, value)) == piece.written) {
                addUnit(piece, unit, false);
                return;
            }
        }
        addNumber(piece, length, tag);
    }

    void addNumber(const Piece& piece, std::size_t length, const std::string& tag) {
        const bool isTooLong = piece.written > static_cast<std::int64_t>(length);
        std::string sentence = joined({tag, " has a wrong length: it says ", std::to_string(piece.written),
                                       ", but the value has ", counted(length, "character"), "."});
        if (!keepsChecksum_) {
            sentence += joined({" Or a character of the value was ", (isTooLong ? "lost." : "added.")});
        }
        add(sentence);
    }

    void addUnit(const Piece& piece, LengthUnit unit, bool areAll) {
        const std::string subject =
            areAll ? joined({"The lengths count ", nameOf(unit),
                             " instead of characters: ", namedTag(piece.name), " says "})
                   : joined({capitalised(namedTag(piece.name)), " has a length that counts ", nameOf(unit),
                             " instead of characters: it says "});
        add(joined({subject, std::to_string(piece.written), ", but the value has ",
                    counted(piece.end - piece.value, "character"), "."}));
    }

    void addBroken(const Piece& piece) {
        const std::string_view rest = text_.between(piece.tag, text_.count());
        const std::size_t count = text_.count() - piece.tag;
        if (count < checksumHead.size()) {
            add("The text ends inside tag 63: it is cut, or without its checksum.");
            return;
        }
        const std::size_t left = count - checksumHead.size();
        if (rest.substr(0, checksumHead.size()) == checksumHead && left < checksumLength) {
            add(joined({causeOfCutValue(checksumTag, left, checksumLength), " ", consequenceOfCut}));
            return;
        }
        add(joined({"The checksum, tag 63, is not 4 characters with the length 04, but ",
                    inQuotes(text_.between(piece.length, text_.count())), "."}));
    }

    void addWrongChecksumLength(const Piece& piece) {
        const std::size_t count = piece.end - piece.value;
        if (count != checksumLength) {
            add(joined({"The checksum, tag 63, has ", counted(count, "character"), " instead of 4."}));
        }
    }

    const Characters& text_;
    const Reading& reading_;
    bool isTwoDigit_;
    bool keepsChecksum_;
    std::vector<std::string> sentences_;
};

}  // namespace

std::vector<std::string> causesOf(const Characters& text, const Reading& reading, bool isTwoDigit,
                                  bool keepsChecksum) {
    return Sentences(text, reading, isTwoDigit, keepsChecksum).all();
}

std::string causeOfCutValue(std::string_view tag, std::size_t left, std::size_t announced) {
    return joined({"The text ends inside tag ", tag, "; ", std::to_string(left), " of ",
                   counted(announced, "character"), (left == 1 ? " is there." : " are there.")});
}

}  // namespace korvo
