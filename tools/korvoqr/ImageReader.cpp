#include "ImageReader.h"

#include "LibraryInternals.h"
#include "PayloadInput.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#define ZX_USE_UTF8 1  // NOLINT(cppcoreguidelines-macro-usage): asks the library for texts as UTF-8
#include <ZXing/ReadBarcode.h>

#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#define STBI_NO_STDIO
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#include <stb/stb_image.h>

namespace korvoqr {

namespace {

namespace fs = std::filesystem;

// A small file may claim a size that fills the memory; no camera makes pictures of this size.
constexpr std::int64_t mostPixels = 200'000'000;
constexpr std::size_t mostBytes = std::size_t{256} * 1024 * 1024;
// A picture made to harm keeps the search for codes busy for minutes; a photo takes about a second.
constexpr rlim_t mostSeconds = 20;

constexpr std::uint8_t white = 255;

struct FreePixels {
    void operator()(stbi_uc* pixels) const noexcept { stbi_image_free(pixels); }
};

constexpr int bytesPerPixel = 2;

struct Picture {
    std::unique_ptr<stbi_uc, FreePixels> greyAndAlpha;
    int width = 0;
    int height = 0;

    std::size_t size() const noexcept {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
};

std::string readWhole(const std::string& file) {
    const InputFile input(file);
    std::string bytes;
    bool isTooLarge = false;
    const int error =
        input.descriptor() < 0 ? errno : readChunks(input.descriptor(), [&](std::string_view chunk) {
            bytes += chunk;
            isTooLarge = bytes.size() > mostBytes;
            return !isTooLarge;
        });
    if (error != 0) {
        throw std::runtime_error(std::strerror(error));  // NOLINT(concurrency-mt-unsafe): one thread
    }
    if (isTooLarge) {
        throw std::runtime_error("the file is too large for a picture");
    }
    return bytes;
}

Picture loadPicture(const std::string& bytes) {
    const auto* const data = reinterpret_cast<const stbi_uc*>(bytes.data());
    const int size = static_cast<int>(bytes.size());
    Picture picture;
    int channels = 0;
    if (stbi_info_from_memory(data, size, &picture.width, &picture.height, &channels) == 0) {
        const bool looksRight = bytes.compare(0, 4, "\x89PNG") == 0 || bytes.compare(0, 2, "\xFF\xD8") == 0;
        throw std::runtime_error(looksRight ? "the picture is damaged or too large"
                                            : "the file is not a PNG or JPEG picture");
    }
    if (std::int64_t{picture.width} * picture.height > mostPixels) {
        throw std::runtime_error("the picture is too large");
    }
    picture.greyAndAlpha.reset(
        stbi_load_from_memory(data, size, &picture.width, &picture.height, &channels, bytesPerPixel));
    if (!picture.greyAndAlpha) {
        throw std::runtime_error("the picture is damaged");
    }
    return picture;
}

// Transparent pixels take the colour behind the picture: white paper, or a dark screen for light codes. Light
// codes are inverted.
std::vector<std::uint8_t> greysOf(const Picture& picture, bool isLightOnDark) {
    std::vector<std::uint8_t> greys(picture.size());
    const stbi_uc* pixel = picture.greyAndAlpha.get();
    for (std::uint8_t& grey : greys) {
        const unsigned ink = isLightOnDark ? pixel[0] : white - pixel[0];
        grey = static_cast<std::uint8_t>(white - ink * pixel[1] / white);
        pixel += bytesPerPixel;
    }
    return greys;
}

// A code that does not declare its character set is read as UTF-8 if it is valid; otherwise the library
// guesses.
std::string textOf(const ZXing::Result& code) {
    if (code.isPartOfSequence()) {
        throw std::runtime_error("it holds one part of a text that is split over several codes");
    }
    const std::string_view bytes = code.bytes().asString();
    return !code.hasECI() && korvo::isUTF8(bytes) ? std::string(bytes) : code.text();
}

PicturePlace placeOf(const ZXing::Position& corners) {
    const auto [left, right] = std::minmax(
        {corners.topLeft().x, corners.topRight().x, corners.bottomLeft().x, corners.bottomRight().x});
    const auto [top, bottom] = std::minmax(
        {corners.topLeft().y, corners.topRight().y, corners.bottomLeft().y, corners.bottomRight().y});
    return {left, top, right - left + 1, bottom - top + 1};
}

// Paints a code white, so that the next search finds those beside it.
void paintOver(const PicturePlace& place, std::vector<std::uint8_t>& greys, int width, int height) {
    for (int y = std::max(place.y, 0); y < std::min(place.y + place.height, height); ++y) {
        const auto row = greys.begin() + std::ptrdiff_t{y} * width;
        const int begin = std::clamp(place.x, 0, width);
        std::fill(row + begin, row + std::clamp(place.x + place.width, begin, width), white);
    }
}

// One search misses some of many codes, so searches go on as long as they find something.
std::vector<ImageCode> findCodes(const Picture& picture, bool isLightOnDark) {
    std::vector<ImageCode> codes;
    std::vector<std::uint8_t> greys = greysOf(picture, isLightOnDark);
    const ZXing::ImageView view(greys.data(), picture.width, picture.height, ZXing::ImageFormat::Lum);
    const auto hints = ZXing::DecodeHints().setFormats(ZXing::BarcodeFormat::QRCode);
    constexpr int mostSearches = 100;
    bool isNew = true;
    for (int search = 0; isNew && search < mostSearches; ++search) {
        isNew = false;
        for (const ZXing::Result& code : ZXing::ReadBarcodes(view, hints)) {
            if (code.isValid()) {
                codes.push_back({textOf(code), {}, placeOf(code.position())});
                paintOver(codes.back().place, greys, picture.width, picture.height);
                isNew = true;
            }
        }
    }
    return codes;
}

ImageContent readHere(const std::string& file) {
    ImageContent content;
    try {
        const Picture picture = loadPicture(readWhole(file));
        content.codes = findCodes(picture, false);
        if (content.codes.empty()) {
            content.codes = findCodes(picture, true);
        }
        if (content.codes.empty()) {
            content.problem = "there is no QR code in this picture";
        }
    } catch (const std::bad_alloc&) {
        content = {{}, "there is not enough memory for this picture"};
    } catch (const std::exception& problem) {
        content = {{}, problem.what()};
    }
    return content;
}

// Writes a text to a pipe: its length, then its bytes. False if the write fails.
[[nodiscard]] bool send(int pipe, const std::string& text) {
    const std::uint64_t length = text.size();
    std::string message(reinterpret_cast<const char*>(&length), sizeof length);
    message += text;
    for (std::size_t sent = 0; sent < message.size();) {
        const ssize_t count = ::write(pipe, message.data() + sent, message.size() - sent);
        if (count < 0) {
            return false;
        }
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

std::vector<std::string> received(std::string_view bytes) {
    std::vector<std::string> texts;
    std::uint64_t length = 0;
    while (bytes.size() >= sizeof length) {
        std::memcpy(&length, bytes.data(), sizeof length);
        bytes.remove_prefix(sizeof length);
        texts.emplace_back(bytes.substr(0, length));
        bytes.remove_prefix(std::min<std::size_t>(length, bytes.size()));
    }
    return texts;
}

// The child process: reads the picture, and sends the problem and then the payloads.
[[noreturn]] void readInChild(const std::string& file, int pipe) {
    const rlimit limit{mostSeconds, mostSeconds};
    ::setrlimit(RLIMIT_CPU, &limit);
    const ImageContent content = readHere(file);
    bool isSent = send(pipe, content.problem);
    for (const ImageCode& code : content.codes) {
        const std::string place(reinterpret_cast<const char*>(&code.place), sizeof code.place);
        isSent = isSent && send(pipe, place) && send(pipe, code.problem) && send(pipe, code.payload);
    }
    ::_exit(isSent ? 0 : 1);
}

// The content that the child sent, or a problem if the child failed.
ImageContent contentFrom(std::string_view message, int waitStatus) {
    if (WIFSIGNALED(waitStatus) && (WTERMSIG(waitStatus) == SIGXCPU || WTERMSIG(waitStatus) == SIGKILL)) {
        return {{}, "the search for codes in this picture takes too long"};
    }
    std::vector<std::string> texts = received(message);
    if (!WIFEXITED(waitStatus) || WEXITSTATUS(waitStatus) != 0 || texts.empty()) {
        return {{}, "the picture cannot be read"};
    }
    ImageContent content{{}, texts.front()};
    for (std::size_t i = 1; i + 2 < texts.size(); i += 3) {
        ImageCode code{texts[i + 2], texts[i + 1], {}};
        std::memcpy(&code.place, texts[i].data(), std::min(texts[i].size(), sizeof code.place));
        content.codes.push_back(code);
    }
    return content;
}

bool isPicture(const fs::path& file) {
    std::array<char, 4> bytes{};
    const InputFile input("./" / file);
    const ssize_t count = input.descriptor() < 0 ? 0 : ::read(input.descriptor(), bytes.data(), bytes.size());
    const std::string_view head(bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return head == "\x89PNG" || head.substr(0, 2) == "\xFF\xD8";
}

// A folder that cannot be opened is added itself, so that its turn brings the message.
void addPictures(const fs::path& folder, std::vector<std::string>& pictures) {
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        entries.push_back(entry->path());
    }
    if (error) {
        pictures.push_back(folder);
    }
    std::sort(entries.begin(), entries.end());
    for (const fs::path& entry : entries) {
        const bool isHidden = entry.filename().string().front() == '.';
        if (!isHidden && fs::is_directory(fs::symlink_status(entry, error))) {
            addPictures(entry, pictures);
        } else if (!isHidden && fs::is_regular_file(entry, error) && isPicture(entry)) {
            pictures.push_back(entry);
        }
    }
}

}  // namespace

// A process of its own reads the picture, so that a crash in a third-party decoder does not end the run.
ImageContent readQRCodes(const std::string& file) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        return readHere(file);
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        readInChild(file, ends[1]);
    }
    ::close(ends[1]);
    std::string message;
    const int error = readChunks(ends[0], [&message](std::string_view chunk) {
        message += chunk;
        return true;
    });
    ::close(ends[0]);
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child) {
        return readHere(file);
    }
    return contentFrom(error == 0 ? message : "", status);
}

std::vector<std::string> picturesIn(const std::string& name) {
    std::error_code error;
    std::vector<std::string> pictures;
    if (fs::is_directory(name, error)) {
        addPictures(name, pictures);
    }
    return pictures.empty() ? std::vector{name} : pictures;
}

}  // namespace korvoqr
