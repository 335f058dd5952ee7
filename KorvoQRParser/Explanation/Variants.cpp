#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Explanation/Variants.h>
#include <KorvoQRParser/Explanation/Violations.h>

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
    const auto* const found = std::find_if(strays.begin(), strays.end(), [character](const Stray& stray) {
        return stray.character == character;
    });
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
        list += next - at > 1 ? counted(next - at, stray.name) : "a " + std::string(stray.name);
        at = next;
    }
    return list;
}

// What is around the characters from `begin` to `end`.
std::string causeOfTrimming(const Characters& text, std::size_t begin, std::size_t end) {
    const std::string before = listOf(text, 0, begin);
    const std::string after = listOf(text, end, text.count());
    if (before == after) {
        return "There is " + before + " before and after the payload.";
    }
    return "There is " + (before.empty() ? "" : before + " before the payload") +
           (before.empty() || after.empty() ? "" : ", and ") +
           (after.empty() ? "" : after + (before.empty() ? " after the payload" : " after it")) + '.';
}

Variant trimmed(const Characters& text, std::size_t begin, std::size_t end) {
    Variant variant{{}, 0.5, causeOfTrimming(text, begin, end)};
    variant.draft.append(Draft(text.text()), text.byteOf(begin), text.byteOf(end));
    return variant;
}

std::vector<Variant> trimmedVariants(std::string_view payload) {
    const Characters text(payload);
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
        variants.push_back(trimmed(text, begin, end));
    }
    // The last value of a one-character payload may itself end with some of these.
    constexpr std::size_t most = 3;
    for (std::size_t kept = 1; kept <= most && end + kept < text.count(); ++kept) {
        variants.push_back(trimmed(text, begin, end + kept));
        variants.back().cost += 0.1;
    }
    return variants;
}

std::optional<Variant> percentDecoded(const Draft& encoded) {
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
        } else {
            variant.draft.append(encoded, i, i + 1);
            ++i;
        }
    }
    return isEncoded && isUTF8(variant.draft.text()) ? std::optional(variant) : std::nullopt;
}

// The same with blanks for plus signs, as forms write them.
Variant withBlanksForPlusSigns(const Variant& decoded) {
    Variant variant = decoded;
    variant.draft = {};
    variant.cost += 0.1;
    const std::string& text = decoded.draft.text();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '+') {
            variant.draft.insert(" ");
        } else {
            variant.draft.append(decoded.draft, i, i + 1);
        }
    }
    return variant;
}

void appendDecoded(std::vector<Variant>& variants, const Draft& draft, double cost, std::string_view cause) {
    if (auto decoded = percentDecoded(draft)) {
        decoded->cost += cost;
        decoded->cause.insert(0, std::string(cause) + (cause.empty() ? "" : " "));
        if (decoded->draft.text().find('+') != std::string::npos) {
            variants.push_back(withBlanksForPlusSigns(*decoded));
        }
        variants.push_back(std::move(*decoded));
    }
}

// The places of the characters that may have been inserted, by their name.
struct Insertions {
    std::string_view name;
    std::vector<std::size_t> places;
};

std::vector<Insertions> insertionsIn(const Characters& text) {
    std::vector<Insertions> kinds;
    for (std::size_t place = 1; place < text.count(); ++place) {
        const bool isSecondBlank = text.at(place) == " " && text.at(place - 1) == " ";
        const Stray* const stray = strayOf(text.at(place));
        if (!isSecondBlank && (stray == nullptr || !stray->isInserted)) {
            continue;
        }
        const std::string_view name = isSecondBlank ? "second blank" : stray->name;
        auto kind = std::find_if(kinds.begin(), kinds.end(),
                                 [name](const Insertions& other) { return other.name == name; });
        if (kind == kinds.end()) {
            kind = kinds.insert(kind, {name, {}});
        }
        kind->places.push_back(place);
    }
    return kinds;
}

Variant without(const Draft& draft, const Characters& text, std::string_view name,
                const std::vector<std::size_t>& places) {
    std::string cause = places.size() > 1
                            ? "There are " + counted(places.size(), name) + " inside the text"
                            : "There is a " + std::string(name) + " inside the text, at offset " +
                                  std::to_string(places.front());
    Variant variant{
        {}, 0.7, cause + (places.size() > 1 ? " that" : ", which") + " the lengths do not count."};
    std::size_t begin = 0;
    for (const std::size_t place : places) {
        variant.draft.append(draft, begin, text.byteOf(place));
        begin = text.byteOf(place + 1);
    }
    variant.draft.append(draft, begin, draft.text().size());
    return variant;
}

}  // namespace

std::vector<Variant> unwrappedVariants(std::string_view payload) {
    std::vector<Variant> variants = trimmedVariants(payload);
    std::vector<Variant> decoded;
    appendDecoded(decoded, Draft(payload), 0, "");
    for (const Variant& variant : variants) {
        appendDecoded(decoded, variant.draft, variant.cost, variant.cause);
    }
    // What is around a text may be encoded with it.
    const std::size_t count = decoded.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Characters text(decoded[i].draft.text());
        std::size_t end = text.count();
        while (end > 0 && strayOf(text.at(end - 1)) != nullptr) {
            --end;
        }
        if (end < text.count()) {
            Variant shorter{{}, decoded[i].cost + 0.1, decoded[i].cause};
            shorter.draft.append(decoded[i].draft, 0, text.byteOf(end));
            decoded.push_back(std::move(shorter));
        }
    }
    variants.insert(variants.end(), decoded.begin(), decoded.end());
    return variants;
}

std::vector<Variant> variantsWithoutInsertions(const Draft& draft) {
    constexpr std::size_t mostSingles = 16;
    const Characters text(draft.text());
    std::vector<Variant> variants;
    for (const Insertions& kind : insertionsIn(text)) {
        variants.push_back(without(draft, text, kind.name, kind.places));
        for (std::size_t i = 0; kind.places.size() > 1 && i < std::min(kind.places.size(), mostSingles);
             ++i) {
            variants.push_back(without(draft, text, kind.name, {kind.places[i]}));
        }
    }
    return variants;
}

}  // namespace korvo
