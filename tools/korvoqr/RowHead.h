#ifndef KORVOQR_ROWHEAD_H
#define KORVOQR_ROWHEAD_H

#include "Commands.h"
#include "LibraryInternals.h"
#include "Request.h"

#include <string>

namespace korvoqr {

/// The members of an answer's head that are not always there.
struct HeadParts {
    bool lineNumber = false;
    bool payload = false;

    /// Those that the options call for.
    static HeadParts of(const RunOptions& options) { return {options.lineNumber, options.withPayload}; }
};

/// For a person, where a payload comes from: "argument 2", "shop.png, code 2 of 3", "ids.csv, line 7, key
/// 12".
std::string placeOf(const Origin& origin);

/// The same as a heading: "Line 7, key 12". Empty for an argument.
std::string headingOf(const Origin& origin);

/// The lines above an answer in text: the place if the options or the origin call for it, and the payload.
std::string textHead(const Request& request, const RunOptions& options);

/// The first members of an answer in JSON, in the order file, code, position, line, key, payload, as far as
/// the origin has them and they are wanted.
void appendHead(korvo::JSONWriter& json, const Request& request, HeadParts wanted);

/// The answer for a picture that cannot be read, or for a code that was found in it and cannot be read: an
/// object with the member "problem", with the final line feed. Empty outside JSON, where a message says it.
std::string problemRow(const Origin& origin, const std::string& problem, const RunOptions& options);

/// The reason for the answer to a line that was not kept: "longer than 1 MiB".
std::string reasonForLength(const RunOptions& options);

}  // namespace korvoqr

#endif
