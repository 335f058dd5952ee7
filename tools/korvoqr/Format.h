#ifndef KORVOQR_FORMAT_H
#define KORVOQR_FORMAT_H

namespace korvoqr {

/// The formats of the tool's output. A command accepts those that it has. Choose between them with a switch
/// over all cases and no default, so that a new format does not compile until every switch handles it.
enum class Format : unsigned char {
    text,   ///< for a person
    json,   ///< JSON
    jsonl,  ///< one JSON object on each line
};

/// Whether a format is text for a person rather than JSON for a program.
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
