#ifndef KORVOQRPARSER_DECODING_TLVDECODINGERROR_H
#define KORVOQRPARSER_DECODING_TLVDECODINGERROR_H

namespace korvo {

/// The reasons why a payload cannot be split into elements. Callers of the library see code "0" for each of
/// them.
enum class TLVDecodingError {
    InvalidLength,     ///< fewer than two characters; decodeTLV also reports InvalidTagLength as this
    InvalidTagLength,  ///< a bad length field, an element cut short, or bytes that are not UTF-8
    RepeatedTag,       ///< a tag occurs twice on one level
    InvalidTag,        ///< an unknown tag, or a two-digit payload that does not end with its checksum
};

}  // namespace korvo

#endif
