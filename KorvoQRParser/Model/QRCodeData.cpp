#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <cstddef>
#include <ostream>
#include <tuple>
#include <utility>

namespace korvo {

namespace {

// Where each property stands in the record's arrays.
#define KORVO_INDEX(name, Name) index_##name,
enum TextIndex : std::size_t {
    KORVO_VALUE_PROPERTIES(KORVO_INDEX) KORVO_LENGTH_PROPERTIES(KORVO_INDEX) textCount
};
enum FlagIndex : std::size_t {
    KORVO_IDENTIFIER_FLAG_PROPERTIES(KORVO_INDEX) KORVO_ADDITIONAL_DATA_FLAG_PROPERTIES(KORVO_INDEX) flagCount
};
#undef KORVO_INDEX

}  // namespace

#define KORVO_TEXT(name, Name)                                              \
    const std::optional<std::string>& QRCodeData::name() const noexcept {   \
        return texts_[index_##name];                                        \
    }                                                                       \
    void QRCodeData::set##Name(std::optional<std::string> value) noexcept { \
        texts_[index_##name] = std::move(value);                            \
    }
#define KORVO_GETTER(name, Name)             \
    bool QRCodeData::name() const noexcept { \
        return flags_[index_##name];         \
    }
#define KORVO_FLAG(name, Name)                        \
    KORVO_GETTER(name, Name)                          \
    void QRCodeData::set##Name(bool value) noexcept { \
        flags_[index_##name] = value;                 \
    }

KORVO_VALUE_PROPERTIES(KORVO_TEXT)
KORVO_LENGTH_PROPERTIES(KORVO_TEXT)
KORVO_ADDITIONAL_DATA_FLAG_PROPERTIES(KORVO_FLAG)
KORVO_IDENTIFIER_FLAG_PROPERTIES(KORVO_GETTER)

#undef KORVO_FLAG
#undef KORVO_GETTER
#undef KORVO_TEXT

// A mandatory identifier is one that the consumer supplies, so what the code carried in its place goes.
void QRCodeData::setIsPrimaryIDMandatory(bool value) noexcept {
    flags_[index_isPrimaryIDMandatory] = value;
    if (value) {
        texts_[index_primaryID].reset();
    }
}

void QRCodeData::setIsSecondaryIDMandatory(bool value) noexcept {
    flags_[index_isSecondaryIDMandatory] = value;
    if (value) {
        texts_[index_secondaryID].reset();
    }
}

bool operator==(const QRCodeData& left, const QRCodeData& right) {
    static_assert(std::tuple_size_v<decltype(left.texts_)> == textCount);
    static_assert(std::tuple_size_v<decltype(left.flags_)> == flagCount);
    return left.texts_ == right.texts_ && left.flags_ == right.flags_;
}

bool operator!=(const QRCodeData& left, const QRCodeData& right) {
    return !(left == right);
}

std::ostream& operator<<(std::ostream& stream, const QRCodeData& data) {
    return stream << data.description();
}

}  // namespace korvo
