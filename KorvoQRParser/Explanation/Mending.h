#ifndef KORVOQRPARSER_EXPLANATION_MENDING_H
#define KORVOQRPARSER_EXPLANATION_MENDING_H

#include <KorvoQRParser/Explanation/Draft.h>
#include <KorvoQRParser/Explanation/Readings.h>

#include <cstdint>
#include <string>
#include <vector>

namespace korvo {

/// A checksum as it is written: four hexadecimal digits.
std::string checksumText(std::uint16_t number, bool isLower);

/// The payload that a reading stands for, written without its mistakes.
struct Mended {
    Draft draft;
    bool isTwoDigit = false;
    bool keepsChecksum = false;       ///< the written checksum is right for this payload
    bool replacesChecksum = false;    ///< it has another right one
    bool isAmbiguous = false;         ///< another one of two equal elements could be the superfluous one
    double cost = 0;                  ///< of the mistakes that are not in the reading
    std::vector<std::string> causes;  ///< those mistakes, as sentences
};

/// Writes the payload of a reading: right lengths, tag 00 first, tag 63 last with the right checksum, without
/// duplicates, the country in upper case, the currency as a number.
Mended mend(const Draft& draft, const Characters& text, const Reading& reading, bool isTwoDigit);

}  // namespace korvo

#endif
