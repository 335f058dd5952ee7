#ifndef KORVOQRPARSER_EXPLANATION_READINGCAUSES_H
#define KORVOQRPARSER_EXPLANATION_READINGCAUSES_H

#include <KorvoQRParser/Explanation/Readings.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korvo {

/// The two reasons why a two-digit payload ends early.
inline constexpr std::string_view consequenceOfCut = "It is cut, or without its checksum.";
inline constexpr std::string_view causeOfMissingChecksum =
    "The text ends without tag 63: it is cut, or without its checksum.";

/// The mistakes of a reading, as sentences. `keepsChecksum` says whether the written checksum is right for
/// the payload without them.
std::vector<std::string> causesOf(const Characters& text, const Reading& reading, bool isTwoDigit,
                                  bool keepsChecksum);

/// A sentence without its consequence: "The text ends inside tag 59; 12 of 25 characters are there."
std::string causeOfCutValue(std::string_view tag, std::size_t left, std::size_t announced);

}  // namespace korvo

#endif
