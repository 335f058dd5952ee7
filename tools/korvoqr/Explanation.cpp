#include "Explanation.h"

#include "Terminal.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>

namespace korvoqr {

namespace {

using korvo::TLVDecodingError;
using korvo::TLVFault;

bool isAdditionalData(const ExplainedElement& element) {
    return element.name == "62";
}

std::size_t charactersOf(const ExplainedElement& element) {
    // A tag is as wide as a length field.
    const std::size_t fieldWidth = element.isInsideAdditionalData || element.name.size() == 2 ? 2 : 1;
    return 2 * fieldWidth + element.value.characterCount();
}

// Writes down what a walk meets.
class Recorder final : public korvo::TLVVisitor {
  public:
    explicit Recorder(std::vector<ExplainedElement>& elements) : elements_(elements) {}

    void visit(korvo::PayMerchantValidTLV01 tag, const korvo::TLVElement& element) override {
        add(element, std::string(rawValue(tag)), tagRow(tag).meaning, false);
    }
    void visit(korvo::PMValidTLV01AdditionalDataField subTag, const korvo::TLVElement& element) override {
        add(element, "62/" + std::string(rawValue(subTag)), tagRow(subTag).meaning, true);
    }
    void visit(korvo::PayMerchantValidTLV00 tag, const korvo::TLVElement& element) override {
        add(element, std::string(rawValue(tag)), tagRow(tag).meaning, false);
    }

  private:
    void add(const korvo::TLVElement& element, std::string name, std::string_view meaning, bool isInside) {
        if (!elements_.empty() && isInside && isAdditionalData(elements_.back())) {
            insideOffset_ = elements_.back().offset + 4;
        }
        std::size_t& offset = isInside ? insideOffset_ : rootOffset_;
        elements_.push_back(
            {offset, element.tag, element.length, element.value, std::move(name), meaning, isInside, {}});
        offset += charactersOf(elements_.back());
    }

    std::vector<ExplainedElement>& elements_;
    std::size_t rootOffset_ = 0;
    std::size_t insideOffset_ = 0;
};

std::string counted(std::int64_t count, std::string_view noun) {
    return std::to_string(count) + ' ' + std::string(noun) + (count == 1 ? "" : "s");
}

// The first and the last of consecutive tags: "00 to 63"; for tags of one character "0 to 9, A and B".
template <std::size_t count>
std::string boundsOf(const std::array<korvo::TagRow, count>& rows) {
    const auto isDigit = [](const korvo::TagRow& row) { return row.rawValue[0] <= '9'; };
    const auto firstLetter = std::find_if_not(rows.begin(), rows.end(), isDigit);
    std::string bounds =
        std::string(rows.front().rawValue) + " to " + std::string((firstLetter - 1)->rawValue);
    if (firstLetter != rows.end()) {
        const bool areTwo = firstLetter + 2 == rows.end();
        bounds += ", " + std::string(firstLetter->rawValue) + (areTwo ? " and " : " to ") +
                  std::string(rows.back().rawValue);
    }
    return bounds;
}

// Says of a walk's fault what is wrong and where.
class FaultReader {
  public:
    FaultReader(std::string_view payload, const std::vector<ExplainedElement>& elements,
                const TLVFault& fault)
        : payload_(payload),
          elements_(elements),
          fault_(fault),
          isInside_(fault.isInsideAdditionalData),
          where_(isInside_ ? "inside tag 62, " : "") {}

    ExplainedFault read() {
        constexpr std::array<std::string_view, 4> names{"InvalidLength", "InvalidTagLength", "RepeatedTag",
                                                        "InvalidTag"};
        describe();
        const auto split = static_cast<std::size_t>(position_ - payload_.data());
        return {names[static_cast<std::size_t>(fault_.error)], where_ + reason_, characterOffset(),
                before(split), after(split)};
    }

  private:
    void describe() {
        const auto& [error, format, isInside, element, rest] = fault_;
        position_ = element.tag.empty() ? rest.data() : element.tag.data();
        if (error == TLVDecodingError::RepeatedTag) {
            describeRepeatedTag();
        } else if (error == TLVDecodingError::InvalidTag) {
            describeInvalidTag();
        } else if (!describeMalformedBytes()) {
            describeLength();
        }
    }

    void describeRepeatedTag() {
        const auto first = std::find_if(elements_.begin(), elements_.end(), [this](const auto& element) {
            return element.isInsideAdditionalData == isInside_ &&
                   korvo::lowerCased(element.tag) == korvo::lowerCased(fault_.element.tag);
        });
        reason_ = "tag " + inQuotes(fault_.element.tag) + " occurs a second time";
        if (first != elements_.end()) {
            reason_ += ", first at offset " + std::to_string(first->offset);
        }
    }

