#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>
#include <KorvoQRParser/Explanation/Lists.h>
#include <KorvoQRParser/Explanation/Mending.h>
#include <KorvoQRParser/Explanation/VisibleText.h>
#include <KorvoQRParser/Explanation/WalkedElements.h>
#include <KorvoQRParser/Validation/ISOCountryCodes.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace korvo {

namespace {

bool isLowerCase(char c) {
    return c >= 'a' && c <= 'z';
}

bool isUpperCase(char c) {
    return c >= 'A' && c <= 'Z';
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), asciiUpperCase);
    return upper;
}

// The country in upper case, if it is one then.
std::optional<std::string> mendedCountry(std::string_view value) {
    const std::string upper = upperCase(value);
    const bool isMended = upper != value && ISOCountryCodes::isISOCountry(upper);
    return isMended ? std::optional(upper) : std::nullopt;
}

// The number of a currency in letters.
std::optional<std::string> mendedCurrency(std::string_view value) {
    const std::string upper = upperCase(value);
    for (const ISOCountryCodes::Currency& currency : ISOCountryCodes::availableISOCurrencies) {
        if (currency.letters() == upper) {
            const std::string digits = std::to_string(currency.number());
            return std::string(3 - digits.size(), '0') + digits;
        }
    }
    return std::nullopt;
}

class Writer {
  public:
    Writer(const Draft& draft, const Characters& text, const Reading& reading, bool isTwoDigit)
        : draft_(draft), text_(text), reading_(reading) {
        mended_.isTwoDigit = isTwoDigit;
    }

    Mended mended() {
        findDuplicate();
        const Piece* checksum = nullptr;
        if (reading_.isFormatMoved) {
            write(pieceNamed(formatTag), true);
        }
        for (const Piece& piece : reading_.pieces) {
            if (mended_.isTwoDigit && piece.name == checksumTag && !isLeftOut(piece)) {
                checksum = &piece;
            } else if (!isLeftOut(piece) && !(reading_.isFormatMoved && piece.name == formatTag)) {
                write(piece, false);
            }
        }
        if (mended_.isTwoDigit) {
            writeChecksum(checksum);
        }
        return std::move(mended_);
    }

  private:
    const Piece& pieceNamed(std::string_view name) const {
        return *findIf(reading_.pieces, [name](const Piece& piece) { return piece.name == name; });
    }

