#ifndef KORVOQR_RENDERING_H
#define KORVOQR_RENDERING_H

#include "Commands.h"
#include "Request.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <string>

namespace korvoqr {

/// A payload with its answer.
struct ParsedPayload {
    const Request& request;
    korvo::QRCodeParserResponse response;
    bool isTrimmed = false;  ///< it is the answer without the white space and quotes around the payload

    std::string_view payload() const;
};

/// Appends the answer to a payload as the tool prints it, with the final line feed. Text and JSON are the
/// library's own renderings of a record. False if the library has no JSON for it, because a value is not
/// ASCII.
[[nodiscard]] bool appendAnswer(std::string& text, const ParsedPayload& parsed, const RunOptions& options);

/// An answer made safe to print on a terminal, which would obey some characters of a record.
std::string harmlessAnswer(const std::string& text, Format format);

/// Appends the row for the COPY command of PostgreSQL, in its text format: the columns file, line, key and
/// payload, as far as the options call for them, then whether the payload is accepted, its codes as an array,
/// and its record as JSON.
void appendCopyRow(std::string& text, const ParsedPayload& parsed, const RunOptions& options);

/// The record as JSON on one line for PostgreSQL: without the character NUL, which it cannot hold; it is
/// shown as \x00, and a member "escaped" is true. `isCompact`: without absent texts and false flags.
void appendDatabaseJSON(std::string& text, const ParsedPayload& parsed, bool isCompact);

}  // namespace korvoqr

#endif
