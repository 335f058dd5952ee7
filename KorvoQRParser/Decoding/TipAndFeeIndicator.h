#ifndef KORVOQRPARSER_DECODING_TIPANDFEEINDICATOR_H
#define KORVOQRPARSER_DECODING_TIPANDFEEINDICATOR_H

#include <string_view>

/// The values of the tip or fee indicator (tag 55; "9" in the one-character format).
namespace korvo::TipAndFeeIndicator {

inline constexpr std::string_view tip = "01";         ///< the consumer is asked for a tip
inline constexpr std::string_view fixedFee = "02";    ///< a fixed convenience fee is added
inline constexpr std::string_view percentage = "03";  ///< a convenience fee is added as a percentage

constexpr bool isKnown(std::string_view indicator) noexcept {
    return indicator == tip || indicator == fixedFee || indicator == percentage;
}

}  // namespace korvo::TipAndFeeIndicator

#endif
