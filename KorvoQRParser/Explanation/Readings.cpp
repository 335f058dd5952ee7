#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Explanation/Readings.h>
#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <algorithm>
#include <bitset>
#include <cmath>
#include <optional>
#include <utility>

namespace korvo {

namespace {

constexpr std::size_t firstDroppedTag = 16;
constexpr std::size_t firstTemplateTag = 26;
constexpr std::size_t lastDroppedTag = 51;

bool isDroppedTag(std::size_t number) {
    return number >= firstDroppedTag && number <= lastDroppedTag;
}

// How improbable it is that a value with `actual` characters got the written length.
double lengthCost(std::int64_t written, std::size_t actual, std::string_view value, std::size_t headLength) {
    constexpr double likely = 1;
    constexpr double possible = 1.2;
    constexpr double unreadable = 1.3;
    if (written < 0) {
        return unreadable;
    }
    const bool isPlain = value.size() == actual;
    for (const LengthUnit unit : {LengthUnit::utf8Bytes, LengthUnit::utf16Units, LengthUnit::codePoints}) {
        if (!isPlain && static_cast<std::int64_t>(lengthIn(unit, value)) == written) {
            return likely;
        }
    }
    const auto length = static_cast<std::int64_t>(actual);
    const auto distance = static_cast<double>(std::abs(written - length));
    const bool isReversed = length == written % 10 * 10 + written / 10;
    const bool countsHead = written == length + static_cast<std::int64_t>(headLength);
    const double byDistance = distance <= 3 ? 0.9 + 0.1 * distance : 1 + 0.15 * distance;
    return isReversed || countsHead ? std::min(byDistance, possible) : byDistance;
}

// Pieces inside tag 62, with the mistakes that they need.
struct InsideReading {
    std::vector<Piece> pieces;
    int mistakes = 0;
    double cost = 0;
    std::vector<std::string> changedNames;
};

// Whether a length field that is no number may have been one: a digit, and a character that looks like one.
bool looksLikeNumber(std::string_view field) {
    constexpr std::string_view lookAlikes = "OoQDlI|SBZ ";
    const auto isIn = [field](std::string_view set) {
        return field.find_first_of(set) != std::string_view::npos;
    };
    return field.size() == 2 && isIn("0123456789") && isIn(lookAlikes);
}

// A text in one of the formats.
class TaggedText {
  public:
    TaggedText(const Characters& text, bool isTwoDigit)
        : text_(text), format_(isTwoDigit ? twoDigitFormat : oneCharacterFormat) {}

  protected:
    const Characters& text() const { return text_; }
    const TLVFormat& format() const { return format_; }
    std::size_t width() const { return format_.fieldWidth; }
    bool isTwoDigit() const { return width() == twoDigitFormat.fieldWidth; }

    // The number of a known tag at a place, as its place in the list of tags.
    std::optional<std::size_t> tagAt(std::size_t place, bool isInside) const {
        const std::string_view tag = text_.between(place, place + width());
        const auto number = [](const auto& known) {
            return known ? std::optional(static_cast<std::size_t>(*known)) : std::nullopt;
        };
        return isInside       ? number(pmValidTLV01AdditionalDataField(tag))
               : isTwoDigit() ? number(payMerchantValidTLV01(tag))
                              : number(payMerchantValidTLV00InEitherCase(tag));
    }

    std::string nameOf(std::size_t tag, bool isInside) const {
        return isInside       ? nameInsideAdditionalData(tlv01SubTagRows[tag].rawValue)
               : isTwoDigit() ? std::string(tlv01TagRows[tag].rawValue)
                              : std::string(tlv00TagRows[tag].rawValue);
    }

    // The piece at a place with a number of characters; with a shorter length field for a missing digit.
    Piece pieceAt(std::size_t place, std::size_t tag, bool isInside, std::size_t length,
                  std::size_t fieldWidth) const {
        const std::size_t field = place + width();
        const std::size_t value = field + fieldWidth;
        const std::int64_t written =
            fieldWidth == width() ? format_.readLength(text_.between(field, value)) : -1;
        return {nameOf(tag, isInside), place, field, value, value + length, written};
    }

  private:
    const Characters& text_;
    TLVFormat format_;
};

class Search : TaggedText {
  public:
    using TaggedText::TaggedText;

    std::vector<Reading> run(int mostMistakes) {
        // The second of two mistakes is only looked for nearby, because both multiply.
        isNear_ = mostMistakes > 1;
        readRoot(0, mostMistakes, false);
        return std::move(found_);
    }

