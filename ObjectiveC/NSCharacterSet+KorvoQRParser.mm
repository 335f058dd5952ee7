#include "Ownership.h"
#import <KorvoQRParser/ObjectiveC/NSCharacterSet+KorvoQRParser.h>

/// Nothing refers to a category, so a linker leaves its file in the static library unless it has to look for
/// this name.
extern "C" const int KorvoQRParserNSCharacterSet = 1;

@implementation NSCharacterSet (KorvoQRParser)

+ (NSCharacterSet*)numericCharacterSet {
    return [NSCharacterSet characterSetWithCharactersInString:@"0123456789"];
}

+ (NSMutableCharacterSet*)unionAlphaNumericCharacterSetWith:(NSCharacterSet*)set {
    NSMutableCharacterSet* both = [[NSCharacterSet alphanumericCharacterSet] mutableCopy];
    if (set != nil) {
        [both formUnionWithCharacterSet:set];
    }
    return KORVO_AUTORELEASE(both);
}

+ (NSCharacterSet*)alphaNumericWhiteSpaceCharacterSet {
    return [NSCharacterSet unionAlphaNumericCharacterSetWith:[NSCharacterSet whitespaceCharacterSet]];
}

@end
