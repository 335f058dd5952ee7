#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Explanation/Causes.h>
#include <KorvoQRParser/Explanation/ExplanationFacts.h>
#include <KorvoQRParser/Explanation/FaultReason.h>
#include <KorvoQRParser/Explanation/Mending.h>
#include <KorvoQRParser/Explanation/OtherTexts.h>
#include <KorvoQRParser/Explanation/QRCodeExplainer.h>
#include <KorvoQRParser/Explanation/Repairs.h>
#include <KorvoQRParser/Explanation/Violations.h>
#include <KorvoQRParser/Parser/QRCodeParser.h>

#include <cstdint>
#include <memory>
#include <utility>

namespace korvo {

namespace {

// The checksum of a text in the two-digit format. One that ends with a checksum of the wrong length is taken
// without it. Absent if bytes that are not UTF-8 hide which characters are the last four.
std::optional<QRCodeChecksum> checksumOf(std::string_view payload, const PayloadWalk& walk) {
    const std::string_view covered = droppingLastCharacters(payload, checksumLength);
    std::string_view found = payload.substr(covered.size());
    if (covered.empty() || !isUTF8(found)) {
        return std::nullopt;
    }
    std::uint16_t computed = computeCRC16(covered);
    const bool isMatching = parseInteger(found, 16) == std::int64_t{computed};
    if (!walk.fault && walk.elements.back().element.value.characterCount() != checksumLength) {
        const TLVElement& checksum = walk.elements.back().element;
        const auto place = static_cast<std::size_t>(checksum.tag.data() - payload.data());
        found = checksum.value.text();
        computed = computeCRC16(checksumHead, computeCRC16(payload.substr(0, place)));
    }
    return QRCodeChecksum(std::make_shared<QRCodeChecksum::Facts>(
        QRCodeChecksum::Facts{std::string(found), checksumText(computed, false), isMatching}));
}

QRCodeElement elementOf(const WalkedElement& walked, std::vector<QRCodeElement> inside) {
    const TLVElement& element = walked.element;
    return QRCodeElement(std::make_shared<QRCodeElement::Facts>(
        QRCodeElement::Facts{walked.offset, std::string(element.tag), std::string(element.length),
                             std::string(element.value.text()), walked.name, walked.meaning,
                             walked.violations, std::move(inside)}));
}

// The elements with those inside tag 62 in it.
std::vector<QRCodeElement> elementsOf(const PayloadWalk& walk) {
    std::vector<QRCodeElement> elements;
    for (std::size_t i = 0; i < walk.elements.size();) {
        const WalkedElement& element = walk.elements[i++];
        std::vector<QRCodeElement> inside;
        for (; i < walk.elements.size() && walk.elements[i].isInsideAdditionalData; ++i) {
            inside.push_back(elementOf(walk.elements[i], {}));
        }
        elements.push_back(elementOf(element, std::move(inside)));
    }
    return elements;
}

// The cause for a text that is not worth a search; empty if a search may find something.
std::string causeWithoutSearch(const QRCodeExplanation::Facts& facts) {
    constexpr std::size_t longestSearched = 8192;
    if (std::string cause = causeOfEncoding(facts.payload); !cause.empty()) {
        return cause;
    }
    if (std::string cause = causeOfOtherText(facts.payload); !cause.empty()) {
        return cause;
    }
    return facts.payload.size() > longestSearched ? "The text has " + std::to_string(facts.payload.size()) +
                                                        " bytes, more than any QR code holds."
                                                  : "";
}

void findCauses(QRCodeExplanation::Facts& facts, const PayloadWalk& walk) {
    std::string cause = causeWithoutSearch(facts);
    if (!cause.empty()) {
        facts.causes.push_back(std::move(cause));
        return;
    }
    Diagnosis diagnosis =
        diagnose(facts.payload, walk, facts.checksum && facts.checksum->isMatching(), facts.errorCodes);
    facts.causes = orderedCauses(facts, walk, diagnosis);
    facts.repairs = std::move(diagnosis.repairs);
    facts.unverified = std::move(diagnosis.unverified);
}

// Finds everything about a payload that needs no search. The walk has views into the facts' payload.
PayloadWalk describe(QRCodeExplanation::Facts& facts) {
    const std::string_view payload = facts.payload;
    PayloadWalk walk(payload);
    const std::optional<bool> isTwoDigit = isTwoDigitPayload(payload);
    if (isTwoDigit) {
        facts.format = *isTwoDigit ? QRCodeFormat::twoDigit : QRCodeFormat::oneCharacter;
    }
    if (const auto& error = QRCodeParser::parseQRData(payload).qrCodeError()) {
        facts.errorCodes = error->errorCodes();
    }
    if (isTwoDigit.value_or(false) || (walk.fault && payload.find(checksumHead) != std::string_view::npos)) {
        facts.checksum = checksumOf(payload, walk);
    }
    if (walk.fault) {
        facts.fault = explainFault(payload, walk);
    } else {
        facts.missing = assignViolations(facts.errorCodes, *isTwoDigit,
                                         facts.checksum ? facts.checksum->computed() : "", walk.elements);
    }
    facts.elements = elementsOf(walk);
    return walk;
}

}  // namespace

QRCodeExplanation QRCodeExplainer::explainQRData(std::string_view qrCodeString) {
    auto facts = std::make_shared<QRCodeExplanation::Facts>();
    facts->payload = qrCodeString;
    const PayloadWalk walk = describe(*facts);
    if (!facts->errorCodes.empty()) {
        findCauses(*facts, walk);
    }
    return QRCodeExplanation(std::move(facts));
}

QRCodeExplanation QRCodeExplainer::describeQRData(std::string_view qrCodeString) {
    auto facts = std::make_shared<QRCodeExplanation::Facts>();
    facts->payload = qrCodeString;
    describe(*facts);
    return QRCodeExplanation(std::move(facts));
}

}  // namespace korvo
