#ifndef KORVOQRPARSER_MODEL_QRCODEDATAACCESS_H
#define KORVOQRPARSER_MODEL_QRCODEDATAACCESS_H

#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvo {

namespace detail {

// The position of each property among the record's texts or flags.
inline constexpr auto propertySlots = [] {
    std::array<std::uint8_t, qrCodeDataProperties.size()> slots{};
    std::uint8_t texts = 0;
    std::uint8_t flags = 0;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        slots[i] = qrCodeDataProperties[i].isFlag ? flags++ : texts++;
    }
    return slots;
}();

}  // namespace detail

/// Reads and writes a record's properties by their index. `text` needs the index of a text, and `flag` and
/// `setFlag` that of a flag; this is not checked.
class QRCodeDataAccess {
  public:
    static const std::optional<std::string>& text(const QRCodeData& data,
                                                  QRCodeDataProperty property) noexcept {
        return data.texts_[slot(property)];
    }
    static std::optional<std::string>& text(QRCodeData& data, QRCodeDataProperty property) noexcept {
        return data.texts_[slot(property)];
    }

    static bool flag(const QRCodeData& data, QRCodeDataProperty property) noexcept {
        return data.flags_[slot(property)];
    }

    /// The consumer supplies a mandatory identifier, so setting its flag to true also removes the value that
    /// the payload carried in its place.
    static void setFlag(QRCodeData& data, QRCodeDataProperty property, bool value) noexcept {
        data.flags_[slot(property)] = value;
        if (value && property == QRCodeDataProperty::isPrimaryIDMandatory) {
            text(data, QRCodeDataProperty::primaryID).reset();
        }
        if (value && property == QRCodeDataProperty::isSecondaryIDMandatory) {
            text(data, QRCodeDataProperty::secondaryID).reset();
        }
    }

    /// All texts, in the order of their indices.
    static const auto& texts(const QRCodeData& data) noexcept { return data.texts_; }

  private:
    static constexpr std::size_t slot(QRCodeDataProperty property) noexcept {
        return detail::propertySlots[static_cast<std::size_t>(property)];
    }
};

}  // namespace korvo

#endif
