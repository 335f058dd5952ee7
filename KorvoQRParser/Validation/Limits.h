#ifndef KORVOQRPARSER_VALIDATION_LIMITS_H
#define KORVOQRPARSER_VALIDATION_LIMITS_H

#include <KorvoQRParser/Validation/MerchantAccountNumber.h>

#include <cstddef>

/// The lengths that the rules allow, in user-perceived characters.
namespace korvo::Limits {

struct Length {
    std::size_t shortest;
    std::size_t longest;
};

inline constexpr Length payloadFormatIndicator{2, 2};
inline constexpr Length merchantID{8, MerchantAccountNumber::fullLength};
inline constexpr Length merchantCategoryCode{4, 4};
inline constexpr Length currencyCode{3, 3};
inline constexpr Length countryCode{2, 2};
inline constexpr Length merchantName{1, 25};
inline constexpr Length cityName{1, 13};
inline constexpr Length postalCode{1, 10};
inline constexpr Length transactionAmountOfDigits{1, 12};
inline constexpr Length transactionAmount{1, 13};  ///< with anything but digits
inline constexpr Length convenienceFeeAmount{1, 9};
inline constexpr Length convenienceFeePercentage{1, 5};
inline constexpr Length identifier{1, 26};  ///< primary and secondary identifier
inline constexpr Length placeholder{1, 2};  ///< an identifier that begins with "?"
inline constexpr Length additionalDataField{1, 99};
inline constexpr Length additionalDataInformation{1, 26};  ///< the tags 01 to 08 inside it
inline constexpr Length additionalConsumerDataRequest{1, 3};

}  // namespace korvo::Limits

#endif
