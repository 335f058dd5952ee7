#ifndef KORVOQR_FILEKIND_H
#define KORVOQR_FILEKIND_H

#include <string>
#include <string_view>

namespace korvoqr {

/// A kind of file that holds no payloads as lines.
struct FileKind {
    std::string_view name;    ///< "is a PNG", to follow "this"
    std::string_view remedy;  ///< the command to try
};

/// The kind of a file that begins with these bytes. Null if it may hold lines.
const FileKind* fileKindOf(std::string_view bytes) noexcept;

/// The same for a file by its name. Null also if it is not a regular file or cannot be read.
const FileKind* fileKindOfFile(const std::string& name);

}  // namespace korvoqr

#endif
