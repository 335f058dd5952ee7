#include "CodeFinder.h"

#include "CodeCorners.h"
#include "ReadingOrder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <string>
#include <utility>

#define ZX_USE_UTF8 1  // NOLINT(cppcoreguidelines-macro-usage): asks the library for texts as UTF-8
#include <ZXing/ReadBarcode.h>
#include <ZXing/TextUtfEncoding.h>

namespace korvoqr {

namespace {

// A way to look at a part of the picture.
struct Look {
    int scale;
    Greys (*treat)(const Greys&);  // null leaves the part as it is
};

constexpr Look plain{1, nullptr};
constexpr Look enlarged{2, nullptr};
// Small modules need a larger picture, noise a softer one, and blur a sharper one.
constexpr std::array<Look, 4> looks{plain, enlarged, Look{1, softened}, Look{2, sharpened}};

// Any look but the plain one is at no more pixels than these.
constexpr double manyPixels = 2e6;
// A larger picture is made smaller; no code needs so many.
constexpr double mostPixels = 5e7;

struct Found {
    ImageCode code;
    Corners corners;
};

PicturePlace boxAround(const Corners& corners) {
    const auto [left, right] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
    const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
    const auto pixel = [](double value) { return static_cast<int>(std::lround(value)); };
    return {pixel(left), pixel(top), pixel(right - left), pixel(bottom - top)};
}

int scaled(int length, double scale) {
    return static_cast<int>(std::lround(length * scale));
}

Greys resizedBy(const Greys& picture, double scale) {
    return resized(picture, scaled(picture.width, scale), scaled(picture.height, scale));
}

PicturePlace grown(const PicturePlace& place, int margin) {
    return {place.x - margin, place.y - margin, place.width + 2 * margin, place.height + 2 * margin};
}

PicturePlace clipped(const PicturePlace& place, const Greys& picture) {
    const int left = std::clamp(place.x, 0, picture.width);
    const int top = std::clamp(place.y, 0, picture.height);
    return {left, top, std::clamp(place.x + place.width, left, picture.width) - left,
            std::clamp(place.y + place.height, top, picture.height) - top};
}

bool overlap(const Corners& one, const Corners& other) {
    return isInside(centreOf(one), other) || isInside(centreOf(other), one);
}

// The library takes bytes of an undeclared character set for these, which keeps each of them.
constexpr const char* eachByte = "ISO8859_1";

// The bytes of the code. If it declares their character set, or has its own signs for Japanese, the text in
// UTF-8.
std::string payloadOf(const ZXing::Result& code) {
    const ZXing::ByteArray& bytes = code.bytes();
    const bool isUndeclared = !code.hasECI() && code.text() == ZXing::TextUtfEncoding::ToUtf8(
                                                                   std::wstring(bytes.begin(), bytes.end()));
    return isUndeclared ? std::string(bytes.begin(), bytes.end()) : code.text();
}

class CodeFinder {
  public:
    explicit CodeFinder(Greys picture) : picture_(std::move(picture)) {}

    std::vector<ImageCode> find() {
        searchInAllWays({0, 0, picture_.width, picture_.height});
        std::vector<LikelyCode> unread = searchLikelyPlaces();
        // Where there are several codes, there may be more.
        if ((codes_.size() != 1 || !unread.empty()) && searchTiles()) {
            unread = searchLikelyPlaces();
        }
        for (const LikelyCode& likely : unread) {
            if (likely.isCertain) {
                codes_.push_back(
                    {{{}, unreadable, clipped(boxAround(likely.corners), picture_)}, likely.corners});
            }
        }
        std::vector<ImageCode> codes;
        for (Found& found : codes_) {
            codes.push_back(std::move(found.code));
        }
        return codes;
    }

  private:
    static constexpr const char* unreadable =
        "more of it is blurred, damaged or hidden than can be corrected";

    // Looks at an area in one way, until that finds nothing new. Whether it found something.
    bool search(const PicturePlace& area, const Look& look) {
        constexpr int mostTimes = 100;
        int times = 0;
        while (times < mostTimes && lookAt(area, look)) {
            ++times;
        }
        return times > 0;
    }

    // Looks at an area in one way after the other, until one finds something.
    bool searchInAllWays(const PicturePlace& area) {
        return std::any_of(looks.begin(), looks.end(), [&](const Look& look) { return search(area, look); });
    }

    // A large picture is made smaller for this, which takes away noise, too.
    std::vector<LikelyCode> likelyPlaces() const {
        const double scale = std::sqrt(manyPixels / pixelsOf(picture_.width, picture_.height));
        if (scale >= 1) {
            return likelyCodes(picture_);
        }
        std::vector<LikelyCode> places = likelyCodes(resizedBy(picture_, scale));
        for (LikelyCode& place : places) {
            for (Spot& corner : place.corners) {
                corner = {corner.x / scale, corner.y / scale};
            }
        }
        return places;
    }