  private:
    // Calls `use` with every piece that could be at a place: first as written, then, if a mistake is allowed,
    // with other lengths. It gets the cost of the mistake; none is 0.
    template <class Use>
    void forEachPiece(std::size_t place, std::size_t tag, std::size_t limit, bool isInside, bool mayErr,
                      Use use) {
        if (place + 2 * width() > limit + (mayErr && isTwoDigit() ? 1 : 0)) {
            return;
        }
        const std::size_t left = limit - std::min(limit, place + 2 * width());
        const std::int64_t written =
            place + 2 * width() <= limit
                ? format().readLength(text().between(place + width(), place + 2 * width()))
                : -1;
        const auto least = static_cast<std::size_t>(format().minimumLength);
        const std::size_t most = std::min<std::size_t>(left, isTwoDigit() ? 99 : 35);
        if (written >= format().minimumLength && static_cast<std::size_t>(written) <= left) {
            use(pieceAt(place, tag, isInside, static_cast<std::size_t>(written), width()), 0.0);
        }
        if (!mayErr) {
            return;
        }
        for (std::size_t length = least; place + 2 * width() <= limit && length <= most; ++length) {
            const Piece piece = pieceAt(place, tag, isInside, length, width());
            // A checksum of another length is broken, which is a mistake of its own.
            if (static_cast<std::int64_t>(length) != written && piece.name != checksumTag) {
                const double cost =
                    lengthCost(written, length, text().between(piece.value, piece.end), 2 * width());
                constexpr double farthest = 1.75;  // 5 characters, unless the difference has a reason
                constexpr double nearest = 1.1;
                if (cost <= (isNear_ ? nearest : farthest)) {
                    use(piece, cost);
                }
            }
        }
        if (!isNear_) {
            useWithOneDigit(place, tag, limit, isInside, use);
        }
    }

    // The same for a length that was written with one digit.
    template <class Use>
    void useWithOneDigit(std::size_t place, std::size_t tag, std::size_t limit, bool isInside, Use use) {
        const std::size_t field = place + width();
        const std::string_view digit = text().at(field);
        const std::size_t length = digit.size() == 1 ? static_cast<std::size_t>(digitValue(digit[0])) : 10;
        if (isTwoDigit() && length >= 1 && length <= 9 && field + 1 + length <= limit) {
            const Piece piece = pieceAt(place, tag, isInside, length, 1);
            if (piece.name != checksumTag) {
                use(piece, 1.0);
            }
        }
    }

    // Whether a changed length could hide elements in a tag that the record does not keep. Such a value must
    // not grow, and may only shrink to a sequence of elements.
    bool couldHide(const Piece& piece, std::size_t tag) const {
        if (!isTwoDigit() || !isDroppedTag(tag)) {
            return false;
        }
        const auto length = static_cast<std::int64_t>(piece.end - piece.value);
        return tag < firstTemplateTag || length >= piece.written || !isTemplate(piece.value, piece.end);
    }

    // Whether a changed length was written with characters that are no digits and do not look like any.
    bool isStrange(const Piece& piece) const {
        const std::string_view field = text().between(piece.length, piece.value);
        return isTwoDigit() && piece.written < 0 && piece.fieldWidth() == width() && !looksLikeNumber(field);
    }

    // Whether an element, as written, has a sequence of elements in it.
    bool hasTemplateAt(std::size_t place, std::size_t tag) const {
        const std::size_t value = place + 2 * width();
        const std::int64_t length =
            value <= text().count() ? format().readLength(text().between(place + width(), value)) : -1;
        return tag >= firstTemplateTag && length > 0 &&
               value + static_cast<std::size_t>(length) <= text().count() &&
               isTemplate(value, value + static_cast<std::size_t>(length));
    }

    bool isTemplate(std::size_t place, std::size_t end) const {
        while (place < end) {
            if (place + 4 > end || twoDigitNumber(text().between(place, place + 2)) < 0) {
                return false;
            }
            const int length = twoDigitNumber(text().between(place + 2, place + 4));
            if (length < 1 || place + 4 + static_cast<std::size_t>(length) > end) {
                return false;
            }
            place += 4 + static_cast<std::size_t>(length);
        }
        return true;
    }

    bool isExhausted() {
        constexpr int mostSteps = 50'000;
        return ++steps_ > mostSteps;
    }

    // MARK: root elements

