#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataFiller.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <ostream>
#include <tuple>
#include <utility>

namespace korvo {

#define KORVO_TEXT(name, Name)                                              \
    const std::optional<std::string>& QRCodeData::name() const noexcept {   \
        return texts_[QRCodeDataFiller::name];                              \
    }                                                                       \
    void QRCodeData::set##Name(std::optional<std::string> value) noexcept { \
        texts_[QRCodeDataFiller::name] = std::move(value);                  \
    }
#define KORVO_GETTER(name, Name)               \
    bool QRCodeData::name() const noexcept {   \
        return flags_[QRCodeDataFiller::name]; \
    }
#define KORVO_FLAG(name, Name)                        \
    KORVO_GETTER(name, Name)                          \
    void QRCodeData::set##Name(bool value) noexcept { \
        flags_[QRCodeDataFiller::name] = value;       \
    }

KORVO_VALUE_PROPERTIES(KORVO_TEXT)
KORVO_LENGTH_PROPERTIES(KORVO_TEXT)
KORVO_ADDITIONAL_DATA_FLAG_PROPERTIES(KORVO_FLAG)
KORVO_IDENTIFIER_FLAG_PROPERTIES(KORVO_GETTER)

#undef KORVO_FLAG
#undef KORVO_GETTER
#undef KORVO_TEXT

// Not defaulted in the class: make_shared would then clear the whole record before constructing it.
QRCodeData::QRCodeData() noexcept = default;

// A mandatory identifier is one that the consumer supplies, so what the code carried in its place goes.
void QRCodeData::setIsPrimaryIDMandatory(bool value) noexcept {
    flags_[QRCodeDataFiller::isPrimaryIDMandatory] = value;
    if (value) {
        texts_[QRCodeDataFiller::primaryID].reset();
    }
}

void QRCodeData::setIsSecondaryIDMandatory(bool value) noexcept {
    flags_[QRCodeDataFiller::isSecondaryIDMandatory] = value;
    if (value) {
        texts_[QRCodeDataFiller::secondaryID].reset();
    }
}

bool operator==(const QRCodeData& left, const QRCodeData& right) {
    static_assert(std::tuple_size_v<decltype(left.texts_)> == QRCodeDataFiller::textCount);
    static_assert(std::tuple_size_v<decltype(left.flags_)> == QRCodeDataFiller::flagCount);
    return left.texts_ == right.texts_ && left.flags_ == right.flags_;
}

bool operator!=(const QRCodeData& left, const QRCodeData& right) {
    return !(left == right);
}

std::ostream& operator<<(std::ostream& stream, const QRCodeData& data) {
    return stream << data.description();
}

}  // namespace korvo
