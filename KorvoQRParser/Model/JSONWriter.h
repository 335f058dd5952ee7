#ifndef KORVOQRPARSER_MODEL_JSONWRITER_H
#define KORVOQRPARSER_MODEL_JSONWRITER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace korvo {

/// Writes JSON (RFC 8259) from left to right, on one line or indented by two blanks per level:
///
///     json.beginObject().name("code").string("3").endObject();
class JSONWriter {
  public:
    enum class Layout : unsigned char { oneLine, indented };

    explicit JSONWriter(Layout layout);

    JSONWriter& beginObject() { return begin('{'); }
    JSONWriter& endObject() { return end('}'); }
    JSONWriter& beginArray() { return begin('['); }
    JSONWriter& endArray() { return end(']'); }

    /// The name of a member; its value comes next. A name is not escaped.
    JSONWriter& name(std::string_view name);

    /// Bytes that are not UTF-8 become U+FFFD.
    JSONWriter& string(std::string_view value);
    /// The same for a text that must be valid UTF-8, which is not checked.
    JSONWriter& validString(std::string_view value);
    JSONWriter& number(std::uint64_t value) { return literal(std::to_string(value)); }
    JSONWriter& boolean(bool value) { return literal(value ? "true" : "false"); }
    JSONWriter& null() { return literal("null"); }
    /// A value that is JSON already.
    JSONWriter& literal(std::string_view value);

    /// Everything written so far.
    const std::string& text() const noexcept { return text_; }
    /// The same, moved out; the writer must not be used again.
    std::string takeText() noexcept { return std::move(text_); }

  private:
    JSONWriter& begin(char bracket);
    JSONWriter& end(char bracket);
    void separate();
    void breakLine();

    std::string text_;
    Layout layout_;
    std::size_t depth_ = 0;
    bool isFirst_ = true;   // nothing has been written on this level
    bool isNamed_ = false;  // the name of the next value has been written
};

}  // namespace korvo

#endif
