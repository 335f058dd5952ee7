#include "PictureRows.h"

#include <cstdint>

namespace korvoqr {

namespace {

using korvo::JSONWriter;

void appendPosition(JSONWriter& json, const PicturePlace& place) {
    json.name("position").beginObject();
    json.name("x").number(static_cast<std::uint64_t>(place.x));
    json.name("y").number(static_cast<std::uint64_t>(place.y));
    json.name("width").number(static_cast<std::uint64_t>(place.width));
    json.name("height").number(static_cast<std::uint64_t>(place.height)).endObject();
}

}  // namespace

void appendOrigin(JSONWriter& json, const Origin& origin) {
    if (!origin.isPicture()) {
        return;
    }
    json.name("file").string(korvo::isUTF8(origin.file) ? origin.file : visible(origin.file));
    if (origin.code > 0) {
        json.name("code").number(origin.code);
        appendPosition(json, origin.position);
    }
}

std::string problemRow(const Origin& origin, std::string_view problem, Format format) {
    if (isText(format)) {
        return {};
    }
    JSONWriter json(format == Format::json ? JSONWriter::Layout::indented : JSONWriter::Layout::oneLine);
    json.beginObject();
    appendOrigin(json, origin);
    json.name("problem").string(problem).endObject();
    return json.takeText() + '\n';
}

}  // namespace korvoqr
