#ifndef KORVOQRPARSER_OBJECTIVEC_QRCODEEXPLANATION_H
#define KORVOQRPARSER_OBJECTIVEC_QRCODEEXPLANATION_H

#import <KorvoQRParser/KorvoQRParserExport.h>
#import <KorvoQRParser/ObjectiveC/Compatibility.h>

/// The explanation of a payload, which QRCodeExplainer makes, and its parts.
///
/// The objects never change, so any number of threads may read them. A part stays valid without the
/// explanation. Getters make a new string, array or part on every read. Only QRCodeExplainer makes
/// explanations: -init stops the program with a line on standard error.
///
/// Offsets and lengths count user-perceived characters, and not code units as NSString does. To find the
/// place in a string, step with -rangeOfComposedCharacterSequenceAtIndex:.
///
/// Texts of the payload come from a stranger. A value can hold control characters, markup, or characters that
/// reverse the direction of writing; escape it before you show it. In sentences (causes, reasons, facts and
/// cautions) such texts are in quotation marks, with controls and unusual blanks as escapes such as \x1B or
/// \u{202E}. Markup stays in them as it is.

struct KorvoQRCodeViolationStorage;
struct KorvoQRCodeElementStorage;
struct KorvoQRCodeFaultStorage;
struct KorvoQRCodeChecksumStorage;
struct KorvoQRCodeEditStorage;
struct KorvoQRCodeRepairStorage;
struct KorvoQRCodeExplanationStorage;

NS_ASSUME_NONNULL_BEGIN

/// A rule that the payload violates.
KORVO_EXPORT
@interface QRCodeViolation : NSObject {
  @private
    struct KorvoQRCodeViolationStorage* _storage;
}

- (instancetype)init KORVO_UNAVAILABLE;
+ (instancetype)new KORVO_UNAVAILABLE;

/// The code, as in errorCodes of QRCodeError.
@property(nonatomic, readonly, copy) NSString* errorCode;

/// The code's published name.
@property(nonatomic, readonly, copy) NSString* name;

/// The code's meaning: one sentence in plain English.
@property(nonatomic, readonly, copy) NSString* meaning;

/// What was found, and what the rule wants: "28 characters, at most 25". Empty if the meaning says it all.
@property(nonatomic, readonly, copy) NSString* fact;

@end

/// An element of the payload: a tag, a length and a value.
KORVO_EXPORT
@interface QRCodeElement : NSObject {
  @private
    struct KorvoQRCodeElementStorage* _storage;
}

- (instancetype)init KORVO_UNAVAILABLE;
+ (instancetype)new KORVO_UNAVAILABLE;

/// The characters before the element in the payload.
@property(nonatomic, readonly) NSUInteger offset;

/// The tag as written, such as "59"; in the one-character format "a".
@property(nonatomic, readonly, copy) NSString* tagField;

/// The length as written, such as "10"; in the one-character format "c".
@property(nonatomic, readonly, copy) NSString* lengthField;

/// The value as received.
@property(nonatomic, readonly, copy) NSString* value;

/// The tag as the catalogue of codes writes it: "59", "A", or "62/01" inside tag 62.
@property(nonatomic, readonly, copy) NSString* name;

/// What the tag is for, in a few words; "Not kept" for the root tags that the record does not have.
@property(nonatomic, readonly, copy) NSString* meaning;

/// The rules that this element violates, in the order of their codes.
@property(nonatomic, readonly, copy) KORVO_ARRAY_OF(QRCodeViolation*) * violations;

/// The elements inside tag 62; empty for every other tag.
@property(nonatomic, readonly, copy) KORVO_ARRAY_OF(QRCodeElement*) * elements;

@end

/// The kinds of faults that keep a payload from being split into elements. A later version may add some.
// NOLINTNEXTLINE(modernize-use-using)
typedef NS_ENUM(NSInteger, QRCodeFaultKind) {
    QRCodeFaultKindNotText,          ///< a surrogate without its other half
    QRCodeFaultKindTooShort,         ///< fewer than two characters
    QRCodeFaultKindWrongLength,      ///< a length that is no number, or not the length of its value
    QRCodeFaultKindEndsEarly,        ///< the text ends inside an element
    QRCodeFaultKindRepeatedTag,      ///< a tag occurs twice
    QRCodeFaultKindUnknownTag,       ///< a tag that the format does not have
    QRCodeFaultKindMissingChecksum,  ///< the payload ends without tag 63
    QRCodeFaultKindChecksumNotLast,  ///< an element follows tag 63
};

