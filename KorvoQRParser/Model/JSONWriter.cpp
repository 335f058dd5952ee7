#include <KorvoQRParser/Decoding/Text/UTF8.h>
#include <KorvoQRParser/Model/JSONString.h>
#include <KorvoQRParser/Model/JSONWriter.h>

#include <utility>

namespace korvo {

namespace {

std::string withReplacements(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 2);
    std::size_t written = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const std::size_t start = offset;
        if (nextCodePoint(text, offset) < 0) {
            result.append(text, written, start - written);
            result += "\xEF\xBF\xBD";
            written = offset;
        }
    }
    return result.append(text, written);
}

}  // namespace

JSONWriter::JSONWriter(Layout layout) : layout_(layout) {
    constexpr std::size_t usualSize = 2560;
    text_.reserve(usualSize);
}

JSONWriter& JSONWriter::name(std::string_view name) {
    separate();
    text_ += '"';
    text_ += name;
    text_ += layout_ == Layout::indented ? "\": " : "\":";
    isNamed_ = true;
    return *this;
}

JSONWriter& JSONWriter::string(std::string_view value) {
    return isUTF8(value) ? validString(value) : validString(withReplacements(value));
}

JSONWriter& JSONWriter::validString(std::string_view value) {
    separate();
    appendJSONString(text_, value);
    return *this;
}

JSONWriter& JSONWriter::literal(std::string_view value) {
    separate();
    text_ += value;
    return *this;
}

JSONWriter& JSONWriter::begin(char bracket) {
    separate();
    text_ += bracket;
    ++depth_;
    isFirst_ = true;
    return *this;
}

JSONWriter& JSONWriter::end(char bracket) {
    --depth_;
    if (!std::exchange(isFirst_, false)) {
        breakLine();
    }
    text_ += bracket;
    return *this;
}

// Writes the comma and the line break before a name or value.
void JSONWriter::separate() {
    if (std::exchange(isNamed_, false)) {
        return;
    }
    if (!std::exchange(isFirst_, false)) {
        text_ += ',';
    }
    if (depth_ > 0) {
        breakLine();
    }
}

void JSONWriter::breakLine() {
    constexpr std::size_t blanksPerLevel = 2;
    if (layout_ == Layout::indented) {
        text_ += '\n';
        text_.append(blanksPerLevel * depth_, ' ');
    }
}

}  // namespace korvo
