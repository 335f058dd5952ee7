#ifndef KORVOQRPARSER_KORVOQRPARSERC_H
#define KORVOQRPARSER_KORVOQRPARSERC_H

/// @file
/// The library for C, and for every language that calls C.
///
///     korvoqr_response* response = korvoqr_parse(scanned, strlen(scanned));
///     size_t size;
///     const char* name = korvoqr_response_text(response, KORVOQR_PROPERTY_merchantName, &size);
///     if (name != NULL) {
///         show(name, size);
///     }
///     korvoqr_response_free(response);
///
/// korvoqr_parse and korvoqr_explain take the text of a scanned QR code and make a handle. All other
/// functions read a handle, or give the names and meanings of properties and codes.
///
/// Names: most getters are called after their handle and their name in C++, so korvoqr_element_offset is
/// QRCodeElement::offset. An enumerator is called after its enumeration and its name in C++, spelled the
/// same: KORVOQR_PROPERTY_merchantName. The getter of such a number is called after the enumeration: a code
/// is a text in korvoqr_violation_code and a number in korvoqr_violation_error_code.
///
/// Texts that go in are a pointer and a size in bytes. Any bytes are allowed, NUL included. A null pointer is
/// the empty text if the size is 0. With another size it is a mistake of the caller: there is no handle then,
/// and no property or code of that name.
///
/// Texts that come out are UTF-8, unless bytes of the payload in them are not. The pointer is returned, and
/// the size in bytes is stored in `*size`; `size` may be null. NUL follows the text and is not counted. A
/// text of a payload, and the payload of a repair, can also contain NUL; then only the size says where it
/// ends. An absent text is a null pointer, and its size is 0; an empty text is not null, and its size is 0. A
/// text belongs to its handle and is valid until the handle is freed; a text that needs no handle is valid
/// for ever.
///
/// Handles: korvoqr_parse, korvoqr_explain and korvoqr_describe return handles that the caller frees. Parts
/// of an explanation belong to it and are not freed. A handle never changes. Any number of threads may read
/// one, and any number may parse and explain at once.
///
/// Nothing fails unless memory runs out. Then a function that makes something returns null, and a later call
/// may succeed. No C++ exception leaves a function. Null in place of a handle or a part is allowed, so
/// results need no check in between: texts and parts are absent then, counts are 0, flags are false, and
/// numbers of enumerations are -1. The same goes for an index beyond a list, and for a number that is no
/// property or code. A pointer that is neither null nor valid is not detected.
///
/// A program that was built with an earlier version runs with a later one: numbers and functions stay, new
/// ones may be added. Numbers of enumerations are passed as int, so one that this header does not know is a
/// value like any other.
///
/// Texts of a payload come from a stranger. They can hold control characters, markup, or characters that
/// reverse the direction of writing; escape them before you show them.

#include <KorvoQRParser/KorvoQRParserExport.h>

// NOLINTBEGIN(modernize-*): this header is C
#include <stdbool.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The version of the library that runs, such as "1.1.0", NUL-terminated.
KORVO_EXPORT const char* korvoqr_version(void);

