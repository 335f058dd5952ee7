#ifndef KORVOQRPARSER_DECODING_TLVDECODINGPROTOCOL_H
#define KORVOQRPARSER_DECODING_TLVDECODINGPROTOCOL_H

#include <KorvoQRParser/Decoding/TLVDecodingError.h>
#include <KorvoQRParser/Decoding/TLVPayloadWalk.h>
#include <KorvoQRParser/Decoding/Text/CountedText.h>

#include <optional>
#include <string_view>

namespace korvo {

/// Gives a tag holder the operations that fill it. The holder stores each value that it visits.
///
/// All operations are linear in the length of the payload, throw nothing, and may run at once on different
/// holders. What they store are views into the payload, which must outlive the holder.
///
/// In names, 01 means the two-digit format, whose payloads begin with tag "00", and 00 means the
/// one-character format, which has no such tag.
class TLVDecodingProtocol : private TLVVisitor {
  public:
    /// Splits a payload of either format into this holder. Absent on success. Values are stored while
    /// decoding goes on: after an error the holder keeps those before the first fault from the left.
    /// InvalidTagLength is never reported from here: it becomes InvalidLength.
    [[nodiscard]] std::optional<TLVDecodingError> decodeTLV(std::string_view tlvString);

    /// The same for a payload known to be in the two-digit format; reports InvalidTagLength.
    [[nodiscard]] std::optional<TLVDecodingError> decodeTLV01(std::string_view tlvString);

    /// The same for a payload known to be in the one-character format; reports InvalidTagLength.
    [[nodiscard]] std::optional<TLVDecodingError> decodeTLV00(std::string_view tlvString);

    /// Stores a value of the two-digit format. The sub-tag is looked at for tag "62" only; without one the
    /// value is the whole additional data field. False when the tag or sub-tag is unknown.
    bool setTLV01Value(std::string_view tag, std::optional<std::string_view> subTag,
                       const CountedText& value);

    /// Stores a value of the one-character format, its tag in either letter case. False when it is unknown.
    bool setTLV00Value(std::string_view tag, const CountedText& value);

  protected:
    TLVDecodingProtocol() = default;
    TLVDecodingProtocol(const TLVDecodingProtocol&) = default;
    TLVDecodingProtocol& operator=(const TLVDecodingProtocol&) = default;
    ~TLVDecodingProtocol() = default;
};

}  // namespace korvo

#endif
