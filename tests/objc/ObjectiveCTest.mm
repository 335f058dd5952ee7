// What an application sees of the library: nothing but the one import. Usage: korvo_objc_tests
// DIRECTORY_OF_DATA, or CLASS for what its -init does
#undef NDEBUG  // it hides the count of objects
#import <KorvoQRParser/KorvoQRParserObjC.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>

#import <Foundation/NSDebug.h>

static int failures;

static void expectEqual(id got, id wanted, int line) {
    if (got != wanted && ![got isEqual:wanted]) {
        ++failures;
        NSLog(@"FAILED, line %d\n  wanted: %@\n  got:    %@", line, wanted, got);
    }
}
#define EXPECT_EQUAL(got, wanted) expectEqual((got), (wanted), __LINE__)
#define EXPECT(condition) EXPECT_EQUAL((condition) ? @"" : @ #condition, @"")

static NSString* directory;

static NSString* contents(NSString* name) {
    return [NSString stringWithContentsOfFile:[directory stringByAppendingPathComponent:name]
                                     encoding:NSUTF8StringEncoding
                                        error:nullptr];
}

static NSString* withoutLineFeed(NSString* text) {
    return [text substringToIndex:text.length - 1];
}

static QRCodeParserResponse* parsed(NSString* payload) {
    return [QRCodeParser parseQRDataWithQrCodeString:payload];
}

static QRCodeExplanation* explained(NSString* payload) {
    return [QRCodeExplainer explainQRDataWithQrCodeString:payload];
}

static void rendersRecords() {
    QRCodeData* data = parsed(withoutLineFeed(contents(@"full.payload"))).qrCodeData;
    EXPECT_EQUAL(([NSString stringWithFormat:@"%@", data]), contents(@"full.txt"));
    EXPECT_EQUAL([data.jsonOutput stringByAppendingString:@"\n"], contents(@"full.json"));
    EXPECT([data.utf8JSON hasPrefix:@"{\"korvoMerchantID\":\"4"] && [data.utf8JSON hasSuffix:@":null}"]);
}

// A copy of the handler is a copy of the token that it holds.
static void readsPayloadsInBothForms() {
    NSString* full = withoutLineFeed(contents(@"full.payload"));
    NSString* rejected = [full stringByReplacingOccurrencesOfString:@"02104" withString:@"02105"];
    EXPECT_EQUAL(parsed(rejected).qrCodeError.errorCodes, (@[ @"1", @"3", @"48" ]));
    for (NSString* payload in @[ full, rejected, @"" ]) {
        QRCodeParserResponse* response = parsed(payload);
        NSThread* thread = [NSThread currentThread];
        const auto token = std::make_shared<int>(0);
        void (^handler)(QRCodeParserResponse*) = ^(QRCodeParserResponse* answer) {
          EXPECT(++*token == 1 && token.use_count() == 3 && [NSThread currentThread] == thread);
          EXPECT_EQUAL(answer.qrCodeData.description, response.qrCodeData.description);
          EXPECT_EQUAL(answer.qrCodeError.errorCodes, response.qrCodeError.errorCodes);
          EXPECT_EQUAL(parsed(@"").qrCodeError.errorCodes, @[ @"0" ]);
        };
        [QRCodeParser parseQRDataWithQrCodeString:payload completionHandler:handler];
        EXPECT(*token == 1 && token.use_count() == 2);
        EXPECT((response.qrCodeData == nil) != (response.qrCodeError == nil));
        EXPECT(response.qrCodeData == response.qrCodeData);
    }
}

static void letsExceptionsOfHandlersPass() {
    const auto token = std::make_shared<int>(0);
    void (^handler)(QRCodeParserResponse*) = ^(QRCodeParserResponse* response) {
      ++*token;
      [NSException raise:@"Thrown" format:@"%@", response];
    };
    @try {
        [QRCodeParser parseQRDataWithQrCodeString:@"" completionHandler:handler];
    } @catch (NSException* exception) {
        EXPECT_EQUAL(exception.name, @"Thrown");
        ++*token;
    }
    EXPECT(*token == 2 && token.use_count() == 2);
}

