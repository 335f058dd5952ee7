#ifndef KORVOQRPARSER_MODEL_JSONSTRING_H
#define KORVOQRPARSER_MODEL_JSONSTRING_H

#include <string>
#include <string_view>

namespace korvo {

/// Appends `text` to `json` as a JSON string (RFC 8259), in quotes. Valid UTF-8 stays as it is; quotes,
/// backslashes and control characters below U+0020 are escaped. The text must be valid UTF-8; this is not
/// checked.
void appendJSONString(std::string& json, std::string_view text);

}  // namespace korvo

#endif
