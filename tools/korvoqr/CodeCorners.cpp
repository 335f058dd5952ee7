#include "CodeCorners.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>
#include <numeric>
#include <optional>

namespace korvoqr {

namespace {

// The square in a corner: its middle, and the pixels of one module.
struct Mark {
    Spot middle;
    double module = 0;
    int hits = 1;        // rows that cross it in the middle
    int squareHits = 0;  // those among them that see a square

    bool isCertain() const noexcept { return squareHits >= 2; }
};

// The runs of dark, light, dark, light and dark pixels across the middle of a mark.
using Runs = std::array<int, 5>;

constexpr double modulesOfMark = 7;

Spot operator+(const Spot& one, const Spot& other) {
    return {one.x + other.x, one.y + other.y};
}
Spot operator-(const Spot& one, const Spot& other) {
    return {one.x - other.x, one.y - other.y};
}
Spot operator*(double factor, const Spot& spot) {
    return {factor * spot.x, factor * spot.y};
}
double cross(const Spot& one, const Spot& other) {
    return one.x * other.y - one.y * other.x;
}
double length(const Spot& spot) {
    return std::hypot(spot.x, spot.y);
}

// 1 where the picture is darker than its surroundings, 0 elsewhere.
Greys darkPixels(const Greys& picture) {
    constexpr int reach = 24;    // pixels
    constexpr int contrast = 6;  // shades; less is noise
    Greys dark = resized(resized(picture, picture.width / reach, picture.height / reach), picture.width,
                         picture.height);
    std::transform(picture.pixels.begin(), picture.pixels.end(), dark.pixels.begin(), dark.pixels.begin(),
                   [](int grey, int around) { return grey + contrast < around ? 1 : 0; });
    return dark;
}

// The size of a module if the runs are those across a mark, 1:1:3:1:1; otherwise 0.
double moduleOf(const Runs& runs) {
    const int total = std::accumulate(runs.begin(), runs.end(), 0);
    const double module = total / modulesOfMark;
    constexpr double tolerance = 0.6;  // of a module
    constexpr Runs modules{1, 1, 3, 1, 1};
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const int count = modules.at(i);
        if (std::abs(runs.at(i) - count * module) > tolerance * std::sqrt(count) * module) {
            return 0;
        }
    }
    return total >= modulesOfMark ? module : 0;
}

// The runs through a dark pixel along a line, and the middle of their middle run.
struct Crossing {
    Runs runs{};
    double middle = 0;
};

class MarkFinder {
  public:
    explicit MarkFinder(const Greys& picture) : dark_(darkPixels(picture)) {}

    std::vector<Mark> find() {
        for (int y = 0; y < dark_.height; ++y) {
            scan(y);
        }
        std::vector<Mark> marks;
        std::copy_if(marks_.begin(), marks_.end(), std::back_inserter(marks),
                     [](const Mark& mark) { return mark.hits >= 2; });
        return marks;
    }

    double shareOfDark(const Spot& middle, double reach) const {
        int dark = 0;
        int pixels = 0;
        for (int y = std::max(0, static_cast<int>(middle.y - reach));
             y < std::min<double>(dark_.height, middle.y + reach); ++y) {
            for (int x = std::max(0, static_cast<int>(middle.x - reach));
                 x < std::min<double>(dark_.width, middle.x + reach); ++x) {
                dark += dark_.row(y)[x];
                ++pixels;
            }
        }
        return pixels == 0 ? 0 : static_cast<double>(dark) / pixels;
    }

    double shareOfDark(const Spot& begin, const Spot& end) const {
        constexpr int steps = 64;
        int dark = 0;
        for (int i = 0; i <= steps; ++i) {
            dark += isDarkAt(begin + static_cast<double>(i) / steps * (end - begin)) ? 1 : 0;
        }
        return static_cast<double>(dark) / (steps + 1);
    }

  private:
    // Finds the marks that a row crosses.
    void scan(int y) {
        const std::uint8_t* const row = dark_.row(y);
        Runs runs{};
        for (int x = 0, begin = 0; x < dark_.width; ++x) {
            if (x + 1 < dark_.width && row[x + 1] == row[x]) {
                continue;
            }
            std::rotate(runs.begin(), runs.begin() + 1, runs.end());
            runs.back() = x + 1 - begin;
            begin = x + 1;
            if (row[x] == 1 && moduleOf(runs) > 0) {
                check(x + 1 - runs[4] - runs[3] - runs[2] / 2, y, moduleOf(runs));
            }
        }
    }