// Runs without a pool: the form with a handler leaves nothing for one.
static void needsNoPool() {
    [QRCodeParser parseQRDataWithQrCodeString:@""
                            completionHandler:^(QRCodeParserResponse* /*response*/){
                            }];
}

static void takesNil() {
    id nothing = nil;
    EXPECT_EQUAL(parsed(nothing).qrCodeError.errorCodes, @[ @"0" ]);
    [QRCodeParser parseQRDataWithQrCodeString:@"" completionHandler:nothing];
    EXPECT_EQUAL([[[QRCodeError alloc] initWithErrorCodes:nothing] autorelease].errorCodes, @[]);
    QRCodeParserResponse* response = [[[QRCodeParserResponse alloc] initWithQrCodeData:nothing
                                                                           qrCodeError:nothing] autorelease];
    EXPECT(response.qrCodeData == nil && response.qrCodeError == nil);
    EXPECT_EQUAL([QRCodeError nameOfErrorCode:nothing], nil);
    EXPECT_EQUAL([QRCodeError meaningOfErrorCode:@"22"], nil);
    EXPECT_EQUAL([QRCodeError nameOfErrorCode:@"13"], @"countryCodeNotPresent");
    EXPECT_EQUAL([QRCodeError meaningOfErrorCode:@"13"], @"The country code is missing.");
    EXPECT([QRCodeError errorCodeFromText:nothing] == QRCodeErrorCodeUnknown);
    EXPECT_EQUAL(explained(nothing).errorCodes, @[ @"0" ]);
    EXPECT(explained(nothing).fault.faultKind == QRCodeFaultKindTooShort &&
           explained(nothing).payloadFormat == QRCodeFormatUnknown);
    EXPECT([[NSCharacterSet unionAlphaNumericCharacterSetWith:nothing] characterIsMember:'a']);
}

// Compares an object with the library's JSON of it.
static void expectSame(id got, id json) {  // NOLINT(misc-no-recursion): elements have elements
    if ([json isKindOfClass:[NSArray class]]) {
        EXPECT([got count] == [json count]);
        for (NSUInteger at = 0; at < [json count]; ++at) {
            expectSame([got objectAtIndex:at], [json objectAtIndex:at]);
        }
    } else if ([json isKindOfClass:[NSDictionary class]]) {
        NSString* tag = [got isKindOfClass:[QRCodeFault class]] ? @"concernedTag" : @"tagField";
        NSDictionary* properties = [NSDictionary
            dictionaryWithObjectsAndKeys:tag, @"tag", @"lengthField", @"length", @"errorCode", @"code",
                                         @"violations", @"errors", @"missing", @"absent", @"isAccepted",
                                         @"accepted", @"errorName", @"error", @"kindText", @"kind",
                                         @"isMatching", @"matches", @"payloadFormat", @"format", nil];
        for (NSString* name in json) {
            NSString* property = [properties objectForKey:name];
            expectSame([got valueForKey:property == nil ? name : property], [json objectForKey:name]);
        }
    } else if (![json isEqual:@"two-digit"]) {
        EXPECT_EQUAL(got, json == [NSNull null] ? @"" : json);
    }
}

