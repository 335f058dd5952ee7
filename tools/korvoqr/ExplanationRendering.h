#ifndef KORVOQR_EXPLANATIONRENDERING_H
#define KORVOQR_EXPLANATIONRENDERING_H

#include "Commands.h"
#include "Request.h"
#include "Terminal.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <string>

namespace korvoqr {

/// The explanation for a person: where the payload comes from, a verdict, the likeliest cause, a table of the
/// elements with the codes below each, the rules about missing elements, the fault with its place, and the
/// repair. Ends with a line feed.
std::string explanationText(const korvo::QRCodeExplanation& explanation, const Request& request,
                            const Style& style);

/// The library's JSON, on a line. The object begins with the origin of the payload, as far as the options
/// call for it.
std::string explanationJSON(const korvo::QRCodeExplanation& explanation, const Request& request,
                            const RunOptions& options);

/// The same for a line that was not kept because it is too long.
std::string textForTooLong(const Request& request, const RunOptions& options, const Style& style);
std::string jsonForTooLong(const Request& request, const RunOptions& options);

}  // namespace korvoqr

#endif
