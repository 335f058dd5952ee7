#include <KorvoQRParser/Model/PropertyFragments.h>
#include <KorvoQRParser/Model/QRCodeDataRendering.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace korvo {

namespace {

using Property = QRCodeDataProperty;

// The lines in their order, on which readers rely: npciid1 has two, npciid2 and additionalDataField have
// none.
// clang-format off
constexpr std::array lines{
    Property::korvoMerchantID,
    Property::korvoMerchantPAN,
    Property::merchantName,
    Property::merchantCategoryCode,
    Property::cityName,
    Property::countryCode,
    Property::currencyCode,
    Property::transactionAmount,
    Property::primaryID,
    Property::secondaryID,
    Property::tipAndFeeIndicator,
    Property::convenienceFeeAmount,
    Property::convenienceFeePercentage,
    Property::payloadFormatIndicator,
    Property::pointOfInitiation,
    Property::postalCode,
    Property::masterCardPAN1,
    Property::masterCardPAN2,
    Property::npciid1,
    Property::npciid1,
    Property::crc,
    Property::billID,
    Property::mobileNumber,
    Property::storeID,
    Property::loyaltyNumber,
    Property::referenceID,
    Property::consumerID,
    Property::terminalID,
    Property::purpose,
    Property::additionalConsumerDataRequest,
    Property::addDataMasterCard1,
    Property::addDataMasterCard2,
    Property::addDataNpci1,
    Property::addDataNpci2,
    Property::isBillIDMandatory,
    Property::isMobileNumberMandatory,
    Property::isStoreIDMandatory,
    Property::isLoyaltyNumberMandatory,
    Property::isReferenceIDMandatory,
    Property::isConsumerIDMandatory,
    Property::isTerminalIDMandatory,
    Property::isPurposeMandatory,
    Property::isAdditonalConsumerDataRequestMandatory,
    Property::isAddDataMasterCard1Mandatory,
    Property::isAddDataMasterCard2Mandatory,
    Property::isAddDataNpci1Mandatory,
    Property::isAddDataNpci2Mandatory,
    Property::isPrimaryIDMandatory,
    Property::isSecondaryIDMandatory,
    Property::primaryIDLength,
    Property::secondaryIDLength,
    Property::tag03,
    Property::tag08,
    Property::tag09,
    Property::tag10,
    Property::tag11,
    Property::tag12,
    Property::tag13,
    Property::tag14,
    Property::tag15,
    Property::tagSixtyTwo10,
    Property::tagSixtyTwo15,
    Property::tagSixtyTwo16,
    Property::tagSixtyTwo17,
    Property::tagSixtyTwo18,
    Property::tagSixtyTwo19,
    Property::tagSixtyTwo20,
    Property::tagSixtyTwo21,
    Property::tagSixtyTwo22,
};
// clang-format on

constexpr bool hasItsLines(const QRCodeDataPropertyRow& row) {
    const auto wanted = row.index == Property::npciid1                                                 ? 2
                        : row.index == Property::npciid2 || row.index == Property::additionalDataField ? 0
                                                                                                       : 1;
    return std::count(lines.begin(), lines.end(), row.index) == wanted;
}
static_assert(std::all_of(qrCodeDataProperties.begin(), qrCodeDataProperties.end(), hasItsLines),
              "every property needs its place among the lines");

// clang-format off
#define KORVO_TEXT_LINE(name, Name) PropertyFragment{#name ": ", #name ": nil\n"},
#define KORVO_FLAG_LINE(name, Name) PropertyFragment{#name ": ", #name ": false\n"},
constexpr PropertyFragments fragments{{KORVO_QRCODEDATA_PROPERTIES(KORVO_TEXT_LINE, KORVO_FLAG_LINE)}};
#undef KORVO_FLAG_LINE
#undef KORVO_TEXT_LINE
// clang-format on

struct LineValue {
    static constexpr std::size_t bound(std::size_t size) noexcept { return size + 1; }
    static char* write(char* place, std::string_view value) noexcept {
        place = std::copy(value.begin(), value.end(), place);
        *place++ = '\n';
        return place;
    }
    static void append(std::string& text, std::string_view value) {
        text += value;
        text += '\n';
    }
};

}  // namespace

void appendDescription(std::string& text, const QRCodeData& data) {
    appendProperties<LineValue>(text, data, fragments, lines, "true\n");
}

std::string QRCodeData::description() const {
    std::string text;
    appendDescription(text, *this);
    return text;
}

}  // namespace korvo