/// Why a payload cannot be split into elements, as the parser meets it: the symptom, at the first place where
/// splitting fails. The causes of QRCodeExplanation are the likely ones, which are often further left.
KORVO_EXPORT
@interface QRCodeFault : NSObject {
  @private
    struct KorvoQRCodeFaultStorage* _storage;
}

- (instancetype)init KORVO_UNAVAILABLE;
+ (instancetype)new KORVO_UNAVAILABLE;

@property(nonatomic, readonly) QRCodeFaultKind faultKind;

/// The kind in plain words: "a length is wrong".
@property(nonatomic, readonly, copy) NSString* kindText;

/// The decoder's name for it: "InvalidLength", "InvalidTagLength", "RepeatedTag" or "InvalidTag".
@property(nonatomic, readonly, copy) NSString* errorName;

/// The characters before the fault in the payload.
@property(nonatomic, readonly) NSUInteger offset;

/// The bytes that the payload before the fault has in UTF-8, if the fault is a surrogate without its other
/// half; otherwise nil.
@property(nonatomic, readonly) NSNumber* _Nullable byteOffset;

/// The tag concerned, as the name of QRCodeElement writes it; for an unknown tag, the tag as written. Empty
/// if the fault is not about a tag.
@property(nonatomic, readonly, copy) NSString* concernedTag;

/// One sentence without a full stop, in plain English.
@property(nonatomic, readonly, copy) NSString* reason;

/// An excerpt of the payload before the fault: up to 36 bytes of its UTF-8.
@property(nonatomic, readonly, copy) NSString* before;

/// An excerpt of the payload from the fault on: up to 24 bytes of its UTF-8. It ends in U+FFFD if it ends
/// inside a surrogate.
@property(nonatomic, readonly, copy) NSString* after;

@end

/// The checksum of a payload (CRC-16/CCITT-FALSE): the one that it has, and the one that it should have.
KORVO_EXPORT
@interface QRCodeChecksum : NSObject {
  @private
    struct KorvoQRCodeChecksumStorage* _storage;
}

- (instancetype)init KORVO_UNAVAILABLE;
+ (instancetype)new KORVO_UNAVAILABLE;

/// The value of tag 63. If the payload cannot be split, its last four characters.
@property(nonatomic, readonly, copy) NSString* found;

/// The checksum of the text as it stands, four hexadecimal digits in upper case. It covers everything except
/// the last four characters; if tag 63 does not have four, everything before tag 63 and "6304".
@property(nonatomic, readonly, copy) NSString* computed;

/// Whether the last four characters are the checksum of the text before them, in either letter case. This can
/// be so for a payload that cannot be split: then its generator wrote it as it is, and nothing happened to it
/// on the way.
@property(nonatomic, readonly) BOOL isMatching;

@end

/// A change of the original payload: at an offset, a text is replaced with another. An insertion replaces the
/// empty text; a deletion has an empty replacement.
KORVO_EXPORT
@interface QRCodeEdit : NSObject {
  @private
    struct KorvoQRCodeEditStorage* _storage;
}

- (instancetype)init KORVO_UNAVAILABLE;
+ (instancetype)new KORVO_UNAVAILABLE;

/// The characters of the original payload before the change.
@property(nonatomic, readonly) NSUInteger offset;

/// The text of the original, whole characters.
@property(nonatomic, readonly, copy) NSString* from;

/// Its replacement.
@property(nonatomic, readonly, copy) NSString* to;

@end

/// A payload that the parser accepts, made from a refused one by changing its form: lengths, checksum, order,
/// letter case of the country, letters of a currency, characters around or inserted into the text,
/// percent-encoding, an exact duplicate. No digit of an identifier, an amount or a fee, and no character of a
/// name is changed.
///
/// It is a guess about what the merchant meant. The library applies none by itself, and neither should a
/// program: show it to a person who can ask the merchant.
KORVO_EXPORT
@interface QRCodeRepair : NSObject {
  @private
    struct KorvoQRCodeRepairStorage* _storage;
}

