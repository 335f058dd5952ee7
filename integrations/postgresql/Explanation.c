#include "Explanation.h"

#include <stdint.h>

/* Every getter of a text that needs no index has the same form. */
#define ADD(json, name, getter, part)                   \
    do {                                                \
        size_t size_ = 0;                               \
        const char* const text_ = getter(part, &size_); \
        addText(json, name, text_, size_);              \
    } while (0)

static void addViolation(Json* json, const korvoqr_violation* violation) {
    beginObject(json, NULL);
    ADD(json, "code", korvoqr_violation_code, violation);
    ADD(json, "name", korvoqr_violation_name, violation);
    ADD(json, "meaning", korvoqr_violation_meaning, violation);
    ADD(json, "fact", korvoqr_violation_fact, violation);
    endObject(json);
}

// The members of an element that also one inside tag 62 has.
static void addOuterMembers(Json* json, const korvoqr_element* element) {
    addNumber(json, "offset", korvoqr_element_offset(element));
    ADD(json, "tag", korvoqr_element_tag, element);
    ADD(json, "length", korvoqr_element_length, element);
    ADD(json, "value", korvoqr_element_value, element);
    ADD(json, "meaning", korvoqr_element_meaning, element);
    beginArray(json, "errors");
    for (size_t i = 0; i < korvoqr_element_violation_count(element); ++i) {
        addViolation(json, korvoqr_element_violation(element, i));
    }
    endArray(json);
}

static void addElement(Json* json, const korvoqr_element* element) {
    beginObject(json, NULL);
    addOuterMembers(json, element);
    const size_t count = korvoqr_element_element_count(element);
    if (count > 0) {
        beginArray(json, "elements");
        for (size_t i = 0; i < count; ++i) {
            beginObject(json, NULL);
            addOuterMembers(json, korvoqr_element_element(element, i));
            endObject(json);
        }
        endArray(json);
    }
    endObject(json);
}

static void addRepair(Json* json, const korvoqr_repair* repair) {
    beginObject(json, NULL);
    ADD(json, "payload", korvoqr_repair_payload, repair);
    beginArray(json, "edits");
    for (size_t i = 0; i < korvoqr_repair_edit_count(repair); ++i) {
        const korvoqr_edit* const edit = korvoqr_repair_edit(repair, i);
        beginObject(json, NULL);
        addNumber(json, "offset", korvoqr_edit_offset(edit));
        ADD(json, "from", korvoqr_edit_from, edit);
        ADD(json, "to", korvoqr_edit_to, edit);
        endObject(json);
    }
    endArray(json);
    size_t size = 0;
    const char* const caution = korvoqr_repair_caution(repair, &size);
    addText(json, "caution", size > 0 ? caution : NULL, size);
    endObject(json);
}

static void addFormat(Json* json, int format) {
    switch (format) {
        case KORVOQR_FORMAT_twoDigit:
            addString(json, "format", "two-digit");
            break;
        case KORVOQR_FORMAT_oneCharacter:
            addString(json, "format", "one-character");
            break;
        default:
            addNull(json, "format");
    }
}

static void addAnswer(Json* json, const korvoqr_explanation* explanation) {
    addBoolean(json, "accepted", korvoqr_explanation_is_accepted(explanation));
    beginArray(json, "errorCodes");
    for (size_t i = 0; i < korvoqr_explanation_code_count(explanation); ++i) {
        size_t size = 0;
        const char* const code = korvoqr_explanation_code(explanation, i, &size);
        addText(json, NULL, code, size);
    }
    endArray(json);
}

static void addElements(Json* json, const korvoqr_explanation* explanation) {
    beginArray(json, "elements");
    for (size_t i = 0; i < korvoqr_explanation_element_count(explanation); ++i) {
        addElement(json, korvoqr_explanation_element(explanation, i));
    }
    endArray(json);
    beginArray(json, "absent");
    for (size_t i = 0; i < korvoqr_explanation_missing_count(explanation); ++i) {
        addViolation(json, korvoqr_explanation_missing(explanation, i));
    }
    endArray(json);
}

