#ifndef KORVOQRPARSER_MODEL_QRCODEDATARENDERING_H
#define KORVOQRPARSER_MODEL_QRCODEDATARENDERING_H

#include <KorvoQRParser/Model/QRCodeData.h>

#include <string>

namespace korvo {

/// Appends what QRCodeData::utf8JSON returns, without a string in between.
void appendUTF8JSON(std::string& text, const QRCodeData& data);

/// Appends what QRCodeData::description returns, without a string in between.
void appendDescription(std::string& text, const QRCodeData& data);

}  // namespace korvo

#endif
