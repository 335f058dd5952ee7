#ifndef KORVOQR_LIBRARYINTERNALS_H
#define KORVOQR_LIBRARYINTERNALS_H

/// @file
/// All private headers of the library that the tool uses, each with its use. No other file of the tool
/// includes one. Remove a line as soon as the public headers offer the same.

#include <KorvoQRParser/Decoding/Text/ASCII.h>            // letter case, whatever the locale
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>  // offsets, line breaks, and escapes
#include <KorvoQRParser/Decoding/Text/UTF8.h>             // code points, and whether bytes are UTF-8
#include <KorvoQRParser/Model/JSONWriter.h>               // JSON
#include <KorvoQRParser/Model/QRCodeDataRendering.h>      // a record at the end of a text, without a copy

#endif
