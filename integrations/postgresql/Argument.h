#ifndef KORVOQR_POSTGRESQL_ARGUMENT_H
#define KORVOQR_POSTGRESQL_ARGUMENT_H

#include <postgres.h>

#include <stdbool.h>

/// A payload as the library takes it.
typedef struct Payload {
    const char* bytes;
    int size;
    bool isTooLong;  ///< then there are no bytes
} Payload;

/// Longer ones are refused with code 0, and not explained: it is the limit of the tool for a line.
enum { payloadLimit = 1024 * 1024 };

/// The payload of a bytea argument, as it is. Like the next one it reads the size first, so that a value that
/// is too long is neither fetched nor decompressed.
Payload payloadOfBytes(Datum argument);
/// The payload of a text argument, in UTF-8. A character that UTF-8 does not have becomes a byte that makes
/// the payload no UTF-8, so that it is refused.
Payload payloadOfText(Datum argument);

#endif