/// The properties of a record. Their numbers are 0, 1 and so on, in the order of the JSON members; a later
/// version may add some at the end. Each is a text that may be absent, or a flag. A flag says whether the
/// consumer must supply a value that the merchant left open; a primary or secondary identifier that is left
/// open is absent. An accepted payload always has korvoMerchantID, korvoMerchantPAN, merchantName,
/// merchantCategoryCode, cityName, countryCode and currencyCode. Numbers in parentheses are the tag in the
/// two-digit format and, in quotes, in the one-character format. The comments in QRCodeData.h and
/// docs/payload-formats.md say more, such as limits.
///
/// To walk over a record:
///
///     for (int property = 0; property < korvoqr_property_count(); ++property) {
///         size_t size;
///         const char* text = korvoqr_response_text(response, property, &size);
///         if (text != NULL || korvoqr_response_flag(response, property)) {
///             show(korvoqr_property_name(property, NULL), text, size);
///         }
///     }
typedef enum korvoqr_property {
    KORVOQR_PROPERTY_none = -1,                           ///< no property
    KORVOQR_PROPERTY_korvoMerchantID = 0,                 ///< merchant identifier (02; "0")
    KORVOQR_PROPERTY_korvoMerchantPAN = 1,                ///< account number, from the identifier
    KORVOQR_PROPERTY_merchantName = 2,                    ///< merchant name (59; "1")
    KORVOQR_PROPERTY_merchantCategoryCode = 3,            ///< category code (52; "2")
    KORVOQR_PROPERTY_cityName = 4,                        ///< merchant city (60; "3")
    KORVOQR_PROPERTY_countryCode = 5,                     ///< country of ISO 3166-1 (58; "4")
    KORVOQR_PROPERTY_currencyCode = 6,                    ///< currency, a number of ISO 4217 (53; "5")
    KORVOQR_PROPERTY_transactionAmount = 7,               ///< amount to pay (54; "6")
    KORVOQR_PROPERTY_primaryID = 8,                       ///< primary identifier ("7")
    KORVOQR_PROPERTY_secondaryID = 9,                     ///< secondary identifier ("8")
    KORVOQR_PROPERTY_tipAndFeeIndicator = 10,             ///< tip or fee indicator (55; "9")
    KORVOQR_PROPERTY_convenienceFeeAmount = 11,           ///< fixed convenience fee (56; "A")
    KORVOQR_PROPERTY_convenienceFeePercentage = 12,       ///< fee as a percentage (57; "B")
    KORVOQR_PROPERTY_payloadFormatIndicator = 13,         ///< payload format indicator (00)
    KORVOQR_PROPERTY_pointOfInitiation = 14,              ///< point of initiation method (01)
    KORVOQR_PROPERTY_postalCode = 15,                     ///< postal code (61)
    KORVOQR_PROPERTY_masterCardPAN1 = 16,                 ///< account of the MasterCard network (04)
    KORVOQR_PROPERTY_masterCardPAN2 = 17,                 ///< account of the MasterCard network (05)
    KORVOQR_PROPERTY_npciid1 = 18,                        ///< identifier of the NPCI network (06)
    KORVOQR_PROPERTY_npciid2 = 19,                        ///< identifier of the NPCI network (07)
    KORVOQR_PROPERTY_crc = 20,                            ///< checksum (63)
    KORVOQR_PROPERTY_tag03 = 21,                          ///< root tag 03, as received
    KORVOQR_PROPERTY_tag08 = 22,                          ///< root tag 08, as received
    KORVOQR_PROPERTY_tag09 = 23,                          ///< root tag 09, as received
    KORVOQR_PROPERTY_tag10 = 24,                          ///< root tag 10, as received
    KORVOQR_PROPERTY_tag11 = 25,                          ///< root tag 11, as received
    KORVOQR_PROPERTY_tag12 = 26,                          ///< root tag 12, as received
    KORVOQR_PROPERTY_tag13 = 27,                          ///< root tag 13, as received
    KORVOQR_PROPERTY_tag14 = 28,                          ///< root tag 14, as received
    KORVOQR_PROPERTY_tag15 = 29,                          ///< root tag 15, as received
    KORVOQR_PROPERTY_additionalDataField = 30,            ///< additional data field, whole (62)
    KORVOQR_PROPERTY_billID = 31,                         ///< bill number (62/01)
    KORVOQR_PROPERTY_mobileNumber = 32,                   ///< mobile number (62/02)
    KORVOQR_PROPERTY_storeID = 33,                        ///< store identifier (62/03)
    KORVOQR_PROPERTY_loyaltyNumber = 34,                  ///< loyalty number (62/04)
    KORVOQR_PROPERTY_referenceID = 35,                    ///< reference identifier (62/05)
    KORVOQR_PROPERTY_consumerID = 36,                     ///< consumer identifier (62/06)
    KORVOQR_PROPERTY_terminalID = 37,                     ///< terminal identifier (62/07)
    KORVOQR_PROPERTY_purpose = 38,                        ///< purpose (62/08)
    KORVOQR_PROPERTY_additionalConsumerDataRequest = 39,  ///< requested consumer data (62/09)
    KORVOQR_PROPERTY_addDataMasterCard1 = 40,             ///< data of the MasterCard network (62/11)
    KORVOQR_PROPERTY_addDataMasterCard2 = 41,             ///< data of the MasterCard network (62/12)
    KORVOQR_PROPERTY_addDataNpci1 = 42,                   ///< data of the NPCI network (62/13)
    KORVOQR_PROPERTY_addDataNpci2 = 43,                   ///< data of the NPCI network (62/14)
    KORVOQR_PROPERTY_tagSixtyTwo10 = 44,                  ///< 62/10, as received
    KORVOQR_PROPERTY_tagSixtyTwo15 = 45,                  ///< 62/15, as received
    KORVOQR_PROPERTY_tagSixtyTwo16 = 46,                  ///< 62/16, as received
    KORVOQR_PROPERTY_tagSixtyTwo17 = 47,                  ///< 62/17, as received
    KORVOQR_PROPERTY_tagSixtyTwo18 = 48,                  ///< 62/18, as received
    KORVOQR_PROPERTY_tagSixtyTwo19 = 49,                  ///< 62/19, as received
    KORVOQR_PROPERTY_tagSixtyTwo20 = 50,                  ///< 62/20, as received
    KORVOQR_PROPERTY_tagSixtyTwo21 = 51,                  ///< 62/21, as received
    KORVOQR_PROPERTY_tagSixtyTwo22 = 52,                  ///< 62/22, as received
    KORVOQR_PROPERTY_isBillIDMandatory = 53,              ///< flag, for billID
    KORVOQR_PROPERTY_isMobileNumberMandatory = 54,        ///< flag, for mobileNumber
    KORVOQR_PROPERTY_isStoreIDMandatory = 55,             ///< flag, for storeID
    KORVOQR_PROPERTY_isLoyaltyNumberMandatory = 56,       ///< flag, for loyaltyNumber
    KORVOQR_PROPERTY_isReferenceIDMandatory = 57,         ///< flag, for referenceID
    KORVOQR_PROPERTY_isConsumerIDMandatory = 58,          ///< flag, for consumerID
    KORVOQR_PROPERTY_isTerminalIDMandatory = 59,          ///< flag, for terminalID
    KORVOQR_PROPERTY_isPurposeMandatory = 60,             ///< flag, for purpose
    KORVOQR_PROPERTY_isAdditonalConsumerDataRequestMandatory = 61,  ///< flag, never true after a parse
    KORVOQR_PROPERTY_isAddDataMasterCard1Mandatory = 62,            ///< flag, for addDataMasterCard1
    KORVOQR_PROPERTY_isAddDataMasterCard2Mandatory = 63,            ///< flag, for addDataMasterCard2
    KORVOQR_PROPERTY_isAddDataNpci1Mandatory = 64,                  ///< flag, for addDataNpci1
    KORVOQR_PROPERTY_isAddDataNpci2Mandatory = 65,                  ///< flag, for addDataNpci2
    KORVOQR_PROPERTY_isPrimaryIDMandatory = 66,                     ///< flag, for primaryID
    KORVOQR_PROPERTY_isSecondaryIDMandatory = 67,                   ///< flag, for secondaryID
    KORVOQR_PROPERTY_primaryIDLength = 68,                          ///< length announced for primaryID
    KORVOQR_PROPERTY_secondaryIDLength = 69,                        ///< length announced for secondaryID
} korvoqr_property;

