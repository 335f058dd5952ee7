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
constexpr std::string_view gunzip = "gzip -dc FILE | korvoqr parse";
constexpr std::string_view saveAsCSV = "saving the sheet as CSV, and --payload-column";

constexpr std::array signatures{
    Signature{0, "\x89PNG\r\n"sv, {"a PNG", image}},
    Signature{0, "\xFF\xD8\xFF"sv, {"a JPEG", image}},
    Signature{0, "GIF8"sv, {"a GIF", image}},
    Signature{8, "WEBPVP8"sv, {"a WebP picture", image}},
    Signature{4, "ftyphei"sv, {"a HEIC picture", image}},
    Signature{4, "ftypmif1"sv, {"a HEIC picture", image}},
    Signature{0, "%PDF-"sv, {"a PDF", "pdftoppm -png FILE page, and --image"}},
    Signature{0, "\x1F\x8B"sv, {"a gzip file", gunzip}},
    Signature{0, "PK\x03\x04"sv, {"a zip file or a spreadsheet", saveAsCSV}},
};

}  // namespace

const FileKind* fileKindOf(std::string_view bytes) noexcept {
    const auto* const found =
        std::find_if(signatures.begin(), signatures.end(), [bytes](const Signature& signature) {
            return bytes.size() > signature.offset &&
                   bytes.compare(signature.offset, signature.bytes.size(), signature.bytes) == 0;
        });
    return found == signatures.end() ? nullptr : &found->kind;
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
