// The functions of the extension, on the C face of the library.

#include "Argument.h"
#include "Explanation.h"
#include "Json.h"
#include <KorvoQRParser/KorvoQRParserC.h>

#include <catalog/pg_type.h>
#include <fmgr.h>
#include <utils/array.h>
#include <utils/builtins.h>
#include <utils/memutils.h>

PG_MODULE_MAGIC;

// A handle of the library. The server's memory contexts do not know it, and an error or a cancelled query
// jumps over the rest of a function; so it is also freed when the context ends.
typedef struct Handle {
    MemoryContextCallback callback;
    korvoqr_response* response;
    korvoqr_explanation* explanation;
} Handle;

static void freeHandle(void* argument) {
    Handle* const handle = (Handle*)argument;
    korvoqr_response_free(handle->response);
    handle->response = NULL;
    korvoqr_explanation_free(handle->explanation);
    handle->explanation = NULL;
}

static Handle* emptyHandle(void) {
    Handle* const handle = (Handle*)palloc0(sizeof(Handle));
    handle->callback.func = freeHandle;
    handle->callback.arg = handle;
    MemoryContextRegisterResetCallback(CurrentMemoryContext, &handle->callback);
    return handle;
}

static void checkMemory(const void* made) {
    if (made == NULL) {
        ereport(ERROR, (errcode(ERRCODE_OUT_OF_MEMORY), errmsg("out of memory"),
                        errdetail("The library that reads the payload got none.")));
    }
}

static Handle* parsed(const Payload* payload) {
    Handle* const handle = emptyHandle();
    handle->response = korvoqr_parse(payload->bytes, (size_t)payload->size);
    checkMemory(handle->response);
    return handle;
}

static Datum isValid(Payload payload) {
    if (payload.isTooLong) {
        return BoolGetDatum(false);
    }
    Handle* const handle = parsed(&payload);
    const bool isAccepted = korvoqr_response_is_accepted(handle->response);
    freeHandle(handle);
    return BoolGetDatum(isAccepted);
}

static Datum arrayOfTexts(Datum* texts, int count) {
    return PointerGetDatum(construct_array(texts, count, TEXTOID, -1, false, TYPALIGN_INT));
}

static Datum codes(Payload payload) {
    if (payload.isTooLong) {
        Datum code =
            PointerGetDatum(cstring_to_text(korvoqr_error_code_text(KORVOQR_ERROR_CODE_malformedTags, NULL)));
        return arrayOfTexts(&code, 1);
    }
    Handle* const handle = parsed(&payload);
    const int count = (int)korvoqr_response_code_count(handle->response);
    Datum* const texts = (Datum*)palloc((Size)count * sizeof(Datum));
    for (int i = 0; i < count; ++i) {
        size_t size = 0;
        const char* const code = korvoqr_response_code(handle->response, (size_t)i, &size);
        texts[i] = PointerGetDatum(cstring_to_text_with_len(code, (int)size));
    }
    freeHandle(handle);
    return arrayOfTexts(texts, count);
}

static Jsonb* recordOf(const korvoqr_response* response) {
    Json json = {0};
    beginObject(&json, NULL);
    for (int property = 0; property < korvoqr_property_count(); ++property) {
        size_t size = 0;
        const char* const text = korvoqr_response_text(response, property, &size);
        const char* const name = korvoqr_property_name(property, NULL);
        if (text != NULL) {
            addText(&json, name, text, size);
        } else if (korvoqr_response_flag(response, property)) {
            addBoolean(&json, name, true);
        }
    }
    return finishedObject(&json);
}

// Null for a refused payload.
static Jsonb* record(Payload payload) {
    if (payload.isTooLong) {
        return NULL;
    }
    Handle* const handle = parsed(&payload);
    Jsonb* const result = korvoqr_response_is_accepted(handle->response) ? recordOf(handle->response) : NULL;
    freeHandle(handle);
    return result;
}

// The payload byte for byte, readable by a person, if it is not UTF-8. It is the payload otherwise, of the
// same size, because each byte that is not UTF-8 takes four.
static void addVisible(Json* json, const korvoqr_explanation* explanation, int payloadSize) {
    size_t size = 0;
    const char* const visible = korvoqr_explanation_visible(explanation, &size);
    checkMemory(visible);
    if (size != (size_t)payloadSize) {
        addText(json, "visible", visible, size);
    }
}

static Jsonb* explanation(Payload payload) {
    Json json = {0};
    beginObject(&json, NULL);
    if (payload.isTooLong) {
        addTooLong(&json);
        return finishedObject(&json);
    }
    Handle* const handle = emptyHandle();
    handle->explanation = korvoqr_explain(payload.bytes, (size_t)payload.size);
    checkMemory(handle->explanation);
    addVisible(&json, handle->explanation, payload.size);
    addExplanation(&json, handle->explanation);
    Jsonb* const result = finishedObject(&json);
    freeHandle(handle);
    return result;
}

static Datum datumOf(Jsonb* json, FunctionCallInfo fcinfo) {
    fcinfo->isnull = json == NULL;
    return JsonbPGetDatum(json);
}

// The library has functions of the SQL names, so those here are called differently.
#define KORVO_FUNCTION(name, result)                                \
    PG_FUNCTION_INFO_V1(korvoqr_sql_##name##_text);                 \
    Datum korvoqr_sql_##name##_text(PG_FUNCTION_ARGS) {             \
        const Payload payload = payloadOfText(PG_GETARG_DATUM(0));  \
        return result;                                              \
    }                                                               \
    PG_FUNCTION_INFO_V1(korvoqr_sql_##name##_bytea);                \
    Datum korvoqr_sql_##name##_bytea(PG_FUNCTION_ARGS) {            \
        const Payload payload = payloadOfBytes(PG_GETARG_DATUM(0)); \
        return result;                                              \
    }
KORVO_FUNCTION(is_valid, isValid(payload))
KORVO_FUNCTION(codes, codes(payload))
KORVO_FUNCTION(parse, datumOf(record(payload), fcinfo))
KORVO_FUNCTION(explain, datumOf(explanation(payload), fcinfo))
