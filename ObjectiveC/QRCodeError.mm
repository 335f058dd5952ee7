#include "Enumerators.h"
#include "Objects.h"
#include "Ownership.h"
#include "Text.h"
#include <KorvoQRParser/Validation/KorvoErrorConstants.h>

#include <string>
#include <utility>
#include <vector>

static_assert(korvo::objectivec::haveSameEnumerators<QRCodeErrorCode, korvo::ErrorCode>("QRCodeErrorCode"));

struct KorvoQRCodeErrorStorage {
    std::shared_ptr<korvo::QRCodeError> error;
};

namespace {

std::vector<std::string> codesFromArray(NSArray<NSString*>* array) {
    std::vector<std::string> codes;
    const NSUInteger count = [array count];
    codes.reserve(count);
    for (NSUInteger i = 0; i < count; ++i) {
        codes.push_back(korvo::objectivec::textFromString([array objectAtIndex:i]));
    }
    return codes;
}

const korvo::ErrorCatalogueEntry* entryOf(NSString* code) {
    return korvo::findErrorCatalogueEntry(korvo::objectivec::textFromString(code));
}

}  // namespace

@implementation QRCodeError

- (instancetype)init {
    korvo::objectivec::stopAtInit("QRCodeError", "initWithErrorCodes:");
}

- (instancetype)initWithErrorCodes:(NSArray<NSString*>*)errorCodes {
    self = [super init];
    if (self != nil) {
        _storage =
            new KorvoQRCodeErrorStorage{std::make_shared<korvo::QRCodeError>(codesFromArray(errorCodes))};
    }
    return self;
}

- (void)dealloc {
    delete _storage;
    KORVO_SUPER_DEALLOC;
}

- (NSArray<NSString*>*)errorCodes {
    return korvo::objectivec::arrayFromTexts(_storage->error->errorCodes());
}

- (void)setErrorCodes:(NSArray<NSString*>*)errorCodes {
    _storage->error->setErrorCodes(codesFromArray(errorCodes));
}

+ (NSString*)nameOfErrorCode:(NSString*)code {
    const auto* const entry = entryOf(code);
    return entry != nullptr ? korvo::objectivec::stringFromText(entry->name) : nil;
}

+ (NSString*)meaningOfErrorCode:(NSString*)code {
    const auto* const entry = entryOf(code);
    return entry != nullptr ? korvo::objectivec::stringFromText(entry->meaning) : nil;
}

+ (QRCodeErrorCode)errorCodeFromText:(NSString*)text {
    const auto code = korvo::errorCodeFromText(korvo::objectivec::textFromString(text));
    return code ? static_cast<QRCodeErrorCode>(*code) : QRCodeErrorCodeUnknown;
}

+ (NSString*)textOfErrorCode:(QRCodeErrorCode)code {
    const auto* const entry = korvo::findErrorCatalogueEntry(std::to_string(code));
    return entry != nullptr ? korvo::objectivec::stringFromText(entry->code) : nil;
}

- (NSString*)description {
    return korvo::objectivec::stringFromText(_storage->error->description());
}

QRCodeError* korvo::objectivec::newQRCodeError(std::shared_ptr<korvo::QRCodeError> error) {
    if (error == nullptr) {
        return nil;
    }
    NSArray<NSString*>* none = [[NSArray alloc] init];
    ::QRCodeError* object = [[::QRCodeError alloc] initWithErrorCodes:none];
    KORVO_RELEASE(none);
    object->_storage->error = std::move(error);
    return object;
}

@end
