#ifndef KORVOQRPARSER_DECODING_TLVPAYLOADWALK_H
#define KORVOQRPARSER_DECODING_TLVPAYLOADWALK_H

#include <KorvoQRParser/Decoding/PMValidTLV01AdditionalDataField.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV00.h>
#include <KorvoQRParser/Decoding/PayMerchantValidTLV01.h>
#include <KorvoQRParser/Decoding/TLVDecodingError.h>
#include <KorvoQRParser/Decoding/TLVElementReader.h>

#include <optional>
#include <string_view>

namespace korvo {

/// Is told what a walk over a payload meets: each element with a known tag, from left to right. The whole of
/// tag 62 comes first, then the elements inside it.
class TLVVisitor {
  public:
    virtual void visit(PayMerchantValidTLV01 tag, const TLVElement& element) = 0;
    virtual void visit(PMValidTLV01AdditionalDataField subTag, const TLVElement& element) = 0;
    virtual void visit(PayMerchantValidTLV00 tag, const TLVElement& element) = 0;

  protected:
    TLVVisitor() = default;
    TLVVisitor(const TLVVisitor&) = default;
    TLVVisitor& operator=(const TLVVisitor&) = default;
    ~TLVVisitor() = default;
};

/// Why and where a walk ended early.
struct TLVFault {
    TLVDecodingError error;
    TLVFormat format;             ///< of the level that the fault is on
    bool isInsideAdditionalData;  ///< whether that level is inside tag 62
    TLVElement element;           ///< the parts of the faulty element that were read; the others are empty
    std::string_view rest;        ///< the unread text from the faulty part to the end of its level
};

/// Whether a payload is in the two-digit format. Absent when it is shorter than any payload.
std::optional<bool> isTwoDigitPayload(std::string_view payload) noexcept;

/// Walks over a payload of either format: reads its elements, opens tag 62, and ends at the first fault,
/// which it returns; absent on success. This is the only place that knows how elements make up a payload.
/// Linear in the payload's length; throws only what the visitor throws.
[[nodiscard]] std::optional<TLVFault> walkPayload(std::string_view payload, TLVVisitor& visitor);

/// The same for a payload known to be in the two-digit format.
[[nodiscard]] std::optional<TLVFault> walkTwoDigitPayload(std::string_view payload, TLVVisitor& visitor);

/// The same for a payload known to be in the one-character format.
[[nodiscard]] std::optional<TLVFault> walkOneCharacterPayload(std::string_view payload, TLVVisitor& visitor);

}  // namespace korvo

#endif
