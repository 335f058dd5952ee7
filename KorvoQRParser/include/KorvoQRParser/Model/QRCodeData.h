#ifndef KORVOQRPARSER_MODEL_QRCODEDATA_H
#define KORVOQRPARSER_MODEL_QRCODEDATA_H

#include <KorvoQRParser/KorvoQRParserExport.h>

#include <array>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>

namespace korvo {

/// The record of an accepted payload: every value that the code carried, under a fixed name, and flags for
/// those that the consumer must supply.
///
/// After a parse these are always present: korvoMerchantID, korvoMerchantPAN, merchantName,
/// merchantCategoryCode, cityName, countryCode and currencyCode; in the two-digit format also
/// payloadFormatIndicator and crc.
///
/// A merchant leaves a value to the consumer by a placeholder: "***" in the two-digit format, "?" and the
/// length as one character in the one-character format. Its flag (isBillIDMandatory and so on) is then true.
/// The value itself stays in the record as received, but for primaryID and secondaryID, which become absent.
///
/// A getter returns std::nullopt when the payload did not carry the value; a present but empty value is an
/// empty string, never std::nullopt. Texts are UTF-8, lengths count user-perceived characters (UAX #29). Tags
/// are those of the two-digit format, then, in quotes, of the one-character format. A new record has every
/// text absent and every flag false.
///
/// The record checks nothing: setters store what they are given. Two of them also change another property
/// (setIsPrimaryIDMandatory, setIsSecondaryIDMandatory); no other one does. The caller owns the record and
/// the library never changes it again; a reference that a getter returned lives until the property is set or
/// the record goes. Records are independent values; threads that share one and write to it need a lock of
/// their own.
class KORVO_EXPORT QRCodeData {
  public:
    /// Every text absent, every flag false.
    QRCodeData() noexcept;

    /// The record as one JSON object of 70 string members, one a line, indented by two spaces: an absent text
    /// is "nil", a flag "true" or "false". The empty text when any value holds a character outside ASCII.
    /// When a value that a caller set is not valid UTF-8, the empty text too, and one line on standard output
    /// says so. Made anew on every call, in time linear in the record's size.
    [[nodiscard]] std::string jsonOutput() const;

    /// The record as 69 lines "name: value", each ended by a line feed: an absent text is nil, a flag true or
    /// false, nothing is quoted or escaped. npciid1 stands on two lines; npciid2 and additionalDataField
    /// stand on none. Made anew on every call.
    [[nodiscard]] std::string description() const;

    /// Merchant identifier (tag 02; "0" in the one-character format), as received.
    const std::optional<std::string>& korvoMerchantID() const noexcept;
    void setKorvoMerchantID(std::optional<std::string> value) noexcept;

    /// The merchant identifier widened to 16 characters with zeros after its sixth; empty for an identifier
    /// of six characters or fewer. Derived, absent without korvoMerchantID.
    const std::optional<std::string>& korvoMerchantPAN() const noexcept;
    void setKorvoMerchantPAN(std::optional<std::string> value) noexcept;

    /// Merchant name (tag 59; "1"), at most 25 characters.
    const std::optional<std::string>& merchantName() const noexcept;
    void setMerchantName(std::optional<std::string> value) noexcept;

    /// Merchant category code (tag 52; "2"), four digits.
    const std::optional<std::string>& merchantCategoryCode() const noexcept;
    void setMerchantCategoryCode(std::optional<std::string> value) noexcept;

    /// Merchant city (tag 60; "3"), at most 13 characters.
    const std::optional<std::string>& cityName() const noexcept;
    void setCityName(std::optional<std::string> value) noexcept;

    /// Country (tag 58; "4"), two upper-case letters of ISO 3166-1.
    const std::optional<std::string>& countryCode() const noexcept;
    void setCountryCode(std::optional<std::string> value) noexcept;

    /// Transaction currency (tag 53; "5"), three digits of ISO 4217.
    const std::optional<std::string>& currencyCode() const noexcept;
    void setCurrencyCode(std::optional<std::string> value) noexcept;

    /// Transaction amount (tag 54; "6"), digits with at most one point; absent when the consumer enters it.
    const std::optional<std::string>& transactionAmount() const noexcept;
    void setTransactionAmount(std::optional<std::string> value) noexcept;

