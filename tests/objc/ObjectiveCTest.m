// What an application sees of the library: nothing but the one import. Usage: korvo_objc_tests
// DIRECTORY_OF_DATA
#import <KorvoQRParser/KorvoQRParserObjC.h>

#include <malloc.h>
#include <stdio.h>
#include <string.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <valgrind/memcheck.h>

// clang-format off
#define TEXTS(X) \
    X(korvoMerchantID) X(korvoMerchantPAN) X(merchantName) X(merchantCategoryCode) X(cityName) X(countryCode)      \
    X(currencyCode) X(transactionAmount) X(primaryID) X(secondaryID) X(tipAndFeeIndicator) X(convenienceFeeAmount) \
    X(convenienceFeePercentage) X(payloadFormatIndicator) X(pointOfInitiation) X(postalCode) X(masterCardPAN1)     \
    X(masterCardPAN2) X(npciid1) X(npciid2) X(crc) X(tag03) X(tag08) X(tag09) X(tag10) X(tag11) X(tag12) X(tag13)  \
    X(tag14) X(tag15) X(additionalDataField) X(billID) X(mobileNumber) X(storeID) X(loyaltyNumber) X(referenceID)  \
    X(consumerID) X(terminalID) X(purpose) X(additionalConsumerDataRequest) X(addDataMasterCard1)                  \
    X(addDataMasterCard2) X(addDataNpci1) X(addDataNpci2) X(tagSixtyTwo10) X(tagSixtyTwo15) X(tagSixtyTwo16)       \
    X(tagSixtyTwo17) X(tagSixtyTwo18) X(tagSixtyTwo19) X(tagSixtyTwo20) X(tagSixtyTwo21) X(tagSixtyTwo22)          \
    X(primaryIDLength) X(secondaryIDLength)
#define FLAGS(X) \
    X(isPrimaryIDMandatory) X(isSecondaryIDMandatory) X(isBillIDMandatory) X(isMobileNumberMandatory)              \
    X(isStoreIDMandatory) X(isLoyaltyNumberMandatory) X(isReferenceIDMandatory) X(isConsumerIDMandatory)           \
    X(isTerminalIDMandatory) X(isPurposeMandatory) X(isAdditonalConsumerDataRequestMandatory)                      \
    X(isAddDataMasterCard1Mandatory) X(isAddDataMasterCard2Mandatory) X(isAddDataNpci1Mandatory)                   \
    X(isAddDataNpci2Mandatory)
// clang-format on

enum { textCount = 55, flagCount = 15, propertyCount = textCount + flagCount };
#define NAME(name) @ #name,
static NSString* const names[] = {TEXTS(NAME) FLAGS(NAME)};
_Static_assert(sizeof names / sizeof *names == propertyCount, "70 properties");

static int failures;

static void expect(BOOL held, int line, const char* what) {
    if (!held) {
        ++failures;
        fprintf(stderr, "FAILED, line %d: %s\n", line, what);
    }
}
#define EXPECT(condition) expect((condition), __LINE__, #condition)

static void expectEqual(id got, id wanted, int line) {
    if (got != wanted && ![got isEqual:wanted]) {
        ++failures;
        NSLog(@"FAILED, line %d\n  wanted: %@\n  got:    %@", line, wanted, got);
    }
}
#define EXPECT_EQUAL(got, wanted) expectEqual((got), (wanted), __LINE__)

static NSString* full;
static NSString* fullText;
static NSString* fullJSON;

// A payload whose merchant's name is of three characters.
static NSString* payloadOf(NSString* name) {
    return [NSString stringWithFormat:@"0g411111111111111113%@24581236MUMBAI42IN53356", name];
}

static NSMutableString* stringOf(const unichar* units, NSUInteger count) {
    return [[[NSMutableString alloc] initWithBytes:units
                                            length:2 * count
                                          encoding:NSUTF16LittleEndianStringEncoding] autorelease];
}

static NSString* text(const char* utf8) {
    return [NSString stringWithUTF8String:utf8];
}

