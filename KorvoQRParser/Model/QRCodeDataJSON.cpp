#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Model/JSONString.h>
#include <KorvoQRParser/Model/JSONWriter.h>
#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataAccess.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace korvo {

namespace {

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Whether `holds` is true for every text that is present.
template <class Texts>
bool allTexts(const Texts& texts, bool (*holds)(std::string_view)) {
    return std::all_of(texts.begin(), texts.end(),
                       [holds](const auto& text) { return !text || holds(*text); });
}

// Whether all texts are valid UTF-8; one line on standard output says when they are not.
template <class Texts>
bool reportUnlessUTF8(const Texts& texts) {
    const bool isValid = allTexts(texts, isUTF8);
    if (!isValid) {
        std::puts("error: Account could not be serialized into json");
    }
    return isValid;
}

}  // namespace

std::string QRCodeData::jsonOutput() const {
    constexpr std::size_t usualSize = 2560;
    if (!allTexts(texts_, isASCII)) {
        reportUnlessUTF8(texts_);
        return {};
    }
    std::string json = "{";
    json.reserve(usualSize);
    for (const QRCodeDataPropertyRow& row : qrCodeDataProperties) {
        json += json.size() > 1 ? ",\n  \"" : "\n  \"";
        json += row.name;  // no name needs an escape
        json += "\": ";
        appendJSONString(json, QRCodeDataAccess::rendered(*this, row));
    }
    return json += "\n}";
}

std::string QRCodeData::utf8JSON() const {
    if (!reportUnlessUTF8(texts_)) {
        return {};
    }
    JSONWriter json(JSONWriter::Layout::oneLine);
    json.beginObject();
    for (const QRCodeDataPropertyRow& row : qrCodeDataProperties) {
        json.name(row.name);
        if (row.isFlag) {
            json.boolean(QRCodeDataAccess::flag(*this, row.index));
        } else if (const auto& value = QRCodeDataAccess::text(*this, row.index)) {
            json.validString(*value);
        } else {
            json.null();
        }
    }
    return json.endObject().takeText();
}

}  // namespace korvo
