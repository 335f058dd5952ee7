#include <KorvoQRParser/C/Text.h>
#include <KorvoQRParser/Explanation/QRCodeExplainer.h>
#include <KorvoQRParser/Explanation/QRCodeExplanation.h>
#include <KorvoQRParser/KorvoQRParserC.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

using namespace korvo;

struct korvoqr_explanation {
    QRCodeExplanation explanation;
    c::KeptText visible;
    c::KeptText json;
};

namespace {

const QRCodeExplanation* toCpp(const korvoqr_explanation* handle) {
    return handle == nullptr ? nullptr : &handle->explanation;
}

// A part for C is the C++ object itself, which the explanation owns. C never sees inside.
#define KORVO_PART(Handle, Class)                             \
    [[maybe_unused]] const Class* toCpp(const Handle* part) { \
        return reinterpret_cast<const Class*>(part);          \
    }                                                         \
    const Handle* toC(const Class* part) {                    \
        return reinterpret_cast<const Handle*>(part);         \
    }
KORVO_PART(korvoqr_violation, QRCodeViolation)
KORVO_PART(korvoqr_element, QRCodeElement)
KORVO_PART(korvoqr_fault, QRCodeFault)
KORVO_PART(korvoqr_checksum, QRCodeChecksum)
KORVO_PART(korvoqr_repair, QRCodeRepair)
KORVO_PART(korvoqr_edit, QRCodeEdit)
#undef KORVO_PART

korvoqr_explanation* handleOf(QRCodeExplanation (*explain)(std::string_view), const char* payload,
                              std::size_t size) {
    if (!c::isText(payload, size)) {
        return nullptr;
    }
    try {
        return new korvoqr_explanation{explain({payload, size}), {}, {}};
    } catch (...) {
        return nullptr;
    }
}

std::string_view codeAt(const korvoqr_explanation* explanation, std::size_t index) {
    return explanation == nullptr ? std::string_view()
                                  : c::textAt(explanation->explanation.errorCodes(), index);
}

// A new kind does not compile without warning until C has it too.
int numberOf(QRCodeFaultKind kind) {
    switch (kind) {
#define KORVO_KIND(name)        \
    case QRCodeFaultKind::name: \
        return KORVOQR_FAULT_KIND_##name;
        KORVO_KIND(notText)
        KORVO_KIND(tooShort)
        KORVO_KIND(wrongLength)
        KORVO_KIND(endsEarly)
        KORVO_KIND(repeatedTag)
        KORVO_KIND(unknownTag)
        KORVO_KIND(missingChecksum)
        KORVO_KIND(checksumNotLast)
#undef KORVO_KIND
    }
    return KORVOQR_FAULT_KIND_none;
}

int numberOf(QRCodeFormat format) {
    switch (format) {
        case QRCodeFormat::twoDigit:
            return KORVOQR_FORMAT_twoDigit;
        case QRCodeFormat::oneCharacter:
            return KORVOQR_FORMAT_oneCharacter;
    }
    return KORVOQR_FORMAT_unknown;
}

}  // namespace

korvoqr_explanation* korvoqr_explain(const char* payload, size_t payload_size) {
    return handleOf(QRCodeExplainer::explainQRData, payload, payload_size);
}

korvoqr_explanation* korvoqr_describe(const char* payload, size_t payload_size) {
    return handleOf(QRCodeExplainer::describeQRData, payload, payload_size);
}

void korvoqr_explanation_free(korvoqr_explanation* explanation) {
    const std::unique_ptr<korvoqr_explanation> owned(explanation);
}

const char* korvoqr_explanation_json(const korvoqr_explanation* explanation, size_t* size) {
    return c::pass(explanation == nullptr ? std::string_view() : explanation->json.get([&] {
        return explanation->explanation.utf8JSON();
    }),
                   size);
}

const char* korvoqr_explanation_visible(const korvoqr_explanation* explanation, size_t* size) {
    return c::pass(explanation == nullptr ? std::string_view() : explanation->visible.get([&] {
        return explanation->explanation.visible();
    }),
                   size);
}

size_t korvoqr_explanation_byte_offset(const korvoqr_explanation* explanation, size_t offset) {
    return explanation == nullptr ? 0 : explanation->explanation.byteOffset(offset);
}

int korvoqr_explanation_format(const korvoqr_explanation* explanation) {
    const auto format = explanation == nullptr ? std::nullopt : explanation->explanation.format();
    return format ? numberOf(*format) : KORVOQR_FORMAT_unknown;
}

const char* korvoqr_explanation_code(const korvoqr_explanation* explanation, size_t index, size_t* size) {
    return c::pass(codeAt(explanation, index), size);
}

int korvoqr_explanation_error_code(const korvoqr_explanation* explanation, size_t index) {
    const std::string_view code = codeAt(explanation, index);
    return korvoqr_error_code_from_text(code.data(), code.size());
}

const char* korvoqr_explanation_cause(const korvoqr_explanation* explanation, size_t index, size_t* size) {
    return c::pass(
        explanation == nullptr ? std::string_view() : c::textAt(explanation->explanation.causes(), index),
        size);
}

const korvoqr_fault* korvoqr_explanation_fault(const korvoqr_explanation* explanation) {
    return explanation == nullptr ? nullptr : toC(explanation->explanation.fault());
}