/// The number of properties.
KORVO_EXPORT int korvoqr_property_count(void);
/// The property with this name, such as "merchantName"; KORVOQR_PROPERTY_none when there is none.
KORVO_EXPORT int korvoqr_property_named(const char* name, size_t name_size);
/// The name of a property, as in JSON; absent when there is no such property.
KORVO_EXPORT const char* korvoqr_property_name(int property, size_t* size);
/// True for a flag, false for a text.
KORVO_EXPORT bool korvoqr_property_is_flag(int property);

/// The error codes that rules raise. A later version may add some. korvoqr_error_code_meaning says what each
/// one means. The misspelled names are the published ones.
typedef enum korvoqr_error_code {
    KORVOQR_ERROR_CODE_unknown = -1,  ///< no code of the catalogue, or one of a later version
    KORVOQR_ERROR_CODE_malformedTags = 0,
    KORVOQR_ERROR_CODE_merchantIdInvalidStartingDigit = 1,
    KORVOQR_ERROR_CODE_merchantIdInvalidLength = 2,
    KORVOQR_ERROR_CODE_merchantIdInvalidCheckDigit = 3,
    KORVOQR_ERROR_CODE_merchantIdRedundantSequence = 4,
    KORVOQR_ERROR_CODE_merchantIdNotPresent = 5,
    KORVOQR_ERROR_CODE_merchantNameInvalidLengthOrCharacters = 6,
    KORVOQR_ERROR_CODE_merchantNameNotPresent = 7,
    KORVOQR_ERROR_CODE_merchantCategoryCodeInvalidLength = 8,
    KORVOQR_ERROR_CODE_merchantCategoryCodeNotPresent = 9,
    KORVOQR_ERROR_CODE_cityNameInvalidLengthOrCharacters = 10,
    KORVOQR_ERROR_CODE_cityNameNotPresent = 11,
    KORVOQR_ERROR_CODE_countryCodeInvalidLengthOrCharacters = 12,
    KORVOQR_ERROR_CODE_countryCodeNotPresent = 13,
    KORVOQR_ERROR_CODE_currencyCodeInvaidLength = 14,
    KORVOQR_ERROR_CODE_currencyCodeNotPresent = 15,
    KORVOQR_ERROR_CODE_transactionAmountInvalidLength = 16,
    KORVOQR_ERROR_CODE_transactionAmountIncorrectValue = 17,
    KORVOQR_ERROR_CODE_transactionAmountTagPresentWithoutAmountValue = 18,
    KORVOQR_ERROR_CODE_transactionAmountContainsSpecialCharacters = 19,
    KORVOQR_ERROR_CODE_primaryIdInvalidLengthOrCharacters = 20,
    KORVOQR_ERROR_CODE_primaryIdTagPresentWithoutValue = 21,
    KORVOQR_ERROR_CODE_primaryIdInvalidFormat = 23,
    KORVOQR_ERROR_CODE_secondaryIdInvalidLengthOrCharacters = 24,
    KORVOQR_ERROR_CODE_secondaryIdTagPresentWithoutValue = 25,
    KORVOQR_ERROR_CODE_tipAndFeeIndicatorInvalidCriteria = 28,
    KORVOQR_ERROR_CODE_tipAndFeeIndicatorInvalidTagsPresent = 29,
    KORVOQR_ERROR_CODE_tipAndFeeIndicatorTagPresentWithoutValue = 30,
    KORVOQR_ERROR_CODE_convenienceFeeAmountInvalidLength = 31,
    KORVOQR_ERROR_CODE_convenienceFeeAmountIncorrectValue = 32,
    KORVOQR_ERROR_CODE_convenienceFeeAmountContainsSpecialCharacters = 33,
    KORVOQR_ERROR_CODE_convenienceFeeTagPresentWithoutValue = 34,
    KORVOQR_ERROR_CODE_convenienceFeePercentageInvalidLength = 35,
    KORVOQR_ERROR_CODE_convenienceFeePercentageIncorrectValue = 36,
    KORVOQR_ERROR_CODE_convenienceFeePercentageContaintsSpecialCharacters = 37,
    KORVOQR_ERROR_CODE_convenienceFeePercentageTagPresentWithoutValue = 38,
    KORVOQR_ERROR_CODE_convenienceInvalidTagPresent = 39,
    KORVOQR_ERROR_CODE_convenienceFeePercentageInvalidTagPresent = 40,
    KORVOQR_ERROR_CODE_payloadFormatIndicatorInvalidLength = 41,
    KORVOQR_ERROR_CODE_payloadFormatIndicatorInvalidValue = 42,
    KORVOQR_ERROR_CODE_postalCodeIndicatorInvalidLength = 43,
    KORVOQR_ERROR_CODE_additionalDataFieldInvalidLength = 44,
    KORVOQR_ERROR_CODE_additionalDataInformationInvalidLength = 45,
    KORVOQR_ERROR_CODE_additionalConsumerDataInvalidValue = 46,
    KORVOQR_ERROR_CODE_crcInvalidValue = 48,
} korvoqr_error_code;

