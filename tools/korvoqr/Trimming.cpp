#include "Trimming.h"

#include "LibraryInternals.h"
#include "Terminal.h"

#include <cstddef>
#include <cstdint>

#include <unicode/uchar.h>

namespace korvoqr {

namespace {

bool isAround(std::int32_t codePoint) {
    constexpr std::int32_t byteOrderMark = 0xFEFF;
    return codePoint == byteOrderMark || codePoint == '`' || u_isUWhiteSpace(codePoint) != 0 ||
           u_hasBinaryProperty(codePoint, UCHAR_QUOTATION_MARK) != 0;
}

std::size_t lastCodePointOf(std::string_view text) {
    std::size_t begin = text.size() - 1;
    while (begin > 0 && isContinuationByte(text[begin])) {
        --begin;
    }
    return begin;
}

}  // namespace

std::string_view trimmed(std::string_view text) {
    while (!text.empty()) {
        std::size_t end = 0;
        if (!isAround(korvo::nextCodePoint(text, end))) {
            break;
        }
        text.remove_prefix(end);
    }
    while (!text.empty()) {
        const std::size_t begin = lastCodePointOf(text);
        std::size_t end = begin;
        if (!isAround(korvo::nextCodePoint(text, end)) || end != text.size()) {
            break;
        }
        text = text.substr(0, begin);
    }
    return text;
}

}  // namespace korvoqr