const korvoqr_checksum* korvoqr_explanation_checksum(const korvoqr_explanation* explanation) {
    return explanation == nullptr ? nullptr : toC(explanation->explanation.checksum());
}

int korvoqr_violation_error_code(const korvoqr_violation* violation) {
    size_t size = 0;
    const char* const code = korvoqr_violation_code(violation, &size);
    return korvoqr_error_code_from_text(code, size);
}

int korvoqr_fault_fault_kind(const korvoqr_fault* fault) {
    return fault == nullptr ? KORVOQR_FAULT_KIND_none : numberOf(toCpp(fault)->kind());
}

bool korvoqr_fault_byte_offset(const korvoqr_fault* fault, size_t* byte_offset) {
    const auto offset = fault == nullptr ? std::nullopt : toCpp(fault)->byteOffset();
    if (byte_offset != nullptr) {
        *byte_offset = offset.value_or(0);
    }
    return offset.has_value();
}

// The other getters are alike: the function for C, its handle, the getter in C++.
#define KORVO_TEXT(function, Handle, getter)                                                    \
    const char* function(const Handle* handle, size_t* size) {                                  \
        return c::pass(handle == nullptr ? std::string_view() : toCpp(handle)->getter(), size); \
    }
#define KORVO_VALUE(Type, function, Handle, getter) \
    Type function(const Handle* handle) {           \
        if (handle == nullptr) {                    \
            return {};                              \
        }                                           \
        return toCpp(handle)->getter();             \
    }
#define KORVO_COUNT(function, Handle, getter)                          \
    size_t function(const Handle* handle) {                            \
        return handle == nullptr ? 0 : toCpp(handle)->getter().size(); \
    }
#define KORVO_LIST(function, Handle, Part, getter)                                       \
    KORVO_COUNT(function##_count, Handle, getter)                                        \
    const Part* function(const Handle* handle, size_t index) {                           \
        return handle == nullptr ? nullptr : toC(c::at(toCpp(handle)->getter(), index)); \
    }

// clang-format off
KORVO_TEXT(korvoqr_explanation_payload, korvoqr_explanation, payload)
KORVO_VALUE(bool, korvoqr_explanation_is_accepted, korvoqr_explanation, isAccepted)
KORVO_COUNT(korvoqr_explanation_code_count, korvoqr_explanation, errorCodes)
KORVO_LIST(korvoqr_explanation_element, korvoqr_explanation, korvoqr_element, elements)
KORVO_LIST(korvoqr_explanation_missing, korvoqr_explanation, korvoqr_violation, missing)
KORVO_COUNT(korvoqr_explanation_cause_count, korvoqr_explanation, causes)
KORVO_LIST(korvoqr_explanation_repair, korvoqr_explanation, korvoqr_repair, repairs)
KORVO_LIST(korvoqr_explanation_unverified, korvoqr_explanation, korvoqr_repair, unverified)

KORVO_TEXT(korvoqr_violation_code, korvoqr_violation, code)
KORVO_TEXT(korvoqr_violation_name, korvoqr_violation, name)
KORVO_TEXT(korvoqr_violation_meaning, korvoqr_violation, meaning)
KORVO_TEXT(korvoqr_violation_fact, korvoqr_violation, fact)

KORVO_VALUE(size_t, korvoqr_element_offset, korvoqr_element, offset)
KORVO_TEXT(korvoqr_element_tag, korvoqr_element, tag)
KORVO_TEXT(korvoqr_element_length, korvoqr_element, length)
KORVO_TEXT(korvoqr_element_value, korvoqr_element, value)
KORVO_TEXT(korvoqr_element_name, korvoqr_element, name)
KORVO_TEXT(korvoqr_element_meaning, korvoqr_element, meaning)
KORVO_LIST(korvoqr_element_violation, korvoqr_element, korvoqr_violation, violations)
KORVO_LIST(korvoqr_element_element, korvoqr_element, korvoqr_element, elements)

KORVO_TEXT(korvoqr_fault_kind_text, korvoqr_fault, kindText)
KORVO_TEXT(korvoqr_fault_error, korvoqr_fault, error)
KORVO_VALUE(size_t, korvoqr_fault_offset, korvoqr_fault, offset)
KORVO_TEXT(korvoqr_fault_tag, korvoqr_fault, tag)
KORVO_TEXT(korvoqr_fault_reason, korvoqr_fault, reason)
KORVO_TEXT(korvoqr_fault_before, korvoqr_fault, before)
KORVO_TEXT(korvoqr_fault_after, korvoqr_fault, after)

KORVO_TEXT(korvoqr_checksum_found, korvoqr_checksum, found)
KORVO_TEXT(korvoqr_checksum_computed, korvoqr_checksum, computed)
KORVO_VALUE(bool, korvoqr_checksum_is_matching, korvoqr_checksum, isMatching)

KORVO_TEXT(korvoqr_repair_payload, korvoqr_repair, payload)
KORVO_LIST(korvoqr_repair_edit, korvoqr_repair, korvoqr_edit, edits)
KORVO_TEXT(korvoqr_repair_caution, korvoqr_repair, caution)

KORVO_VALUE(size_t, korvoqr_edit_offset, korvoqr_edit, offset)
KORVO_TEXT(korvoqr_edit_from, korvoqr_edit, from)
KORVO_TEXT(korvoqr_edit_to, korvoqr_edit, to)
// clang-format on
