#include "Greys.h"

#include <algorithm>
#include <new>

#include <stb/stb_image_resize.h>

namespace korvoqr {

Greys::Greys(int columns, int rows)
    : pixels(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)),
      width(columns),
      height(rows) {}

Greys cropped(const Greys& greys, const PicturePlace& area) {
    Greys part(area.width, area.height);
    for (int y = 0; y < area.height; ++y) {
        std::copy_n(greys.row(area.y + y) + area.x, area.width, part.row(y));
    }
    return part;
}

Greys resized(const Greys& greys, int width, int height) {
    Greys result(std::max(width, 1), std::max(height, 1));
    if (stbir_resize_uint8(greys.pixels.data(), greys.width, greys.height, 0, result.pixels.data(),
                           result.width, result.height, 0, 1) == 0) {
        throw std::bad_alloc();
    }
    return result;
}

Greys softened(const Greys& greys) {
    return resized(resized(greys, greys.width / 2, greys.height / 2), greys.width, greys.height);
}

Greys sharpened(const Greys& greys) {
    constexpr int reach = 10;  // pixels
    constexpr int strength = 3;
    Greys result =
        resized(resized(greys, greys.width / reach, greys.height / reach), greys.width, greys.height);
    std::transform(
        greys.pixels.begin(), greys.pixels.end(), result.pixels.begin(), result.pixels.begin(),
        [](int grey, int around) {
            return static_cast<std::uint8_t>(std::clamp(grey + strength * (grey - around), 0, 255));
        });
    return result;
}

}  // namespace korvoqr