    /// Primary identifier (one-character tag "7"); absent when it was a placeholder.
    const std::optional<std::string>& primaryID() const noexcept;
    void setPrimaryID(std::optional<std::string> value) noexcept;

    /// Secondary identifier (one-character tag "8"); absent when it was a placeholder.
    const std::optional<std::string>& secondaryID() const noexcept;
    void setSecondaryID(std::optional<std::string> value) noexcept;

    /// Tip or convenience fee indicator (tag 55; "9"): "01" prompts for a tip, "02" adds a fixed fee, "03" a
    /// percentage.
    const std::optional<std::string>& tipAndFeeIndicator() const noexcept;
    void setTipAndFeeIndicator(std::optional<std::string> value) noexcept;

    /// Fixed convenience fee (tag 56; "A").
    const std::optional<std::string>& convenienceFeeAmount() const noexcept;
    void setConvenienceFeeAmount(std::optional<std::string> value) noexcept;

    /// Convenience fee as a percentage, 0.01 to 99.99 (tag 57; "B").
    const std::optional<std::string>& convenienceFeePercentage() const noexcept;
    void setConvenienceFeePercentage(std::optional<std::string> value) noexcept;

    /// Payload format indicator (tag 00), "01"; absent in the one-character format.
    const std::optional<std::string>& payloadFormatIndicator() const noexcept;
    void setPayloadFormatIndicator(std::optional<std::string> value) noexcept;

    /// Point of initiation method (tag 01).
    const std::optional<std::string>& pointOfInitiation() const noexcept;
    void setPointOfInitiation(std::optional<std::string> value) noexcept;

    /// Postal code (tag 61), at most 10 characters.
    const std::optional<std::string>& postalCode() const noexcept;
    void setPostalCode(std::optional<std::string> value) noexcept;

    /// The MasterCard network's merchant account number (tag 04).
    const std::optional<std::string>& masterCardPAN1() const noexcept;
    void setMasterCardPAN1(std::optional<std::string> value) noexcept;

    /// The MasterCard network's merchant account number (tag 05).
    const std::optional<std::string>& masterCardPAN2() const noexcept;
    void setMasterCardPAN2(std::optional<std::string> value) noexcept;

    /// The NPCI network's merchant identifier (tag 06).
    const std::optional<std::string>& npciid1() const noexcept;
    void setNpciid1(std::optional<std::string> value) noexcept;

    /// The NPCI network's merchant identifier (tag 07).
    const std::optional<std::string>& npciid2() const noexcept;
    void setNpciid2(std::optional<std::string> value) noexcept;

    /// The payload's checksum (tag 63), as received.
    const std::optional<std::string>& crc() const noexcept;
    void setCrc(std::optional<std::string> value) noexcept;

    /// Root tag 03, as received.
    const std::optional<std::string>& tag03() const noexcept;
    void setTag03(std::optional<std::string> value) noexcept;

    /// Root tag 08, as received.
    const std::optional<std::string>& tag08() const noexcept;
    void setTag08(std::optional<std::string> value) noexcept;

    /// Root tag 09, as received.
    const std::optional<std::string>& tag09() const noexcept;
    void setTag09(std::optional<std::string> value) noexcept;

    /// Root tag 10, as received.
    const std::optional<std::string>& tag10() const noexcept;
    void setTag10(std::optional<std::string> value) noexcept;

    /// Root tag 11, as received.
    const std::optional<std::string>& tag11() const noexcept;
    void setTag11(std::optional<std::string> value) noexcept;

    /// Root tag 12, as received.
    const std::optional<std::string>& tag12() const noexcept;
    void setTag12(std::optional<std::string> value) noexcept;

    /// Root tag 13, as received.
    const std::optional<std::string>& tag13() const noexcept;
    void setTag13(std::optional<std::string> value) noexcept;

    /// Root tag 14, as received.
    const std::optional<std::string>& tag14() const noexcept;
    void setTag14(std::optional<std::string> value) noexcept;

    /// Root tag 15, as received.
    const std::optional<std::string>& tag15() const noexcept;
    void setTag15(std::optional<std::string> value) noexcept;

    /// The whole value of the additional data field (tag 62), undecoded.
    const std::optional<std::string>& additionalDataField() const noexcept;
    void setAdditionalDataField(std::optional<std::string> value) noexcept;

