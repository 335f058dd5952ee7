#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Explanation/ExplanationFacts.h>
#include <KorvoQRParser/Explanation/FaultReason.h>
#include <KorvoQRParser/Explanation/Lists.h>
#include <KorvoQRParser/Explanation/Violations.h>
#include <KorvoQRParser/Explanation/VisibleText.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace korvo {

namespace {

using Elements = std::vector<WalkedElement>;
using Kind = QRCodeFaultKind;

constexpr std::int64_t shortestPayload = 2;  // characters

struct Finding {
    Kind kind;
    const char* position;  // in the payload
    std::string reason;
};

std::string_view nameOf(TLVDecodingError error) {
    switch (error) {
        case TLVDecodingError::InvalidLength:
            return "InvalidLength";
        case TLVDecodingError::InvalidTagLength:
            return "InvalidTagLength";
        case TLVDecodingError::RepeatedTag:
            return "RepeatedTag";
        case TLVDecodingError::InvalidTag:
            return "InvalidTag";
    }
    return "";
}

std::string remaining(std::int64_t count) {
    return count == 0 ? "nothing is left"
                      : joined({"only ", counted(static_cast<std::size_t>(count), "character"),
                                (count == 1 ? " is left" : " are left")});
}

bool isTwoDigit(const TLVFault& fault) {
    return fault.format.fieldWidth == twoDigitFormat.fieldWidth;
}

Finding repeatedTag(const Elements& elements, const TLVFault& fault) {
    const std::string_view tag = fault.element.tag;
    const auto first = findIf(elements, [&](const WalkedElement& element) {
        return element.isInsideAdditionalData == fault.isInsideAdditionalData &&
               std::equal(tag.begin(), tag.end(), element.element.tag.begin(), element.element.tag.end(),
                          [](char a, char b) { return asciiLowerCase(a) == asciiLowerCase(b); });
    });
    std::string reason = joined({"tag ", inQuotes(tag), " is repeated"});
    if (first != elements.end()) {
        reason += joined({"; it first occurs at offset ", std::to_string(first->offset)});
    }
    return {Kind::repeatedTag, tag.data(), reason};
}

// The first and the last of consecutive tags: "00 to 63"; for tags of one character "0 to 9, A and B".
template <std::size_t count>
std::string boundsOf(const std::array<TagRow, count>& rows) {
    const auto isDigit = [](const TagRow& row) { return row.rawValue[0] <= '9'; };
    const auto firstLetter = std::find_if_not(rows.begin(), rows.end(), isDigit);
    std::string bounds = joined({rows.front().rawValue, " to ", (firstLetter - 1)->rawValue});
    if (firstLetter != rows.end()) {
        const bool areTwo = firstLetter + 2 == rows.end();
        bounds += joined({", ", firstLetter->rawValue, (areTwo ? " and " : " to "), rows.back().rawValue});
    }
    return bounds;
}

Finding unknownTag(const TLVFault& fault) {
    const std::string_view tag = fault.element.tag;
    const std::string bounds = fault.isInsideAdditionalData ? boundsOf(tlv01SubTagRows)
                               : isTwoDigit(fault)          ? boundsOf(tlv01TagRows)
                                                            : boundsOf(tlv00TagRows);
    return {Kind::unknownTag, tag.data(), joined({"tag ", inQuotes(tag), " is unknown; tags are ", bounds})};
}

// All elements are well-formed, but the last one is not the checksum.
Finding wrongEnd(const Elements& elements, const TLVFault& fault) {
    const auto isChecksum = [](const WalkedElement& element) { return element.name == checksumTag; };
    const auto checksum = findIf(elements, isChecksum);
    if (checksum == elements.end()) {
        return {Kind::missingChecksum, fault.rest.data(),
                joined({"the payload ends without its checksum, tag ", checksumTag})};
    }
    const std::string_view next = (checksum + 1)->element.tag;
    return {
        Kind::checksumNotLast, next.data(),
        joined({"tag ", inQuotes(next), " follows the checksum, tag ", checksumTag, ", which must be last"})};
}

Finding invalidTag(const Elements& elements, const TLVFault& fault) {
    // A walk visits only elements with a known tag.
    const bool isKnown = !elements.empty() && elements.back().element.tag.data() >= fault.element.tag.data();
    return isKnown ? wrongEnd(elements, fault) : unknownTag(fault);
}

// The place of the first bytes that are not UTF-8, in a text that has some.
Finding malformedBytes(std::string_view text) {
    return {Kind::notText, text.data() + firstMalformedByte(text), "these bytes are not UTF-8"};
}

Finding wrongLength(const TLVFault& fault, std::int64_t length, std::int64_t left) {
    const auto& [error, format, isInside, element, rest] = fault;
    std::string reason = "length ";
    if (length >= format.minimumLength) {
        const bool isLetter = length > 9 && !isTwoDigit(fault);
        reason += element.length;
        reason += isLetter ? joined({" (", std::to_string(length), ")"}) : "";
        reason += joined({", but ", remaining(left)});
    } else if (length == 0) {
        reason += joined({inQuotes(element.length), ": a value must not be empty in this format"});
    } else {
        reason +=
            joined({inQuotes(element.length), " is not ",
                    (isTwoDigit(fault) ? "a number from 01 to 99" : "a digit of base 36 (0 to 9, a to z)")});
    }
    return {Kind::wrongLength, element.length.data(), reason};
}

// The number of characters that the walk was about to read.
std::int64_t wantedCharacters(const TLVFault& fault) {
    const auto& [error, format, isInside, element, rest] = fault;
    if (error == TLVDecodingError::InvalidLength) {
        return shortestPayload;
    }
    const bool isField = element.tag.empty() || element.length.empty();
    return isField ? static_cast<std::int64_t>(format.fieldWidth)
                   : std::max<std::int64_t>(format.readLength(element.length), 0);
}

// The text ends, or stops being UTF-8, before the walk has read an element.
Finding wrongShape(const TLVFault& fault) {
    const auto& [error, format, isInside, element, rest] = fault;
    const std::int64_t wanted = wantedCharacters(fault);
    CharacterReader characters(rest);
    std::int64_t left = 0;
    while (left < wanted && characters.take(1)) {
        ++left;
    }
    if (left < wanted && !characters.atEnd()) {
        return malformedBytes(characters.rest());
    }
    if (error == TLVDecodingError::InvalidLength) {
        return {Kind::tooShort, rest.data(),
                joined({"a payload has at least ", counted(shortestPayload, "character"),
                        ", but this one has ", std::to_string(left)})};
    }
    if (element.tag.empty()) {
        return {Kind::endsEarly, rest.data(),
                joined({"a tag takes ", counted(static_cast<std::size_t>(wanted), "character"), ", but ",
                        remaining(left)})};
    }
    if (element.length.empty()) {
        return {Kind::endsEarly, rest.data(),
                joined({"the length of tag ", inQuotes(element.tag), " takes ",
                        counted(static_cast<std::size_t>(wanted), "character"), ", but ", remaining(left)})};
    }
    return wrongLength(fault, format.readLength(element.length), left);
}

Finding findingOf(const Elements& elements, const TLVFault& fault) {
    switch (fault.error) {
        case TLVDecodingError::RepeatedTag:
            return repeatedTag(elements, fault);
        case TLVDecodingError::InvalidTag:
            return invalidTag(elements, fault);
        case TLVDecodingError::InvalidLength:
        case TLVDecodingError::InvalidTagLength:
            break;
    }
    return wrongShape(fault);
}

// The offset of a position, counted from the last element that does not begin after it.
std::size_t offsetOf(const char* position, std::string_view payload, const Elements& elements) {
    const auto last = std::find_if(
        elements.rbegin(), elements.rend(),
        [position](const WalkedElement& element) { return element.element.tag.data() <= position; });
    const bool isFirst = last == elements.rend();
    const char* const start = isFirst ? payload.data() : last->element.tag.data();
    return (isFirst ? 0 : last->offset) + characterCount({start, static_cast<std::size_t>(position - start)});
}

std::string tagOf(const TLVFault& fault) {
    const std::string_view tag = fault.element.tag;
    return fault.isInsideAdditionalData && !tag.empty() ? nameInsideAdditionalData(tag) : std::string(tag);
}

// The last few elements before a place in the payload. An element that is too long is cut between two code
// points.
std::string_view excerptBefore(std::size_t place, std::string_view payload, const Elements& elements) {
    constexpr std::size_t mostBytes = 36;  // so that both excerpts fit on one line
    const auto startOf = [&](const WalkedElement& element) {
        return static_cast<std::size_t>(element.element.tag.data() - payload.data());
    };
    const auto first = findIf(elements, [&](const WalkedElement& element) {
        return startOf(element) + mostBytes >= place && startOf(element) <= place;
    });
    std::size_t begin = first == elements.end() ? place : startOf(*first);
    if (begin == place) {
        begin = place - std::min(place, mostBytes);
        while (begin < place && (static_cast<unsigned char>(payload[begin]) & 0xC0U) == 0x80U) {
            ++begin;
        }
    }
    return payload.substr(begin, place - begin);
}

std::string_view excerptAfter(std::size_t place, std::string_view payload) {
    constexpr std::size_t enoughBytes = 24;
    std::size_t end = place;
    while (end < payload.size() && end - place < enoughBytes) {
        nextCodePoint(payload, end);
    }
    return payload.substr(place, end - place);
}

}  // namespace

QRCodeFault explainFault(std::string_view payload, const PayloadWalk& walk) {
    const TLVFault& fault = *walk.fault;
    const auto [kind, position, reason] = findingOf(walk.elements, fault);
    const auto place = static_cast<std::size_t>(position - payload.data());
    return QRCodeFault(std::make_shared<QRCodeFault::Facts>(QRCodeFault::Facts{
        kind, nameOf(fault.error), offsetOf(position, payload, walk.elements),
        kind == Kind::notText ? std::optional(place) : std::nullopt, tagOf(fault),
        (fault.isInsideAdditionalData ? joined({"inside tag ", additionalDataTag, ", "}) : "") + reason,
        std::string(excerptBefore(place, payload, walk.elements)),
        std::string(excerptAfter(place, payload))}));
}

}  // namespace korvo
