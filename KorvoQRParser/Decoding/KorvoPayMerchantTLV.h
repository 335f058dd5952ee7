#ifndef KORVOQRPARSER_DECODING_KORVOPAYMERCHANTTLV_H
#define KORVOQRPARSER_DECODING_KORVOPAYMERCHANTTLV_H

#include <KorvoQRParser/Decoding/TLVDecodingProtocol.h>
#include <KorvoQRParser/Decoding/Text/CountedText.h>

#include <optional>
#include <string_view>

namespace korvo {

/// The decoded values of one payload, one field per tag that is kept. Values are views into the payload,
/// exactly as written there, so the payload must outlive the holder. Each payload needs a new holder.
class KorvoPayMerchantTLV final : public TLVDecodingProtocol {
  public:
    using Value = std::optional<CountedText>;

    /// Makes a holder with every field absent.
    KorvoPayMerchantTLV() noexcept;

    Value korvoMerchantID;
    Value merchantName;
    Value merchantCategoryCode;
    Value cityName;
    Value countryCode;
    Value currencyCode;
    Value transactionAmount;
    Value primaryID;
    Value secondaryID;
    /// Whether the tip or fee indicator is "01", "02" or "03".
    bool isTipAvailable = false;
    Value tipAndFeeIndicator;
    Value convenienceFeeAmount;
    Value convenienceFeePercentage;
    Value payloadFormatIndicator;
    Value pointOfInitiation;
    Value postalCode;
    Value masterCardPAN1;
    Value masterCardPAN2;
    Value NPCIID1;
    Value NPCIID2;
    Value crc;
    Value tag03;
    Value tag08;
    Value tag09;
    Value tag10;
    Value tag11;
    Value tag12;
    Value tag13;
    Value tag14;
    Value tag15;
    /// The whole value of tag 62. The fields below hold its sub-tags.
    Value additionalDataField;
    Value billNumber;
    Value mobileNumber;
    Value storeID;
    Value loyaltyNumber;
    Value referenceID;
    Value consumerID;
    Value terminalId;
    Value purpose;
    Value additionalConsumerDataReq;
    Value addDataMasterCard1;
    Value addDataMasterCard2;
    Value addDataNPCI1;
    Value addDataNPCI2;
    Value tagSixtyTwo10;
    Value tagSixtyTwo15;
    Value tagSixtyTwo16;
    Value tagSixtyTwo17;
    Value tagSixtyTwo18;
    Value tagSixtyTwo19;
    Value tagSixtyTwo20;
    Value tagSixtyTwo21;
    Value tagSixtyTwo22;

  private:
    void visit(PayMerchantValidTLV01 tag, const TLVElement& element) override;
    void visit(PMValidTLV01AdditionalDataField subTag, const TLVElement& element) override;
    void visit(PayMerchantValidTLV00 tag, const TLVElement& element) override;
    void store(Value KorvoPayMerchantTLV::*field, const CountedText& value);
};

}  // namespace korvo

#endif
