#ifndef KORVOQR_RENDERING_H
#define KORVOQR_RENDERING_H

#include "Format.h"
#include "Origin.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <string>

namespace korvoqr {

/// The answer to one payload as the tool prints it, its last line feed included. Text and JSON are the
/// library's own renderings of a record. JSON lines hold all 70 properties as UTF-8, non-ASCII ones too. In
/// either kind of JSON, a payload from a picture has its file and which of its codes it is in the object,
/// first.
std::string render(const korvo::QRCodeParserResponse& response, Format format, const Origin& origin);

}  // namespace korvoqr

#endif
