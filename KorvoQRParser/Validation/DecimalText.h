#ifndef KORVOQRPARSER_VALIDATION_DECIMALTEXT_H
#define KORVOQRPARSER_VALIDATION_DECIMALTEXT_H

#include <string_view>

/// Tests of amounts as they are written: ASCII digits with at most one point, and at least one digit. Every
/// other text fails them. The limits are those of the number that a correctly rounded strtod reads, but no
/// floating point is involved, so the answers are the same on every platform. Any thread may call them.
namespace korvo {

/// Whether the number is greater than 0. One too small for a double, up to 2^-1075, is 0.
bool isAboveZero(std::string_view text) noexcept;

/// Whether the number, as a double, is from 0.01 to 99.99.
bool isPercentage(std::string_view text) noexcept;

}  // namespace korvo

#endif
