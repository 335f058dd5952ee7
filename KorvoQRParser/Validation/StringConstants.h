#ifndef KORVOQRPARSER_VALIDATION_STRINGCONSTANTS_H
#define KORVOQRPARSER_VALIDATION_STRINGCONSTANTS_H

#include <string_view>

/// What may follow the "?" of a placeholder identifier: the length that it announces, as one character.
namespace korvo::StringConstants {

inline constexpr std::string_view PRIMARY_ID_REGEX = "^[1-9a-qA-Q]";
inline constexpr std::string_view SECONDARY_ID_REGEX = "^[1-9a-qA-Q]";

}  // namespace korvo::StringConstants

#endif