/// The number of codes in the catalogue.
KORVO_EXPORT size_t korvoqr_error_code_count(void);
/// The code at an index of the catalogue, which is in numeric order but has gaps.
KORVO_EXPORT int korvoqr_error_code_at(size_t index);
/// The code that a text is, such as "48"; KORVOQR_ERROR_CODE_unknown when the catalogue does not have it.
KORVO_EXPORT int korvoqr_error_code_from_text(const char* text, size_t text_size);
/// A code as text: "48".
KORVO_EXPORT const char* korvoqr_error_code_text(int code, size_t* size);
/// A code's published name: "crcInvalidValue".
KORVO_EXPORT const char* korvoqr_error_code_name(int code, size_t* size);
/// A code's meaning: one sentence in plain English.
KORVO_EXPORT const char* korvoqr_error_code_meaning(int code, size_t* size);
/// The tags that a code concerns in the two-digit format: one ("54", or "62/09" inside tag 62), a list
/// ("56, 57"), a range ("62/01-62/08"), "any" for the whole payload, or "-" for none.
KORVO_EXPORT const char* korvoqr_error_code_two_digit_tag(int code, size_t* size);
/// The same for the one-character format.
KORVO_EXPORT const char* korvoqr_error_code_one_character_tag(int code, size_t* size);

