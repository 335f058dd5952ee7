#ifndef KORVOQR_READINGORDER_H
#define KORVOQR_READINGORDER_H

#include "ImageReader.h"

#include <vector>

namespace korvoqr {

/// The codes in rows from the top, and each row from the left, even if the sheet is a little turned.
[[nodiscard]] std::vector<ImageCode> inReadingOrder(std::vector<ImageCode> codes);

}  // namespace korvoqr

#endif
