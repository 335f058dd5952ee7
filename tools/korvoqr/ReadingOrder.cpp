#include "ReadingOrder.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace korvoqr {

namespace {

using Row = std::vector<ImageCode>;

// Twice the place of the middle, which may be between two pixels.
int middleX(const ImageCode& code) {
    return 2 * code.place.x + code.place.width;
}
int middleY(const ImageCode& code) {
    return 2 * code.place.y + code.place.height;
}

int distance(const Row& row, const ImageCode& code) {
    return std::abs(middleY(row.back()) - middleY(code));
}

// The row whose last code is beside the code, within half of the height of the lower one.
Row& rowOf(const ImageCode& code, std::vector<Row>& rows) {
    const auto nearest = std::min_element(rows.begin(), rows.end(), [&](const Row& one, const Row& other) {
        return distance(one, code) < distance(other, code);
    });
    if (nearest != rows.end() &&
        distance(*nearest, code) <= std::min(nearest->back().place.height, code.place.height)) {
        return *nearest;
    }
    return rows.emplace_back();
}

}  // namespace

std::vector<ImageCode> inReadingOrder(std::vector<ImageCode> codes) {
    std::stable_sort(codes.begin(), codes.end(), [](const ImageCode& left, const ImageCode& right) {
        return middleX(left) < middleX(right);
    });
    std::vector<Row> rows;
    for (ImageCode& code : codes) {
        rowOf(code, rows).push_back(std::move(code));
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Row& upper, const Row& lower) {
        return middleY(upper.front()) < middleY(lower.front());
    });
    codes.clear();
    for (Row& row : rows) {
        std::move(row.begin(), row.end(), std::back_inserter(codes));
    }
    return codes;
}

}  // namespace korvoqr
