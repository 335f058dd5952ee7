#ifndef KORVOQR_TESTS_FAULTYPAYLOADS_H
#define KORVOQR_TESTS_FAULTYPAYLOADS_H

#include "Payloads.h"
#include <KorvoQRParser/Decoding/Text/CharacterReader.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Validation/ISOCountryCodes.h>

#include <algorithm>
#include <cctype>
#include <numeric>
#include <random>

/// Right payloads, each spoiled by one everyday fault.
namespace korvo::test {

using Texts = std::vector<std::string_view>;

// clang-format off
/// Words for names. Those after the first row are not ASCII: accents, accents as combining marks, Devanagari,
/// Chinese, Arabic, emoji with modifiers.
inline const std::vector<Texts> scripts{
    {"KORVO", "CAFE", "Sharma", "& Sons", "General", "Store", "Tea", "House", "No. 7", "24x7", "Anna's", "Books"},
    {"Caf\u00E9", "M\u00FCller", "Se\u00F1or", "Cr\u00EAperie", "Zo\u00EB"},
    {"Cafe\u0301", "Mu\u0308ller", "Sen\u0303or"},
    {"\u092E\u0941\u0902\u092C\u0908", "\u091A\u093E\u092F", "\u0928\u092E\u0938\u094D\u0924\u0947"},
    {"\u5317\u4EAC", "\u8336\u9986", "\u5C0F\u5403\u5E97"},
    {"\u0645\u0642\u0647\u0649", "\u0633\u0648\u0642"},
    {"\U0001F44D\U0001F3FD", "\U0001F469\u200D\U0001F373", "\u2615\uFE0F"}};
// clang-format on

/// Whether a tag's value is an identifier, an amount or a fee.
inline bool isGuarded(const std::string& tag) {
    return std::string_view(" 02 04 05 06 07 54 56 57 0 6 7 8 A B ").find(" " + tag + " ") !=
           std::string::npos;
}

inline std::vector<std::string> charactersOf(std::string_view text) {
    std::vector<std::string> characters;
    for (CharacterReader reader(text); const auto character = reader.take(1);) {
        characters.emplace_back(*character);
    }
    return characters;
}

struct Part {
    std::string tag;
    std::string value;
    std::string length{};  ///< as written; empty for the right one
};

inline std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// A length as it is written; one that is too large is not of the right size.
inline std::string lengthText(std::string_view tag, std::size_t length) {
    const std::string digits = "0123456789abcdefghijklmnopqrstuvwxyz";
    return tag.size() == 1 ? digits.substr(std::min(length, digits.size()), 1)
                           : std::string(length < 10 ? 1 : 0, '0').append(std::to_string(length));
}

/// The length of a text in characters (c), bytes (b), code points (p) or UTF-16 units (u).
inline std::size_t lengthIn(char unit, std::string_view text) {
    std::size_t length = unit == 'c' ? characterCount(text) : 0;
    for (const char c : unit == 'c' ? "" : text) {
        length += unit == 'b' || (c & 0xC0) != 0x80 ? 1 : 0;
        length += unit == 'u' && (c & 0xF8) == 0xF0 ? 1 : 0;
    }
    return length;
}

inline std::string joined(const std::vector<Part>& parts, char unit) {
    std::string text;
    for (const Part& part : parts) {
        const std::string length = lengthText(part.tag, lengthIn(unit, part.value));
        text += part.tag + (part.length.empty() ? length : part.length) + part.value;
    }
    return text;
}

struct FaultyText {
    std::string right;       ///< the payload as it was
    std::string text;        ///< the spoiled payload
    std::string element;     ///< the name of the element concerned; may be empty
    std::string checksum;    ///< the digits written in the spoiled payload
    bool isCovered = false;  ///< they are the checksum of the spoiled text
};

/// A right payload, and what a fault makes of it. If it cannot have the fault, it stays accepted.
class FaultyPayload : public FaultyText {
  public:
    using Fault = void (FaultyPayload::*)(const Texts& arguments);

    FaultyPayload(std::mt19937_64& random, bool isTwoDigit) : random_(random), isTwoDigit_(isTwoDigit) {
        makeParts();
        right = text = written(parts_);
    }

