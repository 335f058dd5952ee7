#ifndef KORVOQRPARSER_EXPLANATION_OTHERTEXTS_H
#define KORVOQRPARSER_EXPLANATION_OTHERTEXTS_H

#include <string>
#include <string_view>

namespace korvo {

/// What a refused text is if it is no payload at all, as a sentence: a web address, a payment link, a contact
/// card and so on. Empty if it may be a payload.
std::string causeOfOtherText(std::string_view text);

/// What bytes that are not UTF-8 probably are, as a sentence. Also for UTF-16 that happens to be valid UTF-8;
/// empty for any other valid text.
std::string causeOfEncoding(std::string_view bytes);

}  // namespace korvo

#endif
