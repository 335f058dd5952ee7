/* Says whom to pay, or why the payload is refused. Usage: pay PAYLOAD */

#include <KorvoQRParser/KorvoQRParserC.h>

#include <stdio.h>
#include <string.h>

/* A text can contain NUL, so its size says where it ends. */
static void print(const korvoqr_response* response, korvoqr_property property, const char* otherwise) {
    size_t size = 0;
    const char* const text = korvoqr_response_text(response, property, &size);
    if (text != NULL) {
        fwrite(text, 1, size, stdout);
    } else {
        fputs(otherwise, stdout);
    }
}

static int pay(const korvoqr_response* response) {
    fputs("Pay ", stdout);
    print(response, KORVOQR_PROPERTY_transactionAmount, "any amount");
    fputs(" to ", stdout);
    print(response, KORVOQR_PROPERTY_merchantName, "");
    fputs(", account ", stdout);
    print(response, KORVOQR_PROPERTY_korvoMerchantPAN, "");
    putchar('\n');
    return 0;
}

static int explain(const char* payload) {
    korvoqr_explanation* const explanation = korvoqr_explain(payload, strlen(payload));
    const char* const cause = korvoqr_explanation_cause(explanation, 0, NULL);
    printf("Refused. %s\n", cause != NULL ? cause : "There is no memory to say why.");
    korvoqr_explanation_free(explanation);
    return 1;
}

int main(int argc, char** argv) {
    const char* const payload = argc > 1 ? argv[1] : "";
    korvoqr_response* const response = korvoqr_parse(payload, strlen(payload));
    if (response == NULL) {
        fputs("There is no memory.\n", stderr);
        return 2;
    }
    const int status = korvoqr_response_is_accepted(response) ? pay(response) : explain(payload);
    korvoqr_response_free(response);
    return status;
}
