#include "NetpbmPicture.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvoqr {

namespace {

// Reads the numbers of a picture in the formats of Netpbm, as text or as bytes.
class NetpbmReader {
  public:
    explicit NetpbmReader(std::string_view bytes) : bytes_(bytes) {}

    DecodedPicture read() {
        const int kind = bytes_[1] - '0';
        const bool isText = kind <= 3;
        const bool isBitmap = kind == 1 || kind == 4;
        const int width = number();
        const int height = number();
        const int most = isBitmap ? 1 : number();
        ++next_;  // one blank ends the head
        DecodedPicture picture = DecodedPicture::empty(width, height, false);
        if (most == 0 || next_ > bytes_.size()) {
            throw DamagedPicture();
        }
        const int samples = kind == 3 || kind == 6 ? 3 : 1;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                int sum = 0;
                for (int i = 0; i < samples; ++i) {
                    sum += isBitmap ? 1 - bit(isText, x) : isText ? number() : sample(most);
                }
                picture.greys.row(y)[x] = static_cast<std::uint8_t>(
                    std::min(white * std::int64_t{sum} / samples / most, std::int64_t{white}));
            }
        }
        return picture;
    }

  private:
    static bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }

    char take() {
        if (next_ >= bytes_.size()) {
            throw DamagedPicture();
        }
        return bytes_[next_++];
    }

    // The first character after blanks and comments.
    char takeMark() {
        char c = take();
        while (isBlank(c) || c == '#') {
            while (c == '#' && take() != '\n') {
            }
            c = take();
        }
        return c;
    }

    int number() {
        constexpr int most = 65535 * 16;
        int value = 0;
        char c = takeMark();
        if (!isDigit(c)) {
            throw DamagedPicture();
        }
        for (; isDigit(c) && value < most; c = take()) {
            value = 10 * value + (c - '0');
            if (next_ == bytes_.size()) {
                return value;
            }
        }
        --next_;
        return value;
    }

    // 1 for black. The bits of a row begin with a byte, and the digits need no blanks between them.
    int bit(bool isText, int x) {
        constexpr int bits = 8;
        if (isText) {
            return takeMark() == '1' ? 1 : 0;
        }
        if (x % bits == 0) {
            byte_ = static_cast<std::uint8_t>(take());
        }
        return byte_ >> (bits - 1 - x % bits) & 1;
    }

    int sample(int most) {
        constexpr int mostOfByte = 255;
        const int high = static_cast<std::uint8_t>(take());
        return most > mostOfByte ? high << 8 | static_cast<std::uint8_t>(take()) : high;
    }

    std::string_view bytes_;
    std::size_t next_ = 2;
    int byte_ = 0;
};

}  // namespace

DecodedPicture decodePNM(const std::string& bytes) {
    return NetpbmReader(bytes).read();
}

}  // namespace korvoqr