    void describeInvalidTag() {
        const bool isKnown = !elements_.empty() && elements_.back().tag.data() >= fault_.element.tag.data();
        if (!isKnown) {
            const bool isTwoDigit = fault_.format.fieldWidth == 2;
            reason_ = "tag " + inQuotes(fault_.element.tag) + " is not known; tags are " +
                      (isInside_    ? boundsOf(korvo::tlv01SubTagRows)
                       : isTwoDigit ? boundsOf(korvo::tlv01TagRows)
                                    : boundsOf(korvo::tlv00TagRows));
            return;
        }
        const auto checksum = std::find_if(elements_.begin(), elements_.end(),
                                           [](const auto& element) { return element.name == "63"; });
        if (checksum == elements_.end()) {
            position_ = fault_.rest.data();
            reason_ = "the payload ends without its checksum, tag 63";
        } else {
            const auto next = std::find_if(checksum, elements_.end(),
                                           [](const auto& element) { return element.name != "63"; });
            position_ = next->tag.data();
            reason_ = "tag " + inQuotes(next->tag) + " follows the checksum, tag 63, which must be the last";
        }
    }

    // Reading ends at bytes that are no text, whatever was to be read there.
    bool describeMalformedBytes() {
        korvo::CharacterReader characters(fault_.rest);
        const std::int64_t wanted = wantedCharacters();
        while (left_ < wanted && characters.take(1)) {
            ++left_;
        }
        if (left_ == wanted || characters.atEnd()) {
            return false;
        }
        const std::string_view unread = characters.rest();
        std::size_t offset = 0;
        std::size_t end = 0;
        while (end < unread.size() && korvo::nextCodePoint(unread, end) >= 0) {
            offset = end;
        }
        position_ = unread.data() + offset;
        reason_ = "the bytes here are not UTF-8";
        return true;
    }

    std::int64_t wantedCharacters() const {
        const auto& [error, format, isInside, element, rest] = fault_;
        if (error == TLVDecodingError::InvalidLength) {
            return 2;
        }
        const bool isField = element.tag.empty() || element.length.empty();
        return isField ? static_cast<std::int64_t>(format.fieldWidth)
                       : std::max<std::int64_t>(format.readLength(element.length), 0);
    }

    void describeLength() {
        const auto& [error, format, isInside, element, rest] = fault_;
        const std::string width = counted(static_cast<std::int64_t>(format.fieldWidth), "character");
        if (error == TLVDecodingError::InvalidLength) {
            reason_ = "a payload has at least 2 characters, and this one has " + std::to_string(left_);
        } else if (element.tag.empty()) {
            reason_ = counted(left_, "character") + " left, but a tag takes " + width;
        } else if (element.length.empty()) {
            position_ = rest.data();
            reason_ = counted(left_, "character") + " left, but the length of tag " + inQuotes(element.tag) +
                      " takes " + width;
        } else {
            position_ = element.length.data();
            describeAnnouncedLength(format.readLength(element.length));
        }
    }

    void describeAnnouncedLength(std::int64_t length) {
        const auto& [error, format, isInside, element, rest] = fault_;
        if (length >= format.minimumLength) {
            reason_ = "length " + visible(element.length) + " announced";
            if (length > 9 && format.fieldWidth == 1) {
                reason_ += " (" + std::to_string(length) + ')';
            }
            reason_ += ", " + counted(left_, "character") + " left";
        } else if (length == 0) {
            reason_ = "length " + inQuotes(element.length) + ": an empty value is not allowed here";
        } else {
            reason_ =
                "length " + inQuotes(element.length) + " is not " +
                (format.fieldWidth == 1 ? "a digit of base 36 (0 to 9, a to z)" : "a number from 01 to 99");
        }
    }

    // The element or boundary before the position from which a person will want to read.
    const ExplainedElement* lastElementBefore(const char* position) const {
        const auto last = std::find_if(elements_.rbegin(), elements_.rend(), [position](const auto& element) {
            return element.tag.data() <= position;
        });
        return last == elements_.rend() ? nullptr : &*last;
    }

    std::size_t characterOffset() const {
        const ExplainedElement* const last = lastElementBefore(position_);
        const char* const start = last != nullptr ? last->tag.data() : payload_.data();
        return (last != nullptr ? last->offset : 0) +
               korvo::characterCount({start, static_cast<std::size_t>(position_ - start)});
    }

    std::string_view before(std::size_t split) const {
        constexpr std::size_t enough = 36;  // bytes, so that text and caret fit a line
        const auto first = std::find_if(elements_.begin(), elements_.end(), [&](const auto& element) {
            const auto start = static_cast<std::size_t>(element.tag.data() - payload_.data());
            return start + enough >= split && start <= split;
        });
        std::size_t begin =
            first == elements_.end() ? split : static_cast<std::size_t>(first->tag.data() - payload_.data());
        // A value that is longer than that may be cut anywhere between two code points.
        if (begin == split && split > 0) {
            begin = split - std::min(split, enough);
            while (begin < split && (static_cast<unsigned char>(payload_[begin]) & 0xC0U) == 0x80U) {
                ++begin;
            }
        }
        return payload_.substr(begin, split - begin);
    }

