#ifndef KORVOQRPARSER_MODEL_JSONSTRING_H
#define KORVOQRPARSER_MODEL_JSONSTRING_H

#include <string>
#include <string_view>

namespace korvo {

/// Adds `text` to `json` as a JSON string (RFC 8259), in quotes. Valid UTF-8 stays as it is; quotes,
/// backslashes and controls are escaped.
void appendJSONString(std::string& json, std::string_view text);

}  // namespace korvo

#endif