static NSArray* codesOf(NSString* payload) {
    return [QRCodeParser parseQRDataWithQrCodeString:payload].qrCodeError.errorCodes;
}

static void readsPayloadsInBothForms(void) {
    NSString* rejected = [full stringByReplacingOccurrencesOfString:@"02104" withString:@"02105"];
    for (NSString *payload in [NSArray arrayWithObjects:full, rejected, @"", @"00", nil]) {
        QRCodeParserResponse* response = [QRCodeParser parseQRDataWithQrCodeString:payload];
        __block int calls = 0;
        const int* const onStack = &calls;
        NSThread* thread = [NSThread currentThread];
        [QRCodeParser
            parseQRDataWithQrCodeString:payload
                      completionHandler:^(QRCodeParserResponse* _Nullable answer) {
                        ++calls;
                        EXPECT([NSThread currentThread] == thread);
                        EXPECT((answer.qrCodeData == nil) != (answer.qrCodeError == nil));
                        EXPECT_EQUAL(answer.qrCodeData.description, response.qrCodeData.description);
                        EXPECT_EQUAL(answer.qrCodeError.errorCodes, response.qrCodeError.errorCodes);
                        EXPECT_EQUAL(codesOf(@""), [NSArray arrayWithObject:@"0"]);
                      }];
        EXPECT(calls == 1);
        EXPECT(&calls != onStack);  // copying a block moves its variables
        EXPECT((response.qrCodeData == nil) != (response.qrCodeError == nil));
        EXPECT(response.qrCodeData == response.qrCodeData);
    }
    EXPECT_EQUAL(codesOf(rejected), ([NSArray arrayWithObjects:@"1", @"3", @"48", nil]));
    void (^none)(QRCodeParserResponse* _Nullable) = nil;
    [QRCodeParser parseQRDataWithQrCodeString:full completionHandler:none];
}

// Blocks outlive neither the call nor an exception that they throw.
static void letsExceptionsOfHandlersPass(void) {
    BOOL caught = NO;
    @try {
        [QRCodeParser parseQRDataWithQrCodeString:full
                                completionHandler:^(QRCodeParserResponse* _Nullable response) {
                                  [NSException raise:@"Thrown" format:@"%@", response.qrCodeData.crc];
                                }];
    } @catch (NSException* exception) {
        caught = [exception.name isEqual:@"Thrown"];
    }
    EXPECT(caught);
}

static void rendersRecords(void) {
    QRCodeData* data = [QRCodeParser parseQRDataWithQrCodeString:full].qrCodeData;
    EXPECT_EQUAL(data.description, fullText);
    EXPECT_EQUAL(([NSString stringWithFormat:@"%@", data]), fullText);
    EXPECT_EQUAL(data.jsonOutput, fullJSON);
}

// Each property alone is changed, seen under its own name and no other, and changed back.
static void keepsPropertiesApart(void) {
    QRCodeData* data = [[[QRCodeData alloc] init] autorelease];
    NSNumber* no = [NSNumber numberWithBool:NO];
    NSNumber* yes = [NSNumber numberWithBool:YES];
    for (int i = 0; i < propertyCount; ++i) {
        id values[] = {i < textCount ? (id)names[i] : yes, i < textCount ? (id) @"" : yes,
                       i < textCount ? nil : no};
        for (int step = 0; step < 3; ++step) {
            [data setValue:values[step] forKey:names[i]];
            for (int other = 0; other < propertyCount; ++other) {
                id wanted = other == i ? values[step] : other < textCount ? nil : no;
                EXPECT_EQUAL([data valueForKey:names[other]], wanted);
            }
        }
    }
}