    /// Bill number (tag 62, sub-tag 01).
    const std::optional<std::string>& billID() const noexcept;
    void setBillID(std::optional<std::string> value) noexcept;

    /// Mobile number (tag 62, sub-tag 02).
    const std::optional<std::string>& mobileNumber() const noexcept;
    void setMobileNumber(std::optional<std::string> value) noexcept;

    /// Store identifier (tag 62, sub-tag 03).
    const std::optional<std::string>& storeID() const noexcept;
    void setStoreID(std::optional<std::string> value) noexcept;

    /// Loyalty number (tag 62, sub-tag 04).
    const std::optional<std::string>& loyaltyNumber() const noexcept;
    void setLoyaltyNumber(std::optional<std::string> value) noexcept;

    /// Reference identifier (tag 62, sub-tag 05).
    const std::optional<std::string>& referenceID() const noexcept;
    void setReferenceID(std::optional<std::string> value) noexcept;

    /// Consumer identifier (tag 62, sub-tag 06).
    const std::optional<std::string>& consumerID() const noexcept;
    void setConsumerID(std::optional<std::string> value) noexcept;

    /// Terminal identifier (tag 62, sub-tag 07).
    const std::optional<std::string>& terminalID() const noexcept;
    void setTerminalID(std::optional<std::string> value) noexcept;

    /// Purpose of the transaction (tag 62, sub-tag 08).
    const std::optional<std::string>& purpose() const noexcept;
    void setPurpose(std::optional<std::string> value) noexcept;

    /// Which consumer data the merchant asks for (tag 62, sub-tag 09): letters of "AME".
    const std::optional<std::string>& additionalConsumerDataRequest() const noexcept;
    void setAdditionalConsumerDataRequest(std::optional<std::string> value) noexcept;

    /// Data of the MasterCard network (tag 62, sub-tag 11).
    const std::optional<std::string>& addDataMasterCard1() const noexcept;
    void setAddDataMasterCard1(std::optional<std::string> value) noexcept;

    /// Data of the MasterCard network (tag 62, sub-tag 12).
    const std::optional<std::string>& addDataMasterCard2() const noexcept;
    void setAddDataMasterCard2(std::optional<std::string> value) noexcept;

    /// Data of the NPCI network (tag 62, sub-tag 13).
    const std::optional<std::string>& addDataNpci1() const noexcept;
    void setAddDataNpci1(std::optional<std::string> value) noexcept;

    /// Data of the NPCI network (tag 62, sub-tag 14).
    const std::optional<std::string>& addDataNpci2() const noexcept;
    void setAddDataNpci2(std::optional<std::string> value) noexcept;

    /// Tag 62, sub-tag 10, as received.
    const std::optional<std::string>& tagSixtyTwo10() const noexcept;
    void setTagSixtyTwo10(std::optional<std::string> value) noexcept;

    /// Tag 62, sub-tag 15, as received.
    const std::optional<std::string>& tagSixtyTwo15() const noexcept;
    void setTagSixtyTwo15(std::optional<std::string> value) noexcept;

    /// Tag 62, sub-tag 16, as received.
    const std::optional<std::string>& tagSixtyTwo16() const noexcept;
    void setTagSixtyTwo16(std::optional<std::string> value) noexcept;

    /// Tag 62, sub-tag 17, as received.
    const std::optional<std::string>& tagSixtyTwo17() const noexcept;
    void setTagSixtyTwo17(std::optional<std::string> value) noexcept;

    /// Tag 62, sub-tag 18, as received.
    const std::optional<std::string>& tagSixtyTwo18() const noexcept;
    void setTagSixtyTwo18(std::optional<std::string> value) noexcept;

    /// Tag 62, sub-tag 19, as received.
    const std::optional<std::string>& tagSixtyTwo19() const noexcept;
    void setTagSixtyTwo19(std::optional<std::string> value) noexcept;

    /// Tag 62, sub-tag 20, as received.
    const std::optional<std::string>& tagSixtyTwo20() const noexcept;
    void setTagSixtyTwo20(std::optional<std::string> value) noexcept;

    /// Tag 62, sub-tag 21, as received.
    const std::optional<std::string>& tagSixtyTwo21() const noexcept;
    void setTagSixtyTwo21(std::optional<std::string> value) noexcept;

