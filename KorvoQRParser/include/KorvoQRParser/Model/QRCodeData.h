#ifndef KORVOQRPARSER_MODEL_QRCODEDATA_H
#define KORVOQRPARSER_MODEL_QRCODEDATA_H

#include <KorvoQRParser/KorvoQRParserExport.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <array>
#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace korvo {

/// The record of an accepted payload: the values that the payload carried, each under a fixed name, and flags
/// for the values that the consumer must supply. The values of the root tags 16 to 51 are not kept.
///
/// After a parse these are always present: korvoMerchantID, korvoMerchantPAN, merchantName,
/// merchantCategoryCode, cityName, countryCode and currencyCode; in the two-digit format also
/// payloadFormatIndicator and crc.
///
/// A merchant leaves a value to the consumer with a placeholder. In the two-digit format the placeholder is
/// "***", for the sub-tags 01 to 08 and 11 to 14 of tag 62. In the one-character format it is "?", alone or
/// followed by one character that announces a length, for primaryID and secondaryID. A placeholder sets the
/// flag of its value (isBillIDMandatory and so on) to true. The placeholder itself stays in the record as
/// received, except that primaryID and secondaryID become absent.
///
/// A getter returns std::nullopt when the payload did not carry the value; a value that is present but empty
/// is an empty string. Texts are UTF-8, and lengths count user-perceived characters (extended grapheme
/// clusters, UAX #29). Each comment names the tag in the two-digit format and then, in quotes, the tag in the
/// one-character format. The limits in the comments hold after a parse. A value without stated limits is kept
/// as received, and no rule checks it. A new record has every text absent and every flag false.
///
/// The record checks nothing: setters store what they are given. Only setIsPrimaryIDMandatory and
/// setIsSecondaryIDMandatory also change another property. Nothing is thrown except std::bad_alloc, by copies
/// and renderings. The caller owns the record, and the library never changes it again. The reference that a
/// getter returns is valid as long as the record and follows every change of the property; a view of its
/// string is valid until the property changes.
///
/// Records are independent values. Threads that share one record need their own lock if any of them writes to
/// it.
class KORVO_EXPORT QRCodeData {
  public:
    /// Makes a record with every text absent and every flag false.
    QRCodeData() noexcept;

    /// Returns the record as one JSON object of 70 string members, one per line, indented by two spaces, with
    /// no line feed at the end. An absent text is "nil", so it looks like the text "nil"; a flag is "true" or
    /// "false". Returns the empty text when any value contains a character outside ASCII. If a value that a
    /// caller set is not even valid UTF-8, one line on standard output says so. Made anew on every call, in
    /// time linear in the record's size.
    [[nodiscard]] std::string jsonOutput() const;

    /// Returns the record as one JSON object (RFC 8259, UTF-8) on one line, with a member for each property
    /// in the order of qrCodeDataProperties: a text is a string or, when absent, null; a flag is true or
    /// false. Texts outside ASCII stay as they are. Returns the empty text when a value that a caller set is
    /// not valid UTF-8, and says so in one line on standard output, as jsonOutput does. Made anew on every
    /// call, in time linear in the record's size.
    [[nodiscard]] std::string utf8JSON() const;

    /// The text of a property, valid until the property changes; absent for a flag.
    std::optional<std::string_view> text(QRCodeDataProperty property) const noexcept;

    /// A flag, as its own getter returns it; false for a text.
    bool flag(QRCodeDataProperty property) const noexcept;

    /// Returns the record as 69 lines "name: value", each ended by a line feed. An absent text is nil, a flag
    /// is true or false, and nothing is quoted or escaped. npciid1 appears on two lines; npciid2 and
    /// additionalDataField do not appear. Made anew on every call, in time linear in the record's size.
    [[nodiscard]] std::string description() const;

    /// Merchant identifier (tag 02; "0") as received: 8 to 16 ASCII digits, the first of them 4.
    const std::optional<std::string>& korvoMerchantID() const noexcept;
    void setKorvoMerchantID(std::optional<std::string> value) noexcept;

    /// Account number: the merchant identifier, widened to 16 characters with zeros after its sixth. The
    /// parse derives it; setKorvoMerchantID does not change it.
    const std::optional<std::string>& korvoMerchantPAN() const noexcept;
    void setKorvoMerchantPAN(std::optional<std::string> value) noexcept;

    /// Merchant name (tag 59; "1"), 1 to 25 characters.
    const std::optional<std::string>& merchantName() const noexcept;
    void setMerchantName(std::optional<std::string> value) noexcept;

