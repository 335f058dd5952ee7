/* Says whom to pay, or why the payload is refused. Usage: pay PAYLOAD */

#include <KorvoQRParser/KorvoQRParserC.h>

#include <stdio.h>
#include <string.h>

static int pay(const korvoqr_response* response) {
    const char* const amount = korvoqr_response_text(response, KORVOQR_PROPERTY_transactionAmount, NULL);
    printf("Pay %s to %s, account %s\n", amount != NULL ? amount : "any amount",
           korvoqr_response_text(response, KORVOQR_PROPERTY_merchantName, NULL),
           korvoqr_response_text(response, KORVOQR_PROPERTY_korvoMerchantPAN, NULL));
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
    const int status = korvoqr_response_is_accepted(response) ? pay(response) : explain(payload);
    korvoqr_response_free(response);
    return status;
}
