#include "RowHead.h"

#include "Terminal.h"

#include <string_view>

namespace korvoqr {

namespace {

bool showsLine(const Origin& origin, const RunOptions& options) {
    return origin.line > 0 && (options.lineNumber || origin.key || !origin.file.empty());
}

void appendText(korvo::JSONWriter& json, std::string_view name, std::string_view text) {
    json.name(name).string(text);
}

void appendPosition(korvo::JSONWriter& json, const PicturePlace& place) {
    json.name("position").beginObject();
    json.name("x").number(static_cast<std::uint64_t>(place.x));
    json.name("y").number(static_cast<std::uint64_t>(place.y));
    json.name("width").number(static_cast<std::uint64_t>(place.width));
    json.name("height").number(static_cast<std::uint64_t>(place.height)).endObject();
}

// A name of a file may be any bytes.
std::string readable(std::string_view text) {
    return korvo::isUTF8(text) ? std::string(text) : visible(text);
}

}  // namespace

std::string placeOf(const Origin& origin) {
    std::string place = visible(origin.file);
    if (origin.isPicture()) {
        return origin.codes > 1
                   ? place + ", code " + std::to_string(origin.code) + " of " + std::to_string(origin.codes)
                   : place;
    }
    if (origin.argument > 0) {
        return "argument " + std::to_string(origin.argument);
    }
    if (origin.line > 0) {
        place += place.empty() ? "line " : ", line ";
        place += std::to_string(origin.line);
    }
    if (origin.key) {
        place += ", key " + visible(*origin.key);
    }
    return place;
}

std::string headingOf(const Origin& origin) {
    std::string place = origin.argument > 0 ? "" : placeOf(origin);
    if (origin.file.empty() && origin.line > 0) {
        place.front() = 'L';
    }
    return place;
}

std::string textHead(const Request& request, const RunOptions& options) {
    std::string head;
    if (request.origin.isPicture() || showsLine(request.origin, options)) {
        head = headingOf(request.origin) + ":\n";
    }
    if (options.withPayload && !request.isTooLong) {
        head += "Payload: " + inQuotes(request.payload) + '\n';
    }
    return head;
}

void appendHead(korvo::JSONWriter& json, const Request& request, HeadParts wanted) {
    const Origin& origin = request.origin;
    if (!origin.file.empty()) {
        appendText(json, "file", readable(origin.file));
    }
    if (origin.isPicture()) {
        json.name("code").number(origin.code);
        appendPosition(json, origin.position);
    }
    if (origin.line > 0 && wanted.lineNumber) {
        json.name("line").number(origin.line);
    }
    if (origin.key) {
        appendText(json, "key", readable(*origin.key));
    }
    if (wanted.payload && !request.isTooLong) {
        appendText(json, "payload", request.payload);
        if (!korvo::isUTF8(request.payload)) {
            appendText(json, "visible", visible(request.payload));
        }
    }
}

std::string problemRow(const Origin& origin, const std::string& problem, const RunOptions& options) {
    switch (options.format) {
        case Format::text:
        case Format::copy:
            return {};
        case Format::json:
        case Format::jsonl:
            break;
    }
    const bool isOneLine = options.format == Format::jsonl || options.isExplaining;
    korvo::JSONWriter json(isOneLine ? korvo::JSONWriter::Layout::oneLine
                                     : korvo::JSONWriter::Layout::indented);
    Request request;
    request.origin = origin;
    appendHead(json.beginObject(), request, {});
    return json.name("problem").string(problem).endObject().takeText() + '\n';
}

std::string reasonForLength(const RunOptions& options) {
    const std::uint64_t limit = options.input.lineLimit;
    const bool isWhole = limit % usualLineLimit == 0;
    return "longer than " + grouped(isWhole ? limit / usualLineLimit : limit) +
           (isWhole      ? " MiB"
            : limit == 1 ? " byte"
                         : " bytes");
}

}  // namespace korvoqr