static void settersOfTwoFlagsClearAnIdentifier(void) {
    QRCodeData* data = [[[QRCodeData alloc] init] autorelease];
    data.primaryID = data.secondaryID = data.billID = @"kept";
    data.isPrimaryIDMandatory = NO;
    data.isBillIDMandatory = YES;
    [data setValue:[NSNumber numberWithBool:YES] forKey:@"isSecondaryIDMandatory"];
    EXPECT_EQUAL(data.primaryID, @"kept");
    EXPECT_EQUAL(data.secondaryID, nil);
    EXPECT_EQUAL(data.billID, @"kept");
    data.secondaryID = @"after";
    data.isPrimaryIDMandatory = YES;
    EXPECT_EQUAL(data.primaryID, nil);
    EXPECT_EQUAL(data.secondaryID, @"after");
    data.isSecondaryIDMandatory = YES;
    EXPECT_EQUAL(data.secondaryID, nil);
}

static void copiesTextsWhole(void) {
    // Both byte order marks come first, in turn; then the ends of each length in UTF-8, and NUL.
    unichar units[] = {0xFEFF, 0xFFFE, 0,      0x7F,   0x80,   0x7FF,  0x800,
                       0xD7FF, 0xE000, 0xFFFF, 0xD800, 0xDC00, 0xDBFF, 0xDFFF};
    QRCodeData* data = [[[QRCodeData alloc] init] autorelease];
    for (NSUInteger first = 0; first < 2; ++first) {
        NSMutableString* string = stringOf(units + first, sizeof units / sizeof *units - first);
        data.merchantName = string;
        EXPECT_EQUAL(data.merchantName, string);
        [string deleteCharactersInRange:NSMakeRange(0, 1)];
        EXPECT(data.merchantName.length == string.length + 1);
    }
    NSString* name = stringOf((const unichar[]){0xD83D, 0xDE00, 0, 'b'}, 4);
    EXPECT_EQUAL([QRCodeParser parseQRDataWithQrCodeString:payloadOf(name)].qrCodeData.merchantName, name);
    for (NSUInteger half = 0; half < 2; ++half) {
        name = [NSString stringWithFormat:@"a%Cb", (unichar)(half == 0 ? 0xD83D : 0xDE00)];
        EXPECT(name.length == 3);
        EXPECT_EQUAL(codesOf(payloadOf(name)), [NSArray arrayWithObject:@"0"]);
        data.merchantName = name;
        EXPECT_EQUAL(data.merchantName, stringOf((const unichar[]){'a', 0xFFFD, 'b'}, 3));
    }
    EXPECT_EQUAL(data.jsonOutput, @"");
    NSString* nothing = nil;
    EXPECT_EQUAL(codesOf(nothing), [NSArray arrayWithObject:@"0"]);
}

static void errorsKeepTheirList(void) {
    NSMutableArray* codes = [NSMutableArray arrayWithObjects:@"48", @"1", @"48", @"", nil];
    NSArray* given = [[codes copy] autorelease];
    QRCodeError* error = [[[QRCodeError alloc] initWithErrorCodes:codes] autorelease];
    [codes removeAllObjects];
    EXPECT_EQUAL(error.errorCodes, given);
    EXPECT_EQUAL(error.description, @"48 1 48  ");
    [error setErrorCodes:[NSArray arrayWithObject:@"9"]];
    EXPECT_EQUAL(([NSString stringWithFormat:@"%@", error]), @"9 ");
    error.errorCodes = codes;
    EXPECT_EQUAL(error.errorCodes, [NSArray array]);
    EXPECT_EQUAL(error.description, @"");
}

static void responsesKeepWhatTheyAreGiven(void) {
    QRCodeData* data = [[[QRCodeData alloc] init] autorelease];
    QRCodeError* error = [[[QRCodeError alloc] initWithErrorCodes:[NSArray array]] autorelease];
    QRCodeParserResponse* both = [[[QRCodeParserResponse alloc] initWithQrCodeData:data
                                                                       qrCodeError:error] autorelease];
    EXPECT(both.qrCodeData == data && both.qrCodeError == error);
    QRCodeParserResponse* neither = [[[QRCodeParserResponse alloc] initWithQrCodeData:nil
                                                                          qrCodeError:nil] autorelease];
    EXPECT(neither.qrCodeData == nil && neither.qrCodeError == nil);
}