static void explainsPayloads() {
    NSString* head = @"000201021641234567833333375204581253033565802IN59";
    NSArray<NSString*>* ends = @[
        @"07Coffee6006MUMBAI63040154", @"06Coffee6006MUMBAI63040000", @"06Coffee6006MUMBAI63040154",
        @"29A name of more than 25 chars!62050901X63040000"
    ];
    QRCodeExplanation* explanations[4];
    for (NSUInteger at = 0; at < ends.count; ++at) {
        explanations[at] = explained([head stringByAppendingString:[ends objectAtIndex:at]]);
        NSData* json = [explanations[at].utf8JSON dataUsingEncoding:NSUTF8StringEncoding];
        expectSame(explanations[at], [NSJSONSerialization JSONObjectWithData:json options:0 error:nullptr]);
    }
    const auto& [mendable, doubtful, accepted, violating] = explanations;
    EXPECT(mendable.fault.faultKind == QRCodeFaultKindRepeatedTag && mendable.fault.byteOffset == nil);
    EXPECT_EQUAL(mendable.repairs.firstObject.edits.firstObject.to, @"06");
    QRCodeExplanation* described = [QRCodeExplainer describeQRDataWithQrCodeString:mendable.payload];
    EXPECT_EQUAL(described.fault.reason, mendable.fault.reason);
    EXPECT(described.causes.count == 0 && described.repairs.count == 0);
    EXPECT(doubtful.unverified.firstObject.caution.length > 0);
    EXPECT(accepted.isAccepted && accepted.payloadFormat == QRCodeFormatTwoDigit);
    EXPECT(explained(@"0g").payloadFormat == QRCodeFormatOneCharacter && violating.missing.count == 1);
    QRCodeElement* element = [violating.elements objectAtIndex:6].elements.firstObject;
    EXPECT_EQUAL(element.name, @"62/09");
    EXPECT_EQUAL(element.violations.firstObject.errorCode, @"46");
}

static void knowsNumbers() {
    for (NSInteger number = -1; number < 256 + 49; ++number) {
        const auto code = static_cast<QRCodeErrorCode>(number);
        NSString* text = [NSString stringWithFormat:@"%ld", static_cast<long>(number)];
        const bool isKnown = [QRCodeError nameOfErrorCode:text] != nil;
        EXPECT([QRCodeError errorCodeFromText:text] == (isKnown ? code : QRCodeErrorCodeUnknown));
        EXPECT_EQUAL([QRCodeError textOfErrorCode:code], isKnown ? text : nil);
        const auto property = static_cast<QRCodeDataProperty>(number);
        EXPECT(([QRCodeData nameOfProperty:property] != nil) == (number >= 0 && number < 70));
    }
}

static void keepsWhatItIsGiven() {
    NSMutableArray* codes = [NSMutableArray arrayWithObjects:@"48", @"1", @"48", @"", nil];
    NSArray* given = [[codes copy] autorelease];
    QRCodeError* error = [[[QRCodeError alloc] initWithErrorCodes:codes] autorelease];
    [codes removeAllObjects];
    NSArray* got = error.errorCodes;
    EXPECT_EQUAL(([NSString stringWithFormat:@"%@", error]), @"48 1 48  ");
    error.errorCodes = codes;
    EXPECT_EQUAL(error.description, @"");
    EXPECT_EQUAL(got, given);
    QRCodeData* data = [[[QRCodeData alloc] init] autorelease];
    QRCodeParserResponse* response = [[QRCodeParserResponse alloc] initWithQrCodeData:data qrCodeError:error];
    EXPECT(response.qrCodeData == data && response.qrCodeError == error);
    EXPECT(data.retainCount == 2 && error.retainCount == 2);
    [response release];
}

// Each property alone is changed, seen under its own name and no other, and changed back.
static void keepsPropertiesApart() {
    QRCodeData* data = [[[QRCodeData alloc] init] autorelease];
    NSString* empty = withoutLineFeed(contents(@"empty.json"));
    NSData* json = [empty dataUsingEncoding:NSUTF8StringEncoding];
    NSDictionary* properties = [NSJSONSerialization JSONObjectWithData:json options:0 error:nullptr];
    EXPECT_EQUAL([NSSet setWithArray:[QRCodeData propertyNames]], [NSSet setWithArray:properties.allKeys]);
    EXPECT([QRCodeData propertyNames].count == 70);
    for (NSString* name in properties) {
        const BOOL isFlag = [[properties objectForKey:name] isEqual:@"false"];
        id before = isFlag ? [NSNumber numberWithBool:NO] : nil;
        id after = isFlag ? (id)[NSNumber numberWithBool:YES] : name;
        NSString* member = [NSString stringWithFormat:@R"("%@": "%s")", name, isFlag ? "false" : "nil"];
        NSString* changed = [NSString stringWithFormat:@R"("%@": "%@")", name, isFlag ? @"true" : name];
        const auto property =
            static_cast<QRCodeDataProperty>([[QRCodeData propertyNames] indexOfObject:name]);
        EXPECT_EQUAL([QRCodeData nameOfProperty:property], name);
        EXPECT([QRCodeData isFlagProperty:property] == isFlag);
        EXPECT_EQUAL([data valueForKey:name], before);
        [data setValue:after forKey:name];
        EXPECT_EQUAL([data valueForKey:name], after);
        EXPECT_EQUAL([data textOfProperty:property], isFlag ? nil : name);
        EXPECT([data flagOfProperty:property] == isFlag);
        EXPECT_EQUAL(data.jsonOutput, [empty stringByReplacingOccurrencesOfString:member withString:changed]);
        [data setValue:before forKey:name];
        EXPECT_EQUAL(data.jsonOutput, empty);
    }
    data.primaryID = data.secondaryID = @"";
    data.isPrimaryIDMandatory = (BOOL)2;
    EXPECT(data.isPrimaryIDMandatory == YES);
    EXPECT_EQUAL(data.primaryID, nil);
    EXPECT_EQUAL(data.secondaryID, @"");
}

