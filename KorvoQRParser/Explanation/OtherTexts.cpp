#include <KorvoQRParser/Decoding/Text/ASCII.h>
#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Explanation/Lists.h>
#include <KorvoQRParser/Explanation/OtherTexts.h>
#include <KorvoQRParser/Explanation/VisibleText.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace korvo {

namespace {

// The beginnings, in lower case, of texts that codes often hold.
struct Kind {
    std::string_view beginning;
    std::string_view name;
};
constexpr std::array kinds{Kind{"http:", "a web address"},
                           Kind{"https:", "a web address"},
                           Kind{"www.", "a web address"},
                           Kind{"ftp:", "a web address"},
                           Kind{"wifi:", "access data for a Wi-Fi network"},
                           Kind{"begin:vcard", "a contact card"},
                           Kind{"mecard:", "a contact card"},
                           Kind{"bizcard:", "a contact card"},
                           Kind{"begin:vevent", "an event"},
                           Kind{"begin:vcalendar", "an event"},
                           Kind{"mailto:", "an e-mail address"},
                           Kind{"matmsg:", "an e-mail message"},
                           Kind{"tel:", "a telephone number"},
                           Kind{"sms:", "a text message"},
                           Kind{"smsto:", "a text message"},
                           Kind{"geo:", "a place on a map"},
                           Kind{"otpauth:", "a key for one-time passwords"},
                           Kind{"bcd\n", "a bank transfer"},
                           Kind{"bcd\r\n", "a bank transfer"},
                           Kind{"{", "JSON"},
                           Kind{"<", "XML"}};

bool beginsInAnyCase(std::string_view text, std::string_view beginning) {
    return text.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), text.begin(),
                      [](char a, char b) { return a == asciiLowerCase(b); });
}

// Whether the text begins as a link does, with a word and a colon.
bool isLink(std::string_view text) {
    constexpr std::size_t longestScheme = 24;
    const std::size_t colon = text.find(':');
    return colon != std::string_view::npos && colon > 1 && colon <= longestScheme &&
           std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon), [](char c) {
               return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '+' || c == '-' || c == '.';
           });
}

// Whether the text is digits alone, but not those that a payload begins with.
bool isBareNumber(std::string_view text) {
    constexpr std::string_view twoDigitBeginning = "0002";
    constexpr std::size_t shortest = 4;
    const bool isDigits = allOf(text, [](char c) { return c >= '0' && c <= '9'; });
    const bool isOneCharacterBeginning =
        text.size() > 2 && text[0] == '0' && text[1] >= '8' && text[2] == '4';
    return isDigits && text.size() >= shortest && text.substr(0, 4) != twoDigitBeginning &&
           !isOneCharacterBeginning;
}

std::string_view kindOf(std::string_view text) {
    for (const auto& [beginning, name] : kinds) {
        if (beginsInAnyCase(text, beginning)) {
            return name;
        }
    }
    if (isLink(text)) {
        constexpr std::array payments{"pay", "pa=", "am=", "amount=", "coin"};
        const bool isPayment = anyOf(
            payments, [text](std::string_view word) { return text.find(word) != std::string_view::npos; });
        return isPayment ? "a payment link" : "a link for another program";
    }
    return isBareNumber(text) ? "a bare number" : "";
}

// Whether every second byte is zero, as in UTF-16 of Latin letters.
bool isUTF16(std::string_view bytes) {
    if (bytes.substr(0, 2) == "\xFF\xFE" || bytes.substr(0, 2) == "\xFE\xFF") {
        return true;
    }
    std::array<std::size_t, 2> zeros{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        zeros[i % 2] += bytes[i] == '\0' ? 1 : 0;
    }
    const std::size_t half = bytes.size() / 2;
    const auto [fewer, more] = std::minmax(zeros[0], zeros[1]);
    return half > 2 && more > half * 3 / 4 && fewer < half / 4;
}

// Whether bytes are the beginning of a code point, and nothing else.
bool isBeginningOfCharacter(std::string_view bytes) {
    for (const std::string_view end :
         {"\x80", "\x80\x80", "\x80\x80\x80", "\xBF", "\xBF\x80", "\xBF\x80\x80"}) {
        const std::string whole = joined({bytes, end});
        std::size_t offset = 0;
        if (bytes.size() < 4 && nextCodePoint(whole, offset) >= 0 && offset == whole.size()) {
            return true;
        }
    }
    return false;
}

// Whether bytes begin with the three that UTF-8 would have for a surrogate.
bool isSurrogate(std::string_view bytes) {
    return bytes.size() > 2 && bytes[0] == '\xED' && static_cast<unsigned char>(bytes[1]) >= 0xA0;
}

std::string latin1(unsigned char byte) {
    return {static_cast<char>(0xC0 | byte >> 6), static_cast<char>(0x80 | (byte & 0x3F))};
}

}  // namespace

std::string causeOfOtherText(std::string_view text) {
    constexpr std::string_view around = " \t\r\n\"'";
    const std::size_t begin = std::min(text.find_first_not_of(around), text.size());
    std::string_view core = text.substr(begin);
    core = core.substr(0, core.find_last_not_of(around) + 1);
    if (core.substr(0, 3) == "\xEF\xBB\xBF") {
        core.remove_prefix(3);
    }
    const std::string_view kind = kindOf(core);
    return kind.empty() ? "" : joined({"This is ", kind, ", not a payload of this scheme."});
}

std::string causeOfEncoding(std::string_view bytes) {
    if (isUTF16(bytes)) {
        return "The text is in UTF-16. A payload must be handed over in UTF-8.";
    }
    const std::size_t place = firstMalformedByte(bytes);
    if (place == bytes.size()) {
        return "";
    }
    if (isBeginningOfCharacter(bytes.substr(place))) {
        return "The text ends in the middle of a character: it is cut, or without its checksum.";
    }
    const auto byte = static_cast<unsigned char>(bytes[place]);
    if (isSurrogate(bytes.substr(place))) {
        return joined({"The text has half of a surrogate pair, which is no character, at byte ",
                       std::to_string(place), "."});
    }
    std::string cause = joined({"The text is not in UTF-8: byte ", std::to_string(place), " is ",
                                withVisibleBytes(bytes.substr(place, 1)), "."});
    constexpr unsigned firstLetterOfLatin1 = 0xA0;
    if (byte >= firstLetterOfLatin1) {
        cause += joined({" It may be in Latin-1, where this is ", inQuotes(latin1(byte)), "."});
    }
    return cause;
}

}  // namespace korvo
