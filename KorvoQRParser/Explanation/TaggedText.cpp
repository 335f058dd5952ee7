#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Explanation/TaggedText.h>
#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace korvo {

namespace {

// clang-format off
#define KORVO_KEPT(rawValue, name, field, meaning) true,
#define KORVO_DROPPED(rawValue, name) false,
constexpr std::array isKept{KORVO_TLV01_TAGS(KORVO_KEPT, KORVO_DROPPED)};
#undef KORVO_DROPPED
#undef KORVO_KEPT
// clang-format on

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

// Whether a length field that is no number may have been one: a digit, and a character that looks like one.
bool looksLikeNumber(std::string_view field) {
    constexpr std::string_view lookAlikes = "OoQDlI|SBZ ";
    const auto isIn = [field](std::string_view set) {
        return field.find_first_of(set) != std::string_view::npos;
    };
    return field.size() == 2 && isIn("0123456789") && isIn(lookAlikes);
}

}  // namespace

TaggedText::TaggedText(const Characters& text, bool isTwoDigit)
    : text_(text), format_(isTwoDigit ? twoDigitFormat : oneCharacterFormat) {}

std::optional<std::size_t> TaggedText::tagAt(std::size_t place, bool isInside) const {
    const std::string_view tag = text_.between(place, place + width());
    const auto number = [](const auto& known) {
        return known ? std::optional(static_cast<std::size_t>(*known)) : std::nullopt;
    };
    return isInside       ? number(pmValidTLV01AdditionalDataField(tag))
           : isTwoDigit() ? number(payMerchantValidTLV01(tag))
                          : number(payMerchantValidTLV00InEitherCase(tag));
}

std::string TaggedText::nameOf(std::size_t tag, bool isInside) const {
    return isInside       ? nameInsideAdditionalData(tlv01SubTagRows[tag].rawValue)
           : isTwoDigit() ? std::string(tlv01TagRows[tag].rawValue)
                          : std::string(tlv00TagRows[tag].rawValue);
}

Piece TaggedText::headAt(std::size_t place, std::size_t tag, bool isInside) const {
    const std::size_t length = place + width();
    const std::size_t value = length + width();
    return {
        nameOf(tag, isInside), place, length, value, value, format_.readLength(text_.between(length, value))};
}

std::vector<PossiblePiece> TaggedText::piecesAt(std::size_t place, std::size_t tag, const Level& level,
                                                Tolerance tolerance) const {
    std::vector<PossiblePiece> pieces;
    if (place + 2 * width() > level.end) {
        return pieces;
    }
    const Piece head = headAt(place, tag, level.isInside);
    if (head.written >= format_.minimumLength &&
        head.written <= static_cast<std::int64_t>(level.end - head.value)) {
        pieces.push_back({head, 0});
        pieces.back().piece.end += static_cast<std::size_t>(head.written);
    }
    // A checksum of another length is broken, which is a mistake of its own.
    if (tolerance == Tolerance::none || head.name == checksumTag) {
        return pieces;
    }
    constexpr double nearest = 1.1;
    constexpr double farthest = 1.75;  // 5 characters, unless the difference has a reason
    appendOtherLengths(pieces, head, level.end, tolerance == Tolerance::likely ? nearest : farthest);
    if (tolerance == Tolerance::all && isTwoDigit()) {
        appendOneDigit(pieces, head, level.end);
    }
    return pieces;
}

void TaggedText::appendOtherLengths(std::vector<PossiblePiece>& pieces, Piece piece, std::size_t limit,
                                    double highestCost) const {
    const auto least = static_cast<std::size_t>(format_.minimumLength);
    const std::size_t most = std::min<std::size_t>(limit - piece.value, isTwoDigit() ? 99 : 35);
    for (std::size_t length = least; length <= most; ++length) {
        piece.end = piece.value + length;
        const double cost =
            lengthCost(piece.written, length, text_.between(piece.value, piece.end), 2 * width());
        if (static_cast<std::int64_t>(length) != piece.written && cost <= highestCost) {
            pieces.push_back({piece, cost});
        }
    }
}

// The same piece, if its length was written with one digit.
void TaggedText::appendOneDigit(std::vector<PossiblePiece>& pieces, Piece piece, std::size_t limit) const {
    const std::string_view digit = text_.at(piece.length);
    const std::size_t length = digit.size() == 1 ? static_cast<std::size_t>(digitValue(digit[0])) : 0;
    piece.value = piece.length + 1;
    piece.end = piece.value + length;
    piece.written = -1;
    if (length >= 1 && length <= 9 && piece.end <= limit) {
        pieces.push_back({std::move(piece), 1});
    }
}

std::optional<Piece> TaggedText::copyAt(std::size_t place, std::size_t limit, const Piece& earlier) const {
    const auto moved = [&](std::size_t of) { return place + (of - earlier.tag); };
    const std::size_t end = moved(earlier.end);
    if (end > limit || text_.between(place, end) != text_.between(earlier.tag, earlier.end)) {
        return std::nullopt;
    }
    return Piece{earlier.name,    place, moved(earlier.length), moved(earlier.value), end,
                 earlier.written, true};
}

bool TaggedText::holdsElements(std::size_t place) const {
    const std::size_t value = place + 2 * width();
    const std::int64_t length =
        value <= text_.count() ? format_.readLength(text_.between(place + width(), value)) : -1;
    return length > 0 && value + static_cast<std::size_t>(length) <= text_.count() &&
           isSequence(value, value + static_cast<std::size_t>(length));
}

// Whether a part of the text is a sequence of two-digit elements, with any tags.
bool TaggedText::isSequence(std::size_t place, std::size_t end) const {
    while (place < end) {
        if (place + 4 > end || twoDigitNumber(text_.between(place, place + 2)) < 0) {
            return false;
        }
        const int length = twoDigitNumber(text_.between(place + 2, place + 4));
        if (length < 1 || place + 4 + static_cast<std::size_t>(length) > end) {
            return false;
        }
        place += 4 + static_cast<std::size_t>(length);
    }
    return true;
}

bool TaggedText::couldHide(const Piece& piece) const {
    if (!isUnkeptTag(piece.name)) {
        return false;
    }
    const bool isShorter = static_cast<std::int64_t>(piece.valueLength()) < piece.written;
    return !isTemplateTag(piece.name) || !isShorter || !isSequence(piece.value, piece.end);
}

bool TaggedText::isStrange(const Piece& piece) const {
    return isTwoDigit() && piece.written < 0 && piece.fieldWidth() == width() &&
           !looksLikeNumber(text_.between(piece.length, piece.value));
}

bool isUnkeptTag(std::string_view name) noexcept {
    const auto tag = payMerchantValidTLV01(name);
    return tag && !isKept[static_cast<std::size_t>(*tag)];
}

}  // namespace korvo
