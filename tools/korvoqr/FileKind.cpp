#include "FileKind.h"

#include "PayloadInput.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <sys/stat.h>
#include <unistd.h>

namespace korvoqr {

namespace {

using namespace std::string_view_literals;

struct Signature {
    std::size_t offset;
    std::string_view bytes;
    FileKind kind;
};

constexpr std::string_view image = "--image";
constexpr std::string_view gunzip = "gzip -dc FILE | korvoqr";
constexpr std::string_view iconv = "iconv -f UTF-16 -t UTF-8 FILE | korvoqr";
constexpr std::string_view iconvBigEndian = "iconv -f UTF-16BE -t UTF-8 FILE | korvoqr";
constexpr FileKind utf16{"looks like UTF-16", iconv};
constexpr FileKind utf16BigEndian{"looks like UTF-16", iconvBigEndian};
constexpr std::string_view saveAsCSV = "saving the sheet as CSV, and --payload-column";

constexpr std::array signatures{
    Signature{0, "\x89PNG\r\n"sv, {"is a PNG", image}},
    Signature{0, "\xFF\xD8\xFF"sv, {"is a JPEG", image}},
    Signature{0, "GIF8"sv, {"is a GIF", image}},
    Signature{8, "WEBPVP8"sv, {"is a WebP picture", image}},
    Signature{4, "ftyphei"sv, {"is a HEIC picture", image}},
    Signature{4, "ftypmif1"sv, {"is a HEIC picture", image}},
    Signature{0, "%PDF-"sv, {"is a PDF", "pdftoppm -png FILE page, and --image"}},
    Signature{0, "\x1F\x8B"sv, {"is a gzip file", gunzip}},
    Signature{0, "\xFF\xFE"sv, utf16},
    Signature{0, "\xFE\xFF"sv, utf16},
    Signature{0, "PK\x03\x04"sv, {"is a zip file or a spreadsheet", saveAsCSV}},
};

}  // namespace

const FileKind* fileKindOf(std::string_view bytes) noexcept {
    const auto* const found =
        std::find_if(signatures.begin(), signatures.end(), [bytes](const Signature& signature) {
            return bytes.size() > signature.offset &&
                   bytes.compare(signature.offset, signature.bytes.size(), signature.bytes) == 0;
        });
    if (found != signatures.end()) {
        return &found->kind;
    }
    // UTF-16 has a zero byte in each ASCII character.
    const auto hasZeros = [bytes](std::size_t first) {
        return bytes.size() >= 4 && bytes[first] == '\0' && bytes[first + 2] == '\0' &&
               bytes[1 - first] != '\0';
    };
    return hasZeros(1) ? &utf16 : hasZeros(0) ? &utf16BigEndian : nullptr;
}

const FileKind* fileKindOfFile(const std::string& name) {
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return nullptr;
    }
    const InputFile file(name);
    std::array<char, 16> head{};
    const ssize_t count = file.descriptor() < 0 ? 0 : ::read(file.descriptor(), head.data(), head.size());
    return count > 0 ? fileKindOf({head.data(), static_cast<std::size_t>(count)}) : nullptr;
}

}  // namespace korvoqr
