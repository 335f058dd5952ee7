#ifndef KORVOQRPARSER_PARSER_ASSEMBLEQRCODEDATA_H
#define KORVOQRPARSER_PARSER_ASSEMBLEQRCODEDATA_H

#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Model/QRCodeData.h>

#include <memory>
#include <string>

namespace korvo {

/// Makes the record of a holder that has passed validation. The record owns its texts. Never null. A merchant
/// identifier of more than 16 characters, which validation never lets through, stops the program.
std::shared_ptr<QRCodeData> assembleQRCodeData(const KorvoPayMerchantTLV& holder);

/// The account number that a merchant identifier stands for: 16 characters, zeros inserted after the first
/// six; the empty text for an identifier of six characters or fewer. More than 16 stop the program, because a
/// shortened or unpadded number would pay somebody else.
std::string merchantPANFromMerchantID(const CountedText& merchantID);

}  // namespace korvo

#endif
