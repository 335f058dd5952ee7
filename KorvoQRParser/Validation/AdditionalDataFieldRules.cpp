#include <KorvoQRParser/Decoding/Text/CharacterSet.h>
#include <KorvoQRParser/Validation/KorvoErrorConstants.h>
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>
#include <KorvoQRParser/Validation/Lifetimes.h>
#include <KorvoQRParser/Validation/SharedRules.h>

#include <array>

namespace korvo {

namespace {

namespace Codes = KorvoErrorConstants;

// The values of tag 62 with a limited length. Sub-tag 09 has a rule of its own; every other value may be
// anything that fits into the field.
using TLV = KorvoPayMerchantTLV;
constexpr std::array informationFields{&TLV::billNumber,    &TLV::mobileNumber, &TLV::storeID,
                                       &TLV::loyaltyNumber, &TLV::referenceID,  &TLV::consumerID,
                                       &TLV::terminalId,    &TLV::purpose};

}  // namespace

void KorvoPayMerchantTLVValidator::validateAdditionalDataField(const KorvoPayMerchantTLV& holder) {
    if (!holder.additionalDataField) {
        return;
    }
    if (isLengthOutside(*holder.additionalDataField, Limits::additionalDataField)) {
        addErrorCode(Codes::additionalDataFieldInvalidLength);
    }
    for (const auto field : informationFields) {
        const Value& information = holder.*field;
        if (information && isLengthOutside(*information, Limits::additionalDataInformation)) {
            addErrorCode(Codes::additionalDataInformationInvalidLength);
        }
    }
    validateAdditionalConsumerDataReq(holder.additionalConsumerDataReq);
}

void KorvoPayMerchantTLVValidator::validateAdditionalConsumerDataReq(const Value& request) {
    static const NeverDestroyed<CharacterSet> allowed([] {
        return CharacterSet::characterSetWithCharactersInString("AME");  // address, mobile, e-mail
    });
    if (request && (isLengthOutside(*request, Limits::additionalConsumerDataRequest) ||
                    !consistsOfCharactersOf(request->text(), *allowed))) {
        addErrorCode(Codes::additionalConsumerDataInvalidValue);
    }
}

}  // namespace korvo
