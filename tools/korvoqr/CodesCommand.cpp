#include "Commands.h"
#include "InputRun.h"
#include "LibraryInternals.h"
#include <KorvoQRParser/KorvoQRParser.h>

#include <algorithm>
#include <cstdio>

#include <unistd.h>

namespace korvoqr {

namespace {

using korvo::JSONWriter;
using Entries = std::vector<const korvo::ErrorCatalogueEntry*>;

std::string codesJSON(const Entries& entries) {
    JSONWriter json(JSONWriter::Layout::indented);
    json.beginArray();
    for (const auto* const entry : entries) {
        json.beginObject();
        json.name("code").string(entry->code);
        json.name("name").string(entry->name);
        json.name("meaning").string(entry->meaning);
        json.name("twoDigitTag").string(entry->twoDigitTag);
        json.name("oneCharacterTag").string(entry->oneCharacterTag);
        json.endObject();
    }
    return json.endArray().text() + '\n';
}

std::string codesText(const Entries& entries, const Style& style) {
    constexpr std::size_t nameColumn = 6;
    std::string text;
    for (const auto* const entry : entries) {
        text +=
            painted(style, Paint::heading, padded(entry->code, nameColumn) + std::string(entry->name)) + '\n';
        for (const std::string_view line : wrapped(entry->meaning, style.widthFrom(nameColumn), true)) {
            text += std::string(nameColumn, ' ') + std::string(line) + '\n';
        }
        const std::string tags = "Two-digit tag: " + std::string(entry->twoDigitTag) +
                                 "; one-character tag: " + std::string(entry->oneCharacterTag);
        text += std::string(nameColumn, ' ') + painted(style, Paint::dim, tags) + '\n';
    }
    return text;
}

Entries allEntries() {
    Entries entries;
    for (const auto& entry : korvo::errorCatalogue) {
        entries.push_back(&entry);
    }
    return entries;
}

}  // namespace

ExitStatus runCodes(const CodesOptions& options) {
    Entries entries;
    for (const std::string& code : options.codes) {
        entries.push_back(korvo::findErrorCatalogueEntry(code));
        if (entries.back() == nullptr) {
            std::fprintf(stderr, "korvoqr: there is no code %s; type korvoqr codes for all of them\n",
                         inQuotes(code).c_str());
            return usageOrInputError;
        }
    }
    if (options.codes.empty()) {
        entries = allEntries();
    }
    const InputOptions none;
    InputRun run(none);
    switch (options.format) {
        case Format::text:
            run.output().write(codesText(entries, styleOf(STDOUT_FILENO, options.colour)));
            break;
        case Format::json:
        case Format::jsonl:
            run.output().write(codesJSON(entries));
            break;
    }
    return run.finish();
}

}  // namespace korvoqr
