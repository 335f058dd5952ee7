#include <KorvoQRParser/Decoding/TLVElementReader.h>
#include <KorvoQRParser/Decoding/TagRow.h>
#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>

namespace korvo {

namespace {

// The length of the longest UTF-8 code point. A digit is one code point, in either letter case.
constexpr std::size_t maxDigitBytes = 4;

// The bit of a tag in the set of seen tags; negative when it has none. Only tags of two digits or of one
// ASCII character have a bit: every other tag is unknown, and decoding ends at the first unknown tag.
int seenTagBit(std::string_view tag) {
    if (tag.size() == 1) {
        return static_cast<unsigned char>(asciiLowerCase(tag[0]));
    }
    return twoDigitNumber(tag);
}

}  // namespace

std::optional<TLVDecodingError> TLVElementReader::next(TLVElement& element) noexcept {
    const auto tag = characters_.take(format_.fieldWidth);
    if (!tag) {
        element = {};
        return TLVDecodingError::InvalidTagLength;
    }
    element = {*tag, {}, {}};
    if (isRepeated(*tag)) {
        return TLVDecodingError::RepeatedTag;
    }
    const auto lengthField = characters_.take(format_.fieldWidth);
    if (!lengthField) {
        return TLVDecodingError::InvalidTagLength;
    }
    element.length = *lengthField;
    const std::int64_t length = format_.readLength(*lengthField);
    if (length < format_.minimumLength) {
        return TLVDecodingError::InvalidTagLength;
    }
    const auto valueLength = static_cast<std::size_t>(length);
    const auto value = characters_.take(valueLength);
    if (!value) {
        return TLVDecodingError::InvalidTagLength;
    }
    element.value = {*value, valueLength};
    return std::nullopt;
}

bool TLVElementReader::isRepeated(std::string_view tag) noexcept {
    const int bit = seenTagBit(tag);
    if (bit < 0) {
        return false;
    }
    const bool repeated = seenTags_[static_cast<std::size_t>(bit)];
    seenTags_[static_cast<std::size_t>(bit)] = true;
    return repeated;
}

std::int64_t TLVFormat::readLength(std::string_view field) const noexcept {
    // Nearly every length field takes this path, which avoids the general parse.
    if (const int number = twoDigitNumber(field); number >= 0) {
        return number;
    }
    // A letter outside ASCII may have a digit of base 36 as its lower case: that of the Kelvin sign is "k". A
    // string this short fits into its small buffer, so nothing can be thrown.
    if (fieldWidth == 1 && field.size() > 1 && field.size() <= maxDigitBytes) {
        return parseInteger(lowerCased(field), lengthRadix).value_or(-1);
    }
    return parseInteger(field, lengthRadix).value_or(-1);
}

}  // namespace korvo
