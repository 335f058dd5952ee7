#ifndef KORVOQR_POSTGRESQL_EXPLANATION_H
#define KORVOQR_POSTGRESQL_EXPLANATION_H

#include "Json.h"
#include <KorvoQRParser/KorvoQRParserC.h>

// The JSON of an explanation, with the members of korvoqr_explanation_json. That one is text, which jsonb
// would have to be parsed from; and it may have characters that the server cannot hold.

/// Adds the members, except `visible`.
void addExplanation(Json* json, const korvoqr_explanation* explanation);
/// The same for a payload that is too long to be explained, in the shape that the tool gives it.
void addTooLong(Json* json);

#endif
