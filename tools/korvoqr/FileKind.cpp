#include "FileKind.h"

#include "PayloadInput.h"
#include "PictureDecoder.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <sys/stat.h>

namespace korvoqr {

namespace {

constexpr const char* utf16 = "looks like UTF-16";
constexpr const char* iconv = "iconv -f UTF-16 -t UTF-8 FILE | korvoqr";

struct Signature {
    std::string_view bytes;
    const char* name;
    const char* remedy;
};

constexpr std::array signatures{
    Signature{"\x1F\x8B", "is a gzip file", "gzip -dc FILE | korvoqr"},
    Signature{"PK\x03\x04", "is a zip file or a spreadsheet", "saving it as CSV, and --payload-column"},
    Signature{"\xFF\xFE", utf16, iconv},
    Signature{"\xFE\xFF", utf16, iconv},
};

// UTF-16 without a byte order mark has a zero byte in each ASCII character: the second one, or the first.
std::optional<FileKind> unmarkedUTF16(std::string_view bytes) {
    const auto hasZeros = [bytes](std::size_t first) {
        return bytes.size() >= 4 && bytes[first] == '\0' && bytes[first + 2] == '\0' &&
               bytes[1 - first] != '\0';
    };
    if (hasZeros(1)) {
        return FileKind{utf16, "iconv -f UTF-16LE -t UTF-8 FILE | korvoqr"};
    }
    return hasZeros(0) ? std::optional(FileKind{utf16, "iconv -f UTF-16BE -t UTF-8 FILE | korvoqr"})
                       : std::nullopt;
}

}  // namespace

std::optional<FileKind> fileKindOf(std::string_view bytes) {
    if (const char* const format = pictureFormatOf(bytes.substr(0, leadingBytes))) {
        const bool beginsWithVowel = *format == 'S';  // as it is spoken
        return FileKind{std::string(beginsWithVowel ? "is an " : "is a ") + format, "--image"};
    }
    const auto* const found =
        std::find_if(signatures.begin(), signatures.end(), [bytes](const Signature& signature) {
            return bytes.substr(0, signature.bytes.size()) == signature.bytes;
        });
    return found == signatures.end() ? unmarkedUTF16(bytes)
                                     : std::optional(FileKind{found->name, found->remedy});
}

std::optional<FileKind> fileKindOfFile(const std::string& name) {
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return fileKindOf(headOfFile(name, leadingBytes));
}

}  // namespace korvoqr
