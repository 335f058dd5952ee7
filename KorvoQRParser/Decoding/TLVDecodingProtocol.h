#ifndef KORVOQRPARSER_DECODING_TLVDECODINGPROTOCOL_H
#define KORVOQRPARSER_DECODING_TLVDECODINGPROTOCOL_H

#include <KorvoQRParser/Decoding/TLVDecodingError.h>
#include <KorvoQRParser/Decoding/TLVPayloadWalk.h>
#include <KorvoQRParser/Decoding/Text/CountedText.h>

#include <optional>
#include <string_view>

namespace korvo {

/// The base class of a tag holder, with the operations that fill it. The holder stores each value that it
/// visits.
///
/// All operations take time linear in the payload's length and throw nothing. They may run on different
/// holders at the same time. They store views into the payload, which must outlive the holder.
///
/// In names, 01 means the two-digit format, whose payloads begin with tag "00", and 00 means the
/// one-character format, which has no such tag.
class TLVDecodingProtocol : private TLVVisitor {
  public:
    /// Decodes a payload of either format into this holder. Returns the error; absent on success. Values are
    /// stored from left to right, so after an error the holder keeps the values before the first fault.
    /// Reports InvalidLength instead of InvalidTagLength.
    [[nodiscard]] std::optional<TLVDecodingError> decodeTLV(std::string_view tlvString);

    /// The same for a payload known to be in the two-digit format, except that it does report
    /// InvalidTagLength. The empty text is InvalidLength.
    [[nodiscard]] std::optional<TLVDecodingError> decodeTLV01(std::string_view tlvString);

    /// The same for a payload known to be in the one-character format, except that it does report
    /// InvalidTagLength. The empty text is InvalidLength.
    [[nodiscard]] std::optional<TLVDecodingError> decodeTLV00(std::string_view tlvString);

    /// Stores a value of the two-digit format, unless its tag is one whose value is not kept. Returns false
    /// when the tag or sub-tag is unknown. The sub-tag matters only for tag "62"; without one, the value is
    /// the whole additional data field.
    bool setTLV01Value(std::string_view tag, std::optional<std::string_view> subTag,
                       const CountedText& value);

    /// Stores a value of the one-character format, with the tag in either letter case. Returns false when the
    /// tag is unknown.
    bool setTLV00Value(std::string_view tag, const CountedText& value);

  protected:
    TLVDecodingProtocol() = default;
    TLVDecodingProtocol(const TLVDecodingProtocol&) = default;
    TLVDecodingProtocol& operator=(const TLVDecodingProtocol&) = default;
    ~TLVDecodingProtocol() = default;
};

}  // namespace korvo

#endif