    // Returns the places that stay unread.
    std::vector<LikelyCode> searchLikelyPlaces() {
        constexpr std::size_t mostPlaces = 100;
        std::vector<LikelyCode> places = likelyPlaces();
        bool isNew = false;
        for (std::size_t i = 0; i < std::min(places.size(), mostPlaces); ++i) {
            const PicturePlace place = boxAround(places[i].corners);
            isNew |= searchInAllWays(clipped(grown(place, (place.width + place.height) / 12), picture_));
        }
        return isNew ? likelyPlaces() : places;
    }

    // A search in the whole picture misses most of many codes, because it does not know which marks belong
    // together. So it goes on in ever smaller tiles, each of which overlaps the next by its half, until two
    // sizes have brought nothing new. Whether there was something.
    bool searchTiles() {
        const std::size_t before = codes_.size();
        int failures = 0;
        for (const int tiles : {2, 3, 5, 7, 11}) {
            failures = searchTiles(tiles) ? 0 : failures + 1;
            if (failures == 2) {
                break;
            }
        }
        return codes_.size() > before;
    }

    bool searchTiles(int tiles) {
        const int width = 2 * (picture_.width / (tiles + 1));
        const int height = 2 * (picture_.height / (tiles + 1));
        const bool isSmall = pixelsOf(width, height) < manyPixels / 8;
        bool isNew = false;
        for (int i = 0; i < tiles * tiles; ++i) {
            const PicturePlace tile{i % tiles * width / 2, i / tiles * height / 2, width, height};
            isNew |= search(tile, plain);
            isNew |= isSmall && search(tile, enlarged);
        }
        return isNew;
    }

    static double pixelsOf(int width, int height) { return static_cast<double>(width) * height; }

    bool lookAt(const PicturePlace& area, const Look& look) {
        constexpr int leastSide = 21;
        if (area.width < leastSide || area.height < leastSide || std::clock() > deadline_) {
            return false;
        }
        if (look.scale == 1 && look.treat == nullptr) {
            return read({picture_.row(area.y) + area.x, area.width, area.height, ZXing::ImageFormat::Lum,
                         picture_.width},
                        area, 1);
        }
        const double scale =
            std::min<double>(look.scale, std::sqrt(manyPixels / pixelsOf(area.width, area.height)));
        Greys view = cropped(picture_, area);
        if (scale != 1) {
            view = resizedBy(view, scale);
        }
        if (look.treat != nullptr) {
            view = look.treat(view);
        }
        return read({view.pixels.data(), view.width, view.height, ZXing::ImageFormat::Lum}, area, scale);
    }

    // Takes all codes of a view. Whether one of them is new.
    bool read(const ZXing::ImageView& view, const PicturePlace& area, double scale) {
        static const auto hints =
            ZXing::DecodeHints().setFormats(ZXing::BarcodeFormat::QRCode).setCharacterSet(eachByte);
        bool isNew = false;
        for (const ZXing::Result& result : ZXing::ReadBarcodes(view, hints)) {
            Corners corners;
            std::transform(result.position().begin(), result.position().end(), corners.begin(),
                           [&](const ZXing::PointI& corner) {
                               return Spot{corner.x / scale + area.x, corner.y / scale + area.y};
                           });
            isNew |= result.isValid() && take(result, corners);
        }
        return isNew;
    }

    bool take(const ZXing::Result& result, const Corners& corners) {
        if (std::any_of(codes_.begin(), codes_.end(),
                        [&](const Found& code) { return overlap(code.corners, corners); })) {
            return false;
        }
        Found found{{{}, {}, clipped(boxAround(corners), picture_)}, corners};
        if (result.isPartOfSequence()) {
            found.code.problem = "it holds one part of a text that is split over several codes";
        } else {
            found.code.payload = payloadOf(result);
        }
        paintOver(found);
        codes_.push_back(std::move(found));
        return true;
    }

    // Paints a code white, so that the next search finds those beside it.
    void paintOver(const Found& found) {
        const PicturePlace& place = found.code.place;
        for (int y = place.y; y < place.y + place.height; ++y) {
            for (int x = place.x; x < place.x + place.width; ++x) {
                if (isInside({double{1} * x, double{1} * y}, found.corners)) {
                    picture_.row(y)[x] = white;
                }
            }
        }
    }

    // After this processor time, no new look is taken: the codes that have been found are worth more than
    // none.
    static constexpr std::clock_t mostTime = std::clock_t{6} * CLOCKS_PER_SEC;

    std::clock_t deadline_ = std::clock() + mostTime;
    Greys picture_;  // the codes that have been read are painted over
    std::vector<Found> codes_;
};

}  // namespace

std::vector<ImageCode> findCodes(Greys picture) {
    const double pixels = static_cast<double>(picture.width) * picture.height;
    const double scale = std::sqrt(std::min(1.0, mostPixels / pixels));
    if (scale < 1) {
        picture = resizedBy(picture, scale);
    }
    std::vector<ImageCode> codes = CodeFinder(std::move(picture)).find();
    for (ImageCode& code : codes) {
        PicturePlace& place = code.place;
        place = {scaled(place.x, 1 / scale), scaled(place.y, 1 / scale), scaled(place.width, 1 / scale),
                 scaled(place.height, 1 / scale)};
    }
    return inReadingOrder(std::move(codes));
}

}  // namespace korvoqr
