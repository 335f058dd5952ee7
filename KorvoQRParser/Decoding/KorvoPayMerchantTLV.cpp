#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Decoding/TipAndFeeIndicator.h>

#include <array>
#include <cstddef>

namespace korvo {

namespace {

using TLV = KorvoPayMerchantTLV;
using Field = TLV::Value TLV::*;

// The field of each tag; null when its value is not kept.
// clang-format off
#define KORVO_KEPT(rawValue, name, field, meaning) &TLV::field,
#define KORVO_DROPPED(rawValue, name) nullptr,
constexpr std::array<Field, tlv01TagRows.size()> tlv01Fields{KORVO_TLV01_TAGS(KORVO_KEPT, KORVO_DROPPED)};
constexpr std::array<Field, tlv01SubTagRows.size()> tlv01SubTagFields{KORVO_TLV01_SUB_TAGS(KORVO_KEPT)};
constexpr std::array<Field, tlv00TagRows.size()> tlv00Fields{KORVO_TLV00_TAGS(KORVO_KEPT)};
#undef KORVO_DROPPED
#undef KORVO_KEPT
// clang-format on

}  // namespace

// Defined here, because a defaulted constructor would clear every byte of every field and not only the flags
// that make the fields absent.
KorvoPayMerchantTLV::KorvoPayMerchantTLV() noexcept {}  // NOLINT(modernize-use-equals-default)

void KorvoPayMerchantTLV::visit(PayMerchantValidTLV01 tag, const TLVElement& element) {
    store(tlv01Fields[static_cast<std::size_t>(tag)], element.value);
}

void KorvoPayMerchantTLV::visit(PMValidTLV01AdditionalDataField subTag, const TLVElement& element) {
    store(tlv01SubTagFields[static_cast<std::size_t>(subTag)], element.value);
}

void KorvoPayMerchantTLV::visit(PayMerchantValidTLV00 tag, const TLVElement& element) {
    store(tlv00Fields[static_cast<std::size_t>(tag)], element.value);
}

void KorvoPayMerchantTLV::store(Value KorvoPayMerchantTLV::*field, const CountedText& value) {
    if (field == nullptr) {
        return;
    }
    (this->*field).emplace(value);
    if (field == &KorvoPayMerchantTLV::tipAndFeeIndicator) {
        isTipAvailable = TipAndFeeIndicator::isKnown(value.text());
    }
}

}  // namespace korvo
