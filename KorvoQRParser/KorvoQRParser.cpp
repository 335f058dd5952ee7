#include <KorvoQRParser/KorvoQRParser.h>

const double KorvoQRParserVersionNumber = 1.0;
const char KorvoQRParserVersionString[] = "@(#)PROGRAM:KorvoQRParser  PROJECT:KorvoSDK-1\n";
