#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataAccess.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <utility>

namespace korvo {

namespace {

// Not inlined, because each of the setters would have the same code.
[[gnu::noinline]] void assign(std::optional<std::string>& text, std::optional<std::string>&& value) noexcept {
    text = std::move(value);
}

}  // namespace

#define KORVO_TEXT(name, Name)                                                             \
    const std::optional<std::string>& QRCodeData::name() const noexcept {                  \
        return QRCodeDataAccess::text(*this, QRCodeDataProperty::name);                    \
    }                                                                                      \
    void QRCodeData::set##Name(std::optional<std::string> value) noexcept {                \
        assign(QRCodeDataAccess::text(*this, QRCodeDataProperty::name), std::move(value)); \
    }
#define KORVO_FLAG(name, Name)                                             \
    bool QRCodeData::name() const noexcept {                               \
        return QRCodeDataAccess::flag(*this, QRCodeDataProperty::name);    \
    }                                                                      \
    void QRCodeData::set##Name(bool value) noexcept {                      \
        QRCodeDataAccess::setFlag(*this, QRCodeDataProperty::name, value); \
    }
KORVO_QRCODEDATA_PROPERTIES(KORVO_TEXT, KORVO_FLAG)
#undef KORVO_FLAG
#undef KORVO_TEXT

std::optional<std::string_view> QRCodeData::text(QRCodeDataProperty property) const noexcept {
    return propertyRow(property).isFlag
               ? std::nullopt
               : std::optional<std::string_view>(QRCodeDataAccess::text(*this, property));
}

bool QRCodeData::flag(QRCodeDataProperty property) const noexcept {
    return propertyRow(property).isFlag && QRCodeDataAccess::flag(*this, property);
}

// Not defaulted in the class, because make_shared would then clear the whole record before constructing it.
QRCodeData::QRCodeData() noexcept = default;

bool operator==(const QRCodeData& left, const QRCodeData& right) {
    constexpr auto flags =
        static_cast<std::size_t>(std::count_if(qrCodeDataProperties.begin(), qrCodeDataProperties.end(),
                                               [](const QRCodeDataPropertyRow& row) { return row.isFlag; }));
    static_assert(
        QRCodeData::flagCount == flags && QRCodeData::textCount == qrCodeDataProperties.size() - flags,
        "textCount and flagCount in QRCodeData.h count the rows of QRCodeDataProperties.h");
    return left.texts_ == right.texts_ && left.flags_ == right.flags_;
}

bool operator!=(const QRCodeData& left, const QRCodeData& right) {
    return !(left == right);
}

std::ostream& operator<<(std::ostream& stream, const QRCodeData& data) {
    return stream << data.description();
}

}  // namespace korvo