    void spoil(Fault fault, const Texts& arguments, bool isFaultCovered) {
        isCovered = isFaultCovered && isTwoDigit_;
        element.clear();
        (this->*fault)(arguments);
        text = text == right ? written(parts_) : text;
        const Part* const sum = find("63");
        checksum = sum == nullptr ? "" : sum->value;
        if (isCovered) {
            text.resize(text.size() - 4);
            text += checksum = test::checksum(text);
        }
    }

    /// In the root ("root" or, for identifiers, amounts and fees, "guarded") or "inside" tag 62; a second
    /// argument asks for one digit.
    void wrongLength(const Texts& arguments) {
        const bool isInside = arguments[0] == "inside";
        Part* part = isInside ? find("62") : &parts_[below(parts_.size())];
        if (part == nullptr || (!isInside && isGuarded(part->tag) != (arguments[0] == "guarded"))) {
            return;
        }
        element = part->tag;
        if (isInside) {
            part = &data_[below(data_.size())];
            element += "/" + part->tag;
        }
        const std::size_t length = characterCount(valueOf(*part));
        const std::size_t off = 1 + below(3);
        const std::size_t wrong = percent(50) && off <= length ? length - off : length + off;
        part->length = arguments.size() > 1 ? std::to_string(length) : lengthText(part->tag, wrong);
    }
    void otherUnits(const Texts& units) {
        const std::string other = written(parts_, units[0][0]);
        text = other.size() == right.size() ? other : right;
    }

    /// The value of a tag becomes one of the texts after it, in which { is the value as it was.
    void revalued(const Texts& arguments) {
        if (Part* const part = find(arguments[0])) {
            element = part->tag;
            part->length = element == "63" && percent(50) ? "04" : "";
            part->value = filled(arguments[1 + below(arguments.size() - 1)], part->value);
        }
    }
    /// A country in lower case, or a currency as letters.
    void respelt(const Texts& tags) {
        Part& part = *find(tags[0]);
        element = part.tag;
        part.value = part.value[0] > '9'
                         ? lowerCase(part.value)
                         : std::string(ISOCountryCodes::findCurrency(std::stoi(part.value))->letters());
    }
    void missing(const Texts& tags) {
        if (const Part* const part = find(oneOf(tags))) {
            element = part->tag;
            parts_.erase(at(part - parts_.data()));
        }
    }
    void moved(const Texts& tags) {
        if (const Part* const found = find(tags[0])) {
            const Part part = *found;
            element = part.tag;
            parts_.erase(at(found - parts_.data()));
            parts_.insert(at(1 + below(parts_.size() - 1)), part);
        }
    }
    void twice(const Texts& /*none*/) {
        const std::size_t end = parts_.size() - (isTwoDigit_ ? 1 : 0);
        const std::size_t index = below(end);
        const Part part = parts_[index];
        element = part.tag;
        parts_.insert(at(index + 1 + (percent(50) ? 0 : below(end - index))), part);
    }
    /// The identifier becomes another value under another tag.
    void identifierReplaced(const Texts& valueAndTags) {
        const std::string_view tag = valueAndTags[1 + below(valueAndTags.size() - 1)];
        if (find(tag) == nullptr) {
            *find("02") = {element = tag, filled(valueAndTags[0])};
        }
    }

    /// Changes, loses, doubles or transposes characters of a value. No change is one of form only.
    void characterSpoiled(const Texts& how) {
        Part* part = &parts_[below(parts_.size() - (isTwoDigit_ ? 1 : 0))];
        element = part->tag;
        if (element == "62") {
            part->length = lengthText(part->tag, characterCount(valueOf(*part)));
            part = &data_[below(data_.size())];
            element += "/" + part->tag;
        }
        auto characters = charactersOf(part->value);
        part->length = lengthText(part->tag, characters.size());
        const auto place = characters.begin() + static_cast<std::ptrdiff_t>(below(characters.size()));
        if (how[0] == "changed") {
            *place = filled(std::isdigit(static_cast<unsigned char>(place->front())) ? "#" : "@");
        } else if (how[0] == "lost") {
            characters.erase(place);
        } else if (how[0] == "doubled" && *place != " ") {
            place->append(*place);
        } else if (how[0] == "transposed" && place + 1 != characters.end()) {
            std::swap(*place, *(place + 1));
        }
        part->value = std::accumulate(characters.begin(), characters.end(), std::string());
    }