static NSMutableString* stringOf(const std::u16string& units) {
    NSMutableString* string = [NSMutableString string];
    for (const char16_t unit : units) {
        [string appendFormat:@"%C", static_cast<unichar>(unit)];
    }
    return string;
}

static std::u16string unitsOf(NSString* string) {
    std::u16string units;
    for (NSUInteger at = 0; at < string.length; ++at) {
        units += static_cast<char16_t>([string characterAtIndex:at]);
    }
    return units;
}

// Both byte order marks, NUL, the ends of each length in UTF-8, and surrogates in all positions.
static const struct {
    std::u16string units;
    char16_t length;  // in a payload
    bool isWhole;     // no surrogate is without its other half
} texts[] = {
    {u"\uFEFFxyz", u'4', true},
    {u"\uFFFExyz", u'4', true},
    {std::u16string(u"\0x\xD83D\xDE00", 4), u'3', true},
    {u"\x7F\x80\u07FF\u0800\uD7FF\uE000\uFFFF\xD800\xDC00\xDBFF\xDFFF", u'9', true},
    {u"x\xD800", u'2', false},
    {u"\xDBFFx", u'2', false},
    {u"\xDC00\xDFFF", u'2', false},
    {u"\xD7FF\xDC00\xDBFF\xE000", u'4', false},
    {u"\xD83D\xD83D\xDE00\xDE00", u'3', false},
    {std::u16string(u"\uFEFF\0\xDBFF", 3), u'3', false},
    {u"\xDC00x" + std::u16string(9, u'\xDC00'), u'b', false},  // an excerpt of bytes ends inside one
};

static void explainsSurrogates(NSString* payload, bool isWhole) {
    QRCodeExplanation* explanation = explained(payload);
    EXPECT_EQUAL(explanation.payload, payload);
    EXPECT([explanation.visible isEqual:payload] == isWhole);
    if (!isWhole) {
        const std::u16string after = unitsOf(explanation.fault.after);
        const auto at = unitsOf(payload).find(after.substr(0, after.find(u'\uFFFD')));
        NSData* before = [[payload substringToIndex:at] dataUsingEncoding:NSUTF8StringEncoding];
        EXPECT_EQUAL(explanation.fault.byteOffset, @(before.length));
    }
}

static void keepsTexts() {
    QRCodeData* data = [[[QRCodeData alloc] init] autorelease];
    QRCodeError* error = [[[QRCodeError alloc] initWithErrorCodes:@[]] autorelease];
    for (const auto& [units, length, isWhole] : texts) {
        NSMutableString* string = stringOf(units);
        data.merchantName = string;
        error.errorCodes = @[ string, string ];
        [string setString:@"changed"];
        EXPECT(unitsOf(data.merchantName) == units);
        EXPECT(unitsOf(data.description).find(u"\nmerchantName: " + units + u'\n') != std::u16string::npos);
        EXPECT(unitsOf(error.errorCodes.lastObject) == units);
        EXPECT(unitsOf(error.description) == units + u' ' + units + u' ');
        std::printf(isWhole ? "whole\n" : "not whole, ");
        EXPECT_EQUAL(data.jsonOutput, @"");
        NSString* payload = stringOf(u"0g41111111111111111" + (length + units) + u"24581236MUMBAI42IN53356");
        QRCodeParserResponse* response = parsed(payload);
        EXPECT_EQUAL(response.qrCodeError.errorCodes, isWhole ? nil : @[ @"0" ]);
        EXPECT(!isWhole || unitsOf(response.qrCodeData.merchantName) == units);
        explainsSurrogates(payload, isWhole);
    }
}

