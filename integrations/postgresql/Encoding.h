#ifndef KORVOQR_POSTGRESQL_ENCODING_H
#define KORVOQR_POSTGRESQL_ENCODING_H

#include <postgres.h>

#include <lib/stringinfo.h>
#include <stdbool.h>

/// The encodings of the server and of the library. The server's own functions raise an error for a character
/// that the other encoding lacks; these do not, because one bad payload must not end a query over a million.

/// Whether a text of the server needs no conversion: the database has UTF-8, or no encoding, or it is ASCII.
bool isServerUTF8(const char* text, int size);
/// A text of the server in UTF-8. The byte 0xFF, which UTF-8 never has, replaces a character that is not in
/// Unicode.
StringInfo toUTF8(const char* text, int size);

/// Whether the server can hold a text of the library as it is.
bool isHeldByServer(const char* text, int size);
/// A text of the library for the server, with every byte of what it cannot hold as \xHH: NUL, bytes that are
/// not UTF-8, characters that its encoding lacks. Backslashes are not doubled. Sets `*isEscaped` if there are
/// any.
StringInfo toServer(const char* text, int size, bool* isEscaped);

#endif
