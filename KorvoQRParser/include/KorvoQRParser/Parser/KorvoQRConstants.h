#ifndef KORVOQRPARSER_PARSER_KORVOQRCONSTANTS_H
#define KORVOQRPARSER_PARSER_KORVOQRCONSTANTS_H

#include <string_view>

/// Constants about the library itself.
namespace korvo::KorvoQRConstants {

/// Published for callers that print it; the library assigns no value, so it reads as the empty string.
inline constexpr std::string_view KorvoQRSDKVersion{};

}  // namespace korvo::KorvoQRConstants

#endif
