#include "../tests/Payloads.h"
#include "Properties.h"
#include <KorvoQRParser/Decoding/TagRow.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvo::fuzz {
namespace {

// Takes decisions and texts from the fuzzer's bytes. When these are used up, decisions are zero and texts are
// empty.
class Choices {
  public:
    Choices(const std::uint8_t* data, std::size_t size) : bytes_(reinterpret_cast<const char*>(data), size) {}

    bool atEnd() const { return bytes_.empty(); }

    unsigned below(unsigned limit) {
        const std::string_view byte = text(1);
        return byte.empty() ? 0 : static_cast<unsigned char>(byte[0]) % limit;
    }

    std::string_view text(std::size_t length) {
        const std::string_view taken = bytes_.substr(0, length);
        bytes_.remove_prefix(taken.size());
        return taken;
    }

  private:
    std::string_view bytes_;
};

// Values that pass the rules of some tags, and placeholders.
constexpr std::string_view rightValues[] = {
    "01", "4111111111111111", "5812", "356", "12.50", "03", "2.5", "IN", "Korvo", "***", "?5"};

std::string value(unsigned right, Choices& choices) {
    switch (choices.below(4)) {
        case 0:
            return std::string(choices.text(choices.below(40)));
        case 1:
            return std::string(rightValues[choices.below(std::size(rightValues))]);
        default:
            return std::string(rightValues[right]);
    }
}

// An element whose length is sometimes wrong, or written with a sign.
std::string element(std::string_view tag, const std::string& text, Choices& choices) {
    const unsigned wrong = choices.below(64);
    const auto length = static_cast<unsigned>(characterCount(text)) + (wrong == 1 ? 1 : 0);
    const std::string field = tag.size() == 1
                                  ? std::string(1, "0123456789abcdefghijklmnopqrstuvwxyz"[length % 36])
                              : wrong == 2 && length < 10 ? std::string{'+', static_cast<char>('0' + length)}
                                                          : std::string(twoDigitText(length % 100));
    return std::string(tag) + field + text;
}

std::string additionalData(Choices& choices) {
    std::string nested;
    for (unsigned count = 1 + choices.below(4); count > 0; --count) {
        nested += element(twoDigitText(choices.below(24)), value(8, choices), choices);
    }
    return nested;
}

std::string twoDigitPayload(Choices& choices) {
    // The mandatory tags, each with its right value unless the fuzzer decides otherwise.
    constexpr unsigned mandatory[][2] = {{0, 0}, {2, 1}, {52, 2}, {53, 3}, {58, 7}, {59, 8}, {60, 8}};
    std::string payload;
    for (const auto& [tag, right] : mandatory) {
        payload += choices.below(32) == 1 ? std::string()
                                          : element(twoDigitText(tag), value(right, choices), choices);
    }
    while (!choices.atEnd()) {
        const unsigned tag = choices.below(66);
        const std::string text = tag == 62 ? additionalData(choices) : value(tag == 55 ? 5 : 4, choices);
        payload += element(twoDigitText(tag), text, choices);
    }
    return choices.below(16) == 1 ? payload + "6304FFFF" : test::closed(payload);
}

std::string oneCharacterPayload(Choices& choices) {
    constexpr std::string_view tags = "0123456789aAbBc";
    constexpr unsigned right[] = {1, 8, 2, 8, 7, 3, 4, 10, 10, 5, 4, 4, 6, 6, 8};
    std::string payload;
    for (unsigned tag = 0; tag < 6; ++tag) {
        payload += choices.below(32) == 1 ? std::string()
                                          : element(tags.substr(tag, 1), value(right[tag], choices), choices);
    }
    while (!choices.atEnd()) {
        const unsigned tag = choices.below(15);
        payload += element(tags.substr(tag, 1), value(right[tag], choices), choices);
    }
    return payload;
}

}  // namespace
}  // namespace korvo::fuzz

/// Parses payloads made of elements with right or slightly wrong lengths, values and checksums, so that the
/// fuzzer reaches the rules and the record and not only the decoder.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvo::fuzz::Choices choices(data, size);
    korvo::fuzz::checkPromises(choices.below(4) != 0 ? korvo::fuzz::twoDigitPayload(choices)
                                                     : korvo::fuzz::oneCharacterPayload(choices));
    return 0;
}
