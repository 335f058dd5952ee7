#include <KorvoQRParser/Decoding/ASCII.h>
#include <KorvoQRParser/Decoding/TLVDecodingProtocol.h>
#include <KorvoQRParser/Decoding/TLVElementReader.h>

namespace korvo {

namespace {

// No text outside ASCII has an upper case that is a tag.
std::optional<PayMerchantValidTLV00> tagInEitherCase(std::string_view tag) noexcept {
    if (tag.size() != 1) {
        return std::nullopt;
    }
    const char upperCase = asciiUpperCase(tag[0]);
    return payMerchantValidTLV00(std::string_view(&upperCase, 1));
}

}  // namespace

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV(std::string_view tlvString) {
    const CharacterReader payload(tlvString);
    const auto firstTwo = CharacterReader(payload).take(2);
    if (!firstTwo) {
        return TLVDecodingError::InvalidLength;
    }
    const bool isTwoDigit = payMerchantValidTLV01(*firstTwo) == PayMerchantValidTLV01::PayloadFormatIndicator;
    const auto error = isTwoDigit ? decodeTwoDigitElements(payload) : decodeOneCharacterElements(payload);
    return error == TLVDecodingError::InvalidTagLength ? TLVDecodingError::InvalidLength : error;
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV01(std::string_view tlvString) {
    return tlvString.empty() ? TLVDecodingError::InvalidLength
                             : decodeTwoDigitElements(CharacterReader(tlvString));
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV00(std::string_view tlvString) {
    return tlvString.empty() ? TLVDecodingError::InvalidLength
                             : decodeOneCharacterElements(CharacterReader(tlvString));
}

bool TLVDecodingProtocol::setTLV01Value(std::string_view tag, std::optional<std::string_view> subTag,
                                        const CountedText& value) {
    const auto knownTag = payMerchantValidTLV01(tag);
    if (knownTag == PayMerchantValidTLV01::AdditionalDataField && subTag) {
        const auto knownSubTag = pmValidTLV01AdditionalDataField(*subTag);
        if (knownSubTag) {
            store(*knownSubTag, value);
        }
        return knownSubTag.has_value();
    }
    if (knownTag) {
        store(*knownTag, value);
    }
    return knownTag.has_value();
}

bool TLVDecodingProtocol::setTLV00Value(std::string_view tag, const CountedText& value) {
    const auto knownTag = tagInEitherCase(tag);
    if (knownTag) {
        store(*knownTag, value);
    }
    return knownTag.has_value();
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTwoDigitElements(const CharacterReader& payload) {
    TLVElementReader elements(payload, twoDigitFormat);
    TLVElement element;
    std::optional<PayMerchantValidTLV01> tag;
    while (!elements.atEnd()) {
        if (const auto error = elements.next(element)) {
            return error;
        }
        tag = payMerchantValidTLV01(element.tag);
        if (!tag) {
            return TLVDecodingError::InvalidTag;
        }
        store(*tag, element.value);
        if (*tag == PayMerchantValidTLV01::AdditionalDataField) {
            if (const auto error = decodeAdditionalDataField(element.value)) {
                return error;
            }
        }
    }
    if (tag != PayMerchantValidTLV01::CRC) {
        return TLVDecodingError::InvalidTag;
    }
    return std::nullopt;
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeAdditionalDataField(const CountedText& value) {
    TLVElementReader elements(CharacterReader(value), twoDigitFormat);
    TLVElement element;
    while (!elements.atEnd()) {
        if (const auto error = elements.next(element)) {
            return error;
        }
        const auto subTag = pmValidTLV01AdditionalDataField(element.tag);
        if (!subTag) {
            return TLVDecodingError::InvalidTag;
        }
        store(*subTag, element.value);
    }
    return std::nullopt;
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeOneCharacterElements(
    const CharacterReader& payload) {
    TLVElementReader elements(payload, oneCharacterFormat);
    TLVElement element;
    while (!elements.atEnd()) {
        if (const auto error = elements.next(element)) {
            return error;
        }
        if (!setTLV00Value(element.tag, element.value)) {
            return TLVDecodingError::InvalidTag;
        }
    }
    return std::nullopt;
}

}  // namespace korvo