/// The letters of a currency (ISO 4217), to show beside an amount: "INR" for the value "356" of
/// KORVOQR_PROPERTY_currencyCode. Absent for a text that the rules accept as no currency.
KORVO_EXPORT const char* korvoqr_currency_alphabetic_code(const char* numeric_code, size_t numeric_code_size,
                                                          size_t* size);

/// The answer to one parse: a record, or the codes of the violated rules.
typedef struct korvoqr_response korvoqr_response;

/// Parses one payload: the text of a scanned QR code as it was read, in UTF-8. Nothing is trimmed. Every text
/// gets an answer, in time linear in its size. A text that cannot be split into elements, and bytes that are
/// not UTF-8, are refused with the single code 0. The payload is not needed after the call. Null if memory
/// runs out; unlike a refused response, null has no codes.
KORVO_EXPORT korvoqr_response* korvoqr_parse(const char* payload, size_t payload_size);
/// Frees a response with its texts. Null is ignored.
KORVO_EXPORT void korvoqr_response_free(korvoqr_response* response);

/// Whether the payload keeps every rule, so that there is a record.
KORVO_EXPORT bool korvoqr_response_is_accepted(const korvoqr_response* response);
/// The number of codes of a refused payload; 0 for an accepted one.
KORVO_EXPORT size_t korvoqr_response_code_count(const korvoqr_response* response);
/// A code as text, such as "48". Each occurs once, in the order in which the rules ran.
KORVO_EXPORT const char* korvoqr_response_code(const korvoqr_response* response, size_t index, size_t* size);
/// The same as a number of korvoqr_error_code.
KORVO_EXPORT int korvoqr_response_error_code(const korvoqr_response* response, size_t index);
/// A text of the record; absent if the payload does not have it, for a flag, and for a refused payload.
KORVO_EXPORT const char* korvoqr_response_text(const korvoqr_response* response, int property, size_t* size);
/// A flag of the record; false for a text, and for a refused payload.
KORVO_EXPORT bool korvoqr_response_flag(const korvoqr_response* response, int property);
/// The record as one JSON object (RFC 8259, UTF-8) on one line: a text is a string or, when absent, null; a
/// flag is true or false. Absent for a refused payload. Made at the first call and kept, like the two below.
KORVO_EXPORT const char* korvoqr_response_json(const korvoqr_response* response, size_t* size);
/// The record as JSON of another form, jsonOutput in C++: a string for each property, on a line of its own,
/// "nil" for an absent text, "true" or "false" for a flag. Empty if a value is not ASCII.
KORVO_EXPORT const char* korvoqr_response_json_output(const korvoqr_response* response, size_t* size);
/// The record as lines "name: value", or the codes of a refused payload, each followed by one space. Nothing
/// is escaped.
KORVO_EXPORT const char* korvoqr_response_description(const korvoqr_response* response, size_t* size);

/// All that is known about a payload, accepted or refused. Offsets and lengths count user-perceived
/// characters (extended grapheme clusters, UAX #29). In sentences (causes, reasons, facts and cautions) texts
/// of the payload are in quotation marks, with controls and unusual blanks as escapes such as `\x1B` or
/// `\u{202E}`; they are still no markup.
typedef struct korvoqr_explanation korvoqr_explanation;
/// A rule that the payload violates. Belongs to an explanation, as do all parts below.
typedef struct korvoqr_violation korvoqr_violation;
/// An element of the payload: a tag, a length and a value.
typedef struct korvoqr_element korvoqr_element;
/// Why a payload cannot be split into elements, as the parser meets it: the symptom, at the first place where
/// splitting fails. The likely causes are often further left.
typedef struct korvoqr_fault korvoqr_fault;
/// The checksum of a payload (CRC-16/CCITT-FALSE): the one that it has, and the one that it should have.
typedef struct korvoqr_checksum korvoqr_checksum;
/// A payload that the parser accepts, made from a refused one by changing its form, never a digit of an
/// identifier, an amount or a fee, or a character of a name. It is a guess about what the merchant meant.
/// Show it to a person who can ask the merchant; no program should apply one by itself.
typedef struct korvoqr_repair korvoqr_repair;
/// A change of the payload: at an offset, a text is replaced with another.
typedef struct korvoqr_edit korvoqr_edit;

