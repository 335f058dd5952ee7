#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Explanation/Lists.h>
#include <KorvoQRParser/Explanation/Readings.h>
#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <algorithm>
#include <bitset>
#include <tuple>
#include <utility>

namespace korvo {

namespace {

// One bit for each tag of a list.
using TagSet = std::bitset<tlv01TagRows.size()>;

// The best of the readings that a search finds, which can be thousands; the likeliest first.
class Likeliest {
  public:
    // Of two equally likely readings, the one that was found first is better.
    void add(Reading reading) {
        constexpr std::size_t most = 24;
        const auto place =
            findIf(readings_, [&reading](const Reading& other) { return reading.cost < other.cost; });
        if (place == readings_.end() && readings_.size() == most) {
            return;
        }
        readings_.insert(place, std::move(reading));
        readings_.resize(std::min(readings_.size(), most));
    }

    std::vector<Reading> take() { return std::move(readings_); }

  private:
    std::vector<Reading> readings_;
};

// Puts a reading back at the end of a scope, after the search has tried one way to continue it.
class Retreat {
  public:
    explicit Retreat(Reading& reading)
        : reading_(reading),
          pieces_(reading.pieces.size()),
          names_(reading.changedNames.size()),
          marks_(reading.cost, reading.isGuessed, reading.isDoubtful, reading.isForbidden) {}
    Retreat(const Retreat&) = delete;
    Retreat& operator=(const Retreat&) = delete;
    ~Retreat() {
        reading_.pieces.resize(pieces_);
        reading_.changedNames.resize(names_);
        std::tie(reading_.cost, reading_.isGuessed, reading_.isDoubtful, reading_.isForbidden) = marks_;
    }

  private:
    Reading& reading_;
    std::size_t pieces_;
    std::size_t names_;
    std::tuple<double, bool, bool, bool> marks_;
};

void append(Reading& reading, const Piece& piece, double cost) {
    reading.pieces.push_back(piece);
    reading.cost += cost;
}

const Piece& pieceNamed(std::string_view name, const std::vector<Piece>& pieces) {
    return *findIf(pieces, [name](const Piece& piece) { return piece.name == name; });
}

// The steps that a search may still take.
class Budget {
  public:
    bool isSpent() { return ++steps_ > most; }

  private:
    static constexpr int most = 50'000;
    int steps_ = 0;
};

// Finds ways to read the elements inside tag 62. Of such a reading only the pieces, the cost and the changed
// names are used.
class InsideSearch {
  public:
    InsideSearch(const TaggedText& text, std::size_t end, Tolerance tolerance, Budget& budget)
        : text_(text), level_{true, end}, tolerance_(tolerance), budget_(budget) {}

    // With one mistake at most.
    std::vector<Reading> run(std::size_t place) {
        readFrom(place, tolerance_ != Tolerance::none);
        return found_.take();
    }

  private:
    void readFrom(std::size_t place, bool mayErr) {
        if (budget_.isSpent()) {
            return;
        }
        if (place == level_.end) {
            found_.add(current_);
            return;
        }
        const auto tag = place + text_.width() < level_.end ? text_.tagAt(place, true) : std::nullopt;
        if (!tag) {
            return;
        }
        if (seen_[*tag]) {
            readDuplicate(place, *tag, mayErr);
            return;
        }
        seen_[*tag] = true;
        for (const auto& [piece, cost] :
             text_.piecesAt(place, *tag, level_, mayErr ? tolerance_ : Tolerance::none)) {
            const Retreat retreat(current_);
            append(current_, piece, cost);
            if (cost > 0) {
                current_.changedNames.push_back(piece.name);
            }
            readFrom(piece.end, mayErr && cost == 0);
        }
        seen_[*tag] = false;
    }

    void readDuplicate(std::size_t place, std::size_t tag, bool mayErr) {
        const Piece& first = pieceNamed(text_.nameOf(tag, true), current_.pieces);
        const auto copy = mayErr ? text_.copyAt(place, level_.end, first) : std::nullopt;
        if (copy) {
            const Retreat retreat(current_);
            append(current_, *copy, 1);
            readFrom(copy->end, false);
        }
    }

    const TaggedText& text_;
    Level level_;
    Tolerance tolerance_;
    Budget& budget_;
    Reading current_;
    Likeliest found_;
    TagSet seen_;
};

// Finds ways to read a whole text.
class Search {
  public:
    // The second of two mistakes is only looked for nearby, because both multiply.
    Search(const Characters& text, bool isTwoDigit, int mostMistakes)
        : text_(text, isTwoDigit), tolerance_(mostMistakes > 1 ? Tolerance::likely : Tolerance::all) {
        current_.mistakes = mostMistakes;
    }

    std::vector<Reading> run() {
        readFrom(0, current_.mistakes, false);
        return found_.take();
    }

