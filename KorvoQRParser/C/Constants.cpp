#include <KorvoQRParser/C/Text.h>
#include <KorvoQRParser/KorvoQRParserC.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>
#include <KorvoQRParser/Validation/CurrencyCodes.h>
#include <KorvoQRParser/Validation/KorvoErrorConstants.h>

#include <cstddef>
#include <optional>
#include <string_view>

using namespace korvo;

// The header for C writes out the numbers that C++ makes from its lists.
#define KORVO_CHECK(name, Name) \
    static_assert(KORVOQR_PROPERTY_##name == static_cast<int>(QRCodeDataProperty::name));
KORVO_QRCODEDATA_PROPERTIES(KORVO_CHECK, KORVO_CHECK)
#undef KORVO_CHECK
#define KORVO_CHECK(constant, code, twoDigitTag, oneCharacterTag, meaning) \
    static_assert(KORVOQR_ERROR_CODE_##constant == static_cast<int>(ErrorCode::constant));
KORVO_ERROR_CATALOGUE(KORVO_CHECK)
#undef KORVO_CHECK

namespace {

// Null for a number that is no code of the catalogue.
const ErrorCatalogueEntry* entryOf(int number) {
    const auto code = static_cast<ErrorCode>(number);  // cut off if it is too large
    return static_cast<int>(code) == number ? findErrorCatalogueEntry(code) : nullptr;
}

const char* passMember(int code, std::string_view ErrorCatalogueEntry::*member, std::size_t* size) {
    const ErrorCatalogueEntry* const entry = entryOf(code);
    return c::pass(entry == nullptr ? std::string_view() : entry->*member, size);
}

}  // namespace

const char* korvoqr_version() {
    return KORVOQR_VERSION;
}

int korvoqr_property_count() {
    return static_cast<int>(qrCodeDataProperties.size());
}

int korvoqr_property_named(const char* name, size_t name_size) {
    const auto property = c::isText(name, name_size) ? propertyNamed({name, name_size}) : std::nullopt;
    return property ? static_cast<int>(*property) : KORVOQR_PROPERTY_none;
}

const char* korvoqr_property_name(int property, size_t* size) {
    const QRCodeDataPropertyRow* const row = c::propertyRowAt(property);
    return c::pass(row == nullptr ? std::string_view() : row->name, size);
}

bool korvoqr_property_is_flag(int property) {
    const QRCodeDataPropertyRow* const row = c::propertyRowAt(property);
    return row != nullptr && row->isFlag;
}

size_t korvoqr_error_code_count() {
    return errorCatalogue.size();
}

int korvoqr_error_code_at(size_t index) {
    return index < errorCatalogue.size() ? detail::codeNumber(errorCatalogue[index].code)
                                         : KORVOQR_ERROR_CODE_unknown;
}

int korvoqr_error_code_from_text(const char* text, size_t text_size) {
    const auto code = c::isText(text, text_size) ? errorCodeFromText({text, text_size}) : std::nullopt;
    return code ? static_cast<int>(*code) : KORVOQR_ERROR_CODE_unknown;
}

const char* korvoqr_error_code_text(int code, size_t* size) {
    return passMember(code, &ErrorCatalogueEntry::code, size);
}

const char* korvoqr_error_code_name(int code, size_t* size) {
    return passMember(code, &ErrorCatalogueEntry::name, size);
}

const char* korvoqr_error_code_meaning(int code, size_t* size) {
    return passMember(code, &ErrorCatalogueEntry::meaning, size);
}

const char* korvoqr_error_code_two_digit_tag(int code, size_t* size) {
    return passMember(code, &ErrorCatalogueEntry::twoDigitTag, size);
}

const char* korvoqr_error_code_one_character_tag(int code, size_t* size) {
    return passMember(code, &ErrorCatalogueEntry::oneCharacterTag, size);
}

const char* korvoqr_currency_alphabetic_code(const char* numeric_code, size_t numeric_code_size,
                                             size_t* size) {
    const bool isText = c::isText(numeric_code, numeric_code_size);
    const auto letters =
        isText ? alphabeticCurrencyCode({numeric_code, numeric_code_size}) : std::string_view();
    return c::pass(letters, size);
}