    // Whether a column, too, crosses a mark at this place, and the row through its middle.
    void check(int x, int y, double module) {
        const std::optional<Crossing> column = crossing(x, y, 0, 1);
        const double tall = column ? moduleOf(column->runs) : 0;
        constexpr double mostStretched = 2.5;
        if (tall == 0 || tall > mostStretched * module || module > mostStretched * tall) {
            return;
        }
        const int middleY = static_cast<int>(std::lround(column->middle));
        const std::optional<Crossing> row = crossing(x, middleY, 1, 0);
        const double wide = row ? moduleOf(row->runs) : 0;
        if (wide > 0) {
            const Spot middle{row->middle, column->middle};
            add({middle, (wide + tall) / 2, 1, isSquare(middle, wide, tall) ? 1 : 0});
        }
    }

    // Whether nearly all around the middle is dark, and nearly all of a circle that is in the light ring of a
    // mark however the code is turned.
    bool isSquare(const Spot& middle, double wide, double tall) const {
        constexpr double inDark = 1;  // modules from the middle
        constexpr double inLight = 2.3;
        constexpr int directions = 16;
        int dark = 0;
        int light = 0;
        for (int i = 0; i < directions; ++i) {
            const double angle = 2 * std::numbers::pi * i / directions;
            const Spot out{wide * std::cos(angle), tall * std::sin(angle)};
            dark += isDarkAt(middle + inDark * out) ? 1 : 0;
            light += isDarkAt(middle + inLight * out) ? 0 : 1;
        }
        constexpr int mostExceptions = 3;
        return std::min(dark, light) >= directions - mostExceptions;
    }

    bool isDarkAt(const Spot& spot) const {
        const int x = static_cast<int>(std::lround(spot.x));
        const int y = static_cast<int>(std::lround(spot.y));
        return isInPicture(x, y) && isDark(x, y);
    }

    bool isDark(int x, int y) const { return dark_.row(y)[x] == 1; }

    bool isInPicture(int x, int y) const { return x >= 0 && y >= 0 && x < dark_.width && y < dark_.height; }

    // Counts the pixels of two runs and a part of the middle one, away from a pixel of it.
    std::array<int, 3> runsFrom(int x, int y, int stepX, int stepY) const {
        std::array<int, 3> runs{};
        bool isExpectedDark = true;
        for (int& run : runs) {
            while (isInPicture(x, y) && isDark(x, y) == isExpectedDark) {
                ++run;
                x += stepX;
                y += stepY;
            }
            isExpectedDark = !isExpectedDark;
        }
        return runs;
    }

    std::optional<Crossing> crossing(int x, int y, int stepX, int stepY) const {
        if (!isInPicture(x, y) || !isDark(x, y)) {
            return {};
        }
        const auto before = runsFrom(x, y, -stepX, -stepY);
        const auto after = runsFrom(x, y, stepX, stepY);
        return Crossing{{before[2], before[1], before[0] + after[0] - 1, after[1], after[2]},
                        x * stepX + y * stepY + (after[0] - before[0]) / 2.0};
    }

    void add(const Mark& mark) {
        const auto known = std::find_if(marks_.begin(), marks_.end(), [&](const Mark& other) {
            return length(other.middle - mark.middle) < 2 * mark.module;
        });
        constexpr std::size_t mostMarks = 2000;  // noise has endless ones
        if (known == marks_.end() && marks_.size() < mostMarks) {
            marks_.push_back(mark);
        } else if (known != marks_.end()) {
            ++known->hits;
            known->squareHits += mark.squareHits;
        }
    }