    // Of two equal elements, leaves out the one that is not at its place in the order of tags.
    void findDuplicate() {
        const auto& pieces = reading_.pieces;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            if (!pieces[i].isDuplicate) {
                continue;
            }
            const auto first = static_cast<std::size_t>(&pieceNamed(pieces[i].name) - pieces.data());
            const bool isFirstInOrder = isInOrder(first);
            const bool isSecondInOrder = isInOrder(i);
            leftOut_ = isSecondInOrder && !isFirstInOrder ? &pieces[first] : &pieces[i];
            mended_.isAmbiguous = i != first + 1 && !areOthersInOrder();
        }
    }

    bool isInOrder(std::size_t i) const {
        const auto& pieces = reading_.pieces;
        const bool isAfter = i == 0 || pieces[i - 1].name <= pieces[i].name;
        return isAfter && (i + 1 == pieces.size() || pieces[i].name <= pieces[i + 1].name);
    }

    bool areOthersInOrder() const {
        std::string_view last;
        return allOf(reading_.pieces, [&](const Piece& piece) {
            const std::string_view previous = isLeftOut(piece) ? last : std::exchange(last, piece.name);
            return previous <= piece.name;
        });
    }

    bool isLeftOut(const Piece& piece) const {
        return leftOut_ != nullptr ? &piece == leftOut_ : piece.isDuplicate;
    }

    void copy(std::size_t begin, std::size_t end, bool isMoved) {
        if (isMoved) {
            mended_.draft.insert(text_.between(begin, end));
        } else {
            mended_.draft.append(draft_, text_.byteOf(begin), text_.byteOf(end));
        }
    }

    void write(const Piece& piece, bool isMoved) {
        copy(piece.tag, piece.length, isMoved);
        const std::size_t length = repairedLength(piece);
        const bool isWhole = piece.fieldWidth() == piece.length - piece.tag;
        if (isWhole && static_cast<std::int64_t>(length) == piece.written) {
            copy(piece.length, piece.value, isMoved);
        } else {
            mended_.draft.insert(lengthField(length));
        }
        if (piece.inside.empty()) {
            writeValue(piece, isMoved);
        }
        for (const Piece& inside : piece.inside) {
            if (!inside.isDuplicate) {
                write(inside, isMoved);
            }
        }
    }

    std::string lengthField(std::size_t length) const {
        if (mended_.isTwoDigit) {
            return std::string(twoDigitText(static_cast<unsigned>(length)));
        }
        constexpr std::string_view digits = "0123456789abcdefghijklmnopqrstuvwxyz";
        const char digit = digits[length];
        return {writesUpperCase() ? asciiUpperCase(digit) : digit};
    }

    // Whether the letters in tags and lengths of a one-character payload are in upper case.
    bool writesUpperCase() const {
        return anyOf(reading_.pieces, [this](const Piece& piece) {
            const std::string_view head = text_.between(piece.tag, piece.value);
            return anyOf(head, isUpperCase);
        });
    }

    void writeValue(const Piece& piece, bool isMoved) {
        constexpr double likely = 0.3;
        const std::string_view value = text_.between(piece.value, piece.end);
        const bool isCountry = piece.name == (mended_.isTwoDigit ? "58" : "4");
        const bool isCurrency = piece.name == (mended_.isTwoDigit ? "53" : "5");
        const auto better = isCountry    ? mendedCountry(value)
                            : isCurrency ? mendedCurrency(value)
                                         : std::nullopt;
        if (!better) {
            copy(piece.value, piece.end, isMoved);
            return;
        }
        mended_.draft.insert(*better);
        mended_.cost += likely;
        const std::string tag = namedTag(piece.name, "");
        mended_.causes.push_back(
            isCountry
                ? joined({"The country code, ", tag, ", is written in lower case, ", inQuotes(value), "."})
                : joined({"The currency code, ", tag, ", is written in letters, ", inQuotes(value),
                          "; it must be the number ", *better, "."}));
    }

    void writeChecksum(const Piece* piece) {
        const bool isUsable =
            piece != nullptr && !piece->isBroken && piece->end - piece->value == checksumLength;
        std::string_view written;
        if (isUsable) {
            writeHead(*piece, reading_.isChecksumMoved, written);
        } else {
            writeNewHead(piece);
        }
        const std::uint16_t computed = computeCRC16(mended_.draft.text());
        mended_.keepsChecksum = isUsable && parseInteger(written, 16) == computed;
        if (mended_.keepsChecksum) {
            copy(piece->value, piece->end, reading_.isChecksumMoved);
            return;
        }
        mended_.replacesChecksum = isUsable;
        const bool isLower = anyOf(written, isLowerCase) && !anyOf(written, isUpperCase);
        mended_.draft.insert(checksumText(computed, isLower));
    }

    // The head of a usable checksum; its value goes to `written`.
    void writeHead(const Piece& piece, bool isMoved, std::string_view& written) {
        copy(piece.tag, piece.value, isMoved);
        written = text_.between(piece.value, piece.end);
    }

    // Keeps as much of a broken head as is right.
    void writeNewHead(const Piece* piece) {
        const std::size_t begin = piece == nullptr ? text_.count() : piece->tag;
        std::size_t same = 0;
        while (same < checksumHead.size() && begin + same < text_.count() &&
               text_.at(begin + same) == checksumHead.substr(same, 1)) {
            ++same;
        }
        // A wrong length is replaced whole.
        if (same < checksumHead.size() && begin + same < text_.count()) {
            same = std::min(same, checksumTag.size());
        }
        copy(begin, begin + same, false);
        mended_.draft.insert(checksumHead.substr(same));
    }

    const Draft& draft_;
    const Characters& text_;
    const Reading& reading_;
    const Piece* leftOut_ = nullptr;
    Mended mended_;
};

}  // namespace

std::string checksumText(std::uint16_t number, bool isLower) {
    const std::string_view digits = isLower ? "0123456789abcdef" : "0123456789ABCDEF";
    std::string text;
    for (int shift = 12; shift >= 0; shift -= 4) {
        text += digits[unsigned{number} >> shift & 0xFU];
    }
    return text;
}

Mended mend(const Draft& draft, const Characters& text, const Reading& reading, bool isTwoDigit) {
    return Writer(draft, text, reading, isTwoDigit).mended();
}

}  // namespace korvo