    void readRoot(std::size_t place, int mistakes, bool isAstray) {
        if (isExhausted()) {
            return;
        }
        if (place == text().count()) {
            finish(mistakes);
            return;
        }
        readBrokenChecksum(place, mistakes);
        if (place + width() >= text().count()) {
            return;
        }
        const auto tag = tagAt(place, false);
        if (!tag) {
            return;
        }
        if (seen_[*tag]) {
            readDuplicate(place, *tag, mistakes, isAstray);
            return;
        }
        // After a mistake, a tag that the record does not keep is only believed at its place in the order,
        // and with a sequence of elements in it.
        const bool isUnkept = isAstray && isTwoDigit() && isDroppedTag(*tag);
        const bool isDoubted = isUnkept && (*tag < highestTag_ || !hasTemplateAt(place, *tag));
        const std::size_t highest = std::exchange(highestTag_, std::max(highestTag_, *tag));
        const bool isDoubtful = std::exchange(current_.isDoubtful, current_.isDoubtful || isDoubted);
        const bool isGuessed = std::exchange(current_.isGuessed, current_.isGuessed || isUnkept);
        seen_[*tag] = true;
        forEachPiece(place, *tag, text().count(), false, mistakes > 0, [&](const Piece& piece, double cost) {
            // No element is shortened to the end of the text: what is there may be the rest of a longer one.
            const bool isShortened = cost > 0 && piece.end == text().count() &&
                                     static_cast<std::int64_t>(piece.end - piece.value) < piece.written;
            if (!isShortened) {
                readAfter(piece, *tag, cost, mistakes, isAstray);
            }
        });
        seen_[*tag] = false;
        current_.isDoubtful = isDoubtful;
        current_.isGuessed = isGuessed;
        highestTag_ = highest;
    }

    void readAfter(const Piece& piece, std::size_t tag, double cost, int mistakes, bool isAstray) {
        if (isTwoDigit() && rawTag(tag) == additionalDataTag) {
            readAfterOpened(piece, cost, mistakes, isAstray);
            return;
        }
        const bool isChanged = cost > 0;
        const bool isForbidden = current_.isForbidden;
        const bool isDoubtful = current_.isDoubtful;
        current_.isForbidden = isForbidden || (isChanged && couldHide(piece, tag));
        current_.isDoubtful = isDoubtful || (isChanged && isStrange(piece));
        with(piece, cost, isChanged ? std::vector{piece.name} : std::vector<std::string>(),
             [&] { readRoot(piece.end, mistakes - (isChanged ? 1 : 0), isAstray || isChanged); });
        current_.isForbidden = isForbidden;
        current_.isDoubtful = isDoubtful;
    }

    // The same after tag 62, for each way to read the elements inside it.
    void readAfterOpened(const Piece& piece, double cost, int mistakes, bool isAstray) {
        for (InsideReading& inside : readInside(piece.value, piece.end, mistakes)) {
            Piece opened = piece;
            opened.inside = std::move(inside.pieces);
            const auto repaired = static_cast<std::int64_t>(repairedLength(opened));
            // If a length inside lost its digit, the length outside followed, or has the digit still.
            const bool isRight = repaired == piece.written || (inside.mistakes > 0 && cost == 0);
            const int used = inside.mistakes + (isRight ? 0 : 1);
            if (used <= mistakes) {
                const double total = inside.cost + (isRight ? 0 : std::max(cost, 1.0));
                with(opened, total, isRight ? inside.changedNames : std::vector{piece.name},
                     [&] { readRoot(opened.end, mistakes - used, isAstray || used > 0); });
            }
        }
    }

    static std::string_view rawTag(std::size_t tag) { return tlv01TagRows[tag].rawValue; }

    // Continues a reading with one more piece.
    template <class Continue>
    void with(const Piece& piece, double cost, const std::vector<std::string>& changedNames, Continue next) {
        current_.pieces.push_back(piece);
        current_.cost += cost;
        auto& names = current_.changedNames;
        const std::size_t count = names.size();
        names.insert(names.end(), changedNames.begin(), changedNames.end());
        next();
        names.resize(count);
        current_.cost -= cost;
        current_.pieces.pop_back();
    }

    void readDuplicate(std::size_t place, std::size_t tag, int mistakes, bool isAstray) {
        const std::string name = nameOf(tag, false);
        const auto first = std::find_if(current_.pieces.begin(), current_.pieces.end(),
                                        [&name](const Piece& piece) { return piece.name == name; });
        const std::size_t end = place + (first->end - first->tag);
        if (mistakes == 0 || end > text().count()) {
            return;
        }
        Piece copy = *first;
        copy.tag = place;
        copy.length = place + (first->length - first->tag);
        copy.value = place + (first->value - first->tag);
        copy.end = end;
        copy.isDuplicate = true;
        copy.inside.clear();
        if (text().between(copy.tag, copy.end) == text().between(first->tag, first->end)) {
            with(copy, 1.0, {}, [&] { readRoot(end, mistakes - 1, isAstray); });
        }
    }

