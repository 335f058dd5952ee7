#ifndef KORVOQR_TRIMMING_H
#define KORVOQR_TRIMMING_H

#include <string_view>

namespace korvoqr {

/// The text without the white space, byte order marks and quotation marks, of any script, around it.
std::string_view trimmed(std::string_view text);

}  // namespace korvoqr

#endif
