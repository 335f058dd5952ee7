#ifndef KORVOQR_ORIGIN_H
#define KORVOQR_ORIGIN_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace korvoqr {

/// The rectangle around a code, in pixels from the top left corner of the picture as it is stored. A picture
/// that a camera marks as turned is not turned.
struct PicturePlace {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// The argument, the picture, or the line that a payload comes from. The texts are views into names and lines
/// that live as long as the answer is being made.
struct Origin {
    std::string_view file;  ///< as given; empty if the payload is an argument, or if there is only one input
    std::size_t argument = 0;  ///< from 1; 0 if the payload is not an argument
    std::size_t code = 0;      ///< the number of a picture's code, from 1; 0 if there is no picture
    std::size_t codes = 0;     ///< the number of codes in the picture
    PicturePlace position{};
    std::uint64_t line = 0;               ///< from 1; 0 if the payload is not from a file or standard input
    std::optional<std::string_view> key;  ///< the column that names the payload

    bool isPicture() const noexcept { return code > 0; }
};

}  // namespace korvoqr

#endif
