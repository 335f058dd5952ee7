#ifndef KORVOQR_RENDERING_H
#define KORVOQR_RENDERING_H

#include <KorvoQRParser/KorvoQRParser.h>

#include <string>

namespace korvoqr {

enum class Format : unsigned char { text, json, jsonl };

/// The answer to one payload as the tool prints it, its last line feed included. Text and JSON are the
/// library's own renderings of a record. JSON lines hold all 70 properties as UTF-8, non-ASCII ones too. In
/// either kind of JSON, the file that the payload comes from stands first in the object, unless it is empty.
std::string render(const korvo::QRCodeParserResponse& response, Format format, const std::string& file);

}  // namespace korvoqr

#endif
