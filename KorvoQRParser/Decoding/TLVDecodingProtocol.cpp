#include <KorvoQRParser/Decoding/CharacterReader.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV01.h>
#include <KorvoQRParser/Decoding/TLVDecodingProtocol.h>
#include <KorvoQRParser/Decoding/TLVElementReader.h>

namespace korvo {

namespace {

constexpr std::string_view payloadFormatIndicatorTag =
    rawValue(PayMerchantValidTLV01::PayloadFormatIndicator);
constexpr std::string_view additionalDataFieldTag = rawValue(PayMerchantValidTLV01::AdditionalDataField);
constexpr std::string_view crcTag = rawValue(PayMerchantValidTLV01::CRC);

}  // namespace

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV(std::string_view tlvString) {
    const auto firstTwo = CharacterReader(tlvString).take(2);
    if (!firstTwo) {
        return TLVDecodingError::InvalidLength;
    }
    const auto error =
        *firstTwo == payloadFormatIndicatorTag ? decodeTLV01(tlvString) : decodeTLV00(tlvString);
    return error == TLVDecodingError::InvalidTagLength ? TLVDecodingError::InvalidLength : error;
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV01(std::string_view tlvString) {
    if (tlvString.empty()) {
        return TLVDecodingError::InvalidLength;
    }
    TLVElementReader elements(tlvString, twoDigitFormat);
    TLVElement element;
    while (!elements.atEnd()) {
        if (const auto error = elements.next(element)) {
            return error;
        }
        if (!setTLV01Value(element.tag, std::nullopt, element.value)) {
            return TLVDecodingError::InvalidTag;
        }
        if (element.tag == additionalDataFieldTag) {
            if (const auto error = decodeAdditionalDataField(element.value)) {
                return error;
            }
        }
    }
    return element.tag == crcTag ? std::nullopt : std::optional(TLVDecodingError::InvalidTag);
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeAdditionalDataField(std::string_view value) {
    TLVElementReader elements(value, twoDigitFormat);
    TLVElement element;
    while (!elements.atEnd()) {
        if (const auto error = elements.next(element)) {
            return error;
        }
        if (!setTLV01Value(additionalDataFieldTag, element.tag, element.value)) {
            return TLVDecodingError::InvalidTag;
        }
    }
    return std::nullopt;
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV00(std::string_view tlvString) {
    if (tlvString.empty()) {
        return TLVDecodingError::InvalidLength;
    }
    TLVElementReader elements(tlvString, oneCharacterFormat);
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