  private:
    std::size_t count() const { return text_.text().count(); }
    std::string_view between(std::size_t begin, std::size_t end) const {
        return text_.text().between(begin, end);
    }
    Tolerance toleranceFor(int mistakes) const { return mistakes > 0 ? tolerance_ : Tolerance::none; }

    // Reads on at a place, with so many mistakes left. Astray is what follows a changed length.
    void readFrom(std::size_t place, int mistakes, bool isAstray) {
        if (budget_.isSpent()) {
            return;
        }
        if (place == count()) {
            finish(mistakes);
            return;
        }
        readBrokenChecksum(place, mistakes);
        const auto tag = place + text_.width() < count() ? text_.tagAt(place, false) : std::nullopt;
        if (!tag) {
            return;
        }
        if (seen_[*tag]) {
            readDuplicate(place, *tag, mistakes, isAstray);
            return;
        }
        const Retreat retreat(current_);
        markUnkept(place, *tag, isAstray);
        const std::size_t highest = std::exchange(highestTag_, std::max(highestTag_, *tag));
        seen_[*tag] = true;
        for (const auto& [piece, cost] :
             text_.piecesAt(place, *tag, {false, count()}, toleranceFor(mistakes))) {
            // No element is shortened to the end of the text: what is there may be the rest of a longer one.
            const bool isShortened = cost > 0 && piece.end == count() &&
                                     static_cast<std::int64_t>(piece.valueLength()) < piece.written;
            if (!isShortened) {
                readAfter(piece, cost, mistakes, isAstray);
            }
        }
        seen_[*tag] = false;
        highestTag_ = highest;
    }

    // After a mistake, a tag that the record does not keep is only believed at its place in the order, and
    // with a sequence of elements in it.
    void markUnkept(std::size_t place, std::size_t tag, bool isAstray) {
        const std::string name = text_.nameOf(tag, false);
        if (!isAstray || !isUnkeptTag(name)) {
            return;
        }
        current_.isGuessed = true;
        current_.isDoubtful =
            current_.isDoubtful || tag < highestTag_ || !isTemplateTag(name) || !text_.holdsElements(place);
    }

    void readAfter(const Piece& piece, double cost, int mistakes, bool isAstray) {
        if (piece.name == additionalDataTag) {
            readAfterOpened(piece, cost, mistakes, isAstray);
            return;
        }
        const Retreat retreat(current_);
        append(current_, piece, cost);
        if (cost > 0) {
            current_.changedNames.push_back(piece.name);
            current_.isForbidden = current_.isForbidden || text_.couldHide(piece);
            current_.isDoubtful = current_.isDoubtful || text_.isStrange(piece);
        }
        readFrom(piece.end, mistakes - (cost > 0 ? 1 : 0), isAstray || cost > 0);
    }

    // The same after tag 62, for each way to read the elements inside it.
    void readAfterOpened(const Piece& piece, double cost, int mistakes, bool isAstray) {
        InsideSearch search(text_, piece.end, toleranceFor(mistakes), budget_);
        for (Reading& inside : search.run(piece.value)) {
            Piece opened = piece;
            opened.inside = std::move(inside.pieces);
            const bool isInsideRight = inside.cost == 0;
            const auto repaired = static_cast<std::int64_t>(repairedLength(opened));
            // If a length inside lost its digit, the length outside followed, or has the digit still.
            const bool isRight = repaired == piece.written || (!isInsideRight && cost == 0);
            const int used = (isInsideRight ? 0 : 1) + (isRight ? 0 : 1);
            if (used > mistakes) {
                continue;
            }
            const Retreat retreat(current_);
            append(current_, opened, inside.cost + (isRight ? 0 : std::max(cost, 1.0)));
            const auto& names = isRight ? inside.changedNames : std::vector{piece.name};
            current_.changedNames.insert(current_.changedNames.end(), names.begin(), names.end());
            readFrom(opened.end, mistakes - used, isAstray || used > 0);
        }
    }

    void readDuplicate(std::size_t place, std::size_t tag, int mistakes, bool isAstray) {
        const Piece& first = pieceNamed(text_.nameOf(tag, false), current_.pieces);
        const auto copy = mistakes > 0 ? text_.copyAt(place, count(), first) : std::nullopt;
        if (copy) {
            const Retreat retreat(current_);
            append(current_, *copy, 1);
            readFrom(copy->end, mistakes - 1, isAstray);
        }
    }

    // A checksum element at the end whose length is not 4, or that is only begun.
    void readBrokenChecksum(std::size_t place, int mistakes) {
        constexpr std::size_t longest = 10;
        const std::size_t left = count() - place;
        const std::string_view rest = between(place, count());
        const bool isBegun = rest == checksumHead.substr(0, rest.size());
        const bool isWhole =
            left == checksumHead.size() + checksumLength && rest.substr(0, 4) == checksumHead;
        const bool isTail = left <= longest && rest.substr(0, 2) == checksumTag;
        const bool isRepeated = seen_[static_cast<std::size_t>(PayMerchantValidTLV01::CRC)];
        if (!text_.isTwoDigit() || mistakes == 0 || isRepeated || isWhole || (!isBegun && !isTail)) {
            return;
        }
        Piece piece{std::string(checksumTag),     place,   std::min(place + 2, count()),
                    std::min(place + 4, count()), count(), -1};
        piece.isBroken = true;
        const Retreat retreat(current_);
        append(current_, piece, 1.1);
        finish(mistakes - 1);
    }

