#ifndef KORVOQR_LIBRARYINTERNALS_H
#define KORVOQR_LIBRARYINTERNALS_H

/// @file
/// All private headers of the library that the tool uses, each with its use. No other file of the tool
/// includes one. Remove a line as soon as the public headers offer the same.

#include <KorvoQRParser/Decoding/CRC.h>                   // the checksum that a payload should have
#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>   // to check a payload without some elements
#include <KorvoQRParser/Decoding/TLVPayloadWalk.h>        // elements, tags with their meanings, and faults
#include <KorvoQRParser/Decoding/Text/ASCII.h>            // lower case, to compare tags as the decoder does
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>  // offsets, line breaks, and escapes
#include <KorvoQRParser/Decoding/Text/CountedText.h>      // values with their number of characters
#include <KorvoQRParser/Decoding/Text/UTF8.h>             // code points, and whether bytes are UTF-8
#include <KorvoQRParser/Model/JSONWriter.h>               // JSON
#include <KorvoQRParser/Validation/KorvoPayMerchantTLVValidator.h>  // the rules for that check

#endif
