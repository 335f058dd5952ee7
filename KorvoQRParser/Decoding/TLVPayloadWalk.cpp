#include <KorvoQRParser/Decoding/TLVPayloadWalk.h>

namespace korvo {

namespace {

using Fault = std::optional<TLVFault>;

// Takes values, because the loops below are quicker while nothing refers to their variables.
[[gnu::noinline]] Fault fault(TLVDecodingError error, TLVFormat format, TLVElement element,
                              std::string_view rest, bool isInsideAdditionalData) {
    return TLVFault{error, format, isInsideAdditionalData, element, rest};
}

// Reads the next element of the two-digit format. Returns the number of its tag; negative if that is no
// number, or after a fault, which goes to `error`.
[[gnu::always_inline]] inline int nextTagNumber(TLVElementReader& elements, TLVElement& element,
                                                TLVDecodingError& error) {
    const int number = elements.takePlain<twoDigitFormat>(element);
    if (number >= 0) {
        return number;
    }
    const auto found = elements.next(element);
    error = found.value_or(TLVDecodingError::InvalidTag);
    return found ? -1 : twoDigitNumber(element.tag);
}

Fault walkAdditionalDataField(const CountedText& value, TLVVisitor& visitor) {
    TLVElementReader elements(value.characters(), twoDigitFormat);
    TLVElement element;
    auto error = TLVDecodingError::InvalidTag;
    while (!elements.atEnd()) {
        const auto subTag = tlv01SubTag(nextTagNumber(elements, element, error));
        if (!subTag) {
            return fault(error, twoDigitFormat, element, elements.rest(), true);
        }
        visitor.visit(*subTag, element);
    }
    return std::nullopt;
}

// One function per loop: with both loops in one function, a parse of either format was 5 % slower.
[[gnu::noinline]] Fault walkTwoDigit(const CharacterReader& payload, TLVVisitor& visitor) {
    TLVElementReader elements(payload, twoDigitFormat);
    TLVElement element;
    std::optional<PayMerchantValidTLV01> tag;
    auto error = TLVDecodingError::InvalidTag;
    while (!elements.atEnd()) {
        tag = tlv01Tag(nextTagNumber(elements, element, error));
        if (!tag) {
            return fault(error, twoDigitFormat, element, elements.rest(), false);
        }
        visitor.visit(*tag, element);
        if (tag == PayMerchantValidTLV01::AdditionalDataField) {
            if (const Fault inside = walkAdditionalDataField(element.value, visitor)) {
                return inside;
            }
        }
    }
    return tag == PayMerchantValidTLV01::CRC
               ? std::nullopt
               : fault(TLVDecodingError::InvalidTag, twoDigitFormat, element, elements.rest(), false);
}

[[gnu::noinline]] Fault walkOneCharacter(const CharacterReader& payload, TLVVisitor& visitor) {
    TLVElementReader elements(payload, oneCharacterFormat);
    TLVElement element;
    while (!elements.atEnd()) {
        const auto error =
            elements.takePlain<oneCharacterFormat>(element) < 0 ? elements.next(element) : std::nullopt;
        if (error) {
            return fault(*error, oneCharacterFormat, element, elements.rest(), false);
        }
        const auto tag = payMerchantValidTLV00InEitherCase(element.tag);
        if (!tag) {
            return fault(TLVDecodingError::InvalidTag, oneCharacterFormat, element, elements.rest(), false);
        }
        visitor.visit(*tag, element);
    }
    return std::nullopt;
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