    std::string_view after(std::size_t split) const {
        constexpr std::size_t enough = 24;
        std::size_t end = split;
        while (end < payload_.size() && end - split < enough) {
            korvo::nextCodePoint(payload_, end);
        }
        return payload_.substr(split, end - split);
    }

    std::string_view payload_;
    const std::vector<ExplainedElement>& elements_;
    const TLVFault& fault_;
    bool isInside_;
    std::string where_;
    std::string reason_;
    const char* position_ = nullptr;
    std::int64_t left_ = 0;  // characters in the rest of the fault's level, where they are too few
};

// Whether a catalogue's list of tags, such as "56, 57" or "62/01-62/08", names a tag.
bool namesTag(std::string_view list, std::string_view tag) {
    while (!list.empty()) {
        const std::string_view item = list.substr(0, list.find(", "));
        list.remove_prefix(std::min(list.size(), item.size() + 2));
        const std::string_view first = item.substr(0, item.find('-'));
        const std::string_view last = first.size() < item.size() ? item.substr(first.size() + 1) : first;
        if (tag.size() == first.size() && first <= tag && tag <= last) {
            return true;
        }
    }
    return false;
}

// Whether the payload violates the rule of a code when some of its elements are taken away.
bool isRaisedWithout(const std::vector<ExplainedElement>& elements, bool isTwoDigit, std::string_view code,
                     const std::function<bool(const ExplainedElement&)>& isTaken) {
    korvo::KorvoPayMerchantTLV holder;
    for (const ExplainedElement& element : elements) {
        if (isTaken(element)) {
            continue;
        }
        if (!isTwoDigit) {
            holder.setTLV00Value(element.tag, element.value);
        } else if (element.isInsideAdditionalData) {
            holder.setTLV01Value("62", element.tag, element.value);
        } else {
            holder.setTLV01Value(element.tag, std::nullopt, element.value);
        }
    }
    korvo::KorvoPayMerchantTLVValidator validator;
    const auto codes = validator.validatePayMerchantTLV(&holder);
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

// Puts a code beside the elements that violate its rule: those that raise it without the others that it
// speaks of. Where it is still raised when those are gone, it is what is not there that violates the rule.
void assign(Explanation& explanation, const korvo::ErrorCatalogueEntry& entry) {
    const bool isTwoDigit = *explanation.isTwoDigit;
    auto& elements = explanation.elements;
    std::vector<ExplainedElement*> concerned;
    for (ExplainedElement& element : elements) {
        if (namesTag(isTwoDigit ? entry.twoDigitTag : entry.oneCharacterTag, element.name)) {
            concerned.push_back(&element);
        }
    }
    const auto holds = [](const auto& list, const ExplainedElement& element) {
        return std::find(list.begin(), list.end(), &element) != list.end();
    };
    auto violators = concerned;
    if (concerned.size() > 1) {
        std::erase_if(violators, [&](const ExplainedElement* candidate) {
            return !isRaisedWithout(elements, isTwoDigit, entry.code, [&](const ExplainedElement& other) {
                return &other != candidate && holds(concerned, other);
            });
        });
    }
    if (violators.empty() ||
        isRaisedWithout(elements, isTwoDigit, entry.code,
                        [&](const ExplainedElement& element) { return holds(violators, element); })) {
        explanation.absent.push_back(&entry);
        return;
    }
    for (ExplainedElement* const violator : violators) {
        violator->violations.push_back(&entry);
    }
}

// What a two-digit payload ought to end with. Where its checksum is too short or too long to stand for that,
// of the payload with one of the right length.
std::string expectedChecksum(const Explanation& explanation) {
    const ExplainedElement& checksum = explanation.elements.back();
    std::string payload(explanation.payload);
    if (checksum.value.characterCount() != 4) {
        payload.erase(static_cast<std::size_t>(checksum.tag.data() - explanation.payload.data()));
        payload += "63040000";
    }
    std::array<char, 8> digits{};
    std::snprintf(digits.data(), digits.size(), "%04X", korvo::checksumOfPayload(payload));
    return digits.data();
}

}  // namespace

Explanation explain(std::string_view payload) {
    Explanation explanation;
    explanation.payload = payload;
    explanation.isTwoDigit = korvo::isTwoDigitPayload(payload);
    Recorder recorder(explanation.elements);
    const std::optional<TLVFault> fault = korvo::walkPayload(payload, recorder);
    if (const auto& error = korvo::QRCodeParser::parseQRData(payload).qrCodeError()) {
        explanation.codes = error->errorCodes();
    }
    if (fault) {
        explanation.fault = FaultReader(payload, explanation.elements, *fault).read();
        return explanation;
    }
    for (const std::string& code : explanation.codes) {
        if (code == korvo::KorvoErrorConstants::crcInvalidValue) {
            explanation.computedChecksum = expectedChecksum(explanation);
        }
        if (const auto* const entry = korvo::findErrorCatalogueEntry(code)) {
            assign(explanation, *entry);
        }
    }
    return explanation;
}

}  // namespace korvoqr
