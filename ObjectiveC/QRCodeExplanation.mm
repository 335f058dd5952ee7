#include "Enumerators.h"
#include "Objects.h"
#include "Ownership.h"
#include "Text.h"
#include <KorvoQRParser/Explanation/QRCodeExplanation.h>
#import <KorvoQRParser/ObjectiveC/QRCodeExplanation.h>

#include <cstddef>
#include <optional>
#include <vector>

using korvo::objectivec::arrayFromTexts;
using korvo::objectivec::stringFromText;

static_assert(
    korvo::objectivec::haveSameEnumerators<QRCodeFaultKind, korvo::QRCodeFaultKind>("QRCodeFaultKind"));

namespace korvo::objectivec {

::QRCodeViolation* newObject(const QRCodeViolation& value) NS_RETURNS_RETAINED;
::QRCodeElement* newObject(const QRCodeElement& value) NS_RETURNS_RETAINED;
::QRCodeFault* newObject(const QRCodeFault& value) NS_RETURNS_RETAINED;
::QRCodeChecksum* newObject(const QRCodeChecksum& value) NS_RETURNS_RETAINED;
::QRCodeEdit* newObject(const QRCodeEdit& value) NS_RETURNS_RETAINED;
::QRCodeRepair* newObject(const QRCodeRepair& value) NS_RETURNS_RETAINED;

}  // namespace korvo::objectivec

namespace {

using korvo::objectivec::newObject;

template <typename Value>
NSArray* arrayFrom(const std::vector<Value>& values) {
    NSMutableArray* array = [[NSMutableArray alloc] initWithCapacity:values.size()];
    for (const Value& value : values) {
        id object = newObject(value);
        [array addObject:object];
        KORVO_RELEASE(object);
    }
    return KORVO_AUTORELEASE(array);
}

template <typename Value>
id objectFrom(const Value* value) {
    return value != nullptr ? KORVO_AUTORELEASE(newObject(*value)) : nil;
}

NSNumber* numberFrom(std::optional<std::size_t> number) {
    return number ? [NSNumber numberWithUnsignedInteger:*number] : nil;
}

QRCodeFormat formatFrom(std::optional<korvo::QRCodeFormat> format) {
    if (!format) {
        return QRCodeFormatUnknown;
    }
    switch (*format) {
        case korvo::QRCodeFormat::twoDigit:
            return QRCodeFormatTwoDigit;
        case korvo::QRCodeFormat::oneCharacter:
            return QRCodeFormatOneCharacter;
    }
    return QRCodeFormatUnknown;
}

}  // namespace

// A class around the C++ class with its name. newObject leaves out -init, which does nothing in NSObject, and
// ends the program in these classes.
#define KORVO_CLASS(Class)                                           \
    struct Korvo##Class##Storage {                                   \
        korvo::Class value;                                          \
    };                                                               \
    -(instancetype)init {                                            \
        korvo::objectivec::stopAtInit(#Class, "QRCodeExplainer");    \
    }                                                                \
    -(void)dealloc {                                                 \
        delete _storage;                                             \
        KORVO_SUPER_DEALLOC;                                         \
    }                                                                \
    Class* korvo::objectivec::newObject(const korvo::Class& value) { \
        ::Class* object = [::Class alloc];                           \
        object->_storage = new Korvo##Class##Storage{value};         \
        return object;                                               \
    }
#define KORVO_GETTER(Type, name, from, getter) \
    -(Type)name {                              \
        return from(_storage->value.getter()); \
    }
// Getters have the C++ names, except those that Foundation, UIKit or AppKit use for a result of another type:
// with a text named tag, [sender tag] would no longer compile in a program where sender can be any object.
#define KORVO_RENAMED_TEXT(name, getter) KORVO_GETTER(NSString*, name, stringFromText, getter)
#define KORVO_TEXT(name) KORVO_GETTER(NSString*, name, stringFromText, name)
#define KORVO_TEXTS(name) KORVO_GETTER(NSArray*, name, arrayFromTexts, name)
#define KORVO_OBJECT(Class, name) KORVO_GETTER(Class*, name, objectFrom, name)
#define KORVO_OBJECTS(name) KORVO_GETTER(NSArray*, name, arrayFrom, name)
#define KORVO_VALUE(Type, name) KORVO_GETTER(Type, name, static_cast<Type>, name)

// clang-format off
@implementation QRCodeViolation
KORVO_CLASS(QRCodeViolation)
KORVO_RENAMED_TEXT(errorCode, code)
KORVO_TEXT(name)
KORVO_TEXT(meaning)
KORVO_TEXT(fact)
@end

@implementation QRCodeElement
KORVO_CLASS(QRCodeElement)
KORVO_VALUE(NSUInteger, offset)
KORVO_RENAMED_TEXT(tagField, tag)
KORVO_RENAMED_TEXT(lengthField, length)
KORVO_TEXT(value)
KORVO_TEXT(name)
KORVO_TEXT(meaning)
KORVO_OBJECTS(violations)
KORVO_OBJECTS(elements)
@end

@implementation QRCodeFault
KORVO_CLASS(QRCodeFault)
KORVO_GETTER(QRCodeFaultKind, faultKind, static_cast<QRCodeFaultKind>, kind)
KORVO_TEXT(kindText)
KORVO_RENAMED_TEXT(errorName, error)
KORVO_VALUE(NSUInteger, offset)
KORVO_GETTER(NSNumber*, byteOffset, numberFrom, byteOffset)
KORVO_RENAMED_TEXT(concernedTag, tag)
KORVO_TEXT(reason)
KORVO_TEXT(before)
KORVO_TEXT(after)
@end

@implementation QRCodeChecksum
KORVO_CLASS(QRCodeChecksum)
KORVO_TEXT(found)
KORVO_TEXT(computed)
KORVO_VALUE(BOOL, isMatching)
@end

@implementation QRCodeEdit
KORVO_CLASS(QRCodeEdit)
KORVO_VALUE(NSUInteger, offset)
KORVO_TEXT(from)
KORVO_TEXT(to)
@end

@implementation QRCodeRepair
KORVO_CLASS(QRCodeRepair)
KORVO_TEXT(payload)
KORVO_OBJECTS(edits)
KORVO_TEXT(caution)
@end

@implementation QRCodeExplanation
KORVO_CLASS(QRCodeExplanation)
KORVO_TEXT(payload)
KORVO_TEXT(visible)
KORVO_GETTER(QRCodeFormat, payloadFormat, formatFrom, format)
KORVO_VALUE(BOOL, isAccepted)
KORVO_TEXTS(errorCodes)
KORVO_OBJECTS(elements)
KORVO_OBJECTS(missing)
KORVO_OBJECT(QRCodeFault, fault)
KORVO_OBJECT(QRCodeChecksum, checksum)
KORVO_TEXTS(causes)
KORVO_OBJECTS(repairs)
KORVO_OBJECTS(unverified)
KORVO_TEXT(utf8JSON)
@end
// clang-format on
