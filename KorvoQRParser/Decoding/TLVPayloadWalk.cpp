#include <KorvoQRParser/Decoding/TLVPayloadWalk.h>

namespace korvo {

namespace {

using Fault = std::optional<TLVFault>;

Fault faultIn(const TLVElementReader& elements, TLVDecodingError error, const TLVElement& element,
              bool isInsideAdditionalData) {
    return TLVFault{error, elements.format(), isInsideAdditionalData, element, elements.rest()};
}

// The elements of a level on which no tag is opened.
template <auto findTag>
Fault walkFlatElements(const CharacterReader& text, const TLVFormat& format, bool isInsideAdditionalData,
                       TLVVisitor& visitor) {
    TLVElementReader elements(text, format);
    TLVElement element;
    while (!elements.atEnd()) {
        if (const auto error = elements.next(element)) {
            return faultIn(elements, *error, element, isInsideAdditionalData);
        }
        const auto tag = findTag(element.tag);
        if (!tag) {
            return faultIn(elements, TLVDecodingError::InvalidTag, element, isInsideAdditionalData);
        }
        visitor.visit(*tag, element);
    }
    return std::nullopt;
}

Fault walkAdditionalDataField(const CountedText& value, TLVVisitor& visitor) {
    return walkFlatElements<pmValidTLV01AdditionalDataField>(value.characters(), twoDigitFormat, true,
                                                             visitor);
}

// One function per loop: with both loops in one function, a parse of either format was 5 % slower.
[[gnu::noinline]] Fault walkTwoDigit(const CharacterReader& payload, TLVVisitor& visitor) {
    TLVElementReader elements(payload, twoDigitFormat);
    TLVElement element;
    std::optional<PayMerchantValidTLV01> tag;
    while (!elements.atEnd()) {
        if (const auto error = elements.next(element)) {
            return faultIn(elements, *error, element, false);
        }
        tag = payMerchantValidTLV01(element.tag);
        if (!tag) {
            return faultIn(elements, TLVDecodingError::InvalidTag, element, false);
        }
        visitor.visit(*tag, element);
        if (tag == PayMerchantValidTLV01::AdditionalDataField) {
            if (const Fault fault = walkAdditionalDataField(element.value, visitor)) {
                return fault;
            }
        }
    }
    return tag == PayMerchantValidTLV01::CRC
               ? std::nullopt
               : faultIn(elements, TLVDecodingError::InvalidTag, element, false);
}

[[gnu::noinline]] Fault walkOneCharacter(const CharacterReader& payload, TLVVisitor& visitor) {
    return walkFlatElements<payMerchantValidTLV00InEitherCase>(payload, oneCharacterFormat, false, visitor);
}

std::optional<bool> isTwoDigit(CharacterReader payload) noexcept {
    const auto firstTwo = payload.take(2);
    if (!firstTwo) {
        return std::nullopt;
    }
    return isSame(*firstTwo, rawValue(PayMerchantValidTLV01::PayloadFormatIndicator));
}

}  // namespace

std::optional<bool> isTwoDigitPayload(std::string_view payload) noexcept {
    return isTwoDigit(CharacterReader(payload));
}

std::optional<TLVFault> walkPayload(std::string_view payload, TLVVisitor& visitor) {
    const CharacterReader characters(payload);
    const auto twoDigit = isTwoDigit(characters);
    if (!twoDigit) {
        return TLVFault{TLVDecodingError::InvalidLength, oneCharacterFormat, false, {}, payload};
    }
    return *twoDigit ? walkTwoDigit(characters, visitor) : walkOneCharacter(characters, visitor);
}

std::optional<TLVFault> walkTwoDigitPayload(std::string_view payload, TLVVisitor& visitor) {
    return walkTwoDigit(CharacterReader(payload), visitor);
}

std::optional<TLVFault> walkOneCharacterPayload(std::string_view payload, TLVVisitor& visitor) {
    return walkOneCharacter(CharacterReader(payload), visitor);
}

}  // namespace korvo
