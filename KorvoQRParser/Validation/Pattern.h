#ifndef KORVOQRPARSER_VALIDATION_PATTERN_H
#define KORVOQRPARSER_VALIDATION_PATTERN_H

#include <KorvoQRParser/Decoding/Text/UTF8.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvo {

/// A regular expression without groups and alternatives: characters, escapes (a backslash before punctuation,
/// n, r or t), `.`, classes with ranges and negation, `^`, `$`, and one of `?`, `*`, `+` after an item. All
/// mean the same as in ICU. A constant pattern is compiled by the compiler.
class Pattern {
  public:
    /// Compiles a pattern of up to 15 items. The text must outlive the object.
    constexpr explicit Pattern(std::string_view text) noexcept : text_(text) {
        while (fault_ == nullptr && offset_ < text.size()) {
            compileItem();
        }
    }

    /// The reason why the pattern does not compile; null when it does.
    constexpr const char* fault() const noexcept { return fault_; }
    /// The byte at which compiling ended.
    constexpr std::size_t offset() const noexcept { return offset_; }

    /// Whether the pattern matches anywhere in a valid UTF-8 text; false when it does not compile. Takes time
    /// in proportion to the product of both lengths at most, and no memory.
    bool isFoundIn(std::string_view text) const noexcept;

  private:
    static constexpr std::size_t maxItems = 15;
    static constexpr const char* setOperation = "operations on classes are not supported";

    enum class Kind : std::uint8_t { character, any, oneOf, noneOf, begin, end };
    struct Item {
        std::uint32_t first = 0;  // the bytes of the character, or of the members of the class
        std::uint32_t last = 0;
        Kind kind = Kind::character;
        bool mayBeAbsent = false;
        bool mayRepeat = false;
        std::array<std::uint64_t, 2> ascii{};  // a bit for each ASCII character that it matches
    };

    static constexpr bool isPunctuation(char c) noexcept {
        return c > ' ' && c <= '~' && !(c >= '0' && c <= '9') && !(c >= 'A' && c <= 'Z') &&
               !(c >= 'a' && c <= 'z');
    }

    // One character of a class, or outside it. Negative for an escape that is not supported.
    static constexpr std::int32_t nextCharacter(std::string_view text, std::size_t& offset) noexcept {
        if (text[offset] != '\\') {
            return nextCodePoint(text, offset);
        }
        const char escaped = offset + 1 < text.size() ? text[offset + 1] : '\0';
        offset += 2;
        switch (escaped) {
            case 'n':
                return '\n';
            case 'r':
                return '\r';
            case 't':
                return '\t';
            default:
                return isPunctuation(escaped) ? escaped : -1;
        }
    }

    constexpr bool isAt(char c) const noexcept { return offset_ < text_.size() && text_[offset_] == c; }
    constexpr void fail(std::size_t offset, const char* reason) noexcept {
        offset_ = offset;
        fault_ = reason;
    }

    constexpr std::int32_t takeCharacter() noexcept {
        const std::size_t start = offset_;
        const std::int32_t character = nextCharacter(text_, offset_);
        if (character < 0) {
            fail(start, text_[start] == '\\' ? "the escape is not supported" : "the bytes are not UTF-8");
        }
        return character;
    }

    constexpr void compileItem() noexcept {
        if (count_ == maxItems) {
            return fail(offset_, "the pattern has more than 15 items");
        }
        Item item;
        item.first = static_cast<std::uint32_t>(offset_);
        switch (text_[offset_]) {
            case '^':
                item.kind = Kind::begin;
                ++offset_;
                break;
            case '$':
                item.kind = Kind::end;
                ++offset_;
                break;
            case '.':
                item.kind = Kind::any;
                ++offset_;
                break;
            case '[':
                compileClass(item);
                break;
            case '?':
            case '*':
            case '+':
                return fail(offset_, "the quantifier has no item before it");
            case '(':
            case ')':
            case '|':
            case '{':
            case '}':
            case ']':
                return fail(offset_, "groups, alternatives and counts are not supported");
            default:
                (void)takeCharacter();
                item.last = static_cast<std::uint32_t>(offset_);
        }
        compileQuantifier(item);
        for (std::int32_t c = 0; c < 128 && fault_ == nullptr && !isAnchor(item); ++c) {
            item.ascii[static_cast<std::size_t>(c) / 64] |= std::uint64_t{compares(item, c) ? 1U : 0U}
                                                            << (c % 64);
        }
        items_[count_++] = item;
    }

