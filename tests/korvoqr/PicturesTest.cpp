#include "korvoqr/PictureDecoder.h"
#include "korvoqr/ReadingOrder.h"

#include <algorithm>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace korvoqr::test {
namespace {

using namespace std::string_literals;

// The size and the pixels, or the problem.
std::string decoded(const std::string& bytes) {
    try {
        const DecodedPicture picture = decodePicture(bytes);
        std::string text = std::to_string(picture.greys.width) + 'x' + std::to_string(picture.greys.height);
        for (const int pixel : picture.greys.pixels) {
            text += ' ' + std::to_string(pixel);
        }
        return text;
    } catch (const std::exception& problem) {
        return problem.what();
    }
}

TEST(Pictures, OfNetpbmAreReadInEachFormat) {
    const std::vector<std::pair<std::string, std::string>> pictures{
        {"P1 3 2 0 1 0\n1 # 7\n1 0", "3x2 255 0 255 0 0 255"},
        {"P1\n3 2\n010110", "3x2 255 0 255 0 0 255"},
        {"P2 2 1 100 200 5", "2x1 255 12"},  // no pixel is brighter than white
        {"P3 1 2 9 0 3 6 9 9 9", "1x2 85 255"},
        {"P4 9 2\n\x55\x80\xAA\x7F"s, "9x2 255 0 255 0 255 0 255 0 0 0 255 0 255 0 255 0 255 255"},
        {"P5 # 7\n# 8 9\n2 1 255\n\x00\xFF"s, "2x1 0 255"},
        {"P5 2 1 65535\n\x80\x00\x0A\xFF"s, "2x1 127 10"},
        {"P6 2 1 255\n\x00\x03\x06\xFF\xFF\xFE"s, "2x1 3 254"},
    };
    for (const auto& [bytes, expected] : pictures) {
        EXPECT_EQ(decoded(bytes), expected) << bytes;
        for (std::size_t size = 3; size < bytes.size(); ++size) {
            EXPECT_EQ(decoded(bytes.substr(0, size)), "the picture is damaged or too large")
                << bytes << ' ' << size;
        }
    }
    for (const std::string damaged : {"P2 1 1 0 0", "P5 1 -1 255\nx", "P2 2 1 9 x 1"}) {
        EXPECT_EQ(decoded(damaged), "the picture is damaged or too large") << damaged;
    }
    for (const std::string large : {"P5 99999999999 1 255\n", "P1 0 7 1", "P6 20000 20000 255\nabc"}) {
        EXPECT_EQ(decoded(large), "the picture is too large") << large;
    }
}

TEST(Pictures, OfATurnedSheetAreReadRowByRow) {
    std::vector<ImageCode> sheet;
    for (int i = 0; i < 6; ++i) {
        const int column = i % 3;
        const int row = i / 3;
        // Some are larger than others.
        sheet.push_back({std::to_string(i),
                         {},
                         {100 * column - 15 * row - i % 2 * 5, 100 * row + 15 * column - i % 2 * 5,
                          60 + i % 2 * 10, 60 + i % 2 * 10}});
    }
    std::vector<std::size_t> order{0, 1, 2, 3, 4, 5};
    do {
        std::vector<ImageCode> codes(order.size());
        std::transform(order.begin(), order.end(), codes.begin(), [&](std::size_t i) { return sheet.at(i); });
        std::string names;
        for (const ImageCode& code : inReadingOrder(codes)) {
            names += code.payload;
        }
        ASSERT_EQ(names, "012345");
    } while (std::next_permutation(order.begin(), order.end()));
}

}  // namespace
}  // namespace korvoqr::test
