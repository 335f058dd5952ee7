#include "PictureDecoder.h"

#include "LibraryInternals.h"
#include "NetpbmPicture.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <stdexcept>

#define STBI_NO_STDIO
#include <stb/stb_image.h>

#ifdef KORVOQR_WEBP
#include <webp/demux.h>
#endif
#ifdef KORVOQR_HEIF
#include <libheif/heif.h>
#endif

namespace korvoqr {

namespace {

// A small file may claim a size that fills the memory; no camera makes pictures of this size.
constexpr std::int64_t mostPixels = 200'000'000;

using Decode = DecodedPicture (*)(const std::string& bytes);

struct Format {
    const char* name = nullptr;
    bool (*isFormatOf)(std::string_view head) = nullptr;
    const char* endings = nullptr;  // of names, in small letters, each between dots
    Decode decode = nullptr;        // null if this build cannot read the format
    const char* advice = nullptr;   // for a format that is never read; otherwise null
    bool needsThread = false;
};

struct FreeSTB {
    void operator()(stbi_uc* pixels) const noexcept { stbi_image_free(pixels); }
};

DecodedPicture decodeSTB(const std::string& bytes) {
    constexpr int greyAndAlpha = 2;
    const auto* const data = reinterpret_cast<const stbi_uc*>(bytes.data());
    const int size = static_cast<int>(bytes.size());
    int width = 0;
    int height = 0;
    int channels = 0;
    if (stbi_info_from_memory(data, size, &width, &height, &channels) == 0) {
        throw DamagedPicture();
    }
    DecodedPicture picture = DecodedPicture::empty(width, height, true);
    const std::unique_ptr<stbi_uc, FreeSTB> pixels(
        stbi_load_from_memory(data, size, &width, &height, &channels, greyAndAlpha));
    if (!pixels && stbi_failure_reason() == std::string_view("outofmem")) {
        throw std::bad_alloc();
    }
    if (!pixels) {
        throw std::runtime_error("the picture is damaged");
    }
    for (std::size_t i = 0; i < picture.opacity.size(); ++i) {
        picture.greys.pixels[i] = pixels.get()[greyAndAlpha * i];
        picture.opacity[i] = pixels.get()[greyAndAlpha * i + 1];
    }
    return picture;
}

#ifdef KORVOQR_WEBP

struct FreeWebP {
    void operator()(WebPAnimDecoder* decoder) const noexcept { WebPAnimDecoderDelete(decoder); }
};

// A still picture is an animation with one frame.
DecodedPicture decodeWebP(const std::string& bytes) {
    const WebPData data{reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
    const std::unique_ptr<WebPAnimDecoder, FreeWebP> decoder(WebPAnimDecoderNew(&data, nullptr));
    WebPAnimInfo info{};
    std::uint8_t* pixel = nullptr;
    int time = 0;
    if (!decoder || WebPAnimDecoderGetInfo(decoder.get(), &info) == 0 ||
        WebPAnimDecoderGetNext(decoder.get(), &pixel, &time) == 0) {
        throw DamagedPicture();
    }
    DecodedPicture picture = DecodedPicture::empty(info.canvas_width, info.canvas_height, true);
    for (std::size_t i = 0; i < picture.opacity.size(); ++i, pixel += 4) {
        constexpr int red = 77;  // their shares of the brightness, in 256ths
        constexpr int green = 150;
        constexpr int blue = 29;
        picture.greys.pixels[i] =
            static_cast<std::uint8_t>((red * pixel[0] + green * pixel[1] + blue * pixel[2]) / 256);
        picture.opacity[i] = pixel[3];
    }
    return picture;
}

#else

constexpr Decode decodeWebP = nullptr;

#endif

#ifdef KORVOQR_HEIF

struct FreeHEIF {
    void operator()(heif_context* context) const noexcept { heif_context_free(context); }
    void operator()(const heif_image_handle* handle) const noexcept { heif_image_handle_release(handle); }
    void operator()(const heif_image* image) const noexcept { heif_image_release(image); }
    void operator()(heif_decoding_options* options) const noexcept { heif_decoding_options_free(options); }
};

void check(const heif_error& error) {
    if (error.code == heif_error_Memory_allocation_error) {
        throw std::bad_alloc();
    }
    if (error.code != heif_error_Ok) {
        throw DamagedPicture();
    }
}

void copyPlane(const heif_image* image, heif_channel channel, const Greys& size,
               std::vector<std::uint8_t>& bytes) {
    int stride = 0;
    const std::uint8_t* const plane = heif_image_get_plane_readonly(image, channel, &stride);
    if (plane == nullptr || heif_image_get_width(image, channel) < size.width ||
        heif_image_get_height(image, channel) < size.height) {
        throw DamagedPicture();
    }
    for (int y = 0; y < size.height; ++y) {
        std::copy_n(plane + std::ptrdiff_t{y} * stride, size.width,
                    bytes.begin() + std::ptrdiff_t{y} * size.width);
    }
}

DecodedPicture decodeHEIC(const std::string& bytes) {
    const std::unique_ptr<heif_context, FreeHEIF> context(heif_context_alloc());
    // Tiles need no threads of their own.
    heif_context_set_max_decoding_threads(context.get(), 0);
    check(heif_context_read_from_memory_without_copy(context.get(), bytes.data(), bytes.size(), nullptr));
    heif_image_handle* handle = nullptr;
    check(heif_context_get_primary_image_handle(context.get(), &handle));
    const std::unique_ptr<const heif_image_handle, FreeHEIF> ownedHandle(handle);
    const std::unique_ptr<heif_decoding_options, FreeHEIF> options(heif_decoding_options_alloc());
    options->convert_hdr_to_8bit = 1;
    // Places in the picture count pixels as they are stored.
    options->ignore_transformations = 1;
    heif_image* image = nullptr;
    check(heif_decode_image(handle, &image, heif_colorspace_YCbCr, heif_chroma_420, options.get()));
    const std::unique_ptr<const heif_image, FreeHEIF> ownedImage(image);
    const bool hasOpacity = heif_image_has_channel(image, heif_channel_Alpha) != 0;
    DecodedPicture picture = DecodedPicture::empty(heif_image_get_width(image, heif_channel_Y),
                                                   heif_image_get_height(image, heif_channel_Y), hasOpacity);
    copyPlane(image, heif_channel_Y, picture.greys, picture.greys.pixels);
    if (hasOpacity) {
        copyPlane(image, heif_channel_Alpha, picture.greys, picture.opacity);
    }
    return picture;
}

#else

constexpr Decode decodeHEIC = nullptr;

#endif

bool beginsWith(std::string_view head, std::string_view begin) {
    return head.substr(0, begin.size()) == begin;
}

bool isBMP(std::string_view head) {
    constexpr std::size_t sizeOfHeader = 14;
    constexpr std::string_view sizes("\x0C\x28\x34\x38\x40\x6C\x7C");  // of the second header, in any version
    return beginsWith(head, "BM") && head.size() > sizeOfHeader &&
           sizes.find(head[sizeOfHeader]) != std::string_view::npos;
}

bool isPNM(std::string_view head) {
    constexpr std::string_view blanks(" \t\n\v\f\r#");
    return head.size() > 2 && head[0] == 'P' && head[1] >= '1' && head[1] <= '6' &&
           blanks.find(head[2]) != std::string_view::npos;
}

bool isHEIC(std::string_view head) {
    constexpr std::array<std::string_view, 10> brands{"heic", "heix", "heim", "heis", "hevc",
                                                      "hevx", "mif1", "msf1", "avif", "avis"};
    return head.size() > 12 && head.substr(4, 4) == "ftyp" &&
           std::find(brands.begin(), brands.end(), head.substr(8, 4)) != brands.end();
}

bool isSVG(std::string_view head) {
    const std::size_t text = head.find_first_not_of("\xEF\xBB\xBF \t\r\n");
    return text != std::string_view::npos && head[text] == '<' && head.find("<svg") != std::string_view::npos;
}

constexpr const char* noPDF = "this is a PDF; turn it into PNG pictures first, with pdftoppm -png";
constexpr const char* noSVG = "this is an SVG; turn it into a PNG picture first, with rsvg-convert";

bool isPNG(std::string_view head) {
    return beginsWith(head, "\x89PNG");
}
bool isJPEG(std::string_view head) {
    return beginsWith(head, "\xFF\xD8");
}
bool isGIF(std::string_view head) {
    return beginsWith(head, "GIF8");
}
bool isWebP(std::string_view head) {
    return beginsWith(head, "RIFF") && head.substr(0, 12).substr(8) == "WEBP";
}
bool isPDF(std::string_view head) {
    return beginsWith(head, "%PDF-");
}

constexpr std::array<Format, 9> formats{{
    {"PNG", isPNG, ".png.", decodeSTB, nullptr},
    {"JPEG", isJPEG, ".jpg.jpeg.jpe.", decodeSTB, nullptr},
    {"GIF", isGIF, ".gif.", decodeSTB, nullptr},
    {"BMP", isBMP, ".bmp.", decodeSTB, nullptr},
    {"PNM", isPNM, ".pnm.pbm.pgm.ppm.", decodePNM, nullptr},
    {"WebP", isWebP, ".webp.", decodeWebP, nullptr},
    {"HEIC", isHEIC, ".heic.heif.avif.", decodeHEIC, nullptr, true},
    {"PDF", isPDF, ".pdf.", nullptr, noPDF},
    {"SVG", isSVG, ".svg.", nullptr, noSVG},
}};

const Format* formatOf(std::string_view head) {
    const auto* const format = std::find_if(formats.begin(), formats.end(), [&](const Format& candidate) {
        return candidate.isFormatOf(head.substr(0, leadingBytes));
    });
    return format == formats.end() ? nullptr : format;
}

std::string namesOfReadFormats() {
    std::string names;
    for (const Format& format : formats) {
        if (format.decode != nullptr) {
            names += names.empty() ? format.name : std::string(", ") + format.name;
        }
    }
    return names;
}

}  // namespace

DecodedPicture DecodedPicture::empty(std::int64_t width, std::int64_t height, bool hasOpacity) {
    if (width <= 0 || height <= 0 || width * height > mostPixels) {
        throw std::runtime_error("the picture is too large");
    }
    DecodedPicture picture{{static_cast<int>(width), static_cast<int>(height)}, {}};
    picture.opacity.resize(hasOpacity ? picture.greys.pixels.size() : 0);
    return picture;
}

Greys DecodedPicture::onPaper() const {
    Greys result = greys;
    for (std::size_t i = 0; i < opacity.size(); ++i) {
        const int ink = white - greys.pixels[i];
        result.pixels[i] = static_cast<std::uint8_t>(white - ink * opacity[i] / white);
    }
    return result;
}

Greys DecodedPicture::invertedOnScreen() const {
    Greys result = greys;
    for (std::size_t i = 0; i < result.pixels.size(); ++i) {
        const int light = greys.pixels[i];
        result.pixels[i] =
            static_cast<std::uint8_t>(white - (opacity.empty() ? light : light * opacity[i] / white));
    }
    return result;
}

bool looksLikePicture(std::string_view name, std::string_view head) {
    std::string ending(name.substr(std::min(name.rfind('.'), name.size())));
    std::transform(ending.begin(), ending.end(), ending.begin(), korvo::asciiLowerCase);
    const auto hasEnding = [&](const Format& format) {
        return std::string_view(format.endings).find(ending + '.') != std::string_view::npos;
    };
    return formatOf(head) != nullptr ||
           (!ending.empty() && std::any_of(formats.begin(), formats.end(), hasEnding));
}

const char* pictureFormatOf(std::string_view head) {
    const Format* const format = formatOf(head);
    return format == nullptr ? nullptr : format->name;
}

bool needsThread(std::string_view bytes) {
    const Format* const format = formatOf(bytes);
    return format != nullptr && format->needsThread;
}

DecodedPicture decodePicture(const std::string& bytes) {
    const Format* const format = formatOf(bytes);
    if (format == nullptr) {
        throw std::runtime_error("the file is not a picture in a format that can be read: " +
                                 namesOfReadFormats());
    }
    if (format->advice != nullptr) {
        throw std::runtime_error(format->advice);
    }
    if (format->decode == nullptr) {
        throw std::runtime_error(std::string("this build of korvoqr does not read ") + format->name +
                                 "; it reads " + namesOfReadFormats());
    }
    return format->decode(bytes);
}

}  // namespace korvoqr