    /// Tag 62, sub-tag 22, as received.
    const std::optional<std::string>& tagSixtyTwo22() const noexcept;
    void setTagSixtyTwo22(std::optional<std::string> value) noexcept;

    /// The consumer must supply the primary identifier. Setting it to true makes primaryID absent.
    bool isPrimaryIDMandatory() const noexcept;
    void setIsPrimaryIDMandatory(bool value) noexcept;

    /// The consumer must supply the secondary identifier. Setting it to true makes secondaryID absent.
    bool isSecondaryIDMandatory() const noexcept;
    void setIsSecondaryIDMandatory(bool value) noexcept;

    /// Length that a placeholder primary identifier announces, as decimal text, "1" to "26".
    const std::optional<std::string>& primaryIDLength() const noexcept;
    void setPrimaryIDLength(std::optional<std::string> value) noexcept;

    /// Length that a placeholder secondary identifier announces, as decimal text, "1" to "26".
    const std::optional<std::string>& secondaryIDLength() const noexcept;
    void setSecondaryIDLength(std::optional<std::string> value) noexcept;

    /// The consumer must supply the bill number.
    bool isBillIDMandatory() const noexcept;
    void setIsBillIDMandatory(bool value) noexcept;

    /// The consumer must supply the mobile number.
    bool isMobileNumberMandatory() const noexcept;
    void setIsMobileNumberMandatory(bool value) noexcept;

    /// The consumer must supply the store identifier.
    bool isStoreIDMandatory() const noexcept;
    void setIsStoreIDMandatory(bool value) noexcept;

    /// The consumer must supply the loyalty number.
    bool isLoyaltyNumberMandatory() const noexcept;
    void setIsLoyaltyNumberMandatory(bool value) noexcept;

    /// The consumer must supply the reference identifier.
    bool isReferenceIDMandatory() const noexcept;
    void setIsReferenceIDMandatory(bool value) noexcept;

    /// The consumer must supply the consumer identifier.
    bool isConsumerIDMandatory() const noexcept;
    void setIsConsumerIDMandatory(bool value) noexcept;

    /// The consumer must supply the terminal identifier.
    bool isTerminalIDMandatory() const noexcept;
    void setIsTerminalIDMandatory(bool value) noexcept;

    /// The consumer must supply the purpose.
    bool isPurposeMandatory() const noexcept;
    void setIsPurposeMandatory(bool value) noexcept;

    /// The consumer must supply the additional consumer data; false after every parse, as the rules refuse a
    /// placeholder there. The spelling is the published name.
    bool isAdditonalConsumerDataRequestMandatory() const noexcept;
    void setIsAdditonalConsumerDataRequestMandatory(bool value) noexcept;

    /// The consumer must supply addDataMasterCard1.
    bool isAddDataMasterCard1Mandatory() const noexcept;
    void setIsAddDataMasterCard1Mandatory(bool value) noexcept;

    /// The consumer must supply addDataMasterCard2.
    bool isAddDataMasterCard2Mandatory() const noexcept;
    void setIsAddDataMasterCard2Mandatory(bool value) noexcept;

    /// The consumer must supply addDataNpci1.
    bool isAddDataNpci1Mandatory() const noexcept;
    void setIsAddDataNpci1Mandatory(bool value) noexcept;

    /// The consumer must supply addDataNpci2.
    bool isAddDataNpci2Mandatory() const noexcept;
    void setIsAddDataNpci2Mandatory(bool value) noexcept;

    /// True when all 70 properties are equal, absent and empty texts being different.
    friend KORVO_EXPORT bool operator==(const QRCodeData& left, const QRCodeData& right);
    /// The opposite of ==.
    friend KORVO_EXPORT bool operator!=(const QRCodeData& left, const QRCodeData& right);

  private:
    friend class QRCodeDataAccess;

    static constexpr std::size_t textCount = 55;
    static constexpr std::size_t flagCount = 15;

    std::array<std::optional<std::string>, textCount> texts_;
    std::array<bool, flagCount> flags_{};
};

/// Prints the record's description.
KORVO_EXPORT std::ostream& operator<<(std::ostream& stream, const QRCodeData& data);

}  // namespace korvo

#endif
