#ifndef KORVOQRPARSER_DECODING_TEXT_ICUHANDLES_H
#define KORVOQRPARSER_DECODING_TEXT_ICUHANDLES_H

#include <memory>
#include <string_view>

#include <unicode/ubrk.h>
#include <unicode/ucasemap.h>
#include <unicode/uregex.h>
#include <unicode/utext.h>

namespace korvo {

struct CloseICU {
    void operator()(UBreakIterator* iterator) const noexcept { ubrk_close(iterator); }
    void operator()(UCaseMap* map) const noexcept { ucasemap_close(map); }
    void operator()(URegularExpression* expression) const noexcept { uregex_close(expression); }
    void operator()(UText* text) const noexcept { utext_close(text); }
};

/// Owns an ICU object and closes it.
template <class Object>
using ICUHandle = std::unique_ptr<Object, CloseICU>;

/// Opens valid UTF-8 as an ICU text without copying it. `storage` and the bytes must outlive the handle.
inline ICUHandle<UText> openUTF8(UText& storage, std::string_view text, UErrorCode& status) {
    return ICUHandle<UText>(
        utext_openUTF8(&storage, text.data(), static_cast<std::int64_t>(text.size()), &status));
}

}  // namespace korvo

#endif
