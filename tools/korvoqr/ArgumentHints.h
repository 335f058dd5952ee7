#ifndef KORVOQR_ARGUMENTHINTS_H
#define KORVOQR_ARGUMENTHINTS_H

#include <string>
#include <string_view>
#include <vector>

namespace korvoqr {

/// Whether a text is a payload, or the beginning of one.
bool looksLikePayload(std::string_view text);

/// For arguments that were refused as payloads, what their writer may have meant: one payload without quotes
/// around it, or the name of a file. Without a full stop; empty if nothing is known.
std::string argumentHint(const std::vector<std::string>& payloads);

/// The word of a list that somebody who typed another one may have meant; empty if none is close.
std::string closestWord(std::string_view typed, const std::vector<std::string>& words);

}  // namespace korvoqr

#endif
