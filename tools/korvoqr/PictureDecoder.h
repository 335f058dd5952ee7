#ifndef KORVOQR_PICTUREDECODER_H
#define KORVOQR_PICTUREDECODER_H

#include "Greys.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvoqr {

/// The bytes of a picture do not make sense.
struct DamagedPicture : std::runtime_error {
    DamagedPicture() : std::runtime_error("the picture is damaged or too large") {}
};

/// A picture that was decoded.
struct DecodedPicture {
    Greys greys;
    std::vector<std::uint8_t> opacity;  ///< for each pixel, 255 if it hides the background; empty if all do

    /// A picture to fill. Throws std::runtime_error if it would be larger than any camera's.
    [[nodiscard]] static DecodedPicture empty(std::int64_t width, std::int64_t height, bool hasOpacity);

    /// Transparent pixels are white paper.
    [[nodiscard]] Greys onPaper() const;

    /// Transparent pixels are a dark screen, and everything is inverted: light codes become dark.
    [[nodiscard]] Greys invertedOnScreen() const;
};

/// The number of leading bytes that tell the format of a file.
inline constexpr std::size_t leadingBytes = 1024;

/// Whether a file in a folder is meant as a picture, by its leading bytes or by the ending of its name, even
/// if it cannot be read.
[[nodiscard]] bool looksLikePicture(std::string_view name, std::string_view head);

/// The name of the format that the leading bytes tell, such as "PNG", whether it can be read or not; null if
/// they tell none.
[[nodiscard]] const char* pictureFormatOf(std::string_view head);

/// Whether the decoder of a file waits for a thread that it starts, and for ever if it may not start one.
[[nodiscard]] bool needsThread(std::string_view bytes);

/// Decodes a picture; of an animation its first frame. The leading bytes tell the format. No other file is
/// opened. Throws std::runtime_error with a reason for a person, or std::bad_alloc.
[[nodiscard]] DecodedPicture decodePicture(const std::string& bytes);

}  // namespace korvoqr

#endif
