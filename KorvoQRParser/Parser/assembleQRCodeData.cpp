#include <KorvoQRParser/Decoding/TagRow.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>
#include <KorvoQRParser/Model/QRCodeDataAccess.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>
#include <KorvoQRParser/Parser/assembleQRCodeData.h>
#include <KorvoQRParser/Validation/MerchantAccountNumber.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace korvo {

namespace {

using TLV = KorvoPayMerchantTLV;
using Property = QRCodeDataProperty;

// A field of the holder, the property that it is copied to, and the flag that marks a placeholder.
struct Source {
    TLV::Value TLV::*field;
    Property text;
    std::optional<Property> flag = std::nullopt;
};

// clang-format off
constexpr std::array sources{
    Source{&TLV::korvoMerchantID, Property::korvoMerchantID},
    Source{&TLV::merchantName, Property::merchantName},
    Source{&TLV::merchantCategoryCode, Property::merchantCategoryCode},
    Source{&TLV::cityName, Property::cityName},
    Source{&TLV::countryCode, Property::countryCode},
    Source{&TLV::currencyCode, Property::currencyCode},
    Source{&TLV::transactionAmount, Property::transactionAmount},
    Source{&TLV::primaryID, Property::primaryID, Property::isPrimaryIDMandatory},
    Source{&TLV::secondaryID, Property::secondaryID, Property::isSecondaryIDMandatory},
    Source{&TLV::tipAndFeeIndicator, Property::tipAndFeeIndicator},
    Source{&TLV::convenienceFeeAmount, Property::convenienceFeeAmount},
    Source{&TLV::convenienceFeePercentage, Property::convenienceFeePercentage},
    Source{&TLV::payloadFormatIndicator, Property::payloadFormatIndicator},
    Source{&TLV::pointOfInitiation, Property::pointOfInitiation},
    Source{&TLV::postalCode, Property::postalCode},
    Source{&TLV::masterCardPAN1, Property::masterCardPAN1},
    Source{&TLV::masterCardPAN2, Property::masterCardPAN2},
    Source{&TLV::NPCIID1, Property::npciid1},
    Source{&TLV::NPCIID2, Property::npciid2},
    Source{&TLV::crc, Property::crc},
    Source{&TLV::tag03, Property::tag03},
    Source{&TLV::tag08, Property::tag08},
    Source{&TLV::tag09, Property::tag09},
    Source{&TLV::tag10, Property::tag10},
    Source{&TLV::tag11, Property::tag11},
    Source{&TLV::tag12, Property::tag12},
    Source{&TLV::tag13, Property::tag13},
    Source{&TLV::tag14, Property::tag14},
    Source{&TLV::tag15, Property::tag15},
    Source{&TLV::additionalDataField, Property::additionalDataField},
    Source{&TLV::billNumber, Property::billID, Property::isBillIDMandatory},
    Source{&TLV::mobileNumber, Property::mobileNumber, Property::isMobileNumberMandatory},
    Source{&TLV::storeID, Property::storeID, Property::isStoreIDMandatory},
    Source{&TLV::loyaltyNumber, Property::loyaltyNumber, Property::isLoyaltyNumberMandatory},
    Source{&TLV::referenceID, Property::referenceID, Property::isReferenceIDMandatory},
    Source{&TLV::consumerID, Property::consumerID, Property::isConsumerIDMandatory},
    Source{&TLV::terminalId, Property::terminalID, Property::isTerminalIDMandatory},
    Source{&TLV::purpose, Property::purpose, Property::isPurposeMandatory},
    Source{&TLV::additionalConsumerDataReq, Property::additionalConsumerDataRequest, Property::isAdditonalConsumerDataRequestMandatory},
    Source{&TLV::tagSixtyTwo10, Property::tagSixtyTwo10},
    Source{&TLV::addDataMasterCard1, Property::addDataMasterCard1, Property::isAddDataMasterCard1Mandatory},
    Source{&TLV::addDataMasterCard2, Property::addDataMasterCard2, Property::isAddDataMasterCard2Mandatory},
    Source{&TLV::addDataNPCI1, Property::addDataNpci1, Property::isAddDataNpci1Mandatory},
    Source{&TLV::addDataNPCI2, Property::addDataNpci2, Property::isAddDataNpci2Mandatory},
    Source{&TLV::tagSixtyTwo15, Property::tagSixtyTwo15},
    Source{&TLV::tagSixtyTwo16, Property::tagSixtyTwo16},
    Source{&TLV::tagSixtyTwo17, Property::tagSixtyTwo17},
    Source{&TLV::tagSixtyTwo18, Property::tagSixtyTwo18},
    Source{&TLV::tagSixtyTwo19, Property::tagSixtyTwo19},
    Source{&TLV::tagSixtyTwo20, Property::tagSixtyTwo20},
    Source{&TLV::tagSixtyTwo21, Property::tagSixtyTwo21},
    Source{&TLV::tagSixtyTwo22, Property::tagSixtyTwo22},
};
// clang-format on

// All other properties are computed.
constexpr std::array computed{Property::korvoMerchantPAN, Property::primaryIDLength,
                              Property::secondaryIDLength};

constexpr bool hasOneSource(const QRCodeDataPropertyRow& row) {
    const auto copies = std::count_if(sources.begin(), sources.end(), [&row](const Source& source) {
        return (source.text == row.index && !row.isFlag) || (source.flag == row.index && row.isFlag);
    });
    return copies + std::count(computed.begin(), computed.end(), row.index) == 1;
}
static_assert(std::all_of(qrCodeDataProperties.begin(), qrCodeDataProperties.end(), hasOneSource),
              "every property is filled by exactly one source");

using PlaceholderTest = bool (*)(const CountedText&);

// The payload format decides how a merchant leaves a value to the consumer.
PlaceholderTest placeholderTest(const TLV& holder) {
    if (holder.payloadFormatIndicator == "01") {
        return [](const CountedText& value) { return value == "***"; };
    }
    return [](const CountedText& value) { return beginsWith(value, '?'); };
}

// Not inlined, because fifty copies take 6 KB and are no faster.
[[gnu::noinline]] void put(std::optional<std::string>& property, std::string_view text) {
    property.emplace(text);
}

// All flags of a new record are false, so only a placeholder sets one.
template <std::size_t row>
void copySource(const TLV& holder, PlaceholderTest isPlaceholder, QRCodeData& data) {
    constexpr Source source = sources[row];
    const TLV::Value& value = holder.*source.field;
    if (!value) {
        return;
    }
    put(QRCodeDataAccess::text(data, source.text), value->text());
    if constexpr (source.flag.has_value()) {
        if (isPlaceholder(*value)) {
            QRCodeDataAccess::setFlag(data, *source.flag, true);
        }
    }
}

// Unrolled, because fifty tests in a row are quicker than a loop over the table.
template <std::size_t... rows>
void copySources(const TLV& holder, QRCodeData& data, std::index_sequence<rows...> /*all*/) {
    const PlaceholderTest isPlaceholder = placeholderTest(holder);
    (copySource<rows>(holder, isPlaceholder, data), ...);
}

// Sets the length that a placeholder identifier announces, in decimal. Its second character is the length, as
// a digit of base 27. The length stays absent when none is announced.
void setAnnouncedLength(const TLV::Value& identifier, std::optional<std::string>& announced) {
    if (!identifier || !beginsWith(*identifier, '?')) {
        return;
    }
    const auto digit = substringFromOffset(1, *identifier);
    if (const auto length = digit ? parseInteger(*digit, 27) : std::nullopt) {
        announced.emplace(twoDigitText(static_cast<unsigned>(*length)).substr(*length < 10 ? 1 : 0));
    }
}

}  // namespace

