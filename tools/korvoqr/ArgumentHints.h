#ifndef KORVOQR_ARGUMENTHINTS_H
#define KORVOQR_ARGUMENTHINTS_H

#include <string>
#include <string_view>
#include <vector>

namespace korvoqr {

/// Whether arguments are a payload, or the beginning of one, perhaps without quotes around it. There must be
/// at least one.
bool looksLikePayload(const std::vector<std::string>& arguments);

/// A hint for arguments that were refused as payloads, if they may be one payload without quotes around it,
/// or the name of a file. Without a full stop; empty if there is none.
std::string argumentHint(const std::vector<std::string>& payloads);

/// The word of a list that is the closest to a mistyped one; empty if none is close.
std::string closestWord(std::string_view typed, const std::vector<std::string>& words);

}  // namespace korvoqr

#endif