    Greys dark_;
    std::vector<Mark> marks_;
};

// Three marks that may belong to one code; the corner is between the others.
struct Triple {
    std::size_t corner;
    std::size_t one;
    std::size_t other;
    double side;
};

bool isLikely(const Mark& corner, const Mark& one, const Mark& other) {
    const auto [least, most] = std::minmax({corner.module, one.module, other.module});
    const Spot a = one.middle - corner.middle;
    const Spot b = other.middle - corner.middle;
    const double cosine = (a.x * b.x + a.y * b.y) / (length(a) * length(b));
    constexpr double leastModules = 12;
    constexpr double mostModules = 190;
    return most < 1.6 * least && std::abs(cosine) < 0.35 && length(a) < 1.4 * length(b) &&
           length(b) < 1.4 * length(a) && length(a) > leastModules * least && length(a) < mostModules * most;
}

// The smallest first, because marks of neighbours are farther from each other.
std::vector<Triple> likelyTriples(const std::vector<Mark>& marks) {
    std::vector<Triple> triples;
    for (std::size_t corner = 0; corner < marks.size(); ++corner) {
        for (std::size_t one = 0; one < marks.size(); ++one) {
            for (std::size_t other = one + 1; other < marks.size(); ++other) {
                if (one != corner && other != corner && isLikely(marks[corner], marks[one], marks[other])) {
                    triples.push_back({corner, one, other, length(marks[one].middle - marks[other].middle)});
                }
            }
        }
    }
    std::sort(triples.begin(), triples.end(),
              [](const Triple& left, const Triple& right) { return left.side < right.side; });
    return triples;
}

// The corners of the code are outside the middles of its marks.
Corners cornersAround(const Spot& corner, const Spot& one, const Spot& other, double module) {
    const Spot along = one - corner;
    const Spot across = other - corner;
    const Spot outAlong = (modulesOfMark / 2 * module / length(along)) * along;
    const Spot outAcross = (modulesOfMark / 2 * module / length(across)) * across;
    return {corner - outAlong - outAcross, one + outAlong - outAcross, one + across + outAlong + outAcross,
            other - outAlong + outAcross};
}

// Whether there is a mixture between the marks, and paper beyond the two sides whose ends are known. Marks of
// neighbouring codes have modules there.
bool looksLikeCode(const MarkFinder& finder, const Mark& corner, const Spot& one, const Spot& other) {
    constexpr double leastDark = 0.15;
    constexpr double mostDark = 0.9;
    constexpr double mostOnPaper = 0.15;
    constexpr double modulesToPaper = modulesOfMark / 2 + 2;
    const Spot along = one - corner.middle;
    const Spot across = other - corner.middle;
    const Spot aboveIt = (-modulesToPaper * corner.module / length(across)) * across;
    const Spot besideIt = (-modulesToPaper * corner.module / length(along)) * along;
    const double mixture = finder.shareOfDark(0.5 * (one + other), length(one - other) / 4);
    return mixture > leastDark && mixture < mostDark &&
           finder.shareOfDark(corner.middle + aboveIt, one + aboveIt) < mostOnPaper &&
           finder.shareOfDark(corner.middle + besideIt, other + besideIt) < mostOnPaper;
}

}  // namespace

bool isInside(const Spot& point, const Corners& corners) {
    bool isOnRight = false;
    bool isOnLeft = false;
    const Spot* previous = &corners.back();
    for (const Spot& corner : corners) {
        const double side = cross(corner - *previous, point - *previous);
        isOnRight = isOnRight || side > 0;
        isOnLeft = isOnLeft || side < 0;
        previous = &corner;
    }
    return isOnRight != isOnLeft;
}

Spot centreOf(const Corners& corners) {
    return 0.25 * (corners[0] + corners[1] + corners[2] + corners[3]);
}

std::vector<LikelyCode> likelyCodes(const Greys& picture) {
    constexpr std::size_t mostMarks = 300;
    MarkFinder finder(picture);
    std::vector<Mark> marks = finder.find();
    std::stable_sort(marks.begin(), marks.end(),
                     [](const Mark& one, const Mark& other) { return one.hits > other.hits; });
    marks.resize(std::min(marks.size(), mostMarks));
    std::vector<bool> isUsed(marks.size());
    std::vector<LikelyCode> codes;
    for (const Triple& triple : likelyTriples(marks)) {
        const Mark& corner = marks[triple.corner];
        const Mark& one = marks[triple.one];
        const Mark& other = marks[triple.other];
        if (!isUsed[triple.corner] && !isUsed[triple.one] && !isUsed[triple.other] &&
            looksLikeCode(finder, corner, one.middle, other.middle)) {
            isUsed[triple.corner] = isUsed[triple.one] = isUsed[triple.other] = true;
            codes.push_back({cornersAround(corner.middle, one.middle, other.middle, corner.module),
                             corner.isCertain() && one.isCertain() && other.isCertain()});
        }
    }
    return codes;
}

}  // namespace korvoqr
