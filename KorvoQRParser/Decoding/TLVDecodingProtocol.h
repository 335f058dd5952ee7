#ifndef KORVOQRPARSER_DECODING_TLVDECODINGPROTOCOL_H
#define KORVOQRPARSER_DECODING_TLVDECODINGPROTOCOL_H

#include <KorvoQRParser/Decoding/TLVDecodingError.h>

#include <optional>
#include <string_view>

namespace korvo {

/// Gives a tag holder the operation that fills it from a payload. The holder supplies the two store
/// operations.
///
/// All operations are linear in the length of the payload, throw nothing, and may run at once on different
/// holders. What they store are views into the payload, which must outlive the holder.
class TLVDecodingProtocol {
  public:
    /// Splits a payload of either format into this holder. Absent on success. Values are stored while
    /// decoding goes on: after an error the holder keeps those before the first fault from the left.
    /// InvalidTagLength is never reported from here: it becomes InvalidLength.
    std::optional<TLVDecodingError> decodeTLV(std::string_view tlvString);

    /// The same for a payload known to be in the two-digit format; reports InvalidTagLength.
    std::optional<TLVDecodingError> decodeTLV01(std::string_view tlvString);

    /// The same for a payload known to be in the one-character format; reports InvalidTagLength.
    std::optional<TLVDecodingError> decodeTLV00(std::string_view tlvString);

    /// Stores a value of the two-digit format. The sub-tag is looked at for tag "62" only; without one the
    /// value is the whole additional data field. False when the tag or sub-tag is unknown.
    virtual bool setTLV01Value(std::string_view tag, std::optional<std::string_view> subTag,
                               std::string_view value) = 0;

    /// Stores a value of the one-character format, its tag in either letter case. False when it is unknown.
    virtual bool setTLV00Value(std::string_view tag, std::string_view value) = 0;

  protected:
    TLVDecodingProtocol() = default;
    TLVDecodingProtocol(const TLVDecodingProtocol&) = default;
    TLVDecodingProtocol& operator=(const TLVDecodingProtocol&) = default;
    ~TLVDecodingProtocol() = default;

  private:
    std::optional<TLVDecodingError> decodeAdditionalDataField(std::string_view value);
};

}  // namespace korvo

#endif
