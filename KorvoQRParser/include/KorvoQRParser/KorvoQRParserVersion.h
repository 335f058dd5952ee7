#ifndef KORVOQRPARSER_KORVOQRPARSERVERSION_H
#define KORVOQRPARSER_KORVOQRPARSERVERSION_H

/// @file
/// The library's version, for C++, C and Objective-C.

#include <KorvoQRParser/KorvoQRParserExport.h>

#ifdef __cplusplus
extern "C" {
#endif

/// The library's major version as a number: 1.0.
KORVO_EXPORT extern const double KorvoQRParserVersionNumber;

/// The library's version string in the form that what(1) finds in a binary: one line, ended by a line feed,
/// NUL-terminated.
KORVO_EXPORT extern const char KorvoQRParserVersionString[];

#ifdef __cplusplus
}
#endif

#endif