    /// Merchant category code (tag 52; "2"), four decimal digits of any script (Unicode category Nd).
    const std::optional<std::string>& merchantCategoryCode() const noexcept;
    void setMerchantCategoryCode(std::optional<std::string> value) noexcept;

    /// Merchant city (tag 60; "3"), 1 to 13 characters.
    const std::optional<std::string>& cityName() const noexcept;
    void setCityName(std::optional<std::string> value) noexcept;

    /// Country (tag 58; "4"), a two-letter code of ISO 3166-1 in upper case.
    const std::optional<std::string>& countryCode() const noexcept;
    void setCountryCode(std::optional<std::string> value) noexcept;

    /// Transaction currency (tag 53; "5"), a numeric code of ISO 4217: three ASCII digits, "008" for 8.
    const std::optional<std::string>& currencyCode() const noexcept;
    void setCurrencyCode(std::optional<std::string> value) noexcept;

    /// Transaction amount (tag 54; "6"), above zero: ASCII digits with at most one point, which may come
    /// first or last; at most 12 digits or, with a point, 13 characters. Absent when the consumer enters the
    /// amount.
    const std::optional<std::string>& transactionAmount() const noexcept;
    void setTransactionAmount(std::optional<std::string> value) noexcept;

    /// Primary identifier (one-character tag "7"), 1 to 26 characters; absent when it was a placeholder.
    const std::optional<std::string>& primaryID() const noexcept;
    void setPrimaryID(std::optional<std::string> value) noexcept;

    /// Secondary identifier (one-character tag "8"), 1 to 26 characters; absent when it was a placeholder.
    const std::optional<std::string>& secondaryID() const noexcept;
    void setSecondaryID(std::optional<std::string> value) noexcept;

    /// Tip or convenience fee indicator (tag 55; "9"): "01" asks the consumer for a tip, "02" adds a fixed
    /// fee, "03" adds a percentage.
    const std::optional<std::string>& tipAndFeeIndicator() const noexcept;
    void setTipAndFeeIndicator(std::optional<std::string> value) noexcept;

    /// Fixed convenience fee (tag 56; "A"), above zero: ASCII digits with at most one point, which may come
    /// first or last; at most 9 characters. When tipAndFeeIndicator is "03" it is kept but not checked,
    /// because the percentage is the fee.
    const std::optional<std::string>& convenienceFeeAmount() const noexcept;
    void setConvenienceFeeAmount(std::optional<std::string> value) noexcept;

    /// Convenience fee as a percentage (tag 57; "B"), from 0.01 to 99.99: ASCII digits with at most one
    /// point, which may come first or last; at most 5 characters.
    const std::optional<std::string>& convenienceFeePercentage() const noexcept;
    void setConvenienceFeePercentage(std::optional<std::string> value) noexcept;

    /// Payload format indicator (tag 00), "01"; absent in the one-character format.
    const std::optional<std::string>& payloadFormatIndicator() const noexcept;
    void setPayloadFormatIndicator(std::optional<std::string> value) noexcept;

    /// Point of initiation method (tag 01).
    const std::optional<std::string>& pointOfInitiation() const noexcept;
    void setPointOfInitiation(std::optional<std::string> value) noexcept;

    /// Postal code (tag 61), 1 to 10 characters.
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

    /// The payload's checksum (tag 63) as received, four characters; absent in the one-character format.
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

    /// The whole value of the additional data field (tag 62) as received. The properties of its sub-tags hold
    /// its elements.
    const std::optional<std::string>& additionalDataField() const noexcept;
    void setAdditionalDataField(std::optional<std::string> value) noexcept;

    /// Bill number (tag 62, sub-tag 01), 1 to 26 characters.
    const std::optional<std::string>& billID() const noexcept;
    void setBillID(std::optional<std::string> value) noexcept;

    /// Mobile number (tag 62, sub-tag 02), 1 to 26 characters.
    const std::optional<std::string>& mobileNumber() const noexcept;
    void setMobileNumber(std::optional<std::string> value) noexcept;

    /// Store identifier (tag 62, sub-tag 03), 1 to 26 characters.
    const std::optional<std::string>& storeID() const noexcept;
    void setStoreID(std::optional<std::string> value) noexcept;

    /// Loyalty number (tag 62, sub-tag 04), 1 to 26 characters.
    const std::optional<std::string>& loyaltyNumber() const noexcept;
    void setLoyaltyNumber(std::optional<std::string> value) noexcept;

    /// Reference identifier (tag 62, sub-tag 05), 1 to 26 characters.
    const std::optional<std::string>& referenceID() const noexcept;
    void setReferenceID(std::optional<std::string> value) noexcept;

