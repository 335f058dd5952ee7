#include "Enumerators.h"
#include "Objects.h"
#include "Ownership.h"
#include "Text.h"
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <utility>

using korvo::objectivec::stringFromText;
using korvo::objectivec::textFromString;

static_assert(korvo::objectivec::haveSameEnumerators<QRCodeDataProperty, korvo::QRCodeDataProperty>(
    "QRCodeDataProperty"));

struct KorvoQRCodeDataStorage {
    std::shared_ptr<korvo::QRCodeData> record;
};

// A method without a declaration in the header compiles. Its use before the implementation does not.
#define KORVO_USE(name, Name) data.name = other.name;
// clang-format off
[[maybe_unused]] static void useEveryProperty(QRCodeData* data, QRCodeData* other) {
    KORVO_QRCODEDATA_PROPERTIES(KORVO_USE, KORVO_USE)
}
// clang-format on
#undef KORVO_USE

// Null for a number that is no property.
static const korvo::QRCodeDataPropertyRow* rowOf(QRCodeDataProperty property) {
    const auto place = static_cast<std::size_t>(property);
    return place < korvo::qrCodeDataProperties.size() ? &korvo::qrCodeDataProperties[place] : nullptr;
}

@implementation QRCodeData

- (instancetype)init {
    self = [super init];
    if (self != nil) {
        _storage = new KorvoQRCodeDataStorage{std::make_shared<korvo::QRCodeData>()};
    }
    return self;
}

- (void)dealloc {
    delete _storage;
    KORVO_SUPER_DEALLOC;
}

- (NSString*)jsonOutput {
    return stringFromText(_storage->record->jsonOutput());
}

- (NSString*)utf8JSON {
    return stringFromText(_storage->record->utf8JSON());
}

+ (NSArray<NSString*>*)propertyNames {
    NSMutableArray<NSString*>* names = [NSMutableArray array];
    for (const korvo::QRCodeDataPropertyRow& row : korvo::qrCodeDataProperties) {
        [names addObject:stringFromText(row.name)];
    }
    return names;
}

- (NSString*)textOfProperty:(QRCodeDataProperty)property {
    const auto* const row = rowOf(property);
    const auto text = row != nullptr ? _storage->record->text(row->index) : std::nullopt;
    return text ? stringFromText(*text) : nil;
}

- (BOOL)flagOfProperty:(QRCodeDataProperty)property {
    const auto* const row = rowOf(property);
    return row != nullptr && _storage->record->flag(row->index) ? YES : NO;
}

+ (NSString*)nameOfProperty:(QRCodeDataProperty)property {
    const auto* const row = rowOf(property);
    return row != nullptr ? stringFromText(row->name) : nil;
}

+ (BOOL)isFlagProperty:(QRCodeDataProperty)property {
    const auto* const row = rowOf(property);
    return row != nullptr && row->isFlag ? YES : NO;
}

- (NSString*)description {
    return stringFromText(_storage->record->description());
}

#define KORVO_TEXT(name, Name)                                                                           \
    -(NSString*)name {                                                                                   \
        const auto& text = _storage->record->name();                                                     \
        return text ? stringFromText(*text) : nil;                                                       \
    }                                                                                                    \
    -(void)set##Name : (NSString*)value {                                                                \
        _storage->record->set##Name(value == nil ? std::nullopt : std::optional(textFromString(value))); \
    }
#define KORVO_FLAG(name, Name)                    \
    -(BOOL)name {                                 \
        return _storage->record->name();          \
    }                                             \
    -(void)set##Name : (BOOL)value {              \
        _storage->record->set##Name(value != NO); \
    }

KORVO_QRCODEDATA_PROPERTIES(KORVO_TEXT, KORVO_FLAG)

#undef KORVO_FLAG
#undef KORVO_TEXT

QRCodeData* korvo::objectivec::newQRCodeData(std::shared_ptr<korvo::QRCodeData> record) {
    if (record == nullptr) {
        return nil;
    }
    ::QRCodeData* data = [[::QRCodeData alloc] init];
    data->_storage->record = std::move(record);
    return data;
}

@end