/// The formats of a payload.
typedef enum korvoqr_format {
    KORVOQR_FORMAT_unknown = -1,      ///< the first two characters are missing or not UTF-8
    KORVOQR_FORMAT_twoDigit = 0,      ///< tags and lengths of two digits, a checksum at the end
    KORVOQR_FORMAT_oneCharacter = 1,  ///< tags and lengths of one character, no checksum
} korvoqr_format;

/// The kinds of faults that keep a payload from being split into elements. A later version may add some.
typedef enum korvoqr_fault_kind {
    KORVOQR_FAULT_KIND_none = -1,            ///< no fault
    KORVOQR_FAULT_KIND_notText = 0,          ///< bytes that are not UTF-8
    KORVOQR_FAULT_KIND_tooShort = 1,         ///< fewer than two characters
    KORVOQR_FAULT_KIND_wrongLength = 2,      ///< a length that is no number, or not the length of its value
    KORVOQR_FAULT_KIND_endsEarly = 3,        ///< the text ends inside an element
    KORVOQR_FAULT_KIND_repeatedTag = 4,      ///< a tag occurs twice
    KORVOQR_FAULT_KIND_unknownTag = 5,       ///< a tag that the format does not have
    KORVOQR_FAULT_KIND_missingChecksum = 6,  ///< the payload ends without tag 63
    KORVOQR_FAULT_KIND_checksumNotLast = 7,  ///< an element follows tag 63
} korvoqr_fault_kind;

/// Explains one payload, as korvoqr_parse takes it, in time linear in its size. Causes and repairs are
/// guesses. The search for them ends at texts of 8192 bytes; no QR code holds more than 7089 characters. Null
/// if memory runs out. A program that only parses does not link this.
KORVO_EXPORT korvoqr_explanation* korvoqr_explain(const char* payload, size_t payload_size);
/// The same without causes, repairs and unverified repairs. They need a search, so this is much faster for a
/// refused payload.
KORVO_EXPORT korvoqr_explanation* korvoqr_describe(const char* payload, size_t payload_size);
/// Frees an explanation with its texts and parts. Null is ignored.
KORVO_EXPORT void korvoqr_explanation_free(korvoqr_explanation* explanation);

/// Everything below as one JSON object (RFC 8259, UTF-8) on one line, as `korvoqr explain --format json`
/// prints it. Bytes of the payload that are not UTF-8 become U+FFFD; `visible` is a member if there are any.
/// NUL is written as `\u0000`, and can be in a repair of a payload without it. Made at the first call and
/// kept.
KORVO_EXPORT const char* korvoqr_explanation_json(const korvoqr_explanation* explanation, size_t* size);
/// The payload, byte for byte.
KORVO_EXPORT const char* korvoqr_explanation_payload(const korvoqr_explanation* explanation, size_t* size);
/// The same as UTF-8: bytes that are not UTF-8 are written as `\xHH`. If there are any, backslashes are
/// doubled; otherwise it is the payload. Controls and direction marks stay as they are. Made at the first
/// call and kept.
KORVO_EXPORT const char* korvoqr_explanation_visible(const korvoqr_explanation* explanation, size_t* size);
/// The bytes of the payload before the character at an offset, to mark a place in the text: of an element, of
/// the fault, of a change. Beyond the last character, all bytes; beyond the first byte that is not UTF-8,
/// those before it. Reads the payload up to the place on every call.
KORVO_EXPORT size_t korvoqr_explanation_byte_offset(const korvoqr_explanation* explanation, size_t offset);
/// The format, a number of korvoqr_format.
KORVO_EXPORT int korvoqr_explanation_format(const korvoqr_explanation* explanation);
/// Whether the parser accepts the payload.
KORVO_EXPORT bool korvoqr_explanation_is_accepted(const korvoqr_explanation* explanation);
/// The number of codes; 0 for an accepted payload.
KORVO_EXPORT size_t korvoqr_explanation_code_count(const korvoqr_explanation* explanation);
/// A code as text, as korvoqr_response_code gives it.
KORVO_EXPORT const char* korvoqr_explanation_code(const korvoqr_explanation* explanation, size_t index,
                                                  size_t* size);
