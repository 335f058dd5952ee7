#ifndef KORVOQRPARSER_MODEL_PROPERTYFRAGMENTS_H
#define KORVOQRPARSER_MODEL_PROPERTYFRAGMENTS_H

#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataAccess.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace korvo {

/// A property's piece of a rendering, made at compile time: the whole piece for an absent text or a false
/// flag, which most properties of most records are. Its first part, the head, also goes before a value.
struct PropertyFragment {
    /// A copy of a size that the compiler knows takes a few instructions and no call, so all pieces have one.
    static constexpr std::size_t capacity = 64;

    /// Does not compile with a piece that is longer than `capacity`.
    constexpr PropertyFragment(std::string_view head, std::string_view whole)
        : size(static_cast<std::uint8_t>(whole.size())), headSize(static_cast<std::uint8_t>(head.size())) {
        std::copy(whole.begin(), whole.end(), bytes.begin());
        std::copy(head.begin(), head.end(), bytes.begin());
    }

    std::array<char, capacity> bytes{};
    std::uint8_t size;
    std::uint8_t headSize;
};

/// The pieces of all properties, in the order of their indices.
using PropertyFragments = std::array<PropertyFragment, qrCodeDataProperties.size()>;

/// Appends the pieces of properties to a text, by way of a buffer. `Value` says how the value of a text is
/// written: `bound(size)`, the most bytes that it takes; `write(place, text)`, which returns the place after
/// it; and `append(string, text)`, for a value that is larger than the buffer.
template <class Value>
class PropertyWriter {
  public:
    PropertyWriter(std::string& text, const PropertyFragments& fragments) noexcept  // NOLINT: see buffer_
        : text_(text), fragments_(fragments) {}

    /// Appends the piece of a property. `trueFlag` is the rest of the piece for a flag that is true.
    void append(const QRCodeData& data, const QRCodeDataPropertyRow& row, std::string_view trueFlag) {
        const PropertyFragment& fragment = fragments_[static_cast<std::size_t>(row.index)];
        makeRoom(PropertyFragment::capacity);
        std::memcpy(out_, fragment.bytes.data(), PropertyFragment::capacity);
        if (row.isFlag && QRCodeDataAccess::flag(data, row.index)) {
            out_ = std::copy(trueFlag.begin(), trueFlag.end(), out_ + fragment.headSize);
        } else if (!row.isFlag && QRCodeDataAccess::text(data, row.index)) {
            out_ += fragment.headSize;
            appendValue(*QRCodeDataAccess::text(data, row.index));
        } else {
            out_ += fragment.size;
        }
    }

    /// Hands over the rest. Call it after the last piece.
    void finish() {
        text_.append(buffer_.data(), out_);
        out_ = buffer_.data();
    }

  private:
    void makeRoom(std::size_t size) {
        if (static_cast<std::size_t>(buffer_.data() + buffer_.size() - out_) < size) {
            finish();
        }
    }

    void appendValue(std::string_view value) {
        if (Value::bound(value.size()) > buffer_.size()) {
            finish();
            Value::append(text_, value);
            return;
        }
        makeRoom(Value::bound(value.size()));
        out_ = Value::write(out_, value);
    }

    std::string& text_;
    const PropertyFragments& fragments_;
    /// Not initialised, because it is written before it is read.
    std::array<char, 4096> buffer_;
    char* out_ = buffer_.data();
};

}  // namespace korvo

#endif
