#include <KorvoQRParser/KorvoQRParserC.h>

#include <stdio.h>
#include <string.h>

static void print(const char* text, size_t size) {
    fwrite(text, 1, size, stdout);
    putchar('\n');
}

static void print_record(const korvoqr_response* response) {
    for (int property = 0; property < korvoqr_property_count(); ++property) {
        const char* const name = korvoqr_property_name(property, NULL);
        size_t size = 0;
        const char* const text =
            korvoqr_response_text(response, korvoqr_property_named(name, strlen(name)), &size);
        if (text != NULL) {
            printf("%s=", name);
            print(text, size);
        } else if (korvoqr_property_is_flag(property)) {
            printf("%s=%s\n", name, korvoqr_response_flag(response, property) ? "true" : "false");
        }
    }
}

static void print_violation(const korvoqr_violation* violation) {
    const int code = korvoqr_violation_error_code(violation);
    printf("! %d %s %s\n", code, korvoqr_error_code_name(code, NULL),
           korvoqr_violation_fact(violation, NULL));
}

static void print_element(const korvoqr_element* element) {
    size_t size = 0;
    const char* const value = korvoqr_element_value(element, &size);
    printf("%zu %s %s ", korvoqr_element_offset(element), korvoqr_element_tag(element, NULL),
           korvoqr_element_length(element, NULL));
    print(value, size);
    for (size_t i = 0; i < korvoqr_element_violation_count(element); ++i) {
        print_violation(korvoqr_element_violation(element, i));
    }
}

static void print_repair(const korvoqr_repair* repair) {
    printf("%s\n", korvoqr_repair_payload(repair, NULL));
    for (size_t i = 0; i < korvoqr_repair_edit_count(repair); ++i) {
        const korvoqr_edit* const edit = korvoqr_repair_edit(repair, i);
        printf("%zu %s %s\n", korvoqr_edit_offset(edit), korvoqr_edit_from(edit, NULL),
               korvoqr_edit_to(edit, NULL));
    }
}

static void print_explanation(const korvoqr_explanation* explanation) {
    for (size_t i = 0; i < korvoqr_explanation_element_count(explanation); ++i) {
        const korvoqr_element* const element = korvoqr_explanation_element(explanation, i);
        print_element(element);
        for (size_t j = 0; j < korvoqr_element_element_count(element); ++j) {
            print_element(korvoqr_element_element(element, j));
        }
    }
    for (size_t i = 0; i < korvoqr_explanation_missing_count(explanation); ++i) {
        print_violation(korvoqr_explanation_missing(explanation, i));
    }
    const korvoqr_fault* const fault = korvoqr_explanation_fault(explanation);
    if (fault != NULL) {
        printf("%zu %s\n", korvoqr_fault_offset(fault), korvoqr_fault_reason(fault, NULL));
    }
    for (size_t i = 0; i < korvoqr_explanation_cause_count(explanation); ++i) {
        printf("%s\n", korvoqr_explanation_cause(explanation, i, NULL));
    }
    for (size_t i = 0; i < korvoqr_explanation_repair_count(explanation); ++i) {
        print_repair(korvoqr_explanation_repair(explanation, i));
    }
    for (size_t i = 0; i < korvoqr_explanation_unverified_count(explanation); ++i) {
        print_repair(korvoqr_explanation_unverified(explanation, i));
    }
}

/* Prints the version, and all that it learns about its argument as lines of text. */
int main(int argc, char** argv) {
    const char* const payload = argc > 1 ? argv[1] : "";
    korvoqr_response* const response = korvoqr_parse(payload, strlen(payload));
    korvoqr_explanation* const explanation = korvoqr_explain(payload, strlen(payload));
    printf("%s\n%s\n", korvoqr_version(), korvoqr_response_is_accepted(response) ? "accepted" : "refused");
    if (korvoqr_response_is_accepted(response)) {
        print_record(response);
    }
    print_explanation(explanation);
    printf("%s\n", korvoqr_explanation_json(explanation, NULL));
    korvoqr_explanation_free(explanation);
    korvoqr_response_free(response);
    return 0;
}
