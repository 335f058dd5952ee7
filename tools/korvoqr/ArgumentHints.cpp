#include "ArgumentHints.h"

#include "FileKind.h"
#include "RefusalCodes.h"
#include "Terminal.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include <sys/stat.h>

namespace korvoqr {

namespace {

bool isSplittable(std::string_view text) {
    return !isUnsplittable(codesOf(korvo::QRCodeParser::parseQRData(text)));
}

bool isRegularFile(const std::string& name) {
    struct stat status {};
    return ::stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// The shell splits at blanks.
std::string joined(const std::vector<std::string>& words) {
    std::string text = words.front();
    for (std::size_t i = 1; i < words.size(); ++i) {
        text += ' ' + words[i];
    }
    return text;
}

// The number of letters to insert, leave out, replace or swap with the next.
std::size_t distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> before;
    std::vector<std::size_t> last;
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        before = std::exchange(last, row);
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1]) {
                row[j] = std::min(row[j], before[j - 2] + 1);
            }
        }
    }
    return row[to.size()];
}

}  // namespace

bool looksLikePayload(const std::vector<std::string>& arguments) {
    return arguments.front().substr(0, 4) == "0002" || isSplittable(arguments.front()) ||
           isSplittable(joined(arguments));
}

std::string argumentHint(const std::vector<std::string>& payloads) {
    const auto refused = std::find_if_not(payloads.begin(), payloads.end(), isSplittable);
    if (refused == payloads.end()) {
        return {};
    }
    if (payloads.size() > 1 && isSplittable(joined(payloads))) {
        return "together, these " + grouped(payloads.size()) + " arguments are a payload; put it in quotes";
    }
    const auto file = std::find_if(refused, payloads.end(), isRegularFile);
    if (file == payloads.end()) {
        return {};
    }
    const auto kind = fileKindOfFile(*file);
    const std::string name = visible(*file);
    if (!kind) {
        return name + " is a file; type --input " + name + " for the payloads in it";
    }
    return name + ' ' + kind->name + "; try " + kind->remedy + (kind->remedy == "--image" ? ' ' + name : "");
}

std::string closestWord(std::string_view typed, const std::vector<std::string>& words) {
    constexpr std::size_t mostTyped = 32;
    std::string closest;
    std::size_t best = typed.size() < 4 ? 2 : 3;  // a word that differs by as much is another one
    for (const std::string& word : words) {
        const bool isBegun = typed.size() > 2 && word.compare(0, typed.size(), typed) == 0;
        const std::size_t difference = isBegun ? 1 : typed.size() > mostTyped ? best : distance(typed, word);
        if (difference < best) {
            best = difference;
            closest = word;
        }
    }
    return closest;
}

}  // namespace korvoqr
