#ifndef KORVOQR_NETPBMPICTURE_H
#define KORVOQR_NETPBMPICTURE_H

#include "PictureDecoder.h"

#include <string>

namespace korvoqr {

/// Decodes a picture in one of Netpbm's formats P1 to P6. Throws DamagedPicture. There is no need for a
/// library: the formats are a head and the plain numbers.
[[nodiscard]] DecodedPicture decodePNM(const std::string& bytes);

}  // namespace korvoqr

#endif
