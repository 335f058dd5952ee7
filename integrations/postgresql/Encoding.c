#include "Encoding.h"

#include <catalog/namespace.h>
#include <mb/pg_wchar.h>
#include <miscadmin.h>

typedef struct Conversion {
    int from;
    int to;
    Oid function;  // InvalidOid if the server has none between the two
    void (*appendForeign)(StringInfo out, const char* character, int size);
} Conversion;

static bool isASCII(const char* text, int size) {
    for (int i = 0; i < size; ++i) {
        if (text[i] == '\0' || IS_HIGHBIT_SET(text[i])) {
            return false;
        }
    }
    return true;
}

// A database with SQL_ASCII knows no characters: it holds all bytes except NUL, usually those of UTF-8.
static bool isServerEncodingUTF8(void) {
    return GetDatabaseEncoding() == PG_UTF8 || GetDatabaseEncoding() == PG_SQL_ASCII;
}

static int convertedSize(StringInfo out, const char* text, int size, const Conversion* conversion) {
    if (!OidIsValid(conversion->function)) {
        return 0;
    }
    enlargeStringInfo(out, size * MAX_CONVERSION_GROWTH + 1);
    // It stops at the first character that it cannot convert. It does not write to the text.
    const int converted = pg_do_encoding_conversion_buf(
        conversion->function, conversion->from, conversion->to, (unsigned char*)text, size,
        (unsigned char*)out->data + out->len, out->maxlen - out->len, true);
    out->len += (int)strlen(out->data + out->len);
    return converted;
}

// Whether all of it could be converted.
static bool appendConverted(StringInfo out, const char* text, int size, const Conversion* conversion) {
    bool isComplete = true;
    for (int at = convertedSize(out, text, size, conversion); at < size;) {
        CHECK_FOR_INTERRUPTS();
        const int character = Max(pg_encoding_verifymbchar(conversion->from, text + at, size - at), 1);
        if (isASCII(text + at, character)) {
            appendStringInfoChar(out, text[at]);
        } else {
            conversion->appendForeign(out, text + at, character);
            isComplete = false;
        }
        at += character;
        at += convertedSize(out, text + at, size - at, conversion);
    }
    return isComplete;
}

static void appendNoUTF8(StringInfo out, const char* character, int size) {
    (void)character;
    (void)size;
    appendStringInfoChar(out, '\xFF');
}

static void appendEscaped(StringInfo out, const char* bytes, int size) {
    for (int i = 0; i < size; ++i) {
        appendStringInfo(out, "\\x%02X", (unsigned char)bytes[i]);
    }
}

bool isServerUTF8(const char* text, int size) {
    return isServerEncodingUTF8() || isASCII(text, size);
}

StringInfo toUTF8(const char* text, int size) {
    const int encoding = GetDatabaseEncoding();
    const Conversion conversion = {encoding, PG_UTF8, FindDefaultConversionProc(encoding, PG_UTF8),
                                   appendNoUTF8};
    StringInfo out = makeStringInfo();
    appendConverted(out, text, size, &conversion);
    return out;
}

bool isHeldByServer(const char* text, int size) {
    return isServerEncodingUTF8() ? pg_encoding_verifymbstr(PG_UTF8, text, size) == size
                                  : isASCII(text, size);
}

// The bytes at the beginning of a text that are UTF-8 and not NUL. One character at a time, because the
// server's function for texts reads to the end even if the first byte is wrong, and so would take quadratic
// time here.
static int soundSize(const char* text, int size) {
    int at = 0;
    while (at < size) {
        const int character = pg_encoding_verifymbchar(PG_UTF8, text + at, size - at);
        if (character < 0) {
            break;
        }
        at += character;
    }
    return at;
}

StringInfo toServer(const char* text, int size, bool* isEscaped) {
    const bool isUTF8 = isServerEncodingUTF8();
    const int encoding = GetDatabaseEncoding();
    const Conversion conversion = {
        PG_UTF8, encoding, isUTF8 ? InvalidOid : FindDefaultConversionProc(PG_UTF8, encoding), appendEscaped};
    StringInfo out = makeStringInfo();
    for (int at = 0; at < size;) {
        CHECK_FOR_INTERRUPTS();
        const int sound = soundSize(text + at, size - at);
        if (isUTF8) {
            appendBinaryStringInfo(out, text + at, sound);
        } else if (!appendConverted(out, text + at, sound, &conversion)) {
            *isEscaped = true;
        }
        at += sound;
        if (at < size) {
            appendEscaped(out, text + at, 1);
            *isEscaped = true;
            ++at;
        }
    }
    return out;
}
