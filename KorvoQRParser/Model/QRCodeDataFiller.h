#ifndef KORVOQRPARSER_MODEL_QRCODEDATAFILLER_H
#define KORVOQRPARSER_MODEL_QRCODEDATAFILLER_H

#include <KorvoQRParser/Model/QRCodeData.h>
#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <cstddef>
#include <string_view>

namespace korvo {

/// Writes a record's texts in place. The public setters take a string that somebody has made already; the
/// library has views, and a string for each on the way would cost as much as the rest of the assembly.
class QRCodeDataFiller {
  public:
    /// Where each property stands in the record's arrays.
#define KORVO_INDEX(name, Name) name,
    enum TextIndex : std::size_t {
        KORVO_VALUE_PROPERTIES(KORVO_INDEX) KORVO_LENGTH_PROPERTIES(KORVO_INDEX) textCount
    };
    enum FlagIndex : std::size_t {
        KORVO_IDENTIFIER_FLAG_PROPERTIES(KORVO_INDEX) KORVO_ADDITIONAL_DATA_FLAG_PROPERTIES(KORVO_INDEX)
            flagCount
    };
#undef KORVO_INDEX

    explicit QRCodeDataFiller(QRCodeData& data) noexcept : data_(data) {}

    void set(TextIndex property, std::string_view value) {
        data_.texts_[property].emplace(value);
    }

  private:
    QRCodeData& data_;
};

}  // namespace korvo

#endif
