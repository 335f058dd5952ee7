#ifndef KORVOQRPARSER_MODEL_JSONSTRING_H
#define KORVOQRPARSER_MODEL_JSONSTRING_H

#include <cstddef>
#include <string>
#include <string_view>

namespace korvo {

/// Appends `text` to `json` as a JSON string (RFC 8259), in quotes. Valid UTF-8 stays as it is; quotes,
/// backslashes and control characters below U+0020 are escaped. The text must be valid UTF-8; this is not
/// checked.
void appendJSONString(std::string& json, std::string_view text);

/// The most bytes that a text of a size takes as a JSON string.
constexpr std::size_t jsonStringBound(std::size_t size) noexcept {
    constexpr std::size_t longestEscape = 6;
    return longestEscape * size + 2;
}

/// Writes the same to a place with room for `jsonStringBound(text.size())` bytes. Returns the place after it.
char* writeJSONString(char* place, std::string_view text) noexcept;

}  // namespace korvo

#endif
