#ifndef KORVOQRPARSER_PARSER_ASSEMBLEQRCODEDATA_H
#define KORVOQRPARSER_PARSER_ASSEMBLEQRCODEDATA_H

#include <KorvoQRParser/Decoding/KorvoPayMerchantTLV.h>
#include <KorvoQRParser/Model/QRCodeData.h>

#include <memory>
#include <string>

namespace korvo {

/// Makes the record of a holder that has passed validation. Never null; the record owns its texts. A merchant
/// identifier of more than 16 characters, which validation never accepts, stops the program.
std::shared_ptr<QRCodeData> assembleQRCodeData(const KorvoPayMerchantTLV& holder);

/// The account number of a merchant identifier: the identifier, widened to 16 characters with zeros after its
/// sixth. Empty for an identifier of six characters or fewer. One of more than 16 characters stops the
/// program, because a shortened or unpadded number would pay somebody else.
std::string merchantPANFromMerchantID(const CountedText& merchantID);

}  // namespace korvo

#endif
