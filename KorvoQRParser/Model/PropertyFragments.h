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
#include <optional>
#include <string>
#include <string_view>

namespace korvo {

/// A property's piece of a rendering, made at compile time: the whole piece for an absent text or a false
/// flag, which most properties of most records are. Its first part, the head, also goes before a value.
struct PropertyFragment {
    /// A copy of a size that the compiler knows takes a few instructions and no call, so all pieces have one.
    static constexpr std::size_t capacity = 56;

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

/// The layout of a rendering that has the pieces as they are.
struct PlainPieces {
    /// Writes a piece, and returns the place of a value in it.
    static char* write(char* place, const PropertyFragment& fragment) noexcept {
        std::memcpy(place, fragment.bytes.data(), PropertyFragment::capacity);
        return place + fragment.headSize;
    }
    /// The end of a piece without a value. `place` is that of the value.
    static char* end(char* place, const PropertyFragment& fragment, bool /*isFlag*/) noexcept {
        return place + fragment.size - fragment.headSize;
    }
};

/// Appends the pieces of properties, in this order, to a text. `trueFlag` is the rest of the piece for a flag
/// that is true. `Layout` writes a piece, as PlainPieces does, in at most its capacity. `Value` says how the
/// value of a text is written: `bound(size)`, the most bytes that it takes; `write(place, text)`, which
/// returns the place after it; and `append(string, text)`, for a value that is larger than the buffer.
template <class Value, class Layout = PlainPieces, std::size_t count>
void appendProperties(std::string& text, const QRCodeData& data, const PropertyFragments& fragments,
                      const std::array<QRCodeDataProperty, count>& order, std::string_view trueFlag) {
    // After a value, there is room for the pieces of all properties, so that only values need a look at it.
    constexpr std::size_t roomForPieces = count * PropertyFragment::capacity;
    constexpr std::size_t roomForValues = 4096;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): written before it is read
    std::array<char, roomForPieces + roomForValues> buffer;
    char* out = buffer.data();
    for (const QRCodeDataProperty property : order) {
        const PropertyFragment& fragment = fragments[static_cast<std::size_t>(property)];
        out = Layout::write(out, fragment);
        if (propertyRow(property).isFlag) {
            const bool isTrue = QRCodeDataAccess::flag(data, property);
            out =
                isTrue ? std::copy(trueFlag.begin(), trueFlag.end(), out) : Layout::end(out, fragment, true);
            continue;
        }
        const std::optional<std::string>& value = QRCodeDataAccess::text(data, property);
        if (!value) {
            out = Layout::end(out, fragment, false);
            continue;
        }
        const std::size_t bound = Value::bound(value->size());
        if (static_cast<std::size_t>(out - buffer.data()) + bound > roomForValues) {
            text.append(buffer.data(), out);
            out = buffer.data();
        }
        if (bound > roomForValues) {
            Value::append(text, *value);
        } else {
            out = Value::write(out, *value);
        }
    }
    text.append(buffer.data(), out);
}

}  // namespace korvo

#endif