    // A checksum element at the end whose length is not 4, or that is only begun.
    void readBrokenChecksum(std::size_t place, int mistakes) {
        constexpr std::size_t longest = 10;
        const std::size_t left = text().count() - place;
        const std::string_view rest = text().between(place, text().count());
        const bool isBegun = rest == checksumHead.substr(0, rest.size());
        const bool isWhole =
            left == checksumHead.size() + checksumLength && rest.substr(0, 4) == checksumHead;
        const bool isTail = left <= longest && rest.substr(0, 2) == checksumTag;
        if (!isTwoDigit() || mistakes == 0 || seen_[tlv01TagRows.size() - 1] || isWhole ||
            (!isBegun && !isTail)) {
            return;
        }
        const std::size_t value = std::min(place + 4, text().count());
        Piece piece{std::string(checksumTag), place, std::min(place + 2, text().count()), value,
                    text().count(),           -1};
        piece.isBroken = true;
        with(piece, 1.1, {}, [&] { finish(mistakes - 1); });
    }

    void finish(int mistakes) {
        Reading reading = current_;
        std::vector<const Piece*> kept;
        for (const Piece& piece : reading.pieces) {
            if (!piece.isDuplicate) {
                kept.push_back(&piece);
            }
        }
        if (isTwoDigit()) {
            const auto has = [&kept](std::string_view name) {
                return std::any_of(kept.begin(), kept.end(),
                                   [&](auto* piece) { return piece->name == name; });
            };
            if (kept.empty()) {
                return;
            }
            reading.isFormatMissing = !has(formatTag);
            reading.isFormatMoved = !reading.isFormatMissing && kept.front()->name != formatTag;
            reading.isChecksumMissing = !has(checksumTag);
            reading.isChecksumMoved = !reading.isChecksumMissing && kept.back()->name != checksumTag;
            const int moves = (reading.isFormatMissing || reading.isFormatMoved ? 1 : 0) +
                              (reading.isChecksumMissing || reading.isChecksumMoved ? 1 : 0);
            if (moves > mistakes) {
                return;
            }
            // A checksum of another length in the middle is a misreading.
            const auto isMisread = [](const Piece* piece) {
                return piece->name == checksumTag && piece->end - piece->value != checksumLength;
            };
            if (reading.isChecksumMoved && std::any_of(kept.begin(), kept.end(), isMisread)) {
                return;
            }
            reading.cost += moves;
        }
        constexpr double obvious = 1.25;
        const double disorder = disorderOf(kept);
        reading.isGuessed =
            reading.isGuessed || (!reading.changedNames.empty() && (reading.cost > obvious || disorder > 0));
        reading.cost += disorder;
        found_.push_back(std::move(reading));
    }

    // Generators write tags in ascending order, so each descent makes a reading a little less likely.
    static double disorderOf(const std::vector<const Piece*>& pieces) {
        constexpr double perDescent = 0.3;
        double disorder = 0;
        const Piece* last = nullptr;
        for (const Piece* const piece : pieces) {
            if (piece->name == formatTag || piece->name == checksumTag) {
                continue;  // these two have fixed places
            }
            disorder += last != nullptr && piece->name < last->name ? perDescent : 0;
            last = piece;
        }
        return disorder;
    }

    // MARK: elements inside tag 62

    std::vector<InsideReading> readInside(std::size_t place, std::size_t end, int mistakes) {
        insideFound_.clear();
        inside_ = {};
        seenInside_.reset();
        readInsideFrom(place, end, std::min(mistakes, 1));
        return std::move(insideFound_);
    }

    void readInsideFrom(std::size_t place, std::size_t end, int mistakes) {
        if (isExhausted()) {
            return;
        }
        if (place == end) {
            insideFound_.push_back(inside_);
            return;
        }
        if (place + width() >= end) {
            return;
        }
        const auto tag = tagAt(place, true);
        if (!tag) {
            return;
        }
        if (seenInside_[*tag]) {
            readDuplicateInside(place, end, *tag, mistakes);
            return;
        }
        seenInside_[*tag] = true;
        forEachPiece(place, *tag, end, true, mistakes > 0, [&](const Piece& piece, double cost) {
            withInside(piece, cost, cost > 0 ? piece.name : "",
                       [&] { readInsideFrom(piece.end, end, mistakes - (cost > 0 ? 1 : 0)); });
        });
        seenInside_[*tag] = false;
    }

