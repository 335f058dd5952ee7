#ifndef KORVOQRPARSER_DECODING_TLVDECODINGERROR_H
#define KORVOQRPARSER_DECODING_TLVDECODINGERROR_H

namespace korvo {

/// Why a payload cannot be split into elements. Callers of the library see code "0" for each of them.
enum class TLVDecodingError {
    InvalidLength,     ///< fewer than two characters, or, from decodeTLV, any fault in an element's shape
    InvalidTagLength,  ///< an element's tag, length field or value does not fit what is left of the text
    RepeatedTag,       ///< a tag stands twice on one level
    InvalidTag,        ///< an unknown tag, or a two-digit payload that does not end with its checksum
};

}  // namespace korvo

#endif
