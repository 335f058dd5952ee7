#include "Explanation.h"

#include "FaultExplanation.h"
#include "LibraryInternals.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>

namespace korvoqr {

namespace {

// The characters of an element's tag and length field. Both are equally long, and a known tag is ASCII.
std::size_t headOf(const ExplainedElement& element) {
    return 2 * element.tag.size();
}

// Records the elements that a walk visits.
class Recorder final : public korvo::TLVVisitor {
  public:
    explicit Recorder(std::vector<ExplainedElement>& elements) : elements_(elements) {}

    void visit(korvo::PayMerchantValidTLV01 tag, const korvo::TLVElement& element) override {
        add(element, std::string(rawValue(tag)), tagRow(tag).meaning, false);
    }
    void visit(korvo::PMValidTLV01AdditionalDataField subTag, const korvo::TLVElement& element) override {
        add(element, std::string(additionalDataTag) + '/' + std::string(rawValue(subTag)),
            tagRow(subTag).meaning, true);
    }
    void visit(korvo::PayMerchantValidTLV00 tag, const korvo::TLVElement& element) override {
        add(element, std::string(rawValue(tag)), tagRow(tag).meaning, false);
    }

  private:
    void add(const korvo::TLVElement& element, std::string name, std::string_view meaning, bool isInside) {
        if (isInside && !elements_.back().isInsideAdditionalData) {
            insideOffset_ = elements_.back().offset + headOf(elements_.back());
        }
        std::size_t& offset = isInside ? insideOffset_ : rootOffset_;
        elements_.push_back(
            {offset, element.tag, element.length, element.value, std::move(name), meaning, isInside, {}});
        offset += headOf(elements_.back()) + element.value.characterCount();
    }

    std::vector<ExplainedElement>& elements_;
    std::size_t rootOffset_ = 0;
    std::size_t insideOffset_ = 0;
};

// Whether a catalogue's list of tags, such as "56, 57" or "62/01-62/08", names a tag.
bool namesTag(std::string_view list, std::string_view tag) {
    while (!list.empty()) {
        const std::string_view item = list.substr(0, list.find(", "));
        list.remove_prefix(std::min(list.size(), item.size() + 2));
        const std::string_view first = item.substr(0, item.find('-'));
        const std::string_view last = first.size() < item.size() ? item.substr(first.size() + 1) : first;
        if (first <= tag && tag <= last) {
            return true;
        }
    }
    return false;
}

// Whether the payload, without some of its elements, still violates the rule of a code.
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
            holder.setTLV01Value(additionalDataTag, element.tag, element.value);
        } else {
            holder.setTLV01Value(element.tag, std::nullopt, element.value);
        }
    }
    korvo::KorvoPayMerchantTLVValidator validator;
    const auto codes = validator.validatePayMerchantTLV(&holder);
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

// Assigns a code to the elements that violate its rule: each that raises it without the other elements that
// the rule is about. If the code is raised even without all of those, a missing element violates the rule.
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

// The checksum that a two-digit payload should have. If the payload's own checksum has a wrong length, it is
// first replaced with one of the right length.
std::string expectedChecksum(const Explanation& explanation) {
    const ExplainedElement& checksum = explanation.elements.back();
    std::string payload(explanation.payload);
    if (checksum.value.characterCount() != korvo::checksumLength) {
        payload.erase(static_cast<std::size_t>(checksum.tag.data() - explanation.payload.data()));
        payload += checksumHead;
        payload.append(korvo::checksumLength, '0');
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
    const std::optional<korvo::TLVFault> fault = korvo::walkPayload(payload, recorder);
    if (const auto& error = korvo::QRCodeParser::parseQRData(payload).qrCodeError()) {
        explanation.codes = error->errorCodes();
    }
    if (fault) {
        explanation.fault = explainFault(payload, explanation.elements, *fault);
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
