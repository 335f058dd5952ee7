#ifndef KORVOQRPARSER_OBJECTIVEC_NSCHARACTERSET_KORVOQRPARSER_H
#define KORVOQRPARSER_OBJECTIVEC_NSCHARACTERSET_KORVOQRPARSER_H

#import <KorvoQRParser/ObjectiveC/Compatibility.h>

NS_ASSUME_NONNULL_BEGIN

/// Character sets made of Foundation's own, as the platform defines them. Every call makes a new set. Any
/// number of threads may call.
///
/// A program that links the static library needs a linker flag to get a category. CMake adds it; elsewhere it
/// is -ObjC for Apple's linker and --whole-archive for GNU's.
@interface NSCharacterSet (KorvoQRParser)

/// The ten ASCII digits; no other Unicode digit is a member.
+ (NSCharacterSet*)numericCharacterSet KORVO_SWIFT_NAME(numericCharacterSet());

/// Foundation's alphanumeric set (letters, marks and numbers of all scripts) with the members of `set` added;
/// nil has none.
+ (NSMutableCharacterSet*)unionAlphaNumericCharacterSetWith:(NSCharacterSet*)set
    KORVO_SWIFT_NAME(unionAlphaNumericCharacterSetWith(_:));

/// Foundation's alphanumeric and whitespace sets (letters, marks, numbers, space separators, the tab) in one;
/// line feeds are not members.
+ (NSCharacterSet*)alphaNumericWhiteSpaceCharacterSet KORVO_SWIFT_NAME(alphaNumericWhiteSpaceCharacterSet());

@end

NS_ASSUME_NONNULL_END

#endif