    /// The text becomes one of these texts, in which { is the text as it was.
    void rewritten(const Texts& texts) { text = filled(texts[below(isCovered ? 1 : texts.size())], text); }
    void cut(const Texts& /*none*/) { text.resize(below(text.size())); }
    /// Inserts one of the texts behind a character inside the payload, blanks behind a blank.
    void inserted(const Texts& texts) {
        const std::size_t index = below(parts_.size() - (isCovered ? 1 : 0));
        const std::string part = written({parts_[index]});
        CharacterReader reader(part);
        const bool isBlank = reader.take(1 + below(characterCount(part)))->ends_with(' ');
        const std::size_t place = written({at(0), at(index)}).size() + reader.offset();
        element = parts_[index].tag;
        if ((isBlank || texts[0] != " ") && place < text.size()) {
            text.insert(place, oneOf(texts));
        }
    }
    /// Encodes everything except letters, digits and these characters; without any, only blanks.
    void percentEncoded(const Texts& kept) {
        text.clear();
        for (const char c : right) {
            const auto byte = static_cast<unsigned char>(c);
            const bool isKept =
                kept.empty() ? c != ' ' : std::isalnum(byte) || kept[0].find(c) != std::string::npos;
            const std::string_view digits = "0123456789ABCDEF";
            text += isKept ? std::string{c} : std::string{'%', digits[byte / 16], digits[byte % 16]};
        }
    }
    /// Encodes the text as Latin-1, or as UTF-16 in either order of bytes with the mark or without it.
    void encoded(const Texts& encoding) {
        const bool isLatin1 = encoding[0] == "Latin-1";
        const bool isSwapped = percent(50);
        std::string bytes = isLatin1 || percent(50) ? "" : isSwapped ? "\xFF\xFE" : "\xFE\xFF";
        for (std::size_t at = 0; at < right.size();) {
            const std::int32_t c = nextCodePoint(right, at);
            if (c > (isLatin1 ? 0xFF : 0xFFFF)) {
                return;
            }
            std::string unit{static_cast<char>(c >> 8), static_cast<char>(c)};
            if (isLatin1 || isSwapped) {
                std::swap(unit[0], unit[1]);
            }
            bytes += unit.substr(0, isLatin1 ? 1 : 2);
        }
        text = bytes;
    }

  private:
    std::string valueOf(const Part& part, char unit = 'c') const {
        return part.tag == "62" ? joined(data_, unit) : part.value;
    }
    std::string written(std::vector<Part> parts, char unit = 'c') const {
        for (Part& part : parts) {
            part.value = valueOf(part, unit);
        }
        return joined(parts, unit);
    }
    std::size_t below(std::size_t limit) { return random_() % limit; }
    bool percent(std::size_t chance) { return below(100) < chance; }
    std::string_view oneOf(const Texts& texts) { return texts[below(texts.size())]; }
    std::vector<Part>::iterator at(auto index) { return parts_.begin() + static_cast<std::ptrdiff_t>(index); }
    /// An element by its two-digit tag, followed by its one-character tag.
    Part* find(std::string_view tags) {
        const std::string_view tag = isTwoDigit_ ? tags.substr(0, 2) : tags.substr(2);
        const auto found =
            std::find_if(parts_.begin(), parts_.end(), [tag](const Part& part) { return part.tag == tag; });
        return found == parts_.end() ? nullptr : &*found;
    }
    /// # becomes a digit, @ a digit or a capital letter, { the other text.
    std::string filled(std::string_view pattern, const std::string& other = "") {
        std::string filled;
        for (const char c : pattern) {
            const char letter = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[below(c == '#' ? 10 : 36)];
            filled += c == '{' ? other : std::string{c == '#' || c == '@' ? letter : c};
        }
        return filled;
    }
    std::string upTo(std::size_t length, char c) { return filled(std::string(1 + below(length), c)); }
    std::string amount() {
        return std::to_string(1 + below(99999)) + filled(oneOf({"", ".00", ".00", ".50", ".#", ".##"}));
    }
    std::string identifier() {
        std::string id;
        do {
            id = filled("4######") + upTo(9, '#');
        } while (!codesIn(QRCodeParser::parseQRData(with(oneCharacter, {{"0", id}}))).empty());
        return id;
    }
    std::string name(std::size_t longest) {
        const Texts& script = scripts[percent(75) ? 0 : below(scripts.size())];
        std::string name(oneOf(script));
        for (std::size_t more = below(4); more > 0; --more) {
            const std::string longer = name + ' ' + std::string(oneOf(percent(50) ? script : scripts[0]));
            name = characterCount(longer) <= longest ? longer : name;
        }
        return name;
    }

