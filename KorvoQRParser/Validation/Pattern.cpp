#include <KorvoQRParser/Validation/Pattern.h>

#include <cstdio>

namespace korvo {

// An end is also before a line end that ends the text, but not inside CR LF.
bool Pattern::holds(const Item& anchor, std::string_view text, std::size_t offset) noexcept {
    if (anchor.kind == Kind::begin || offset == text.size()) {
        return anchor.kind == Kind::end || offset == 0;
    }
    const std::string_view rest = text.substr(offset);
    std::size_t end = 0;
    const bool isLast = isLineEnd(nextCodePoint(rest, end)) && end == rest.size();
    const bool isInCRLF = offset > 0 && text[offset - 1] == '\r' && rest[0] == '\n';
    return rest == "\r\n" || (isLast && !isInCRLF);
}

// Lets every active item match nothing, where it may, and the code point. Returns the items that are active
// after it.
std::uint64_t Pattern::advance(std::uint64_t& active, std::string_view text, std::size_t offset,
                               std::int32_t codePoint) const noexcept {
    std::uint64_t next = 0;
    for (std::size_t i = 0; i < count_ && active >> i != 0; ++i) {
        const Item& item = items_[i];
        if ((active >> i & 1U) == 0) {
            continue;
        }
        if (isAnchor(item) ? holds(item, text, offset) : item.mayBeAbsent) {
            active |= std::uint64_t{2} << i;
        }
        if (!isAnchor(item) && codePoint >= 0 && matches(item, codePoint)) {
            next |= std::uint64_t{item.mayRepeat ? 3U : 2U} << i;
        }
    }
    return next;
}

// Follows all ways to match at once: a bit of `active` is set when the items before it have matched.
bool Pattern::isFoundIn(std::string_view text) const noexcept {
    const bool isAnchored = count_ > 0 && items_[0].kind == Kind::begin;
    std::uint64_t active = 0;
    for (std::size_t offset = 0; fault_ == nullptr;) {
        active |= offset == 0 || !isAnchored ? 1U : 0U;
        const std::size_t start = offset;
        const std::int32_t codePoint = offset < text.size() ? nextCodePoint(text, offset) : -1;
        const std::uint64_t next = advance(active, text, start, codePoint);
        if (((active | next) >> count_ & 1U) != 0) {
            return true;
        }
        if (codePoint < 0 || (isAnchored && next == 0)) {
            return false;
        }
        active = next;
    }
    return false;
}

bool matchesRegex(std::string_view text, const Pattern& pattern) {
    if (pattern.fault() != nullptr) {
        std::printf("\"The pattern does not compile: %s, at byte %zu.\"\n", pattern.fault(),
                    pattern.offset());
    }
    return pattern.isFoundIn(text);
}

}  // namespace korvo
