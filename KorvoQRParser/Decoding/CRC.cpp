#include <KorvoQRParser/Decoding/CRC.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>

#include <array>
#include <cstddef>

namespace korvo {

namespace {

constexpr std::size_t stride = 8;

using CRCTable = std::array<std::uint16_t, 256>;

// crcTables[k][b] is the contribution of byte b to the register after k more bytes, so that a step of eight
// bytes takes eight independent lookups.
constexpr std::array<CRCTable, stride> makeCRCTables() {
    std::array<CRCTable, stride> tables{};
    for (std::size_t i = 0; i < 256; ++i) {
        unsigned entry = static_cast<unsigned>(i) << 8U;
        for (int bit = 0; bit < 8; ++bit) {
            entry = (entry << 1U) ^ ((entry & 0x8000U) != 0 ? 0x1021U : 0U);
        }
        tables[0][i] = static_cast<std::uint16_t>(entry);
    }
    for (std::size_t k = 1; k < stride; ++k) {
        for (std::size_t i = 0; i < 256; ++i) {
            const unsigned previous = tables[k - 1][i];
            tables[k][i] = static_cast<std::uint16_t>((previous << 8U) ^ tables[0][previous >> 8U]);
        }
    }
    return tables;
}

constexpr auto crcTables = makeCRCTables();

}  // namespace

std::uint16_t computeCRC16(std::string_view text, std::uint16_t crc) noexcept {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    std::size_t left = text.size();
    unsigned state = crc;
    for (; left >= stride; left -= stride, bytes += stride) {
        state = crcTables[7][bytes[0] ^ (state >> 8U)] ^ crcTables[6][bytes[1] ^ (state & 0xFFU)] ^
                crcTables[5][bytes[2]] ^ crcTables[4][bytes[3]] ^ crcTables[3][bytes[4]] ^
                crcTables[2][bytes[5]] ^ crcTables[1][bytes[6]] ^ crcTables[0][bytes[7]];
    }
    for (; left > 0; --left, ++bytes) {
        state = ((state << 8U) & 0xFF00U) ^ crcTables[0][(state >> 8U) ^ *bytes];
    }
    return static_cast<std::uint16_t>(state);
}

std::uint16_t checksumOfPayload(std::string_view payload) noexcept {
    return computeCRC16(droppingLastCharacters(payload, checksumLength));
}

}  // namespace korvo
