#ifndef KORVOQR_ORIGIN_H
#define KORVOQR_ORIGIN_H

#include "Terminal.h"

#include <cstddef>
#include <string>

namespace korvoqr {

/// The rectangle around a code, in pixels from the top left corner of the picture as it is stored. A picture
/// that a camera marks as turned is not turned.
struct PicturePlace {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// The picture that a payload comes from, and the number and the place of its code in it.
struct Origin {
    std::string file;       ///< as given; empty if the payload does not come from a picture
    std::size_t code = 0;   ///< counted from 1; 0 for the whole picture
    std::size_t codes = 0;  ///< the number of codes in the picture
    PicturePlace position{};

    bool isPicture() const noexcept { return !file.empty(); }

    /// For a person: "shop.png", or "shop.png, code 2 of 3".
    std::string place() const {
        return visible(file) + (codes > 1 ? ", code " + std::to_string(code) + " of " + std::to_string(codes)
                                          : std::string());
    }
};

}  // namespace korvoqr

#endif
