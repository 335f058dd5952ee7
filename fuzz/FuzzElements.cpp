#include "Properties.h"
#include <KorvoQRParser/Decoding/TagRawValues.h>
#include <KorvoQRParser/Decoding/TextHelpers.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korvo::fuzz {
namespace {

// Takes decisions and texts from the fuzzer's bytes; zeros when they are used up.
class Choices {
  public:
    Choices(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool atEnd() const { return size_ == 0; }

    unsigned below(unsigned limit) {
        if (atEnd()) {
            return 0;
        }
        --size_;
        return *data_++ % limit;
    }

    std::string_view text(std::size_t length) {
        length = std::min(length, size_);
        const std::string_view taken(reinterpret_cast<const char*>(data_), length);
        data_ += length;
        size_ -= length;
        return taken;
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

constexpr std::string_view oneCharacterTags = "0123456789aAbBc";

// A value that a rule of the tag accepts, to get past it.
std::string_view rightValue(unsigned tag) {
    switch (tag) {
        case 0:
            return "01";
        case 2:
            return "4111111111111111";
        case 52:
            return "5812";
        case 53:
            return "356";
        case 54:
            return "12.50";
        case 55:
            return "03";
        case 57:
            return "2.5";
        case 58:
            return "IN";
        default:
            return "Korvo";
    }
}

// The one-character format's tags, as the two-digit ones with the same rule.
constexpr std::array<unsigned, 15> sameRule{2, 59, 52, 60, 58, 53, 54, 1, 1, 55, 56, 56, 57, 57, 1};

std::string lengthField(unsigned length, bool isTwoDigit, Choices& choices) {
    const unsigned wrong = choices.below(64);
    length += wrong == 1 ? 1 : 0;
    if (!isTwoDigit) {
        return std::string(1, "0123456789abcdefghijklmnopqrstuvwxyz"[length % 36]);
    }
    if (wrong == 2 && length < 10) {
        return std::string{'+', static_cast<char>('0' + length)};
    }
    return std::string(twoDigitText(length % 100));
}

std::string element(bool isTwoDigit, unsigned tag, Choices& choices);

std::string value(bool isTwoDigit, unsigned tag, Choices& choices) {
    if (isTwoDigit && tag == 62) {
        std::string nested;
        for (unsigned count = 1 + choices.below(4); count > 0; --count) {
            nested += element(true, 100 + choices.below(24), choices);
        }
        return nested;
    }
    switch (choices.below(4)) {
        case 0:
            return std::string(choices.text(choices.below(40)));
        case 1:
            return choices.below(2) == 0 ? "***" : "?5";
        default:
            return std::string(rightValue(isTwoDigit ? tag : sameRule[tag]));
    }
}

// Tags of 100 and more are sub-tags.
std::string element(bool isTwoDigit, unsigned tag, Choices& choices) {
    const std::string text = value(isTwoDigit, tag, choices);
    const auto length = static_cast<unsigned>(characterCount(text));
    const std::string written(isTwoDigit ? twoDigitText(tag % 100) : oneCharacterTags.substr(tag, 1));
    return written + lengthField(length, isTwoDigit, choices) + text;
}

std::string payload(Choices& choices) {
    const bool isTwoDigit = choices.below(4) != 0;
    std::string text;
    if (isTwoDigit) {
        // The tags that must be there are, unless the fuzzer says otherwise.
        for (const unsigned tag : {0U, 2U, 52U, 53U, 58U, 59U, 60U}) {
            text += choices.below(32) == 1 ? "" : element(true, tag, choices);
        }
        while (!choices.atEnd()) {
            text += element(true, choices.below(66), choices);
        }
        return choices.below(16) == 1 ? text + "6304FFFF" : text + checksumElement(text);
    }
    for (unsigned tag = 0; tag < 6; ++tag) {
        text += choices.below(32) == 1 ? "" : element(false, tag, choices);
    }
    while (!choices.atEnd()) {
        text += element(false, choices.below(15), choices);
    }
    return text;
}

}  // namespace
}  // namespace korvo::fuzz

/// Payloads made of elements with right or slightly wrong lengths, values and checksums, so that the rules
/// and the record are reached and not the decoder alone.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    korvo::fuzz::Choices choices(data, size);
    korvo::fuzz::checkPromises(korvo::fuzz::payload(choices));
    return 0;
}
