#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace korvo {

namespace {

// A line of the text: the label, and the getter of the one kind that the property has.
struct Line {
    using TextGetter = const std::optional<std::string>& (QRCodeData::*)() const noexcept;
    using FlagGetter = bool (QRCodeData::*)() const noexcept;

    constexpr Line(std::string_view lineLabel, TextGetter getter) : label(lineLabel), text(getter) {}
    constexpr Line(std::string_view lineLabel, FlagGetter getter) : label(lineLabel), flag(getter) {}

    std::string_view value(const QRCodeData& data) const {
        if (flag != nullptr) {
            return (data.*flag)() ? "true" : "false";
        }
        const std::optional<std::string>& value = (data.*text)();
        return value ? std::string_view(*value) : "nil";
    }

    std::string_view label;
    TextGetter text = nullptr;
    FlagGetter flag = nullptr;
};

// Readers know this text by its lines: npciid1 stands twice, npciid2 and additionalDataField not at all.
// clang-format off
#define KORVO_LINE(name) Line{#name ": ", &QRCodeData::name}
#define KORVO_FLAG_LINE(name, Name) KORVO_LINE(name),
constexpr std::array lines{
    KORVO_LINE(korvoMerchantID),
    KORVO_LINE(korvoMerchantPAN),
    KORVO_LINE(merchantName),
    KORVO_LINE(merchantCategoryCode),
    KORVO_LINE(cityName),
    KORVO_LINE(countryCode),
    KORVO_LINE(currencyCode),
    KORVO_LINE(transactionAmount),
    KORVO_LINE(primaryID),
    KORVO_LINE(secondaryID),
    KORVO_LINE(tipAndFeeIndicator),
    KORVO_LINE(convenienceFeeAmount),
    KORVO_LINE(convenienceFeePercentage),
    KORVO_LINE(payloadFormatIndicator),
    KORVO_LINE(pointOfInitiation),
    KORVO_LINE(postalCode),
    KORVO_LINE(masterCardPAN1),
    KORVO_LINE(masterCardPAN2),
    KORVO_LINE(npciid1),
    KORVO_LINE(npciid1),
    KORVO_LINE(crc),
    KORVO_LINE(billID),
    KORVO_LINE(mobileNumber),
    KORVO_LINE(storeID),
    KORVO_LINE(loyaltyNumber),
    KORVO_LINE(referenceID),
    KORVO_LINE(consumerID),
    KORVO_LINE(terminalID),
    KORVO_LINE(purpose),
    KORVO_LINE(additionalConsumerDataRequest),
    KORVO_LINE(addDataMasterCard1),
    KORVO_LINE(addDataMasterCard2),
    KORVO_LINE(addDataNpci1),
    KORVO_LINE(addDataNpci2),
    KORVO_ADDITIONAL_DATA_FLAG_PROPERTIES(KORVO_FLAG_LINE)
    KORVO_IDENTIFIER_FLAG_PROPERTIES(KORVO_FLAG_LINE)
    KORVO_LINE(primaryIDLength),
    KORVO_LINE(secondaryIDLength),
    KORVO_LINE(tag03),
    KORVO_LINE(tag08),
    KORVO_LINE(tag09),
    KORVO_LINE(tag10),
    KORVO_LINE(tag11),
    KORVO_LINE(tag12),
    KORVO_LINE(tag13),
    KORVO_LINE(tag14),
    KORVO_LINE(tag15),
    KORVO_LINE(tagSixtyTwo10),
    KORVO_LINE(tagSixtyTwo15),
    KORVO_LINE(tagSixtyTwo16),
    KORVO_LINE(tagSixtyTwo17),
    KORVO_LINE(tagSixtyTwo18),
    KORVO_LINE(tagSixtyTwo19),
    KORVO_LINE(tagSixtyTwo20),
    KORVO_LINE(tagSixtyTwo21),
    KORVO_LINE(tagSixtyTwo22),
};
#undef KORVO_FLAG_LINE
#undef KORVO_LINE
// clang-format on

}  // namespace

std::string QRCodeData::description() const {
    constexpr std::size_t usualSize = 2048;
    std::string text;
    text.reserve(usualSize);
    for (const Line& line : lines) {
        text += line.label;
        text += line.value(*this);
        text += '\n';
    }
    return text;
}

}  // namespace korvo
