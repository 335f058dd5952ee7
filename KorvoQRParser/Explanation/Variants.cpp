#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Explanation/Lists.h>
#include <KorvoQRParser/Explanation/Variants.h>
#include <KorvoQRParser/Explanation/VisibleText.h>

#include <algorithm>
#include <array>
#include <optional>

namespace korvo {

namespace {

// Characters that end up around or inside a text by accident, with their names.
struct Stray {
    std::string_view character;
    std::string_view name;
    bool isInserted;  // a kind of its own inside the text
};
constexpr std::array strays{Stray{"\n", "line feed", true},
                            Stray{"\r\n", "carriage return and line feed", true},
                            Stray{"\r", "carriage return", true},
                            Stray{"\t", "tab", true},
                            Stray{" ", "blank", false},
                            Stray{"\u00A0", "no-break space", true},
                            Stray{"\uFEFF", "byte order mark", true},
                            Stray{"\u200B", "zero-width space", true},
                            Stray{"\u2060", "word joiner", true},
                            Stray{"\u2028", "line separator", true},
                            Stray{"\"", "quotation mark", false},
                            Stray{"'", "quotation mark", false},
                            Stray{"`", "quotation mark", false},
                            Stray{"\u201C", "quotation mark", false},
                            Stray{"\u201D", "quotation mark", false},
                            Stray{"\u2018", "quotation mark", false},
                            Stray{"\u2019", "quotation mark", false},
                            Stray{"\u00AB", "quotation mark", false},
                            Stray{"\u00BB", "quotation mark", false}};

const Stray* strayOf(std::string_view character) {
    const auto* const found =
        findIf(strays, [character](const Stray& stray) { return stray.character == character; });
    return found == strays.end() ? nullptr : found;
}

// "a line feed", "2 blanks", "a blank and a line feed".
std::string listOf(const Characters& text, std::size_t begin, std::size_t end) {
    std::string list;
    for (std::size_t at = begin; at < end;) {
        const Stray& stray = *strayOf(text.at(at));
        std::size_t next = at;
        while (next < end && strayOf(text.at(next))->name == stray.name) {
            ++next;
        }
        list += list.empty() ? "" : " and ";
        list += next - at > 1 ? counted(next - at, stray.name) : joined({"a ", stray.name});
        at = next;
    }
    return list;
}

// What is around the characters from `begin` to `end`.
std::string causeOfTrimming(const Characters& text, std::size_t begin, std::size_t end) {
    const std::string before = listOf(text, 0, begin);
    const std::string after = listOf(text, end, text.count());
    // A list begins with "a" or a number.
    const std::string beginning = (before.empty() ? after : before)[0] == 'a' ? "There is " : "There are ";
    if (before == after) {
        return joined({beginning, before, " before and after the payload."});
    }
    return beginning + (before.empty() ? "" : joined({before, " before the payload"})) +
           (before.empty() || after.empty() ? "" : ", and ") +
           (after.empty() ? "" : after + (before.empty() ? " after the payload" : " after it")) + '.';
}

Variant trimmed(const Draft& draft, const Characters& text, std::size_t begin, std::size_t end) {
    Variant variant{{}, 0.5, causeOfTrimming(text, begin, end)};
    variant.draft.append(draft, text.byteOf(begin), text.byteOf(end));
    return variant;
}

std::vector<Variant> trimmedVariants(const Draft& draft) {
    const Characters text(draft.text());
    std::size_t begin = 0;
    std::size_t end = text.count();
    while (begin < end && strayOf(text.at(begin)) != nullptr) {
        ++begin;
    }
    while (end > begin && strayOf(text.at(end - 1)) != nullptr) {
        --end;
    }
    std::vector<Variant> variants;
    if (begin == end) {
        return variants;
    }
    if (begin > 0 || end < text.count()) {
        variants.push_back(trimmed(draft, text, begin, end));
    }
    // The last value of a one-character payload may itself end with some of these.
    constexpr std::size_t most = 3;
    for (std::size_t kept = 1; kept <= most && end + kept < text.count(); ++kept) {
        variants.push_back(trimmed(draft, text, begin, end + kept));
        variants.back().cost += 0.1;
    }
    return variants;
}

// Forms write blanks as plus signs.
std::optional<Variant> percentDecoded(const Draft& encoded, bool hasPlusSigns) {
    const std::string& text = encoded.text();
    Variant variant{{}, 0.6, "The text is percent-encoded, as a part of a web address is."};
    bool isEncoded = false;
    for (std::size_t i = 0; i < text.size();) {
        const int high = i + 2 < text.size() ? digitValue(text[i + 1]) : 36;
        const int low = i + 2 < text.size() ? digitValue(text[i + 2]) : 36;
        if (text[i] == '%' && high < 16 && low < 16) {
            const char byte = static_cast<char>(16 * high + low);
            variant.draft.insert({&byte, 1});
            isEncoded = true;
            i += 3;
            continue;
        }
        if (hasPlusSigns && text[i] == '+') {
            variant.draft.insert(" ");
        } else {
            variant.draft.append(encoded, i, i + 1);
        }
        ++i;
    }
    return isEncoded && isUTF8(variant.draft.text()) ? std::optional(variant) : std::nullopt;
}

// Appends the decoded text, and what remains of it without what is around it.
void appendDecoded(std::vector<Variant>& variants, const Draft& draft, bool hasPlusSigns) {
    if (auto decoded = percentDecoded(draft, hasPlusSigns)) {
        for (Variant& shorter : trimmedVariants(decoded->draft)) {
            shorter.cost += decoded->cost;
            shorter.cause = decoded->cause + ' ' + shorter.cause;
            variants.push_back(std::move(shorter));
        }
        variants.push_back(std::move(*decoded));
    }
}

}  // namespace

std::vector<Variant> unwrappedVariants(std::string_view payload) {
    const Draft draft(payload);
    std::vector<Variant> variants = trimmedVariants(draft);
    appendDecoded(variants, draft, false);
    if (payload.find('+') != std::string_view::npos) {
        appendDecoded(variants, draft, true);
    }
    return variants;
}

std::vector<Insertions> insertionsIn(const Characters& text) {
    constexpr std::size_t mostSingles = 16;
    std::vector<Insertions> kinds;
    for (std::size_t place = 1; place < text.count(); ++place) {
        const bool isSecondBlank = text.at(place) == " " && text.at(place - 1) == " ";
        const Stray* const stray = strayOf(text.at(place));
        if (!isSecondBlank && (stray == nullptr || !stray->isInserted)) {
            continue;
        }
        const std::string_view name = isSecondBlank ? "second blank" : stray->name;
        auto kind = findIf(kinds, [name](const Insertions& other) { return other.name == name; });
        if (kind == kinds.end()) {
            kind = kinds.insert(kind, {name, {}});
        }
        kind->places.push_back(place);
    }
    for (std::size_t i = 0, count = kinds.size(); i < count; ++i) {
        const std::vector<std::size_t> places = kinds[i].places;
        for (std::size_t j = 0; places.size() > 1 && j < std::min(places.size(), mostSingles); ++j) {
            kinds.push_back({kinds[i].name, {places[j]}});
        }
    }
    return kinds;
}

Variant withoutInsertions(const Draft& draft, const Characters& text, const Insertions& insertions) {
    const auto& [name, places] = insertions;
    const std::string cause =
        places.size() > 1 ? joined({"There are ", counted(places.size(), name), " inside the text that"})
                          : joined({"There is a ", name, " inside the text, at offset ",
                                    std::to_string(places.front()), ", which"});
    Variant variant{{}, 0.7, joined({cause, " the lengths do not count."}), true};
    std::size_t begin = 0;
    for (const std::size_t place : places) {
        variant.draft.append(draft, begin, text.byteOf(place));
        begin = text.byteOf(place + 1);
    }
    variant.draft.append(draft, begin, draft.text().size());
    return variant;
}

}  // namespace korvo