static void addFault(Json* json, const korvoqr_fault* fault) {
    beginObject(json, "fault");
    ADD(json, "error", korvoqr_fault_error, fault);
    ADD(json, "kind", korvoqr_fault_kind_text, fault);
    addNumber(json, "offset", korvoqr_fault_offset(fault));
    size_t byteOffset = 0;
    if (korvoqr_fault_byte_offset(fault, &byteOffset)) {
        addNumber(json, "byteOffset", byteOffset);
    }
    ADD(json, "tag", korvoqr_fault_tag, fault);
    ADD(json, "reason", korvoqr_fault_reason, fault);
    ADD(json, "before", korvoqr_fault_before, fault);
    ADD(json, "after", korvoqr_fault_after, fault);
    endObject(json);
}

static void addChecksum(Json* json, const korvoqr_checksum* checksum) {
    beginObject(json, "checksum");
    ADD(json, "found", korvoqr_checksum_found, checksum);
    ADD(json, "computed", korvoqr_checksum_computed, checksum);
    addBoolean(json, "matches", korvoqr_checksum_is_matching(checksum));
    endObject(json);
}

static void addCauses(Json* json, const korvoqr_explanation* explanation) {
    beginArray(json, "causes");
    for (size_t i = 0; i < korvoqr_explanation_cause_count(explanation); ++i) {
        size_t size = 0;
        const char* const cause = korvoqr_explanation_cause(explanation, i, &size);
        addText(json, NULL, cause, size);
    }
    endArray(json);
}

static void addRepairs(Json* json, const korvoqr_explanation* explanation) {
    beginArray(json, "repairs");
    for (size_t i = 0; i < korvoqr_explanation_repair_count(explanation); ++i) {
        addRepair(json, korvoqr_explanation_repair(explanation, i));
    }
    endArray(json);
    beginArray(json, "unverified");
    for (size_t i = 0; i < korvoqr_explanation_unverified_count(explanation); ++i) {
        addRepair(json, korvoqr_explanation_unverified(explanation, i));
    }
    endArray(json);
}

void addExplanation(Json* json, const korvoqr_explanation* explanation) {
    ADD(json, "payload", korvoqr_explanation_payload, explanation);
    addFormat(json, korvoqr_explanation_format(explanation));
    addAnswer(json, explanation);
    addElements(json, explanation);
    const korvoqr_fault* const fault = korvoqr_explanation_fault(explanation);
    if (fault != NULL) {
        addFault(json, fault);
    }
    const korvoqr_checksum* const checksum = korvoqr_explanation_checksum(explanation);
    if (checksum != NULL) {
        addChecksum(json, checksum);
    }
    addCauses(json, explanation);
    addRepairs(json, explanation);
}

static void addEmptyArray(Json* json, const char* name) {
    beginArray(json, name);
    endArray(json);
}

void addTooLong(Json* json) {
    addNull(json, "payload");
    addNull(json, "format");
    addBoolean(json, "accepted", false);
    beginArray(json, "errorCodes");
    addString(json, NULL, korvoqr_error_code_text(KORVOQR_ERROR_CODE_malformedTags, NULL));
    endArray(json);
    addEmptyArray(json, "elements");
    addEmptyArray(json, "absent");
    beginObject(json, "fault");
    addNull(json, "error");
    addString(json, "kind", "the payload is too long");
    addNumber(json, "offset", 0);
    addString(json, "tag", "");
    addString(json, "reason", "longer than 1 MiB");
    addString(json, "before", "");
    addString(json, "after", "");
    endObject(json);
    beginArray(json, "causes");
    addString(json, NULL, "The payload is longer than 1 MiB.");
    endArray(json);
    addEmptyArray(json, "repairs");
    addEmptyArray(json, "unverified");
}
