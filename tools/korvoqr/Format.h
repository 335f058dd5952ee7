#ifndef KORVOQR_FORMAT_H
#define KORVOQR_FORMAT_H

namespace korvoqr {

/// The output formats. Choose between them with a switch over all cases and no default, so that a new format
/// does not compile until every switch handles it.
enum class Format : unsigned char {
    text,
    json,
    jsonl,  ///< one JSON object per line
    copy,   ///< one line per payload, for the COPY command of PostgreSQL
};

/// Whether a format is text for people, not lines or objects for programs.
constexpr bool isText(Format format) noexcept {
    return format == Format::text;
}

}  // namespace korvoqr

#endif
