#ifndef KORVOQRPARSER_MODEL_QRCODEDATAACCESS_H
#define KORVOQRPARSER_MODEL_QRCODEDATAACCESS_H

#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <optional>
#include <string>
#include <string_view>

namespace korvo {

/// Reads and writes a record's properties by their index. `text` needs the index of a text, and `flag` and
/// `setFlag` that of a flag; this is not checked.
class QRCodeDataAccess {
  public:
    static const std::optional<std::string>& text(const QRCodeData& data,
                                                  QRCodeDataProperty property) noexcept {
        return data.texts_[propertyRow(property).slot];
    }
    static std::optional<std::string>& text(QRCodeData& data, QRCodeDataProperty property) noexcept {
        return data.texts_[propertyRow(property).slot];
    }

    static bool flag(const QRCodeData& data, QRCodeDataProperty property) noexcept {
        return data.flags_[propertyRow(property).slot];
    }

    /// The consumer supplies a mandatory identifier, so setting its flag to true also removes the value that
    /// the payload carried in its place.
    static void setFlag(QRCodeData& data, QRCodeDataProperty property, bool value) noexcept {
        data.flags_[propertyRow(property).slot] = value;
        if (value && property == QRCodeDataProperty::isPrimaryIDMandatory) {
            text(data, QRCodeDataProperty::primaryID).reset();
        }
        if (value && property == QRCodeDataProperty::isSecondaryIDMandatory) {
            text(data, QRCodeDataProperty::secondaryID).reset();
        }
    }

    /// A property as both renderings print it: "nil" for an absent text, "true" or "false" for a flag.
    static std::string_view rendered(const QRCodeData& data, const QRCodeDataPropertyRow& row) noexcept {
        if (row.isFlag) {
            return flag(data, row.index) ? "true" : "false";
        }
        const std::optional<std::string>& value = text(data, row.index);
        return value ? std::string_view(*value) : "nil";
    }
};

}  // namespace korvo

#endif
