#include <KorvoQRParser/Decoding/TLVDecodingProtocol.h>
#include <KorvoQRParser/Decoding/TLVPayloadWalk.h>

namespace korvo {

// Visits a payload for a holder.
struct TLVDecodingProtocol::Storing {
    TLVDecodingProtocol& holder;

    template <class Tag>
    void visit(Tag tag, const TLVElement& element) const {
        holder.store(tag, element.value);
    }
    void stop(const TLVFault& /*fault*/) const noexcept {}
};

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV(std::string_view tlvString) {
    const auto error = TLVPayloadWalk(Storing{*this}).walk(CharacterReader(tlvString));
    return error == TLVDecodingError::InvalidTagLength ? TLVDecodingError::InvalidLength : error;
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV01(std::string_view tlvString) {
    return tlvString.empty()
               ? TLVDecodingError::InvalidLength
               : TLVPayloadWalk(Storing{*this}).walkTwoDigitElements(CharacterReader(tlvString));
}

std::optional<TLVDecodingError> TLVDecodingProtocol::decodeTLV00(std::string_view tlvString) {
    return tlvString.empty()
               ? TLVDecodingError::InvalidLength
               : TLVPayloadWalk(Storing{*this}).walkOneCharacterElements(CharacterReader(tlvString));
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
    const auto knownTag = payMerchantValidTLV00InEitherCase(tag);
    if (knownTag) {
        store(*knownTag, value);
    }
    return knownTag.has_value();
}

}  // namespace korvo