    void add(std::size_t chance, std::string_view tags, const std::string& value) {
        const std::string_view tag = isTwoDigit_ ? tags.substr(0, 2) : tags.substr(2);
        if (percent(tag.empty() || tag == "--" ? 0 : chance)) {
            parts_.push_back({std::string(tag), value});
        }
    }
    void makeParts() {
        using namespace ISOCountryCodes;
        const auto number = availableISOCurrencies.at(below(availableISOCurrencies.size())).number();
        const auto country = availableISOCountries.at(below(availableISOCountries.size()));
        const std::size_t tip = below(15);
        add(100, "00", "01");
        add(60, "01", percent(50) ? "11" : "12");
        add(100, "020", identifier());
        for (std::size_t tag = 3; tag < 26; ++tag) {
            add(tag < 8 ? 8 : 2, lengthText("00", tag), tag < 6 ? upTo(16, '#') : upTo(20, '@'));
        }
        add(15, lengthText("00", 26 + below(26)), filled("0010A0000#####0112@@@@@@@@@@@@"));
        add(100, "522", filled("####"));
        add(100, "535", percent(50) ? "356" : std::to_string(1000 + number).substr(1));
        add(50, "546", amount());
        add(tip < 3 ? 100 : 0, "559", "0" + std::to_string(tip + 1));
        add(tip == 1 ? 100 : 0, "56A", amount());
        add(tip == 2 ? 100 : 0, "57B", std::to_string(1 + below(98)) + (percent(50) ? ".5" : ""));
        add(100, "584", std::string(percent(50) ? "IN" : country));
        add(100, "591", name(25));
        add(100, "603", name(13));
        add(50, "61", filled(percent(80) ? "######" : "@@@ @@@"));
        add(30, "--7", percent(30) ? "?5" : upTo(26, '@'));
        add(20, "--8", upTo(12, '#'));
        add(50, "62", "");
        for (std::size_t tag = 1 + below(4); tag < 15 && data_.size() < 4; tag += 1 + below(5)) {
            const std::string value = percent(20) ? "***" : percent(50) ? name(18) : upTo(18, '@');
            data_.push_back({lengthText("62", tag), tag == 9 ? "AME" : value});
        }
        std::stable_sort(parts_.begin(), parts_.end(),
                         [](const Part& a, const Part& b) { return a.tag < b.tag; });
        for (const std::string_view tags :
             percent(10) ? Texts{"01", "546", "559", "61", "62", "--7"} : Texts{}) {
            moved({tags});
        }
        if (isTwoDigit_) {
            parts_.push_back({"63", test::checksum(written(parts_) + "6304")});
        }
    }

