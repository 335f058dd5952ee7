#include "ArgumentHints.h"
#include "Commands.h"
#include "LibraryInternals.h"
#include "Output.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <algorithm>
#include <cstdio>
#include <optional>

#include <unistd.h>

namespace korvoqr {

namespace {

using korvo::JSONWriter;
using Entries = std::vector<korvo::ErrorCatalogueEntry>;

std::string codesJSON(const Entries& entries) {
    JSONWriter json(JSONWriter::Layout::indented);
    json.beginArray();
    for (const auto& entry : entries) {
        json.beginObject();
        json.name("code").string(entry.code);
        json.name("name").string(entry.name);
        json.name("meaning").string(entry.meaning);
        json.name("twoDigitTag").string(entry.twoDigitTag);
        json.name("oneCharacterTag").string(entry.oneCharacterTag);
        json.endObject();
    }
    return json.endArray().text() + '\n';
}

std::string codesText(const Entries& entries, const Style& style) {
    constexpr std::size_t nameColumn = 6;
    std::string text;
    for (const auto& entry : entries) {
        text +=
            painted(style, Paint::heading, padded(entry.code, nameColumn) + std::string(entry.name)) + '\n';
        for (const std::string_view line : wrapped(entry.meaning, style.widthFrom(nameColumn), true)) {
            text += std::string(nameColumn, ' ') + std::string(line) + '\n';
        }
        const std::string tags = "Two-digit tag: " + std::string(entry.twoDigitTag) +
                                 "; one-character tag: " + std::string(entry.oneCharacterTag);
        text += std::string(nameColumn, ' ') + painted(style, Paint::dim, tags) + '\n';
    }
    return text;
}

bool areEqualInAnyCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char one, char other) {
        return korvo::asciiUpperCase(one) == korvo::asciiUpperCase(other);
    });
}

// The row for a number or a name. Reserved codes have one, too.
std::optional<korvo::ErrorCatalogueEntry> entryFor(const std::string& code) {
    for (const auto& entry : korvo::errorCatalogue) {
        if (entry.code == code || areEqualInAnyCase(entry.name, code)) {
            return entry;
        }
    }
    for (const auto& [number, name] : korvo::reservedErrorCodes) {
        if (number == code || areEqualInAnyCase(name, code)) {
            return korvo::ErrorCatalogueEntry{number, name, "-", "-", "Reserved: no rule raises it."};
        }
    }
    return std::nullopt;
}

std::string closestCode(const std::string& code) {
    std::vector<std::string> names;
    names.reserve(korvo::errorCatalogue.size());
    for (const auto& entry : korvo::errorCatalogue) {
        names.emplace_back(entry.name);
    }
    return closestWord(code, names);
}

// The rows that are asked for. Those that do not exist go to `unknown`.
Entries entriesFor(const std::vector<std::string>& codes, std::vector<std::string>& unknown) {
    if (codes.empty()) {
        return {korvo::errorCatalogue.begin(), korvo::errorCatalogue.end()};
    }
    Entries entries;
    for (const std::string& code : codes) {
        if (const auto entry = entryFor(code)) {
            entries.push_back(*entry);
        } else {
            unknown.push_back(code);
        }
    }
    return entries;
}

}  // namespace

ExitStatus runCodes(const CodesOptions& options) {
    std::vector<std::string> unknown;
    const Entries entries = entriesFor(options.codes, unknown);
    Output output;
    if (!entries.empty()) {
        output.write(isText(options.format) ? codesText(entries, styleOf(STDOUT_FILENO, options.colour))
                                            : codesJSON(entries));
    }
    output.flush();
    if (!output.reportFailure()) {
        return usageOrInputError;
    }
    for (const std::string& code : unknown) {
        const std::string meant = closestCode(code);
        std::fprintf(
            stderr, "korvoqr: there is no code %s; %s\n", inQuotes(code).c_str(),
            meant.empty() ? "type korvoqr codes for all of them" : ("did you mean " + meant + '?').c_str());
    }
    return unknown.empty() ? allAccepted : usageOrInputError;
}

}  // namespace korvoqr
