#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Explanation/Characters.h>

#include <algorithm>

namespace korvo {

Characters::Characters(std::string_view text) : text_(text) {
    starts_.reserve(text.size() + 1);
    CharacterReader characters(text);
    do {
        starts_.push_back(static_cast<std::uint32_t>(characters.offset()));
    } while (characters.take(1));
}

std::size_t Characters::charactersBefore(std::size_t byte) const noexcept {
    const auto next = std::lower_bound(starts_.begin(), starts_.end(), byte);
    return static_cast<std::size_t>(next - starts_.begin());
}

std::size_t lengthIn(LengthUnit unit, std::string_view text) noexcept {
    if (unit == LengthUnit::characters) {
        return characterCount(text);
    }
    if (unit == LengthUnit::utf8Bytes) {
        return text.size();
    }
    constexpr std::int32_t beyondOneUnit = 0x10000;
    std::size_t length = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const std::int32_t codePoint = nextCodePoint(text, offset);
        length += unit == LengthUnit::utf16Units && codePoint >= beyondOneUnit ? 2 : 1;
    }
    return length;
}

}  // namespace korvo
