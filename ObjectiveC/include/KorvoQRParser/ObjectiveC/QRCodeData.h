#ifndef KORVOQRPARSER_OBJECTIVEC_QRCODEDATA_H
#define KORVOQRPARSER_OBJECTIVEC_QRCODEDATA_H

#import <KorvoQRParser/KorvoQRParserExport.h>
#import <KorvoQRParser/ObjectiveC/Compatibility.h>
#import <KorvoQRParser/ObjectiveC/QRCodeDataProperty.h>

struct KorvoQRCodeDataStorage;

NS_ASSUME_NONNULL_BEGIN

/// The record of an accepted payload: every value that the code carried, under a fixed name, and flags for
/// those that the consumer must supply.
///
/// After a parse these are always present: korvoMerchantID, korvoMerchantPAN, merchantName,
/// merchantCategoryCode, cityName, countryCode and currencyCode; in the two-digit format also
/// payloadFormatIndicator and crc.
///
/// A merchant leaves a value to the consumer by a placeholder: "***" in the two-digit format, "?" and the
/// length as one character in the one-character format. Its flag (isBillIDMandatory and so on) is then YES.
/// The value itself stays in the record as received, except primaryID and secondaryID, which become nil.
///
/// A text is nil when the payload did not carry the value; a present but empty value is an empty string,
/// never nil. Lengths count user-perceived characters. Tags are those of the two-digit format, then, in
/// quotes, of the one-character format. A new record (-init) has every text nil and every flag NO.
///
/// The record checks nothing: setters store a copy of what they are given, and getters make a new string. Two
/// setters also change another property (isPrimaryIDMandatory, isSecondaryIDMandatory); no other one does,
/// and that change sends no key-value notification of its own. The caller owns the record and the library
/// never changes it again. Records are compared by identity. Threads that share one and write to it need a
/// lock.
KORVO_EXPORT
@interface QRCodeData : NSObject {
  @private
    struct KorvoQRCodeDataStorage* _storage;
}

/// Every text nil, every flag NO.
- (instancetype)init NS_DESIGNATED_INITIALIZER;

/// The record as one JSON object of 70 string members, one a line, indented by two spaces: an absent text is
/// "nil", a flag "true" or "false". The empty text when any value holds a character outside ASCII; where one
/// holds a surrogate without its other half, "error: Account could not be serialized into json" is printed on
/// standard output too. Made anew on every call, in time linear in the record's size.
@property(nonatomic, readonly, copy) NSString* jsonOutput;

/// The record as one JSON object in one line, with a member for each property in the order of propertyNames:
/// a text is a string or, when absent, null; a flag is true or false. Characters outside ASCII stay as they
/// are. The empty text where a text has a surrogate without its other half; a line on standard output says
/// so, as for jsonOutput. Made anew on every call.
@property(nonatomic, readonly, copy) NSString* utf8JSON;

/// The names of all properties. To walk over a record, ask it for the value of each name with -valueForKey:,
/// which is a string or nil for a text, and a number for a flag; or ask for the property at each place, as
/// below.
+ (KORVO_ARRAY_OF(NSString*) *)propertyNames;

/// The text of a property; nil when it is absent, for a flag, and for a number that is no property.
- (NSString* _Nullable)textOfProperty:(QRCodeDataProperty)property KORVO_SWIFT_NAME(text(of:));

/// A flag, as its own getter returns it; NO for a text, and for a number that is no property.
- (BOOL)flagOfProperty:(QRCodeDataProperty)property KORVO_SWIFT_NAME(flag(of:));

/// The name of a property, as in propertyNames; nil for a number that is no property.
+ (NSString* _Nullable)nameOfProperty:(QRCodeDataProperty)property KORVO_SWIFT_NAME(name(of:));

/// Whether a property is a flag; NO for a text, and for a number that is no property.
+ (BOOL)isFlagProperty:(QRCodeDataProperty)property KORVO_SWIFT_NAME(isFlag(_:));

/// The record as 69 lines "name: value", each ended by a line feed: an absent text is nil, a flag true or
/// false, nothing is quoted or escaped. npciid1 appears on two lines; npciid2 and additionalDataField do not
/// appear. Made anew on every call.
- (NSString*)description;

/// Merchant identifier (tag 02; "0" in the one-character format), as received.
@property(nonatomic, copy) NSString* _Nullable korvoMerchantID;

/// The merchant identifier widened to 16 characters with zeros after its sixth; empty for an identifier
/// of six characters or fewer. Derived, absent without korvoMerchantID.
@property(nonatomic, copy) NSString* _Nullable korvoMerchantPAN;

