#ifndef KORVOQRPARSER_DECODING_CRC_H
#define KORVOQRPARSER_DECODING_CRC_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvo {

/// CRC-16/CCITT-FALSE of the text's UTF-8 bytes: width 16, polynomial 0x1021, initial value 0xFFFF, not
/// reflected, no final XOR. Any bytes are allowed. Takes linear time, allocates nothing and may be called
/// from any thread. To continue a text, give the checksum of its first part as `crc`.
std::uint16_t computeCRC16(std::string_view text, std::uint16_t crc = 0xFFFF) noexcept;

/// The length of a checksum in characters.
inline constexpr std::size_t checksumLength = 4;

/// The checksum that a two-digit payload should end with: the CRC of the payload without its last four
/// user-perceived characters, whatever they are.
std::uint16_t checksumOfPayload(std::string_view payload) noexcept;

}  // namespace korvo

#endif
