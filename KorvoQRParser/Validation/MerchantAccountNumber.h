#ifndef KORVOQRPARSER_VALIDATION_MERCHANTACCOUNTNUMBER_H
#define KORVOQRPARSER_VALIDATION_MERCHANTACCOUNTNUMBER_H

#include <cstddef>

/// How a merchant identifier becomes an account number: zeros are inserted after its prefix until it has the
/// full length. Lengths count user-perceived characters.
namespace korvo::MerchantAccountNumber {

inline constexpr std::size_t prefixLength = 6;
inline constexpr std::size_t fullLength = 16;

}  // namespace korvo::MerchantAccountNumber

#endif
