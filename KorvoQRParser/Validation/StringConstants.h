#ifndef KORVOQRPARSER_VALIDATION_STRINGCONSTANTS_H
#define KORVOQRPARSER_VALIDATION_STRINGCONSTANTS_H

#include <string_view>

/// The patterns for the text after the "?" of a placeholder identifier: one character, which announces a
/// length.
namespace korvo::StringConstants {

inline constexpr std::string_view PRIMARY_ID_REGEX = "^[1-9a-qA-Q]";
inline constexpr std::string_view SECONDARY_ID_REGEX = "^[1-9a-qA-Q]";

}  // namespace korvo::StringConstants

#endif
