#ifndef KORVOQR_POSTGRESQL_JSON_H
#define KORVOQR_POSTGRESQL_JSON_H

#include <postgres.h>

#include <stdbool.h>
#include <stddef.h>
#include <utils/jsonb.h>

/// Writes a jsonb value. It keeps pointers to the texts that it is given, until the value is taken.
typedef struct Json {
    JsonbParseState* state;
    JsonbValue* value;
    bool isEscaped;  ///< a text has bytes as \xHH, because the server cannot hold them
} Json;

// `name` is that of a member, or null inside an array and at the top.
void beginObject(Json* json, const char* name);
void endObject(Json* json);
void beginArray(Json* json, const char* name);
void endArray(Json* json);
/// A text of the library; null becomes the null of JSON.
void addText(Json* json, const char* name, const char* text, size_t size);
/// The same for a text in C.
void addString(Json* json, const char* name, const char* text);
void addNull(Json* json, const char* name);
void addBoolean(Json* json, const char* name, bool boolean);
void addNumber(Json* json, const char* name, size_t number);

/// Ends the object at the top, with the member "escaped" if there are such texts, and takes the value.
Jsonb* finishedObject(Json* json);

#endif
