#include "../tests/Payloads.h"
#include "Properties.h"
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>

#include <nlohmann/json.hpp>

namespace korvo::fuzz {

namespace {

// The payload with the edits applied; empty if one does not fit.
std::string edited(const std::string& payload, const std::vector<QRCodeEdit>& edits) {
    CharacterReader characters(payload);
    std::size_t place = 0;
    std::string text;
    for (const QRCodeEdit& edit : edits) {
        promise(edit.offset() >= place && edit.from() != edit.to(),
                "edits ascend, and each changes something");
        const auto kept = characters.take(edit.offset() - place);
        const std::size_t length = characterCount(edit.from());
        const auto from = kept ? characters.take(length) : std::nullopt;
        promise(from && *from == edit.from(), "an edit replaces what is there");
        text += *kept;
        text += edit.to();
        place = edit.offset() + length;
    }
    return text.append(characters.rest());
}

std::string lastFour(const std::string& text) {
    return text.size() < 4 ? text : text.substr(text.size() - 4);
}

void checkRepair(const QRCodeExplanation& explanation, const QRCodeRepair& repair, bool isVouchedFor) {
    const std::string& payload = repair.payload();
    promise(QRCodeParser::parseQRData(payload).qrCodeData() != nullptr, "a repair is accepted");
    promise(edited(explanation.payload(), repair.edits()) == payload, "the edits make the repair");
    promise(payload != explanation.payload(), "a repair differs");
    promise(repair.caution().empty() == isVouchedFor,
            "a repair has a caution unless the checksum vouches for it");
    if (isVouchedFor) {
        const bool isWritten = explanation.payload().find(lastFour(payload)) != std::string::npos;
        promise(payload.substr(0, 2) == "00", "only a checksum can vouch");
        promise(isWritten || (explanation.checksum() != nullptr && explanation.checksum()->isMatching()),
                "the written checksum vouches for a repair");
    }
}

std::size_t headOf(const QRCodeElement& element) {
    return characterCount(element.tag()) + characterCount(element.length());
}

// The offset after elements, the first of which begins at an offset.
std::size_t endOf(const std::vector<QRCodeElement>& elements, std::size_t offset) {
    for (const QRCodeElement& element : elements) {
        promise(element.offset() == offset, "each element begins where the one before it ends");
        offset += headOf(element) + characterCount(element.value());
    }
    return offset;
}

void checkJSON(const QRCodeExplanation& explanation) {
    const auto json = nlohmann::json::parse(explanation.utf8JSON(), nullptr, false);
    promise(json.is_object() && json["errorCodes"] == explanation.errorCodes() &&
                json["causes"] == explanation.causes() &&
                json["elements"].size() == explanation.elements().size() &&
                json["repairs"].size() == explanation.repairs().size() &&
                json["unverified"].size() == explanation.unverified().size(),
            "the JSON of an explanation holds what it says");
}

}  // namespace

void checkExplanation(std::string_view payload) {
    const QRCodeExplanation explanation = QRCodeExplainer::explainQRData(payload);
    promise(explanation.payload() == payload, "an explanation holds the payload");
    promise(explanation.errorCodes() == test::codesIn(QRCodeParser::parseQRData(payload)),
            "the codes are those of the parse");
    promise(explanation.isAccepted() == explanation.causes().empty(), "every refusal has a cause");
    const std::size_t end = endOf(explanation.elements(), 0);
    for (const QRCodeElement& element : explanation.elements()) {
        const std::size_t begin = element.offset() + headOf(element);
        const bool isTiled = endOf(element.elements(), begin) == begin + characterCount(element.value());
        promise(element.elements().empty() || isTiled || explanation.fault() != nullptr,
                "the elements inside tag 62 tile its value");
    }
    if (const QRCodeFault* const fault = explanation.fault()) {
        promise(explanation.errorCodes() == test::Codes{"0"}, "only a malformed payload has a fault");
        promise(fault->offset() <= characterCount(payload) + 1, "the fault is in the payload");
        promise(fault->byteOffset().value_or(0) <= payload.size(), "so is its byte");
    } else {
        promise(end == characterCount(payload), "the elements tile the payload");
    }
    for (const QRCodeRepair& repair : explanation.repairs()) {
        checkRepair(explanation, repair, true);
    }
    for (const QRCodeRepair& repair : explanation.unverified()) {
        checkRepair(explanation, repair, false);
    }
    checkJSON(explanation);
}

}  // namespace korvo::fuzz
