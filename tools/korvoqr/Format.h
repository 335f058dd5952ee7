#ifndef KORVOQR_FORMAT_H
#define KORVOQR_FORMAT_H

namespace korvoqr {

/// The output formats. Choose between them with a switch over all cases and no default, so that a new format
/// does not compile until every switch handles it.
enum class Format : unsigned char {
    text,
    json,
    jsonl,  ///< one JSON object per line
};

/// Whether a format is text for people, not JSON for programs.
constexpr bool isText(Format format) noexcept {
    bool result = false;
    switch (format) {
        case Format::text:
            result = true;
            break;
        case Format::json:
        case Format::jsonl:
            break;
    }
    return result;
}

}  // namespace korvoqr

#endif
