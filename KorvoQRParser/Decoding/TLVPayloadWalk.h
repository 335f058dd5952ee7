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

/// Receives each element with a known tag during a walk over a payload, from left to right. Tag 62 comes
/// first as a whole, then the elements inside it follow.
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

/// The fault that ended a walk, and its place.
struct TLVFault {
    TLVDecodingError error;
    TLVFormat format;             ///< of the level with the fault
    bool isInsideAdditionalData;  ///< whether that level is inside tag 62
    TLVElement element;           ///< the faulty element: the parts that were read, the others empty
    std::string_view rest;        ///< the text after those parts, to the end of the level
};

/// Whether a payload is in the two-digit format, that is, begins with "00". Absent when its first two
/// characters are missing or not valid UTF-8.
std::optional<bool> isTwoDigitPayload(std::string_view payload) noexcept;

/// Walks over a payload of either format: reads its elements, opens tag 62, and stops at the first fault,
/// which it returns; absent on success. A two-digit payload without a checksum at its end has the fault
/// InvalidTag, with its last element. Only the walk knows how elements make up a payload. Takes linear time
/// and throws only what the visitor throws.
[[nodiscard]] std::optional<TLVFault> walkPayload(std::string_view payload, TLVVisitor& visitor);

/// The same for a payload known to be in the two-digit format.
[[nodiscard]] std::optional<TLVFault> walkTwoDigitPayload(std::string_view payload, TLVVisitor& visitor);

/// The same for a payload known to be in the one-character format.
[[nodiscard]] std::optional<TLVFault> walkOneCharacterPayload(std::string_view payload, TLVVisitor& visitor);

}  // namespace korvo

#endif