/// Merchant name (tag 59; "1"), at most 25 characters.
@property(nonatomic, copy) NSString* _Nullable merchantName;

/// Merchant category code (tag 52; "2"), four digits.
@property(nonatomic, copy) NSString* _Nullable merchantCategoryCode;

/// Merchant city (tag 60; "3"), at most 13 characters.
@property(nonatomic, copy) NSString* _Nullable cityName;

/// Country (tag 58; "4"), two upper-case letters of ISO 3166-1.
@property(nonatomic, copy) NSString* _Nullable countryCode;

/// Transaction currency (tag 53; "5"), three digits of ISO 4217.
@property(nonatomic, copy) NSString* _Nullable currencyCode;

/// Transaction amount (tag 54; "6"), digits with at most one point; absent when the consumer enters it.
@property(nonatomic, copy) NSString* _Nullable transactionAmount;

/// Primary identifier (one-character tag "7"); absent when it was a placeholder.
@property(nonatomic, copy) NSString* _Nullable primaryID;

/// Secondary identifier (one-character tag "8"); absent when it was a placeholder.
@property(nonatomic, copy) NSString* _Nullable secondaryID;

/// Tip or convenience fee indicator (tag 55; "9"): "01" prompts for a tip, "02" adds a fixed fee, "03" a
/// percentage.
@property(nonatomic, copy) NSString* _Nullable tipAndFeeIndicator;

/// Fixed convenience fee (tag 56; "A").
@property(nonatomic, copy) NSString* _Nullable convenienceFeeAmount;

/// Convenience fee as a percentage, 0.01 to 99.99 (tag 57; "B").
@property(nonatomic, copy) NSString* _Nullable convenienceFeePercentage;

/// Payload format indicator (tag 00), "01"; absent in the one-character format.
@property(nonatomic, copy) NSString* _Nullable payloadFormatIndicator;

/// Point of initiation method (tag 01).
@property(nonatomic, copy) NSString* _Nullable pointOfInitiation;

/// Postal code (tag 61), at most 10 characters.
@property(nonatomic, copy) NSString* _Nullable postalCode;

/// The MasterCard network's merchant account number (tag 04).
@property(nonatomic, copy) NSString* _Nullable masterCardPAN1;

/// The MasterCard network's merchant account number (tag 05).
@property(nonatomic, copy) NSString* _Nullable masterCardPAN2;

/// The NPCI network's merchant identifier (tag 06).
@property(nonatomic, copy) NSString* _Nullable npciid1;

/// The NPCI network's merchant identifier (tag 07).
@property(nonatomic, copy) NSString* _Nullable npciid2;

/// The payload's checksum (tag 63), as received.
@property(nonatomic, copy) NSString* _Nullable crc;

/// Root tag 03, as received.
@property(nonatomic, copy) NSString* _Nullable tag03;

/// Root tag 08, as received.
@property(nonatomic, copy) NSString* _Nullable tag08;

/// Root tag 09, as received.
@property(nonatomic, copy) NSString* _Nullable tag09;

/// Root tag 10, as received.
@property(nonatomic, copy) NSString* _Nullable tag10;

/// Root tag 11, as received.
@property(nonatomic, copy) NSString* _Nullable tag11;

/// Root tag 12, as received.
@property(nonatomic, copy) NSString* _Nullable tag12;

/// Root tag 13, as received.
@property(nonatomic, copy) NSString* _Nullable tag13;

/// Root tag 14, as received.
@property(nonatomic, copy) NSString* _Nullable tag14;

/// Root tag 15, as received.
@property(nonatomic, copy) NSString* _Nullable tag15;

/// The whole value of the additional data field (tag 62), undecoded.
@property(nonatomic, copy) NSString* _Nullable additionalDataField;

/// Bill number (tag 62, sub-tag 01).
@property(nonatomic, copy) NSString* _Nullable billID;

/// Mobile number (tag 62, sub-tag 02).
@property(nonatomic, copy) NSString* _Nullable mobileNumber;

/// Store identifier (tag 62, sub-tag 03).
@property(nonatomic, copy) NSString* _Nullable storeID;

/// Loyalty number (tag 62, sub-tag 04).
@property(nonatomic, copy) NSString* _Nullable loyaltyNumber;

/// Reference identifier (tag 62, sub-tag 05).
@property(nonatomic, copy) NSString* _Nullable referenceID;

/// Consumer identifier (tag 62, sub-tag 06).
@property(nonatomic, copy) NSString* _Nullable consumerID;

