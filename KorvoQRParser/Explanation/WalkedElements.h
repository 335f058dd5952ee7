#ifndef KORVOQRPARSER_EXPLANATION_WALKEDELEMENTS_H
#define KORVOQRPARSER_EXPLANATION_WALKEDELEMENTS_H

#include <KorvoQRParser/Decoding/TLVPayloadWalk.h>
#include <KorvoQRParser/Explanation/QRCodeExplanation.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvo {

/// The tags that the explanation knows by name.
inline constexpr std::string_view formatTag = rawValue(PayMerchantValidTLV01::PayloadFormatIndicator);
inline constexpr std::string_view additionalDataTag = rawValue(PayMerchantValidTLV01::AdditionalDataField);
inline constexpr std::string_view checksumTag = rawValue(PayMerchantValidTLV01::CRC);
/// Tag and length of a checksum.
inline constexpr std::string_view checksumHead = "6304";

/// One element that a walk over the payload met. Its texts are views into the payload.
struct WalkedElement {
    std::size_t offset;  ///< user-perceived characters before it in the payload
    TLVElement element;
    std::string name;  ///< as QRCodeElement::name
    std::string_view meaning;
    bool isInsideAdditionalData;
    std::vector<QRCodeViolation> violations;
};

/// A walk over a payload: the elements, those inside tag 62 after it, and the fault that ended it.
struct PayloadWalk {
    explicit PayloadWalk(std::string_view payload);

    std::vector<WalkedElement> elements;
    std::optional<TLVFault> fault;
};

/// The name of an element inside tag 62.
std::string nameInsideAdditionalData(std::string_view subTag);

/// Whether a root tag of the two-digit format is one of 26 to 51, which have elements inside.
inline bool isTemplateTag(std::string_view tag) noexcept {
    return tag >= "26" && tag <= "51";
}

/// A tag with its meaning, as a sentence names it: "tag 59 (merchant name)".
std::string namedTag(std::string_view name, std::string_view meaning);

/// The same for the name alone; without a meaning for an unknown tag.
std::string namedTag(std::string_view name);

}  // namespace korvo

#endif