- (instancetype)init KORVO_UNAVAILABLE;
+ (instancetype)new KORVO_UNAVAILABLE;

/// The complete payload.
@property(nonatomic, readonly, copy) NSString* payload;

/// The changes, in the order of their offsets. They do not overlap. A moved element is deleted at one place
/// and inserted at another.
@property(nonatomic, readonly, copy) KORVO_ARRAY_OF(QRCodeEdit*) * edits;

/// What to check before anybody pays: sentences with the identifier, the amount and the fee as they read
/// before and after. Empty if the written checksum vouches for the repair.
@property(nonatomic, readonly, copy) NSString* caution;

@end

/// The formats of a payload.
// NOLINTNEXTLINE(modernize-use-using)
typedef NS_ENUM(NSInteger, QRCodeFormat) {
    QRCodeFormatUnknown,  ///< the text does not have two characters to tell the format by
    QRCodeFormatTwoDigit,
    QRCodeFormatOneCharacter,
};

/// All that is known about a payload, accepted or refused.
KORVO_EXPORT
@interface QRCodeExplanation : NSObject {
  @private
    struct KorvoQRCodeExplanationStorage* _storage;
}

- (instancetype)init KORVO_UNAVAILABLE;
+ (instancetype)new KORVO_UNAVAILABLE;

/// The payload, code unit for code unit.
@property(nonatomic, readonly, copy) NSString* payload;

/// The same as a text that UTF-8 can hold: a surrogate without its other half is written as \xHH, for each
/// of the three bytes that UTF-8 would use for it. If there are any, backslashes are doubled; otherwise it is
/// the payload.
@property(nonatomic, readonly, copy) NSString* visible;

@property(nonatomic, readonly) QRCodeFormat payloadFormat;

/// Whether the parser accepts the payload.
@property(nonatomic, readonly) BOOL isAccepted;

/// The codes that QRCodeParser gives; empty for an accepted payload.
@property(nonatomic, readonly, copy) KORVO_ARRAY_OF(NSString*) * errorCodes;

/// The elements in the order of the payload, also those that the record does not keep. If the payload cannot
/// be split, those before the fault.
@property(nonatomic, readonly, copy) KORVO_ARRAY_OF(QRCodeElement*) * elements;

/// The violated rules about elements that are missing.
@property(nonatomic, readonly, copy) KORVO_ARRAY_OF(QRCodeViolation*) * missing;

/// Why the payload cannot be split; nil if it can.
@property(nonatomic, readonly) QRCodeFault* _Nullable fault;

/// The checksum; nil without four characters of UTF-8 at the end and something before them. A text that is
/// not in the two-digit format has one only if it cannot be split and contains 6304.
@property(nonatomic, readonly) QRCodeChecksum* _Nullable checksum;

/// What probably happened, the likeliest first: sentences for a person. Empty for an accepted payload, never
/// empty for a refused one, unless describeQRData made the explanation.
@property(nonatomic, readonly, copy) KORVO_ARRAY_OF(NSString*) * causes;

/// The repairs that the written checksum vouches for, the likeliest first: it is right for the text as it
/// stands, or for the repaired text. None changes how an identifier, an amount or a fee reads.
@property(nonatomic, readonly, copy) KORVO_ARRAY_OF(QRCodeRepair*) * repairs;

/// All other repairs, the likeliest first, each with a caution.
@property(nonatomic, readonly, copy) KORVO_ARRAY_OF(QRCodeRepair*) * unverified;

/// Everything above as one JSON object (RFC 8259) on one line, without a line feed. In `payload` and in
/// elements, a surrogate without its other half becomes U+FFFD, one or more; `visible` is a member if there
/// are any. Absent members are missing, except `format` and `caution`, which are null. Made anew on every
/// read.
@property(nonatomic, readonly, copy) NSString* utf8JSON;

@end

NS_ASSUME_NONNULL_END

#endif
