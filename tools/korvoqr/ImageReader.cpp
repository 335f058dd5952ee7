#include "ImageReader.h"

#include "PayloadInput.h"
#include <KorvoQRParser/Decoding/CharacterReader.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

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

// A small file may announce a picture that fills the memory; no camera makes one of this size.
constexpr std::int64_t mostPixels = 200'000'000;
constexpr std::size_t mostBytes = std::size_t{256} * 1024 * 1024;

struct FreePixels {
    void operator()(stbi_uc* pixels) const noexcept { stbi_image_free(pixels); }
};
using Pixels = std::unique_ptr<stbi_uc, FreePixels>;

struct Picture {
    Pixels pixels;  // a byte of grey for each
    int width = 0;
    int height = 0;
};

std::string readWhole(const std::string& file) {
    const InputFile input(file == "-" ? "./-" : file);
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
        throw std::runtime_error("this is no PNG or JPEG picture");
    }
    if (std::int64_t{picture.width} * picture.height > mostPixels) {
        throw std::runtime_error("the picture is too large");
    }
    constexpr int greyAndAlpha = 2;
    const Pixels loaded(
        stbi_load_from_memory(data, size, &picture.width, &picture.height, &channels, greyAndAlpha));
    if (!loaded) {
        throw std::runtime_error(std::string("the picture is damaged: ") + stbi_failure_reason());
    }
    // What is transparent shows the paper, which is white.
    const std::size_t count =
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    picture.pixels.reset(static_cast<stbi_uc*>(stbi__malloc(count)));
    if (!picture.pixels) {
        throw std::bad_alloc();
    }
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned grey = loaded.get()[2 * i];
        const unsigned alpha = loaded.get()[2 * i + 1];
        picture.pixels.get()[i] = static_cast<stbi_uc>((grey * alpha + 255U * (255U - alpha)) / 255U);
    }
    return picture;
}

// A code without a word on its character set is UTF-8 wherever it can be, and a guess elsewhere.
std::string textOf(const ZXing::Result& code) {
    const std::string_view bytes = code.bytes().asString();
    return !code.hasECI() && korvo::isUTF8(bytes) ? std::string(bytes) : code.text();
}

}  // namespace

ImageContent readQRCodes(const std::string& file) {
    ImageContent content;
    try {
        const Picture picture = loadPicture(readWhole(file));
        const ZXing::ImageView view(picture.pixels.get(), picture.width, picture.height,
                                    ZXing::ImageFormat::Lum);
        const auto hints = ZXing::DecodeHints().setFormats(ZXing::BarcodeFormat::QRCode);
        for (const ZXing::Result& code : ZXing::ReadBarcodes(view, hints)) {
            if (code.isValid()) {
                content.payloads.push_back(textOf(code));
            }
        }
        if (content.payloads.empty()) {
            content.problem = "no QR code is found in this picture";
        }
    } catch (const std::runtime_error& problem) {
        content.problem = problem.what();
    } catch (const std::logic_error& problem) {
        content.problem = problem.what();
    }
    return content;
}

}  // namespace korvoqr
