#ifndef KORVOQR_EXPLANATION_H
#define KORVOQR_EXPLANATION_H

#include "LibraryInternals.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvoqr {

/// The two-digit tag with elements inside it, and that of the checksum.
inline constexpr std::string_view additionalDataTag =
    korvo::rawValue(korvo::PayMerchantValidTLV01::AdditionalDataField);
inline constexpr std::string_view checksumTag = korvo::rawValue(korvo::PayMerchantValidTLV01::CRC);
/// Tag and length of a checksum.
inline constexpr std::string_view checksumHead = "6304";

/// One element of a payload. Its texts are views into the payload.
struct ExplainedElement {
    std::size_t offset;       ///< user-perceived characters before it in the payload
    std::string_view tag;     ///< as written
    std::string_view length;  ///< as written
    korvo::CountedText value;
    std::string name;  ///< the tag as the catalogue of codes names it: "62/01" inside tag 62
    std::string_view meaning;
    bool isInsideAdditionalData;
    std::vector<const korvo::ErrorCatalogueEntry*> violations;
};

/// Why a payload cannot be split into elements.
struct ExplainedFault {
    std::string_view error;   ///< the decoding error's name
    std::string reason;       ///< in plain words, with the payload's own ones made visible
    std::size_t offset;       ///< of what is wrong, in user-perceived characters
    std::string_view before;  ///< some of the payload before it, whole elements where that is not much
    std::string_view after;   ///< some of the payload from it on
};

/// What there is to say about a payload. Views point into the payload, which must live as long.
struct Explanation {
    std::string_view payload;
    std::optional<bool> isTwoDigit;          ///< absent for what is too short to have a format
    std::vector<std::string> codes;          ///< the library's answer; none when the payload is accepted
    std::vector<ExplainedElement> elements;  ///< those before the fault, if there is one
    /// Violated rules about elements that are not there.
    std::vector<const korvo::ErrorCatalogueEntry*> absent;
    std::optional<ExplainedFault> fault;
    std::optional<std::string> computedChecksum;  ///< where the payload's own one is wrong
};

/// Explains any bytes, in time linear in their length.
Explanation explain(std::string_view payload);

}  // namespace korvoqr

#endif