    constexpr void compileQuantifier(Item& item) noexcept {
        if (fault_ != nullptr || !(isAt('?') || isAt('*') || isAt('+'))) {
            return;
        }
        if (isAnchor(item)) {
            return fail(offset_, "an anchor has no quantifier");
        }
        item.mayBeAbsent = !isAt('+');
        item.mayRepeat = !isAt('?');
        ++offset_;
    }

    constexpr void compileClass(Item& item) noexcept {
        const std::size_t start = offset_++;
        if (isAt(':')) {
            return fail(start, "named classes are not supported");
        }
        item.kind = isAt('^') ? Kind::noneOf : Kind::oneOf;
        offset_ += isAt('^') ? 1 : 0;
        item.first = static_cast<std::uint32_t>(offset_);
        while (fault_ == nullptr && offset_ < text_.size() && !isAt(']')) {
            compileMember();
        }
        if (fault_ != nullptr) {
            return;
        }
        item.last = static_cast<std::uint32_t>(offset_);
        if (offset_ == text_.size() || item.last == item.first) {
            return fail(start, "the class is empty or has no closing bracket");
        }
        ++offset_;
    }

    // A hyphen makes a range, except as the first or last member of its class.
    constexpr void compileMember() noexcept {
        const std::size_t start = offset_;
        if (isAt('[') || text_.substr(start, 2) == "&&" || text_.substr(start, 2) == "--") {
            return fail(start, setOperation);
        }
        const std::int32_t lowest = takeCharacter();
        if (fault_ != nullptr || !isRange(text_, offset_)) {
            return;
        }
        ++offset_;
        if (isAt('[') || isAt('-')) {
            return fail(offset_, setOperation);
        }
        if (takeCharacter() < lowest && fault_ == nullptr) {
            return fail(start, "the range ends before it begins");
        }
    }

    static constexpr bool isRange(std::string_view text, std::size_t offset) noexcept {
        return offset + 1 < text.size() && text[offset] == '-' && text[offset + 1] != ']';
    }

    static constexpr bool isLineEnd(std::int32_t c) noexcept {
        return (c >= '\n' && c <= '\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
    }

    static constexpr bool isAnchor(const Item& item) noexcept {
        return item.kind == Kind::begin || item.kind == Kind::end;
    }

    // Whether the item, which is no anchor, matches the code point.
    constexpr bool compares(const Item& item, std::int32_t codePoint) const noexcept {
        if (item.kind == Kind::any) {
            return !isLineEnd(codePoint);
        }
        const std::string_view members = text_.substr(item.first, item.last - item.first);
        for (std::size_t offset = 0; offset < members.size();) {
            const std::int32_t lowest = nextCharacter(members, offset);
            std::int32_t highest = lowest;
            if (item.kind != Kind::character && isRange(members, offset)) {
                ++offset;
                highest = nextCharacter(members, offset);
            }
            if (codePoint >= lowest && codePoint <= highest) {
                return item.kind != Kind::noneOf;
            }
        }
        return item.kind == Kind::noneOf;
    }

    bool matches(const Item& item, std::int32_t codePoint) const noexcept {
        const auto c = static_cast<std::uint32_t>(codePoint);
        return c < 128 ? (item.ascii[c / 64] >> c % 64 & 1U) != 0 : compares(item, codePoint);
    }

    static bool holds(const Item& anchor, std::string_view text, std::size_t offset) noexcept;
    std::uint64_t advance(std::uint64_t& active, std::string_view text, std::size_t offset,
                          std::int32_t codePoint) const noexcept;

    std::string_view text_;
    std::array<Item, maxItems> items_{};
    std::size_t count_ = 0;
    std::size_t offset_ = 0;
    const char* fault_ = nullptr;
};

/// Whether the pattern is found in the text. For a pattern that does not compile, one line on standard output
/// says, in quotes, what is wrong with it and where.
[[nodiscard]] bool matchesRegex(std::string_view text, const Pattern& pattern);

}  // namespace korvo

#endif
