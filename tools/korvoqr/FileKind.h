#ifndef KORVOQR_FILEKIND_H
#define KORVOQR_FILEKIND_H

#include <optional>
#include <string>
#include <string_view>

namespace korvoqr {

/// The bytes before the text of a file that say that it is UTF-8.
inline constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

/// A kind of file that holds no payloads as lines.
struct FileKind {
    std::string name;    ///< "is a PNG", to follow "this"
    std::string remedy;  ///< the option or the command to try
};

/// The kind of a file that begins with these bytes; absent if it may hold lines.
std::optional<FileKind> fileKindOf(std::string_view bytes);

/// The same for a file by its name. Absent also if it is not a regular file or cannot be read.
std::optional<FileKind> fileKindOfFile(const std::string& name);

}  // namespace korvoqr

#endif
