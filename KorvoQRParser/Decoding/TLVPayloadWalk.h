#ifndef KORVOQRPARSER_DECODING_TLVPAYLOADWALK_H
#define KORVOQRPARSER_DECODING_TLVPAYLOADWALK_H

#include <KorvoQRParser/Decoding/PMValidTLV01AdditionalDataField.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV00.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV01.h>
#include <KorvoQRParser/Decoding/TLVDecodingError.h>
#include <KorvoQRParser/Decoding/TLVElementReader.h>
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>

#include <optional>
#include <string_view>

namespace korvo {

/// Why and where a walk ended early.
struct TLVFault {
    TLVDecodingError error;
    TLVFormat format;             ///< of the level that the fault is on
    bool isInsideAdditionalData;  ///< whether that level is inside tag 62
    TLVElement element;     ///< what was read of the element at fault; the parts behind the fault are empty
    std::string_view rest;  ///< what was not read, from the part that is wrong to the end of its level
};

/// Walks through a payload from left to right: tells its format, reads its elements, opens tag 62, and ends
/// at the first fault. The one place that knows how elements make up a payload; decoding stores what it
/// visits, and whoever explains a payload to a person shows it.
///
/// A `Visitor` has `visit(tag, element)` for each of the three tag enumerations, and `stop(TLVFault)` for the
/// end of a walk that finds a fault. All walks are linear in the payload's length. They return what the
/// visitor was told, or absent when there was no fault.
template <class Visitor>
class TLVPayloadWalk {
  public:
    using Result = std::optional<TLVDecodingError>;

    explicit TLVPayloadWalk(Visitor visitor) : visitor_(visitor) {}

    /// Whether a text is in the two-digit format. Absent when it is shorter than any payload.
    static std::optional<bool> isTwoDigit(CharacterReader payload) noexcept {
        const auto firstTwo = payload.take(2);
        if (!firstTwo) {
            return std::nullopt;
        }
        return payMerchantValidTLV01(*firstTwo) == PayMerchantValidTLV01::PayloadFormatIndicator;
    }

    /// A payload of either format.
    Result walk(const CharacterReader& payload) {
        const auto twoDigit = isTwoDigit(payload);
        if (!twoDigit) {
            return stop({TLVDecodingError::InvalidLength, oneCharacterFormat, false, {}, payload.rest()});
        }
        return *twoDigit ? walkTwoDigitElements(payload) : walkOneCharacterElements(payload);
    }

    // Each loop on its own: both in one function cost a payload of either format a twentieth of its time.
    [[gnu::noinline]] Result walkTwoDigitElements(const CharacterReader& payload) {
        TLVElementReader elements(payload, twoDigitFormat);
        TLVElement element;
        std::optional<PayMerchantValidTLV01> tag;
        while (!elements.atEnd()) {
            if (const auto error = elements.next(element)) {
                return stop({*error, twoDigitFormat, false, element, elements.rest()});
            }
            tag = payMerchantValidTLV01(element.tag);
            if (!tag) {
                return stop({TLVDecodingError::InvalidTag, twoDigitFormat, false, element, elements.rest()});
            }
            visitor_.visit(*tag, element);
            if (*tag == PayMerchantValidTLV01::AdditionalDataField) {
                if (const auto error = walkAdditionalDataField(element.value)) {
                    return error;
                }
            }
        }
        if (tag != PayMerchantValidTLV01::CRC) {
            return stop({TLVDecodingError::InvalidTag, twoDigitFormat, false, element, elements.rest()});
        }
        return std::nullopt;
    }

    [[gnu::noinline]] Result walkOneCharacterElements(const CharacterReader& payload) {
        return walkFlatElements<payMerchantValidTLV00InEitherCase>(payload, oneCharacterFormat, false);
    }

  private:
    Result walkAdditionalDataField(const CountedText& value) {
        return walkFlatElements<pmValidTLV01AdditionalDataField>(CharacterReader(value), twoDigitFormat,
                                                                 true);
    }

    template <auto findTag>
    Result walkFlatElements(const CharacterReader& text, const TLVFormat& format,
                            bool isInsideAdditionalData) {
        TLVElementReader elements(text, format);
        TLVElement element;
        while (!elements.atEnd()) {
            if (const auto error = elements.next(element)) {
                return stop({*error, format, isInsideAdditionalData, element, elements.rest()});
            }
            const auto tag = findTag(element.tag);
            if (!tag) {
                return stop(
                    {TLVDecodingError::InvalidTag, format, isInsideAdditionalData, element, elements.rest()});
            }
            visitor_.visit(*tag, element);
        }
        return std::nullopt;
    }

    Result stop(const TLVFault& fault) {
        visitor_.stop(fault);
        return fault.error;
    }

    Visitor visitor_;
};

}  // namespace korvo

#endif
