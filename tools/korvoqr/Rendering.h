#ifndef KORVOQR_RENDERING_H
#define KORVOQR_RENDERING_H

#include "Format.h"
#include "Origin.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <string>

namespace korvoqr {

/// The answer to one payload as the tool prints it, with the final line feed. Text and JSON are the library's
/// own renderings of a record. A JSON line has all properties, as UTF-8. If the payload comes from a picture,
/// the object of both JSON formats begins with the file and the number of the code in it.
std::string render(const korvo::QRCodeParserResponse& response, Format format, const Origin& origin);

}  // namespace korvoqr

#endif
