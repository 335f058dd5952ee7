#include "LibraryInternals.h"
#include "RefusalCodes.h"
#include "Rendering.h"
#include "Terminal.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace korvoqr {

namespace {

constexpr std::string_view null = "\\N";

// The letter after a backslash for a byte in COPY's text format; 0 if the byte needs none.
constexpr auto escapes = [] {
    std::array<char, 256> letters{};
    letters['\\'] = '\\';
    letters['\t'] = 't';
    letters['\n'] = 'n';
    letters['\r'] = 'r';
    return letters;
}();

void appendField(std::string& row, std::string_view text) {
    std::size_t written = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const char letter = escapes.at(static_cast<unsigned char>(text[i]))) {
            row.append(text, written, i - written);
            row += {'\\', letter};
            written = i + 1;
        }
    }
    row.append(text, written);
    row += '\t';
}

// A database holds neither NUL nor bytes that are not UTF-8.
void appendForeignField(std::string& row, std::string_view text) {
    const bool isHeld = korvo::isUTF8(text) && text.find('\0') == std::string_view::npos;
    appendField(row, isHeld ? std::string(text) : visible(text));
}

void appendOriginFields(std::string& row, const Request& request, const RunOptions& options) {
    const Origin& origin = request.origin;
    if (!origin.file.empty()) {
        appendForeignField(row, origin.file);
    }
    if (options.lineNumber) {
        appendField(row, origin.line > 0 ? std::to_string(origin.line) : std::to_string(origin.code));
    }
    if (origin.key) {
        appendForeignField(row, *origin.key);
    } else if (!options.input.keyColumn.empty()) {
        row += null;
        row += '\t';
    }
    if (options.withPayload && request.isTooLong) {
        row += null;
        row += '\t';
    } else if (options.withPayload) {
        appendForeignField(row, request.payload);
    }
}

}  // namespace

void appendCopyRow(std::string& text, const ParsedPayload& parsed, const RunOptions& options) {
    appendOriginFields(text, parsed.request, options);
    if (parsed.response.qrCodeData() != nullptr) {
        text += "t\t{}\t";
        std::string json;
        appendDatabaseJSON(json, parsed, options.compact);
        appendField(text, json);
        text.pop_back();
        return;
    }
    std::string codes;
    for (const std::string& code : codesOf(parsed.response)) {
        codes += (codes.empty() ? "" : ",") + code;
    }
    text += "f\t{" + codes + "}\t";
    text += null;
}

}  // namespace korvoqr
