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

/// The two-digit tag that has elements inside it, and the tag of the checksum.
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
    std::string name;  ///< the tag as the catalogue of codes writes it: "62/01" inside tag 62
    std::string_view meaning;
    bool isInsideAdditionalData;
    std::vector<const korvo::ErrorCatalogueEntry*> violations;
};

/// Why a payload cannot be split into elements.
struct ExplainedFault {
    std::string_view error;   ///< the decoding error's name
    std::string reason;       ///< in plain English; text of the payload is escaped where it is unprintable
    std::size_t offset;       ///< of the fault, in user-perceived characters
    std::string_view before;  ///< a piece of the payload before the fault, whole elements if they are short
    std::string_view after;   ///< a piece of the payload that begins at the fault
};

/// All facts about a payload. Views point into the payload, which must outlive them.
struct Explanation {
    std::string_view payload;
    std::optional<bool> isTwoDigit;          ///< absent if the payload is too short to have a format
    std::vector<std::string> codes;          ///< the library's answer; empty if the payload is accepted
    std::vector<ExplainedElement> elements;  ///< those before the fault, if there is one
    std::vector<const korvo::ErrorCatalogueEntry*> absent;  ///< violated rules about missing elements
    std::optional<ExplainedFault> fault;
    std::optional<std::string> computedChecksum;  ///< present if the payload's own checksum is wrong
};

/// Explains any bytes, in time linear in their length.
Explanation explain(std::string_view payload);

}  // namespace korvoqr

#endif
