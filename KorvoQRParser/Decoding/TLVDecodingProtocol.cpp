#include <KorvoQRParser/Decoding/TLVDecodingProtocol.h>

namespace korvo {

namespace {

std::optional<TLVDecodingError> errorOf(const std::optional<TLVFault>& fault) {
    return fault ? std::optional(fault->error) : std::nullopt;
}

}  // namespace

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV(std::string_view tlvString) {
    const auto error = errorOf(walkPayload(tlvString, *this));
    return error == TLVDecodingError::InvalidTagLength ? TLVDecodingError::InvalidLength : error;
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV01(std::string_view tlvString) {
    return tlvString.empty() ? TLVDecodingError::InvalidLength
                             : errorOf(walkTwoDigitPayload(tlvString, *this));
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV00(std::string_view tlvString) {
    return tlvString.empty() ? TLVDecodingError::InvalidLength
                             : errorOf(walkOneCharacterPayload(tlvString, *this));
}

bool TLVDecodingProtocol::setTLV01Value(std::string_view tag, std::optional<std::string_view> subTag,
                                        const CountedText& value) {
    const auto knownTag = payMerchantValidTLV01(tag);
    if (knownTag == PayMerchantValidTLV01::AdditionalDataField && subTag) {
        const auto knownSubTag = pmValidTLV01AdditionalDataField(*subTag);
        if (knownSubTag) {
            visit(*knownSubTag, {*subTag, {}, value});
        }
        return knownSubTag.has_value();
    }
    if (knownTag) {
        visit(*knownTag, {tag, {}, value});
    }
    return knownTag.has_value();
}

bool TLVDecodingProtocol::setTLV00Value(std::string_view tag, const CountedText& value) {
    const auto knownTag = payMerchantValidTLV00InEitherCase(tag);
    if (knownTag) {
        visit(*knownTag, {tag, {}, value});
    }
    return knownTag.has_value();
}

}  // namespace korvo
