#ifndef KORVOQR_CODEFINDER_H
#define KORVOQR_CODEFINDER_H

#include "Greys.h"
#include "ImageReader.h"

#include <vector>

namespace korvoqr {

/// Finds the QR codes of a picture, dark on light, and reads them; in reading order. A code that is found but
/// cannot be read has a problem.
///
/// The first look is at the picture as it is. Others follow at the picture enlarged, softened and sharpened
/// if that finds nothing, and at overlapping tiles of the picture, as long as they find something.
[[nodiscard]] std::vector<ImageCode> findCodes(Greys picture);

}  // namespace korvoqr

#endif