static void hasCharacterSets() {
    const struct {
        UTF32Char character;
        NSString* sets;  // n: numeric, u: united with "*", s: alphanumeric and white space
    } rows[] = {{'/', @""},      {'0', @"nus"},    {'9', @"nus"},  {':', @""},    {0x0660, @"us"},
                {0xFF19, @"us"}, {0x1D7CE, @"us"}, {'z', @"us"},   {0xE9, @"us"}, {0x0301, @"us"},
                {' ', @"s"},     {'\t', @"s"},     {0x2003, @"s"}, {'\n', @""},   {'*', @"u"}};
    NSCharacterSet* star = [NSCharacterSet characterSetWithCharactersInString:@"*"];
    NSMutableCharacterSet* united = [NSCharacterSet unionAlphaNumericCharacterSetWith:star];
    NSCharacterSet* spaced = [NSCharacterSet alphaNumericWhiteSpaceCharacterSet];
    for (const auto& [character, sets] : rows) {
        const BOOL isNumeric = [[NSCharacterSet numericCharacterSet] longCharacterIsMember:character];
        NSString* got = [NSString stringWithFormat:@"%s%s%s", isNumeric ? "n" : "",
                                                   [united longCharacterIsMember:character] ? "u" : "",
                                                   [spaced longCharacterIsMember:character] ? "s" : ""];
        EXPECT_EQUAL(got, sets);
    }
    [united removeCharactersInString:@"*"];
    EXPECT([star characterIsMember:'*']);
}

static long objectsOfCPlusPlus;

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    void* memory = std::malloc(size);
    objectsOfCPlusPlus += memory != nullptr ? 1 : 0;
    return memory;
}

void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    objectsOfCPlusPlus -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

static long objectsInUse() {
    long count = objectsOfCPlusPlus;
    Class* classes = GSDebugAllocationClassList();
    for (Class* each = classes; *each != Nil; ++each) {
        count += GSDebugAllocationCount(*each);
    }
    NSZoneFree(NSDefaultMallocZone(), classes);
    return count;
}

// Foundation keeps objects of its own in the first round and at times later, but a leak adds one in each.
static void leavesNothingBehind(NSString* name, void (*work)()) {
    constexpr long rounds = 4;
    work();
    const long before = objectsInUse();
    for (int round = 0; round < rounds; ++round) {
        work();
    }
    EXPECT_EQUAL(std::labs(objectsInUse() - before) < rounds ? nil : name, nil);
}

template <void (*work)()>
static void withPool() {
    @autoreleasepool {
        work();
    }
}

int main(int /*argc*/, char** argv) {
    GSDebugAllocationActive(YES);
    @autoreleasepool {
        directory = [NSString stringWithUTF8String:argv[1]];
        [[NSClassFromString(directory) alloc] performSelector:@selector(init)];
#define CASE(work) leavesNothingBehind(@ #work, withPool<work>)
        CASE(rendersRecords);
        CASE(readsPayloadsInBothForms);
        CASE(letsExceptionsOfHandlersPass);
        CASE(takesNil);
        CASE(explainsPayloads);
        CASE(knowsNumbers);
        CASE(keepsWhatItIsGiven);
        CASE(keepsPropertiesApart);
        CASE(keepsTexts);
        CASE(hasCharacterSets);
        leavesNothingBehind(@"needsNoPool", needsNoPool);
    }
    std::printf("%g %s", KorvoQRParserVersionNumber,
                reinterpret_cast<const char*>(KorvoQRParserVersionString));
    return failures == 0 ? 0 : 1;
}