    std::mt19937_64& random_;
    bool isTwoDigit_;
    std::vector<Part> parts_;
    std::vector<Part> data_;  // the elements inside tag 62
};

/// What can be done about a fault. In the length of an identifier, an amount or a fee it is guarded: there
/// may be a repair, but nothing vouches for it.
enum class Group : unsigned char { undoable, guarded, unrepairable, named };

struct Kind {
    std::string_view name;
    Group group;
    FaultyPayload::Fault fault;
    Texts arguments;
    Texts words;  ///< the first cause has one of them, or names the element
    /// R: the checksum is that of the right text. F: it is computed over the faulty text, which is a kind of
    /// its own. 1: a fifth of the payloads is in the one-character format.
    std::string_view variants;
};

// clang-format off
inline std::vector<Kind> faultKinds() {
    using enum Group;
    using P = FaultyPayload;
    const Texts lineBreak{"line feed", "line break", "newline"};
    return {
        {"a length off by 1 to 3", undoable, &P::wrongLength, {"root"}, {"length"}, "RF1"},
        {"a length off by 1 to 3 inside tag 62", undoable, &P::wrongLength, {"inside"}, {"length"}, "RF"},
        {"a length of one digit", undoable, &P::wrongLength, {"root", "digit"}, {"length", "digit"}, "RF"},
        {"a length of one digit inside tag 62", undoable, &P::wrongLength, {"inside", "digit"}, {"length", "digit"}, "RF"},
        {"lengths that count bytes", undoable, &P::otherUnits, {"bytes"}, {"length", "byte"}, "RF1"},
        {"lengths that count UTF-16 units", undoable, &P::otherUnits, {"units"}, {"length", "utf-16"}, "RF1"},
        {"lengths that count code points", undoable, &P::otherUnits, {"points"}, {"length", "code point"}, "RF1"},
        {"a wrong checksum", undoable, &P::revalued, {"63", "####"}, {"checksum"}, "R"},
        {"a checksum of 3 or 5 digits", undoable, &P::revalued, {"63", "###", "0{", "{#"}, {"checksum"}, "R"},
        {"no checksum", undoable, &P::missing, {"63"}, {"checksum"}, "R"},
        {"a checksum that is not last", undoable, &P::moved, {"63"}, {"checksum"}, "R"},
        {"tag 00 not first", undoable, &P::moved, {"00"}, {"first", "order"}, "RF"},
        {"an element twice", undoable, &P::twice, {}, {"twice", "second time"}, "RF1"},
        {"the country in lower case", undoable, &P::respelt, {"584"}, {"country"}, "RF1"},
        {"currency letters", undoable, &P::respelt, {"535"}, {"currency"}, "RF1"},
        {"a line feed at an end", undoable, &P::rewritten, {"\n{", "{\n"}, lineBreak, "RF1"},
        {"CR LF at an end", undoable, &P::rewritten, {"\r\n{", "{\r\n"}, lineBreak, "RF1"},
        {"a blank at an end", undoable, &P::rewritten, {" {", "{ "}, {"blank", "space"}, "RF1"},
        {"a tab at an end", undoable, &P::rewritten, {"\t{", "{\t"}, {"a tab", "tabulator", "blank"}, "RF1"},
        {"a zero-width space at an end", undoable, &P::rewritten, {"\u200B{", "{\u200B"}, {"zero-width", "invisible"}, "RF1"},
        {"a byte order mark", undoable, &P::rewritten, {"\uFEFF{"}, {"byte order mark"}, "RF1"},
        {"quotation marks around", undoable, &P::rewritten, {"\"{\"", "'{'", "\u201C{\u201D"}, {"quot"}, "R1"},
        {"a line break inside", undoable, &P::inserted, {"\n", "\r\n"}, lineBreak, "R"},
        {"two blanks for one", undoable, &P::inserted, {" "}, {"blank", "space"}, "R"},
        {"a zero-width space inside", undoable, &P::inserted, {"\u200B"}, {"zero-width", "invisible"}, "R"},
        {"percent-encoding", undoable, &P::percentEncoded, {"-_.!~*'()"}, {"percent"}, "RF1"},
        {"percent-encoded blanks", undoable, &P::percentEncoded, {}, {"percent"}, "RF1"},
        {"a length of an identifier, amount or fee", guarded, &P::wrongLength, {"guarded"}, {"length"}, "RF1"},
        {"one digit for such a length", guarded, &P::wrongLength, {"guarded", "digit"}, {"length", "digit"}, "RF"},
        {"a character changed", unrepairable, &P::characterSpoiled, {"changed"}, {"changed", "checksum"}, "R1"},
        {"a character lost", unrepairable, &P::characterSpoiled, {"lost"}, {"changed", "lost", "checksum", "length"}, "R1"},
        {"a character doubled", unrepairable, &P::characterSpoiled, {"doubled"}, {"changed", "doubled", "checksum", "length"}, "R1"},
        {"characters transposed", unrepairable, &P::characterSpoiled, {"transposed"}, {"changed", "checksum"}, "R1"},
        {"a cut", unrepairable, &P::cut, {}, {"cut", "the text ends", "empty", "too short", "without its checksum"}, "R1"},
        {"a web address", named, &P::rewritten, {"https://pay.example.com/@@@", "http://shop.example/?id=###", "www.example.org/@@@/"}, {"web address"}, "R"},
        {"a payment link", named, &P::rewritten, {"upi://pay?pa=@@@##@bank&pn=Tea&am=##.00", "payto://iban/DE####################", "bitcoin:1@@@@@@@@@@@@@@@@@@@@@@@@@?amount=0.##"}, {"payment link"}, "R"},
        {"Wi-Fi", named, &P::rewritten, {"WIFI:T:WPA;S:Cafe@@;P:@@@@@@@@;;", "WIFI:S:@@@@@@;T:nopass;;"}, {"wi-fi"}, "R"},
        {"a contact card", named, &P::rewritten, {"BEGIN:VCARD\nVERSION:3.0\nFN:Asha @@\nTEL:+91##########\nEND:VCARD", "MECARD:N:@@@@;TEL:######;;"}, {"contact"}, "R"},
        {"bare digits", named, &P::rewritten, {"4#########", "9##########", "#############", "######"}, {"digits", "number"}, "R"},
        {"Latin-1", named, &P::encoded, {"Latin-1"}, {"latin-1"}, "R1"},
        {"UTF-16", named, &P::encoded, {"UTF-16"}, {"utf-16"}, "R1"},
        {"a name too long", named, &P::revalued, {"591", "KORVO@@@ CAFE@@@@ AND BAKERY", "Shree @@@@@ and Daughters, ##"}, {"name"}, "F1"},
        {"a city too long", named, &P::revalued, {"603", "@@@@@@@@@@@@@@", "Thiruvananthapuram", "MUMBAI CENTRAL"}, {"city"}, "F1"},
        {"a postal code too long", named, &P::revalued, {"61", "###########", "PIN ###### @@@"}, {"postal code"}, "F"},
        {"a wrong check digit", named, &P::revalued, {"020", "4#########", "4###############"}, {"check digit"}, "F1"},
        {"an amount with other characters", named, &P::revalued, {"546", "1,{", "{,50", "\u20B9{", "${", "{INR", "Rs{"}, {"amount"}, "F1"},
        {"a mandatory element missing", named, &P::missing, {"00", "020", "522", "535", "584", "591", "603"}, {"missing"}, "F1"},
        {"a template, no identifier", named, &P::identifierReplaced, {"0010A0000#####0108########", "26", "38", "51"}, {"26 to 51"}, "F"},
        {"tag 04 to 07, no identifier", named, &P::identifierReplaced, {"5###############", "04", "05", "06", "07"}, {"04 to 07"}, "F"},
        {"a line break inside, counted", named, &P::inserted, {"\n", "\r\n"}, lineBreak, "F1"},
        {"two blanks for one, counted", named, &P::inserted, {" "}, {"blank", "space"}, "F1"},
        {"a zero-width space inside, counted", named, &P::inserted, {"\u200B"}, {"zero-width", "invisible"}, "F1"}};
}
// clang-format on

/// A payload that is refused because of one fault.
inline FaultyPayload faultyPayload(const Kind& kind, bool isCovered, std::mt19937_64& random) {
    const bool mayBeOneCharacter =
        kind.variants.ends_with('1') && !(isCovered && kind.variants.front() == 'R');
    for (;;) {
        FaultyPayload payload(random, !mayBeOneCharacter || random() % 5 != 0);
        payload.spoil(kind.fault, kind.arguments, isCovered);
        if (!codesIn(QRCodeParser::parseQRData(payload.text)).empty()) {
            return payload;
        }
    }
}

}  // namespace korvo::test

#endif