/// Terminal identifier (tag 62, sub-tag 07).
@property(nonatomic, copy) NSString* _Nullable terminalID;

/// Purpose of the transaction (tag 62, sub-tag 08).
@property(nonatomic, copy) NSString* _Nullable purpose;

/// Which consumer data the merchant asks for (tag 62, sub-tag 09): letters of "AME".
@property(nonatomic, copy) NSString* _Nullable additionalConsumerDataRequest;

/// Data of the MasterCard network (tag 62, sub-tag 11).
@property(nonatomic, copy) NSString* _Nullable addDataMasterCard1;

/// Data of the MasterCard network (tag 62, sub-tag 12).
@property(nonatomic, copy) NSString* _Nullable addDataMasterCard2;

/// Data of the NPCI network (tag 62, sub-tag 13).
@property(nonatomic, copy) NSString* _Nullable addDataNpci1;

/// Data of the NPCI network (tag 62, sub-tag 14).
@property(nonatomic, copy) NSString* _Nullable addDataNpci2;

/// Tag 62, sub-tag 10, as received.
@property(nonatomic, copy) NSString* _Nullable tagSixtyTwo10;

/// Tag 62, sub-tag 15, as received.
@property(nonatomic, copy) NSString* _Nullable tagSixtyTwo15;

/// Tag 62, sub-tag 16, as received.
@property(nonatomic, copy) NSString* _Nullable tagSixtyTwo16;

/// Tag 62, sub-tag 17, as received.
@property(nonatomic, copy) NSString* _Nullable tagSixtyTwo17;

/// Tag 62, sub-tag 18, as received.
@property(nonatomic, copy) NSString* _Nullable tagSixtyTwo18;

/// Tag 62, sub-tag 19, as received.
@property(nonatomic, copy) NSString* _Nullable tagSixtyTwo19;

/// Tag 62, sub-tag 20, as received.
@property(nonatomic, copy) NSString* _Nullable tagSixtyTwo20;

/// Tag 62, sub-tag 21, as received.
@property(nonatomic, copy) NSString* _Nullable tagSixtyTwo21;

/// Tag 62, sub-tag 22, as received.
@property(nonatomic, copy) NSString* _Nullable tagSixtyTwo22;

/// The consumer must supply the primary identifier. Setting it to YES makes primaryID absent.
@property(nonatomic) BOOL isPrimaryIDMandatory;

/// The consumer must supply the secondary identifier. Setting it to YES makes secondaryID absent.
@property(nonatomic) BOOL isSecondaryIDMandatory;

/// Length that a placeholder primary identifier announces, as decimal text, "1" to "26".
@property(nonatomic, copy) NSString* _Nullable primaryIDLength;

/// Length that a placeholder secondary identifier announces, as decimal text, "1" to "26".
@property(nonatomic, copy) NSString* _Nullable secondaryIDLength;

/// The consumer must supply the bill number.
@property(nonatomic) BOOL isBillIDMandatory;

/// The consumer must supply the mobile number.
@property(nonatomic) BOOL isMobileNumberMandatory;

/// The consumer must supply the store identifier.
@property(nonatomic) BOOL isStoreIDMandatory;

/// The consumer must supply the loyalty number.
@property(nonatomic) BOOL isLoyaltyNumberMandatory;

/// The consumer must supply the reference identifier.
@property(nonatomic) BOOL isReferenceIDMandatory;

/// The consumer must supply the consumer identifier.
@property(nonatomic) BOOL isConsumerIDMandatory;

/// The consumer must supply the terminal identifier.
@property(nonatomic) BOOL isTerminalIDMandatory;

/// The consumer must supply the purpose.
@property(nonatomic) BOOL isPurposeMandatory;

/// The consumer must supply the additional consumer data; NO after every parse, as the rules refuse a
/// placeholder there. The spelling is the published name.
@property(nonatomic) BOOL isAdditonalConsumerDataRequestMandatory;

/// The consumer must supply addDataMasterCard1.
@property(nonatomic) BOOL isAddDataMasterCard1Mandatory;

/// The consumer must supply addDataMasterCard2.
@property(nonatomic) BOOL isAddDataMasterCard2Mandatory;

/// The consumer must supply addDataNpci1.
@property(nonatomic) BOOL isAddDataNpci1Mandatory;

/// The consumer must supply addDataNpci2.
@property(nonatomic) BOOL isAddDataNpci2Mandatory;
@end

NS_ASSUME_NONNULL_END

#endif