/// The same as a number of korvoqr_error_code.
KORVO_EXPORT int korvoqr_explanation_error_code(const korvoqr_explanation* explanation, size_t index);
/// The number of elements.
KORVO_EXPORT size_t korvoqr_explanation_element_count(const korvoqr_explanation* explanation);
/// An element, in the order of the payload, also one that the record does not keep. If the payload cannot be
/// split, those before the fault.
KORVO_EXPORT const korvoqr_element* korvoqr_explanation_element(const korvoqr_explanation* explanation,
                                                                size_t index);
/// The number of violated rules about elements that are missing.
KORVO_EXPORT size_t korvoqr_explanation_missing_count(const korvoqr_explanation* explanation);
/// A violated rule about an element that is missing.
KORVO_EXPORT const korvoqr_violation* korvoqr_explanation_missing(const korvoqr_explanation* explanation,
                                                                  size_t index);
/// Why the payload cannot be split; null if it can.
KORVO_EXPORT const korvoqr_fault* korvoqr_explanation_fault(const korvoqr_explanation* explanation);
/// The checksum; null without four characters of UTF-8 at the end and something before them. A text that is
/// not in the two-digit format has one only if it cannot be split and contains 6304.
KORVO_EXPORT const korvoqr_checksum* korvoqr_explanation_checksum(const korvoqr_explanation* explanation);
/// The number of causes: 0 for an accepted payload, at least 1 for a refused one, unless korvoqr_describe
/// made the explanation.
KORVO_EXPORT size_t korvoqr_explanation_cause_count(const korvoqr_explanation* explanation);
/// What probably happened, the likeliest first: a sentence for a person.
KORVO_EXPORT const char* korvoqr_explanation_cause(const korvoqr_explanation* explanation, size_t index,
                                                   size_t* size);
/// The number of repairs that the written checksum vouches for.
KORVO_EXPORT size_t korvoqr_explanation_repair_count(const korvoqr_explanation* explanation);
/// A repair that the written checksum vouches for, the likeliest first. None changes how an identifier, an
/// amount or a fee reads.
KORVO_EXPORT const korvoqr_repair* korvoqr_explanation_repair(const korvoqr_explanation* explanation,
                                                              size_t index);
/// The number of all other repairs.
KORVO_EXPORT size_t korvoqr_explanation_unverified_count(const korvoqr_explanation* explanation);
/// Another repair, the likeliest first, with a caution.
KORVO_EXPORT const korvoqr_repair* korvoqr_explanation_unverified(const korvoqr_explanation* explanation,
                                                                  size_t index);

/// The code as text, as korvoqr_response_code gives it.
KORVO_EXPORT const char* korvoqr_violation_code(const korvoqr_violation* violation, size_t* size);
/// The same as a number of korvoqr_error_code.
KORVO_EXPORT int korvoqr_violation_error_code(const korvoqr_violation* violation);
/// The code's published name.
KORVO_EXPORT const char* korvoqr_violation_name(const korvoqr_violation* violation, size_t* size);
/// The code's meaning, one sentence in plain English.
KORVO_EXPORT const char* korvoqr_violation_meaning(const korvoqr_violation* violation, size_t* size);
/// What was found, and what the rule wants: "28 characters, at most 25". Empty if the meaning says it all.
KORVO_EXPORT const char* korvoqr_violation_fact(const korvoqr_violation* violation, size_t* size);

/// The characters before the element in the payload.
KORVO_EXPORT size_t korvoqr_element_offset(const korvoqr_element* element);
/// The tag as written, such as "59", or "a" in the one-character format.
KORVO_EXPORT const char* korvoqr_element_tag(const korvoqr_element* element, size_t* size);
/// The length field as written, such as "10", or "c" in the one-character format.
KORVO_EXPORT const char* korvoqr_element_length(const korvoqr_element* element, size_t* size);
/// The value as written; it can be empty in the one-character format only.
KORVO_EXPORT const char* korvoqr_element_value(const korvoqr_element* element, size_t* size);
/// The tag as the catalogue of codes writes it: "59", "A", or "62/01" inside tag 62.
KORVO_EXPORT const char* korvoqr_element_name(const korvoqr_element* element, size_t* size);
/// What the tag is for, in a few words; "Not kept" for the root tags that the record does not have.
KORVO_EXPORT const char* korvoqr_element_meaning(const korvoqr_element* element, size_t* size);
/// The number of rules that this element violates.
KORVO_EXPORT size_t korvoqr_element_violation_count(const korvoqr_element* element);
/// A rule that this element violates, in the order of the codes.
KORVO_EXPORT const korvoqr_violation* korvoqr_element_violation(const korvoqr_element* element, size_t index);
/// The number of elements inside tag 62; 0 for every other tag.
KORVO_EXPORT size_t korvoqr_element_element_count(const korvoqr_element* element);
/// An element inside tag 62.
KORVO_EXPORT const korvoqr_element* korvoqr_element_element(const korvoqr_element* element, size_t index);