    void readDuplicateInside(std::size_t place, std::size_t end, std::size_t tag, int mistakes) {
        const std::string name = nameOf(tag, true);
        const auto first = std::find_if(inside_.pieces.begin(), inside_.pieces.end(),
                                        [&name](const Piece& piece) { return piece.name == name; });
        const std::size_t copyEnd = place + (first->end - first->tag);
        if (mistakes == 0 || copyEnd > end ||
            text().between(place, copyEnd) != text().between(first->tag, first->end)) {
            return;
        }
        Piece copy{name, place, place + 2, place + (first->value - first->tag), copyEnd, -1};
        copy.isDuplicate = true;
        withInside(copy, 1.0, "", [&] { readInsideFrom(copyEnd, end, mistakes - 1); });
    }

    template <class Continue>
    void withInside(const Piece& piece, double cost, const std::string& changedName, Continue next) {
        const InsideReading earlier = inside_;
        inside_.pieces.push_back(piece);
        inside_.cost += cost;
        inside_.mistakes += cost > 0 ? 1 : 0;
        if (!changedName.empty()) {
            inside_.changedNames.push_back(changedName);
        }
        next();
        inside_ = earlier;
    }

    bool isNear_ = false;  // only the likeliest mistakes
    int steps_ = 0;
    Reading current_;
    std::vector<Reading> found_;
    std::bitset<64> seen_;
    std::size_t highestTag_ = 0;
    InsideReading inside_;
    std::vector<InsideReading> insideFound_;
    std::bitset<64> seenInside_;
};

// The one reading in which all lengths count a unit.
class UnitSearch : TaggedText {
  public:
    UnitSearch(const Characters& text, bool isTwoDigit, LengthUnit unit)
        : TaggedText(text, isTwoDigit), unit_(unit) {}

    std::vector<Reading> run() {
        Reading reading;
        reading.unit = unit_;
        reading.cost = 1;
        const bool isWhole = read(0, text().count(), false, reading.pieces) && !reading.pieces.empty();
        const bool isEnclosed = !isTwoDigit() || (isWhole && reading.pieces.front().name == formatTag &&
                                                  reading.pieces.back().name == checksumTag);
        reading.changedNames = changedNames_;
        return isWhole && isEnclosed && !changedNames_.empty() ? std::vector{reading}
                                                               : std::vector<Reading>();
    }

  private:
    bool read(std::size_t place, std::size_t end, bool isInside, std::vector<Piece>& pieces) {
        std::bitset<64> seen;
        while (place < end) {
            const auto tag = place + 2 * width() <= end ? tagAt(place, isInside) : std::nullopt;
            if (!tag || seen[*tag]) {
                return false;
            }
            seen[*tag] = true;
            Piece piece = pieceAt(place, *tag, isInside, 0, width());
            if (piece.written < format().minimumLength || !extend(piece, end)) {
                return false;
            }
            if (piece.name == additionalDataTag && !read(piece.value, piece.end, true, piece.inside)) {
                return false;
            }
            place = piece.end;
            pieces.push_back(std::move(piece));
        }
        return true;
    }

    // Takes as many characters as the written length counts.
    bool extend(Piece& piece, std::size_t limit) {
        std::int64_t length = 0;
        while (length < piece.written && piece.end < limit) {
            length += static_cast<std::int64_t>(lengthIn(unit_, text().at(piece.end++)));
        }
        if (static_cast<std::int64_t>(piece.end - piece.value) != piece.written) {
            changedNames_.push_back(piece.name);
        }
        return length == piece.written;
    }

    LengthUnit unit_;
    std::vector<std::string> changedNames_;
};

}  // namespace

std::size_t repairedLength(const Piece& piece) noexcept {
    std::size_t length = piece.end - piece.value;
    for (const Piece& inside : piece.inside) {
        length += inside.isDuplicate ? inside.tag - inside.end : 2 - inside.fieldWidth();
    }
    return length;
}

std::vector<Reading> findReadingsInUnit(const Characters& text, bool isTwoDigit, LengthUnit unit) {
    return UnitSearch(text, isTwoDigit, unit).run();
}

std::vector<Reading> findReadings(const Characters& text, bool isTwoDigit, int mostMistakes) {
    return Search(text, isTwoDigit).run(mostMistakes);
}

}  // namespace korvo