static void initStopsTheProgram(Class class, const char* message) {
    int ends[2];
    EXPECT(pipe(ends) == 0);
    const pid_t child = fork();
    if (child == 0) {
        const struct rlimit noCore = {0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        dup2(ends[1], STDERR_FILENO);
        [[class alloc] performSelector:@selector(init)];
        _exit(0);
    }
    close(ends[1]);
    char said[256] = "";
    for (size_t at = 0; at < sizeof said - 1;) {
        const ssize_t count = read(ends[0], said + at, sizeof said - 1 - at);
        if (count <= 0) {
            break;
        }
        at += (size_t)count;
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT(WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT);
    EXPECT_EQUAL(text(said), text(message));
}

static void (*const cases[])(void) = {
    readsPayloadsInBothForms, letsExceptionsOfHandlersPass,       rendersRecords,
    keepsPropertiesApart,     settersOfTwoFlagsClearAnIdentifier, copiesTextsWhole,
    errorsKeepTheirList,      responsesKeepWhatTheyAreGiven};

// The form with a handler leaves nothing for a pool.
static void parseWithoutPool(void) {
    static int accepted;
    [QRCodeParser parseQRDataWithQrCodeString:full
                            completionHandler:^(QRCodeParserResponse* _Nullable response) {
                              accepted += response.qrCodeData != nil;
                            }];
    EXPECT(accepted > 0);
}

static unsigned long bytesInUse(void) {
    if (RUNNING_ON_VALGRIND) {
        unsigned long leaked = 0;
        unsigned long dubious = 0;
        unsigned long reachable = 0;
        unsigned long suppressed = 0;
        VALGRIND_DO_QUICK_LEAK_CHECK;
        VALGRIND_COUNT_LEAKS(leaked, dubious, reachable, suppressed);
        return leaked + dubious + reachable + suppressed;
    }
    return mallinfo2().uordblks;
}

static void work(int rounds) {
    for (int round = 0; round < rounds; ++round) {
        @autoreleasepool {
            for (size_t i = 0; i < sizeof cases / sizeof *cases; ++i) {
                cases[i]();
            }
        }
        parseWithoutPool();
    }
}

// Foundation makes objects of its own and keeps them, but not for ever more: a leak takes memory in every
// turn, and 16 bytes at least in every round.
static void leavesNothingBehind(void) {
    const int rounds = RUNNING_ON_VALGRIND ? 2 : 20;
    BOOL grows = YES;
    for (int turn = 0; turn < 5; ++turn) {
        const unsigned long before = bytesInUse();
        work(rounds);
        grows = bytesInUse() >= before + 16UL * (unsigned long)rounds;
    }
    EXPECT(!grows);
}

// A file of the tests' data without the line feed that ends it.
static NSString* contents(const char* directory, NSString* name) {
    NSString* file = [NSString stringWithContentsOfFile:[text(directory) stringByAppendingPathComponent:name]
                                               encoding:NSUTF8StringEncoding
                                                  error:NULL];
    return [file substringToIndex:file.length - 1];
}

int main(int argc, char** argv) {
    @autoreleasepool {
        const char* directory = argc > 1 ? argv[1] : ".";
        full = contents(directory, @"full.payload");
        fullText = [contents(directory, @"full.txt") stringByAppendingString:@"\n"];
        fullJSON = contents(directory, @"full.json");
        EXPECT(KorvoQRParserVersionNumber == 1.0);
        EXPECT(strcmp(KorvoQRParserVersionString, "@(#)PROGRAM:KorvoQRParser  PROJECT:KorvoSDK-1\n") == 0);
        leavesNothingBehind();
        initStopsTheProgram([QRCodeParserResponse class],
                            "KorvoQRParser: initialiser init() of KorvoQRParser.QRCodeParserResponse is not "
                            "implemented; use initWithQrCodeData:qrCodeError:\n");
        initStopsTheProgram(
            [QRCodeError class],
            "KorvoQRParser: initialiser init() of KorvoQRParser.QRCodeError is not implemented; "
            "use initWithErrorCodes:\n");
    }
    printf("%s\n", failures == 0 ? "PASSED" : "FAILED");
    return failures != 0;
}
