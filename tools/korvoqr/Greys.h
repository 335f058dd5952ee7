#ifndef KORVOQR_GREYS_H
#define KORVOQR_GREYS_H

#include "Origin.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvoqr {

/// The brightest shade of grey; 0 is black.
inline constexpr std::uint8_t white = 255;

/// A picture in shades of grey, row by row from the top.
struct Greys {
    std::vector<std::uint8_t> pixels;
    int width = 0;
    int height = 0;

    Greys() = default;
    Greys(int columns, int rows);

    std::uint8_t* row(int y) noexcept { return pixels.data() + std::ptrdiff_t{y} * width; }
    const std::uint8_t* row(int y) const noexcept { return pixels.data() + std::ptrdiff_t{y} * width; }
};

/// A rectangle of the picture, which must be inside it.
[[nodiscard]] Greys cropped(const Greys& greys, const PicturePlace& area);

/// The picture in another size, smoothly. Throws std::bad_alloc without enough memory.
[[nodiscard]] Greys resized(const Greys& greys, int width, int height);

/// The picture without details smaller than two pixels: noise, above all.
[[nodiscard]] Greys softened(const Greys& greys);

/// The picture with more contrast between neighbours, which undoes some blur.
[[nodiscard]] Greys sharpened(const Greys& greys);

}  // namespace korvoqr

#endif
