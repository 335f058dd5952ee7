#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Explanation/Caution.h>
#include <KorvoQRParser/Explanation/Lists.h>
#include <KorvoQRParser/Explanation/VisibleText.h>

#include <algorithm>
#include <array>
#include <optional>

namespace korvo {

namespace {

// The tags that decide who is paid and how much, in both formats.
struct MoneyTag {
    std::string_view twoDigitTag;
    std::string_view oneCharacterTag;  // empty if there is none
    bool isAlwaysNamed;
};
constexpr std::array moneyTags{MoneyTag{"02", "0", true}, MoneyTag{"04", "", false},
                               MoneyTag{"05", "", false}, MoneyTag{"06", "", false},
                               MoneyTag{"07", "", false}, MoneyTag{"54", "6", true},
                               MoneyTag{"56", "A", true}, MoneyTag{"57", "B", false},
                               MoneyTag{"", "7", false},  MoneyTag{"", "8", false}};

using Value = std::optional<std::string_view>;

// Tags are compared in upper case; those of the one-character format may be written in either.
bool isTag(std::string_view written, std::string_view tag) {
    return std::equal(written.begin(), written.end(), tag.begin(), tag.end(),
                      [](char a, char b) { return asciiUpperCase(a) == b; });
}

// The value of a tag, as far as the walk got. An element that does not fit has the text that is left.
Value valueOf(const PayloadWalk& walk, std::string_view tag) {
    for (const WalkedElement& walked : walk.elements) {
        if (walked.name == tag && !tag.empty()) {
            return walked.element.value.text();
        }
    }
    const auto& fault = walk.fault;
    const bool isCut = fault && fault->error == TLVDecodingError::InvalidTagLength &&
                       !fault->isInsideAdditionalData && !tag.empty() && isTag(fault->element.tag, tag) &&
                       fault->format.readLength(fault->element.length) >= fault->format.minimumLength;
    return isCut ? Value(fault->rest) : std::nullopt;
}

std::string quoted(const Value& value) {
    return value ? inQuotes(*value) : "nothing";
}

}  // namespace

MoneyChange compareMoney(std::string_view payload, const PayloadWalk& walk, std::string_view repaired,
                         const std::vector<std::string>& changedNames) {
    const PayloadWalk after(repaired);
    const bool isTwoDigit = isTwoDigitPayload(repaired).value_or(false);
    // A text that begins otherwise was not read in the same format at all.
    const bool isSameFormat = isTwoDigitPayload(payload) == isTwoDigit;
    MoneyChange change;
    change.sentence = "Ask the merchant before anybody pays:";
    std::string_view separator = " ";
    for (const auto& [twoDigitTag, oneCharacterTag, isAlwaysNamed] : moneyTags) {
        const std::string_view tag = isTwoDigit ? twoDigitTag : oneCharacterTag;
        const Value before = isSameFormat ? valueOf(walk, tag) : std::nullopt;
        const Value now = valueOf(after, tag);
        change.isChanged = change.isChanged || (before && before != now) || contains(changedNames, tag);
        if (tag.empty() || (!before && !now && !isAlwaysNamed)) {
            continue;
        }
        change.sentence += separator;
        change.sentence += namedTag(tag);
        change.sentence += !before && !now ? " is absent"
                           : before == now
                               ? joined({" reads ", inQuotes(*now), " before and after"})
                               : joined({" reads ", quoted(before), " before and ", quoted(now), " after"});
        separator = "; ";
    }
    change.sentence += '.';
    return change;
}

}  // namespace korvo
