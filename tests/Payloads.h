#ifndef KORVOQR_TESTS_PAYLOADS_H
#define KORVOQR_TESTS_PAYLOADS_H

#include <KorvoQRParser/KorvoQRParser.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvo::test {

using Codes = std::vector<std::string>;
using Elements = std::vector<std::pair<std::string, std::string>>;

/// A copy on the heap of exactly the text's size, so that AddressSanitizer sees a read of one byte too many.
class ExactCopy {
  public:
    explicit ExactCopy(std::string_view text) : bytes_(new char[text.size()]), size_(text.size()) {
        text.copy(bytes_.get(), size_);
    }
    std::string_view view() const { return {bytes_.get(), size_}; }

  private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_;
};

/// A code point as UTF-8.
inline std::string utf8(std::uint32_t c) {
    const unsigned following = c < 0x80 ? 0 : c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    std::string text(1, static_cast<char>((following == 0 ? 0 : 0xFF80U >> following) | c >> 6 * following));
    for (unsigned i = following; i > 0; --i) {
        text += static_cast<char>(0x80 | (c >> 6 * (i - 1) & 0x3F));
    }
    return text;
}

/// The codes of an answer; empty for an accepted payload.
inline Codes codesIn(const QRCodeParserResponse& response) {
    return response.qrCodeError() ? response.qrCodeError()->errorCodes() : Codes{};
}

/// The checksum, computed bit by bit from its definition.
inline std::string checksum(std::string_view text) {
    unsigned crc = 0xFFFF;
    for (const char c : text) {
        crc ^= static_cast<unsigned>(static_cast<unsigned char>(c)) << 8U;
        for (int bit = 0; bit < 8; ++bit) {
            crc = ((crc << 1U) ^ ((crc & 0x8000U) != 0 ? 0x1021U : 0U)) & 0xFFFFU;
        }
    }
    std::string digits;
    for (const unsigned shift : {12U, 8U, 4U, 0U}) {
        digits += "0123456789ABCDEF"[(crc >> shift) & 0xFU];
    }
    return digits;
}

/// An element whose length counts bytes, for ASCII values. One-character tags get a base-36 length.
inline std::string element(std::string_view tag, std::string_view value) {
    const std::size_t n = value.size();
    constexpr std::string_view digits = "0123456789abcdefghijklmnopqrstuvwxyz";
    const std::string length =
        tag.size() == 1 ? std::string{digits.at(n)} : std::string{digits.at(n / 10), digits[n % 10]};
    return std::string(tag) + length + std::string(value);
}

inline std::string join(const Elements& elements) {
    std::string payload;
    for (const auto& [tag, value] : elements) {
        payload += element(tag, value);
    }
    return payload;
}

/// A two-digit payload with its checksum added.
inline std::string closed(std::string payload) {
    payload += "6304";
    return payload + checksum(payload);
}

/// The elements of accepted payloads, for tests to spoil.
inline const Elements twoDigit{{"00", "01"}, {"02", "4111111111111111"}, {"52", "5812"},  {"53", "356"},
                               {"58", "IN"}, {"59", "KORVO CAFE"},       {"60", "MUMBAI"}};
inline const Elements oneCharacter{{"0", "4111111111111111"}, {"1", "KORVO CAFE"}, {"2", "5812"},
                                   {"3", "MUMBAI"},           {"4", "IN"},         {"5", "356"}};

/// `base` with some elements removed, or given a value and moved to the end. Tag 00 stays first.
using Changes = std::vector<std::pair<std::string, std::optional<std::string>>>;
inline Elements changed(Elements base, const Changes& changes) {
    for (const auto& [tag, value] : changes) {
        if (tag == "00") {
            base.front().second = *value;
            continue;
        }
        std::erase_if(base, [&tag = tag](const auto& element) { return element.first == tag; });
        if (value) {
            base.emplace_back(tag, *value);
        }
    }
    return base;
}

/// The payload of such elements; closed if two-digit.
inline std::string with(const Elements& base, const Changes& changes) {
    const std::string payload = join(changed(base, changes));
    return base.front().first.size() == 2 ? closed(payload) : payload;
}

inline std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string readData(const std::string& name) {
    return readFile(KORVOQR_SOURCE_DIR "/tests/data/" + name);
}

/// Expands \xHH, {27n}, {27*text} and {crc} in a text of a data file.
inline std::string expanded(std::string text) {
    for (std::size_t at = 0; (at = text.find("\\x", at)) != std::string::npos; ++at) {
        text.replace(at, 4, 1, static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16)));
    }
    for (std::size_t at = 0, end = 0;
         (at = text.find('{', at)) != std::string::npos && (end = text.find('}', at)) != std::string::npos;
         ++at) {
        const std::string token = text.substr(at + 1, end - at - 1);
        std::string made = token == "crc" ? "6304ABCD" : "";
        for (std::size_t left = made.empty() ? std::stoul(token) : 0; left > 0; --left) {
            const std::size_t star = token.find('*');
            made += star == std::string::npos ? token.substr(token.size() - 1) : token.substr(star + 1);
        }
        text = text.substr(0, at) + made + text.substr(end + 1);
    }
    return text;
}

/// The rows of a data file, split at blanks, without comments and empty lines.
inline std::vector<std::vector<std::string>> readRows(const std::string& name) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(readData(name));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line.substr(0, line.find('#')));
        rows.emplace_back(std::istream_iterator<std::string>(fields), std::istream_iterator<std::string>());
    }
    std::erase_if(rows, [](const auto& row) { return row.empty(); });
    return rows;
}

}  // namespace korvo::test

#endif
