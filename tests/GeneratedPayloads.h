#ifndef KORVOQR_TESTS_GENERATEDPAYLOADS_H
#define KORVOQR_TESTS_GENERATEDPAYLOADS_H

#include "Payloads.h"
#include <KorvoQRParser/Decoding/TagRow.h>
#include <KorvoQRParser/Decoding/Text/CharacterProperties.h>
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>

#include <array>

/// Payloads made of elements that are right or slightly wrong: in a length, a value or the checksum.
/// `Choices` takes the decisions: a fuzzer's bytes or a random generator. below(n) is a number less than n;
/// text(n) is a text of about n characters; atEnd() ends the payload.
namespace korvo::test {

// Values that pass the rules of some tags, and placeholders.
inline constexpr std::string_view rightValues[] = {
    "01", "4111111111111111", "5812", "356", "12.50", "03", "2.5", "IN", "Korvo", "***", "?5"};

// The value that is right for a tag. That for a name is any text.
template <class Choices>
std::string generatedValue(unsigned right, Choices& choices) {
    const unsigned choice = choices.below(32);
    if (choice == 1 || (rightValues[right] == "Korvo" && choice < 24)) {
        return std::string(choices.text(choices.below(choice < 20 ? 13 : 40)));
    }
    return std::string(rightValues[choice == 2 ? choices.below(std::size(rightValues)) : right]);
}

// An element whose length is sometimes wrong, or written with a sign.
template <class Choices>
std::string generatedElement(std::string_view tag, const std::string& text, Choices& choices) {
    const unsigned wrong = choices.below(64);
    auto length = static_cast<unsigned>(characterCount(text));
    length += wrong == 1 ? 1U : wrong == 2 && length > 0 ? -1U : 0U;
    const std::string field = tag.size() == 1
                                  ? std::string(1, "0123456789abcdefghijklmnopqrstuvwxyz"[length % 36])
                              : wrong == 3 && length < 10 ? std::string{'+', static_cast<char>('0' + length)}
                                                          : std::string(twoDigitText(length % 100));
    return std::string(tag) + field + text;
}

template <class Choices>
std::string generatedAdditionalData(Choices& choices) {
    std::string nested;
    for (unsigned count = 1 + choices.below(3); count > 0; --count) {
        const std::string_view tag = twoDigitText(choices.below(24));
        nested += generatedElement(tag, generatedValue(8, choices), choices);
    }
    return nested;
}

// A tag, and the index of its right value.
using TagValue = std::pair<std::string_view, unsigned>;

template <class Choices>
std::string generatedPayload(Choices& choices) {
    const std::vector<TagValue> twoDigitTags{{"00", 0}, {"02", 1}, {"52", 2}, {"53", 3},
                                             {"58", 7}, {"59", 8}, {"60", 8}};
    const std::vector<TagValue> oneCharacterTags{{"0", 1}, {"1", 8}, {"2", 2}, {"3", 8}, {"4", 7}, {"5", 3}};
    const std::vector<TagValue> optionalTags{{"6", 4}, {"7", 10}, {"8", 10}, {"9", 5}, {"a", 4},
                                             {"A", 4}, {"b", 6},  {"B", 6},  {"c", 8}};
    const bool isTwoDigit = choices.below(4) != 0;
    std::string payload;
    for (const auto& [tag, right] : isTwoDigit ? twoDigitTags : oneCharacterTags) {
        if (choices.below(64) != 1) {
            payload += generatedElement(tag, generatedValue(right, choices), choices);
        }
    }
    while (!choices.atEnd()) {
        const auto [tag, right] =
            isTwoDigit ? TagValue{twoDigitText(choices.below(66)), 4} : optionalTags[choices.below(9)];
        const bool isData = isTwoDigit && (tag == "62" || choices.below(4) == 0);
        payload += generatedElement(
            isData ? "62" : tag,
            isData ? generatedAdditionalData(choices) : generatedValue(tag == "55" ? 5 : right, choices),
            choices);
    }
    return !isTwoDigit ? payload : choices.below(32) == 1 ? payload + "6304FFFF" : closed(payload);
}

/// All code points except NUL and surrogates, those of each break class together.
struct TextsByBreakClass : std::array<std::vector<std::string>, breakClassCount> {
    TextsByBreakClass() {
        for (std::uint32_t c = 1; c < 0x110000; c = c == 0xD7FF ? 0xE000 : c + 1) {
            at(static_cast<std::size_t>(propertiesOf(static_cast<std::int32_t>(c)).breakClass))
                .push_back(utf8(c));
        }
    }
};

}  // namespace korvo::test

#endif