/// The kind of fault, a number of korvoqr_fault_kind.
KORVO_EXPORT int korvoqr_fault_fault_kind(const korvoqr_fault* fault);
/// The kind in plain words: "a length is wrong".
KORVO_EXPORT const char* korvoqr_fault_kind_text(const korvoqr_fault* fault, size_t* size);
/// The decoder's name for it: "InvalidLength", "InvalidTagLength", "RepeatedTag" or "InvalidTag".
KORVO_EXPORT const char* korvoqr_fault_error(const korvoqr_fault* fault, size_t* size);
/// The characters before the fault in the payload.
KORVO_EXPORT size_t korvoqr_fault_offset(const korvoqr_fault* fault);
/// True if the fault is bytes that are not UTF-8. Then the bytes before the fault are counted in
/// `*byte_offset`; otherwise that becomes 0. `byte_offset` may be null.
KORVO_EXPORT bool korvoqr_fault_byte_offset(const korvoqr_fault* fault, size_t* byte_offset);
/// The tag concerned, as korvoqr_element_name writes it; for an unknown tag, the tag as written. Empty if the
/// fault is not about a tag.
KORVO_EXPORT const char* korvoqr_fault_tag(const korvoqr_fault* fault, size_t* size);
/// One sentence without a full stop, in plain English.
KORVO_EXPORT const char* korvoqr_fault_reason(const korvoqr_fault* fault, size_t* size);
/// The piece of the payload before the fault, at most 36 bytes.
KORVO_EXPORT const char* korvoqr_fault_before(const korvoqr_fault* fault, size_t* size);
/// The piece of the payload that begins at the fault, 24 bytes or a little more. No code point is cut.
KORVO_EXPORT const char* korvoqr_fault_after(const korvoqr_fault* fault, size_t* size);

/// The value of tag 63. If the payload cannot be split, its last four characters.
KORVO_EXPORT const char* korvoqr_checksum_found(const korvoqr_checksum* checksum, size_t* size);
/// The checksum of the text as it stands, four hexadecimal digits in upper case. It covers everything except
/// the last four characters; if tag 63 does not have four, everything before tag 63 and "6304".
KORVO_EXPORT const char* korvoqr_checksum_computed(const korvoqr_checksum* checksum, size_t* size);
/// Whether the last four characters are the checksum of the text before them, in either letter case.
KORVO_EXPORT bool korvoqr_checksum_is_matching(const korvoqr_checksum* checksum);

/// The complete payload.
KORVO_EXPORT const char* korvoqr_repair_payload(const korvoqr_repair* repair, size_t* size);
/// The number of edits.
KORVO_EXPORT size_t korvoqr_repair_edit_count(const korvoqr_repair* repair);
/// A change, in the order of the offsets. Changes do not overlap. A moved element is deleted at one place and
/// inserted at another.
KORVO_EXPORT const korvoqr_edit* korvoqr_repair_edit(const korvoqr_repair* repair, size_t index);
/// What to check before anybody pays: sentences with the identifier, the amount and the fee as they read
/// before and after. Empty if the written checksum vouches for the repair.
KORVO_EXPORT const char* korvoqr_repair_caution(const korvoqr_repair* repair, size_t* size);

/// The characters of the original payload before the change.
KORVO_EXPORT size_t korvoqr_edit_offset(const korvoqr_edit* edit);
/// The text of the original, whole characters; empty for an insertion.
KORVO_EXPORT const char* korvoqr_edit_from(const korvoqr_edit* edit, size_t* size);
/// The text in its place; empty for a deletion.
KORVO_EXPORT const char* korvoqr_edit_to(const korvoqr_edit* edit, size_t* size);

#ifdef __cplusplus
}
#endif
// NOLINTEND(modernize-*)

#endif
