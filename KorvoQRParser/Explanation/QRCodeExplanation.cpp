#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Explanation/ExplanationFacts.h>
#include <KorvoQRParser/Explanation/VisibleText.h>

#include <utility>

namespace korvo {

// Each getter reads the member of the facts with its name.
#define KORVO_CONSTRUCTOR(Class) \
    Class::Class(std::shared_ptr<const Facts> facts) noexcept : facts_(std::move(facts)) {}
#define KORVO_GETTER(Class, Type, name) \
    Type Class::name() const noexcept { \
        return facts_->name;            \
    }

// clang-format off
KORVO_CONSTRUCTOR(QRCodeViolation)
KORVO_GETTER(QRCodeViolation, const std::string&, code)
KORVO_GETTER(QRCodeViolation, const std::string&, fact)

KORVO_CONSTRUCTOR(QRCodeElement)
KORVO_GETTER(QRCodeElement, std::size_t, offset)
KORVO_GETTER(QRCodeElement, const std::string&, tag)
KORVO_GETTER(QRCodeElement, const std::string&, length)
KORVO_GETTER(QRCodeElement, const std::string&, value)
KORVO_GETTER(QRCodeElement, const std::string&, name)
KORVO_GETTER(QRCodeElement, std::string_view, meaning)
KORVO_GETTER(QRCodeElement, const std::vector<QRCodeViolation>&, violations)
KORVO_GETTER(QRCodeElement, const std::vector<QRCodeElement>&, elements)

KORVO_CONSTRUCTOR(QRCodeFault)
KORVO_GETTER(QRCodeFault, QRCodeFaultKind, kind)
KORVO_GETTER(QRCodeFault, std::string_view, error)
KORVO_GETTER(QRCodeFault, std::size_t, offset)
KORVO_GETTER(QRCodeFault, std::optional<std::size_t>, byteOffset)
KORVO_GETTER(QRCodeFault, const std::string&, tag)
KORVO_GETTER(QRCodeFault, const std::string&, reason)
KORVO_GETTER(QRCodeFault, const std::string&, before)
KORVO_GETTER(QRCodeFault, const std::string&, after)

KORVO_CONSTRUCTOR(QRCodeChecksum)
KORVO_GETTER(QRCodeChecksum, const std::string&, found)
KORVO_GETTER(QRCodeChecksum, const std::string&, computed)
KORVO_GETTER(QRCodeChecksum, bool, isMatching)

KORVO_CONSTRUCTOR(QRCodeEdit)
KORVO_GETTER(QRCodeEdit, std::size_t, offset)
KORVO_GETTER(QRCodeEdit, const std::string&, from)
KORVO_GETTER(QRCodeEdit, const std::string&, to)

KORVO_CONSTRUCTOR(QRCodeRepair)
KORVO_GETTER(QRCodeRepair, const std::string&, payload)
KORVO_GETTER(QRCodeRepair, const std::vector<QRCodeEdit>&, edits)
KORVO_GETTER(QRCodeRepair, const std::string&, caution)

KORVO_CONSTRUCTOR(QRCodeExplanation)
KORVO_GETTER(QRCodeExplanation, const std::string&, payload)
KORVO_GETTER(QRCodeExplanation, std::optional<QRCodeFormat>, format)
KORVO_GETTER(QRCodeExplanation, const std::vector<std::string>&, errorCodes)
KORVO_GETTER(QRCodeExplanation, const std::vector<QRCodeElement>&, elements)
KORVO_GETTER(QRCodeExplanation, const std::vector<QRCodeViolation>&, missing)
KORVO_GETTER(QRCodeExplanation, const std::vector<std::string>&, causes)
KORVO_GETTER(QRCodeExplanation, const std::vector<QRCodeRepair>&, repairs)
KORVO_GETTER(QRCodeExplanation, const std::vector<QRCodeRepair>&, unverified)
// clang-format on

#undef KORVO_GETTER
#undef KORVO_CONSTRUCTOR

std::string_view QRCodeViolation::name() const noexcept {
    return facts_->entry == nullptr ? std::string_view() : facts_->entry->name;
}

std::string_view QRCodeViolation::meaning() const noexcept {
    return facts_->entry == nullptr ? std::string_view() : facts_->entry->meaning;
}

std::string_view QRCodeFault::kindText() const noexcept {
    switch (facts_->kind) {
        case QRCodeFaultKind::notText:
            return "some bytes are no text";
        case QRCodeFaultKind::tooShort:
            return "the text is too short";
        case QRCodeFaultKind::wrongLength:
            return "a length is wrong";
        case QRCodeFaultKind::endsEarly:
            return "the text ends early";
        case QRCodeFaultKind::repeatedTag:
            return "a tag occurs twice";
        case QRCodeFaultKind::unknownTag:
            return "a tag is unknown";
        case QRCodeFaultKind::missingChecksum:
            return "the checksum is missing";
        case QRCodeFaultKind::checksumNotLast:
            return "the checksum is not last";
    }
    return "";
}

std::string QRCodeExplanation::visible() const {
    return withVisibleBytes(facts_->payload);
}

std::size_t QRCodeExplanation::byteOffset(std::size_t offset) const noexcept {
    CharacterReader characters(facts_->payload);
    if (characters.take(offset)) {
        return characters.offset();
    }
    const auto end = facts_->fault ? facts_->fault->byteOffset() : std::nullopt;
    return end.value_or(facts_->payload.size());
}

bool QRCodeExplanation::isAccepted() const noexcept {
    return facts_->errorCodes.empty();
}

const QRCodeFault* QRCodeExplanation::fault() const noexcept {
    return facts_->fault ? &*facts_->fault : nullptr;
}

const QRCodeChecksum* QRCodeExplanation::checksum() const noexcept {
    return facts_->checksum ? &*facts_->checksum : nullptr;
}

}  // namespace korvo
