#include "Commands.h"
#include "InputRun.h"
#include <KorvoQRParser/Validation/KorvoErrorConstants.h>

#include <algorithm>
#include <cstdio>

#include <nlohmann/json.hpp>
#include <unistd.h>

namespace korvoqr {

namespace {

using Entries = std::vector<const korvo::ErrorCatalogueEntry*>;

std::string codesJSON(const Entries& entries) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const auto* const entry : entries) {
        list.push_back({{"code", entry->code},
                        {"name", entry->name},
                        {"meaning", entry->meaning},
                        {"twoDigitTag", entry->twoDigitTag},
                        {"oneCharacterTag", entry->oneCharacterTag}});
    }
    return list.dump(2) + '\n';
}

std::string codesText(const Entries& entries, const Style& style) {
    constexpr std::size_t nameColumn = 6;
    std::string text;
    for (const auto* const entry : entries) {
        text +=
            painted(style, Paint::heading, padded(entry->code, nameColumn) + std::string(entry->name)) + '\n';
        const std::size_t width = style.width > nameColumn ? style.width - nameColumn : 0;
        for (const std::string_view line : wrapped(entry->meaning, width, true)) {
            text += std::string(nameColumn, ' ') + std::string(line) + '\n';
        }
        const std::string tags = "Two-digit tag: " + std::string(entry->twoDigitTag) +
                                 "; one-character tag: " + std::string(entry->oneCharacterTag);
        text += std::string(nameColumn, ' ') + painted(style, Paint::dim, tags) + '\n';
    }
    return text;
}

}  // namespace

ExitStatus runCodes(const CodesOptions& options) {
    Entries entries;
    for (const std::string& code : options.codes) {
        const auto* const entry = korvo::findErrorCatalogueEntry(code);
        if (entry == nullptr) {
            std::fprintf(stderr, "korvoqr: there is no code %s; type korvoqr codes for all of them\n",
                         inQuotes(code).c_str());
            return usageOrInputError;
        }
        entries.push_back(entry);
    }
    if (options.codes.empty()) {
        for (const auto& entry : korvo::errorCatalogue) {
            entries.push_back(&entry);
        }
    }
    const InputOptions none;
    InputRun run(none);
    run.output().write(options.asJSON ? codesJSON(entries)
                                      : codesText(entries, styleOf(STDOUT_FILENO, options.colour)));
    return run.finish();
}

}  // namespace korvoqr
