#ifndef KORVOQR_CODECORNERS_H
#define KORVOQR_CODECORNERS_H

#include "Greys.h"

#include <array>
#include <vector>

namespace korvoqr {

/// A point of a picture.
struct Spot {
    double x = 0;
    double y = 0;
};

/// The four corners of a code, in the order of a walk around it.
using Corners = std::array<Spot, 4>;

/// Whether a point is inside. The corners must be those of a convex shape.
[[nodiscard]] bool isInside(const Spot& point, const Corners& corners);

[[nodiscard]] Spot centreOf(const Corners& corners);

/// A place that looks like a QR code, readable or not: it has three of the squares that mark the corners of a
/// code, at right angles and at about the same distance, and a mixture of dark and light between them.
struct LikelyCode {
    Corners corners;
    bool isCertain = false;  ///< the squares are clear; in pictures of other things there are no such places
};

/// The places of a picture that look like a QR code.
[[nodiscard]] std::vector<LikelyCode> likelyCodes(const Greys& picture);

}  // namespace korvoqr

#endif
