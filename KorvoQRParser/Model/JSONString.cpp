#include <KorvoQRParser/Model/JSONString.h>

#include <cstddef>

namespace korvo {

namespace {

bool needsEscape(char c) noexcept {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

void appendEscape(std::string& json, char c) {
    if (c == '"' || c == '\\') {
        json += {'\\', c};
        return;
    }
    constexpr std::string_view named = "\b\f\n\r\t";
    constexpr std::string_view names = "bfnrt";
    constexpr std::string_view digits = "0123456789ABCDEF";
    json += '\\';
    if (const std::size_t position = named.find(c); position != std::string_view::npos) {
        json += names[position];
    } else {
        json += "u00";
        json += digits[static_cast<unsigned char>(c) >> 4U];
        json += digits[static_cast<unsigned char>(c) & 0xFU];
    }
}

}  // namespace

void appendJSONString(std::string& json, std::string_view text) {
    json += '"';
    std::size_t written = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (needsEscape(text[i])) {
            json += text.substr(written, i - written);
            appendEscape(json, text[i]);
            written = i + 1;
        }
    }
    json += text.substr(written);
    json += '"';
}

}  // namespace korvo
