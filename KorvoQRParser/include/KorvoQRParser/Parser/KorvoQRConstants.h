#ifndef KORVOQRPARSER_PARSER_KORVOQRCONSTANTS_H
#define KORVOQRPARSER_PARSER_KORVOQRCONSTANTS_H

#include <string_view>

/// Constants about the library itself.
namespace korvo::KorvoQRConstants {

/// The empty string: no version is assigned. Its data() is not null, so it may be used as a C string.
inline constexpr std::string_view KorvoQRSDKVersion{""};  // NOLINT(readability-redundant-string-init)

}  // namespace korvo::KorvoQRConstants

#endif
