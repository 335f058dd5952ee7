#ifndef KORVOQRPARSER_OBJECTIVEC_QRCODEERROR_H
#define KORVOQRPARSER_OBJECTIVEC_QRCODEERROR_H

#import <KorvoQRParser/KorvoQRParserExport.h>
#import <KorvoQRParser/ObjectiveC/Compatibility.h>
#import <KorvoQRParser/ObjectiveC/QRCodeErrorCode.h>

struct KorvoQRCodeErrorStorage;

NS_ASSUME_NONNULL_BEGIN

/// Why a payload was refused: the codes of the rules that it violates.
///
/// A plain value: it keeps exactly the list that it was given, unsorted and unfiltered. Any number of threads
/// may read one object while none uses the setter.
KORVO_EXPORT
@interface QRCodeError : NSObject {
  @private
    struct KorvoQRCodeErrorStorage* _storage;
}

/// Takes a copy of the codes; an empty list is kept as an empty list, and nil is taken as one.
- (instancetype)initWithErrorCodes:(KORVO_ARRAY_OF(NSString*) *)errorCodes NS_DESIGNATED_INITIALIZER;

/// An error without a list means nothing: -init stops the program with a line on standard error.
- (instancetype)init KORVO_UNAVAILABLE;
+ (instancetype)new KORVO_UNAVAILABLE;

/// The codes, in the order in which the rules raised them. Reading makes a new array, which no later change
/// of the error reaches; setting replaces the whole list with a copy.
@property(nonatomic, copy) KORVO_ARRAY_OF(NSString*) * errorCodes;

/// The published name of a code, such as "crcInvalidValue" for "48"; nil for a text that is no code of the
/// catalogue.
+ (NSString* _Nullable)nameOfErrorCode:(NSString*)code;

/// The meaning of a code in plain English, one sentence; nil for a text that is no code of the catalogue.
+ (NSString* _Nullable)meaningOfErrorCode:(NSString*)code;

/// The enumerator of a code; QRCodeErrorCodeUnknown for a text that is no code of the catalogue.
+ (QRCodeErrorCode)errorCodeFromText:(NSString*)text KORVO_SWIFT_NAME(errorCode(fromText:));

/// The code of an enumerator as text; nil for a number that is no code of the catalogue.
+ (NSString* _Nullable)textOfErrorCode:(QRCodeErrorCode)code KORVO_SWIFT_NAME(text(of:));

/// The codes as one line of text: each code followed by one blank, the last one too ("41 48 "); the empty
/// text for an empty list. Made anew on every call.
- (NSString*)description;

@end

NS_ASSUME_NONNULL_END

#endif