    // MARK: the whole reading

    void finish(int mistakes) {
        Reading reading = current_;
        std::vector<const Piece*> kept;
        for (const Piece& piece : reading.pieces) {
            if (!piece.isDuplicate) {
                kept.push_back(&piece);
            }
        }
        if (kept.empty() || (text_.isTwoDigit() && !countMoves(reading, kept, mistakes))) {
            return;
        }
        constexpr double obvious = 1.25;
        const double disorder = disorderOf(kept);
        reading.isGuessed =
            reading.isGuessed || (!reading.changedNames.empty() && (reading.cost > obvious || disorder > 0));
        reading.cost += disorder;
        found_.add(std::move(reading));
    }

    // Adds the mistakes in the places of tag 00 and tag 63. False if these are too many.
    static bool countMoves(Reading& reading, const std::vector<const Piece*>& kept, int mistakes) {
        const auto has = [&kept](std::string_view name) {
            return anyOf(kept, [&](auto* piece) { return piece->name == name; });
        };
        reading.isFormatMissing = !has(formatTag);
        reading.isFormatMoved = !reading.isFormatMissing && kept.front()->name != formatTag;
        reading.isChecksumMissing = !has(checksumTag);
        reading.isChecksumMoved = !reading.isChecksumMissing && kept.back()->name != checksumTag;
        const int moves = (reading.isFormatMissing || reading.isFormatMoved ? 1 : 0) +
                          (reading.isChecksumMissing || reading.isChecksumMoved ? 1 : 0);
        reading.cost += moves;
        // A checksum of another length in the middle is a misreading.
        const bool isMisread = reading.isChecksumMoved &&
                               pieceNamed(checksumTag, reading.pieces).valueLength() != checksumLength;
        return moves <= mistakes && !isMisread;
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

    TaggedText text_;
    Tolerance tolerance_;
    Budget budget_;
    Reading current_;
    Likeliest found_;
    TagSet seen_;
    std::size_t highestTag_ = 0;
};

// Finds the one reading in which all lengths count a unit.
class UnitSearch {
  public:
    UnitSearch(const Characters& text, bool isTwoDigit, LengthUnit unit)
        : text_(text, isTwoDigit), unit_(unit) {}

    std::vector<Reading> run() {
        Reading reading;
        reading.unit = unit_;
        reading.cost = 1;
        reading.mistakes = 1;
        const bool isWhole =
            read(0, {false, text_.text().count()}, reading.pieces) && !reading.pieces.empty();
        const bool isEnclosed = !text_.isTwoDigit() || (isWhole && reading.pieces.front().name == formatTag &&
                                                        reading.pieces.back().name == checksumTag);
        reading.changedNames = changedNames_;
        return isWhole && isEnclosed && !changedNames_.empty() ? std::vector{reading}
                                                               : std::vector<Reading>();
    }

  private:
    bool read(std::size_t place, const Level& level, std::vector<Piece>& pieces) {
        TagSet seen;
        while (place < level.end) {
            const auto tag =
                place + 2 * text_.width() <= level.end ? text_.tagAt(place, level.isInside) : std::nullopt;
            if (!tag || seen[*tag]) {
                return false;
            }
            seen[*tag] = true;
            Piece piece = text_.headAt(place, *tag, level.isInside);
            if (piece.written < text_.format().minimumLength || !extend(piece, level.end)) {
                return false;
            }
            if (piece.name == additionalDataTag && !read(piece.value, {true, piece.end}, piece.inside)) {
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
            length += static_cast<std::int64_t>(lengthIn(unit_, text_.text().at(piece.end++)));
        }
        if (static_cast<std::int64_t>(piece.valueLength()) != piece.written) {
            changedNames_.push_back(piece.name);
        }
        return length == piece.written;
    }

    TaggedText text_;
    LengthUnit unit_;
    std::vector<std::string> changedNames_;
};

}  // namespace

std::size_t repairedLength(const Piece& piece) noexcept {
    std::size_t length = piece.valueLength();
    for (const Piece& inside : piece.inside) {
        length += inside.isDuplicate ? inside.tag - inside.end : 2 - inside.fieldWidth();
    }
    return length;
}

std::vector<Reading> findReadingsInUnit(const Characters& text, bool isTwoDigit, LengthUnit unit) {
    return UnitSearch(text, isTwoDigit, unit).run();
}

std::vector<Reading> findReadings(const Characters& text, bool isTwoDigit, int mostMistakes) {
    return Search(text, isTwoDigit, mostMistakes).run();
}

}  // namespace korvo