std::string merchantPANFromMerchantID(const CountedText& merchantID) {
    using namespace MerchantAccountNumber;
    const std::size_t length = merchantID.characterCount();
    if (length > fullLength) {
        stopProgram("merchantPANFromMerchantID", "the merchant identifier is longer than 16 characters");
    }
    if (length <= prefixLength) {
        return {};
    }
    if (length == fullLength) {
        return std::string(merchantID.text());
    }
    const std::string_view prefix = substringWithOffsets(0, prefixLength, merchantID);
    std::string pan;
    pan.reserve(merchantID.text().size() + fullLength - length);
    pan.append(prefix);
    pan.append(fullLength - length, '0');
    pan.append(merchantID.text().substr(prefix.size()));
    return pan;
}

std::shared_ptr<QRCodeData> assembleQRCodeData(const KorvoPayMerchantTLV& holder) {
    auto data = std::make_shared<QRCodeData>();
    copySources(holder, *data, std::make_index_sequence<sources.size()>());
    if (holder.korvoMerchantID) {
        QRCodeDataAccess::text(*data, Property::korvoMerchantPAN)
            .emplace(merchantPANFromMerchantID(*holder.korvoMerchantID));
    }
    if (!holder.payloadFormatIndicator) {
        setAnnouncedLength(holder.primaryID, QRCodeDataAccess::text(*data, Property::primaryIDLength));
        setAnnouncedLength(holder.secondaryID, QRCodeDataAccess::text(*data, Property::secondaryIDLength));
    }
    return data;
}

}  // namespace korvo
