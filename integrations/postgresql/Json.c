#include "Json.h"

#include "Encoding.h"

#include <utils/numeric.h>

static void pushName(Json* json, const char* name) {
    if (name != NULL) {
        JsonbValue key = {.type = jbvString};
        key.val.string.val = (char*)name;
        key.val.string.len = (int)strlen(name);
        json->value = pushJsonbValue(&json->state, WJB_KEY, &key);
    }
}

static void add(Json* json, const char* name, JsonbValue* value) {
    pushName(json, name);
    json->value = pushJsonbValue(&json->state, name != NULL ? WJB_VALUE : WJB_ELEM, value);
}

void beginObject(Json* json, const char* name) {
    pushName(json, name);
    json->value = pushJsonbValue(&json->state, WJB_BEGIN_OBJECT, NULL);
}

void endObject(Json* json) {
    json->value = pushJsonbValue(&json->state, WJB_END_OBJECT, NULL);
}

void beginArray(Json* json, const char* name) {
    pushName(json, name);
    json->value = pushJsonbValue(&json->state, WJB_BEGIN_ARRAY, NULL);
}

void endArray(Json* json) {
    json->value = pushJsonbValue(&json->state, WJB_END_ARRAY, NULL);
}

// No text is longer than jsonb allows: the longest are those of a payload, which has 1 MiB at most, and four
// times that when every byte is escaped.
void addText(Json* json, const char* name, const char* text, size_t size) {
    if (text == NULL) {
        addNull(json, name);
        return;
    }
    JsonbValue value = {.type = jbvString};
    value.val.string.val = (char*)text;
    value.val.string.len = (int)size;
    if (!isHeldByServer(text, (int)size)) {
        bool isEscaped = false;
        StringInfo held = toServer(text, (int)size, &isEscaped);
        json->isEscaped = json->isEscaped || isEscaped;
        value.val.string.val = held->data;
        value.val.string.len = held->len;
    }
    add(json, name, &value);
}

void addString(Json* json, const char* name, const char* text) {
    addText(json, name, text, strlen(text));
}

void addNull(Json* json, const char* name) {
    JsonbValue value = {.type = jbvNull};
    add(json, name, &value);
}

void addBoolean(Json* json, const char* name, bool boolean) {
    JsonbValue value = {.type = jbvBool};
    value.val.boolean = boolean;
    add(json, name, &value);
}

void addNumber(Json* json, const char* name, size_t number) {
    JsonbValue value = {.type = jbvNumeric};
    value.val.numeric = int64_to_numeric((int64)number);
    add(json, name, &value);
}

Jsonb* finishedObject(Json* json) {
    if (json->isEscaped) {
        addBoolean(json, "escaped", true);
    }
    endObject(json);
    return JsonbValueToJsonb(json->value);
}