    /// Consumer identifier (tag 62, sub-tag 06), 1 to 26 characters.
    const std::optional<std::string>& consumerID() const noexcept;
    void setConsumerID(std::optional<std::string> value) noexcept;

    /// Terminal identifier (tag 62, sub-tag 07), 1 to 26 characters.
    const std::optional<std::string>& terminalID() const noexcept;
    void setTerminalID(std::optional<std::string> value) noexcept;

    /// Purpose of the transaction (tag 62, sub-tag 08), 1 to 26 characters.
    const std::optional<std::string>& purpose() const noexcept;
    void setPurpose(std::optional<std::string> value) noexcept;

    /// Consumer data that the merchant asks for (tag 62, sub-tag 09): one to three of the letters A
    /// (address), M (mobile number) and E (e-mail address), in any order and possibly repeated.
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

    /// Whether the consumer must supply the primary identifier. Setting it to true makes primaryID absent.
    bool isPrimaryIDMandatory() const noexcept;
    void setIsPrimaryIDMandatory(bool value) noexcept;

    /// Whether the consumer must supply the secondary identifier. Setting it to true makes secondaryID
    /// absent.
    bool isSecondaryIDMandatory() const noexcept;
    void setIsSecondaryIDMandatory(bool value) noexcept;

    /// The length that a placeholder primary identifier announces, as decimal text from "1" to "26"; absent
    /// when it announces none.
    const std::optional<std::string>& primaryIDLength() const noexcept;
    void setPrimaryIDLength(std::optional<std::string> value) noexcept;

    /// The length that a placeholder secondary identifier announces, as decimal text from "1" to "26"; absent
    /// when it announces none.
    const std::optional<std::string>& secondaryIDLength() const noexcept;
    void setSecondaryIDLength(std::optional<std::string> value) noexcept;

    /// Whether the consumer must supply the bill number.
    bool isBillIDMandatory() const noexcept;
    void setIsBillIDMandatory(bool value) noexcept;

    /// Whether the consumer must supply the mobile number.
    bool isMobileNumberMandatory() const noexcept;
    void setIsMobileNumberMandatory(bool value) noexcept;

    /// Whether the consumer must supply the store identifier.
    bool isStoreIDMandatory() const noexcept;
    void setIsStoreIDMandatory(bool value) noexcept;

    /// Whether the consumer must supply the loyalty number.
    bool isLoyaltyNumberMandatory() const noexcept;
    void setIsLoyaltyNumberMandatory(bool value) noexcept;

    /// Whether the consumer must supply the reference identifier.
    bool isReferenceIDMandatory() const noexcept;
    void setIsReferenceIDMandatory(bool value) noexcept;

    /// Whether the consumer must supply the consumer identifier.
    bool isConsumerIDMandatory() const noexcept;
    void setIsConsumerIDMandatory(bool value) noexcept;

    /// Whether the consumer must supply the terminal identifier.
    bool isTerminalIDMandatory() const noexcept;
    void setIsTerminalIDMandatory(bool value) noexcept;

    /// Whether the consumer must supply the purpose.
    bool isPurposeMandatory() const noexcept;
    void setIsPurposeMandatory(bool value) noexcept;

    /// Whether the consumer must supply the additional consumer data. Always false after a parse, because the
    /// rules refuse a placeholder there. The misspelled name is the published one.
    bool isAdditonalConsumerDataRequestMandatory() const noexcept;
    void setIsAdditonalConsumerDataRequestMandatory(bool value) noexcept;

    /// Whether the consumer must supply addDataMasterCard1.
    bool isAddDataMasterCard1Mandatory() const noexcept;
    void setIsAddDataMasterCard1Mandatory(bool value) noexcept;

    /// Whether the consumer must supply addDataMasterCard2.
    bool isAddDataMasterCard2Mandatory() const noexcept;
    void setIsAddDataMasterCard2Mandatory(bool value) noexcept;

    /// Whether the consumer must supply addDataNpci1.
    bool isAddDataNpci1Mandatory() const noexcept;
    void setIsAddDataNpci1Mandatory(bool value) noexcept;

    /// Whether the consumer must supply addDataNpci2.
    bool isAddDataNpci2Mandatory() const noexcept;
    void setIsAddDataNpci2Mandatory(bool value) noexcept;

    /// True when all 70 properties are equal. An absent text and an empty text differ.
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

/// Writes the record's description to the stream.
KORVO_EXPORT std::ostream& operator<<(std::ostream& stream, const QRCodeData& data);

}  // namespace korvo

#endif
