#include "ui/qt/thin_figures.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace havuz {

namespace {

constexpr int kOne = 1 << 16; // positions across a line are counted in these parts of a pixel

// A line along the axis on which it is longer: one pixel for each place on that axis, in rising order. The place across
// begins half a step behind the corner where it rises, at the corner where it falls.
struct Stair {
    bool steep; // along y
    bool rises; // in the direction of travel, along its axis
    int first, last;
    std::int64_t across; // at first
    int step;            // of across

    // Whole: the half step is rounded up, as at the free end of a line; else down.
    Stair(Pixel a, Pixel b, bool whole) {
        steep = std::abs(b.x - a.x) < std::abs(b.y - a.y);
        const auto along = [this](Pixel p) { return steep ? p.y : p.x; };
        rises = along(a) < along(b);
        if (!rises)
            std::swap(a, b);
        first = along(a);
        last = along(b);
        const std::int64_t from = steep ? a.x : a.y;
        const std::int64_t to = steep ? b.x : b.y;
        step = static_cast<int>((to - from) * kOne / (last - first));
        across = from * kOne + (step <= 0 ? 0 : whole ? step - step / 2 : step / 2);
    }
    int acrossAt(int place) const {
        return static_cast<int>((across + static_cast<std::int64_t>(place - first) * step) >> 16);
    }
    Pixel at(int place) const { return steep ? Pixel{acrossAt(place), place} : Pixel{place, acrossAt(place)}; }
    bool nearlyFlat() const { return std::abs(step) < kOne / 4; }
};

// The first place of stair behind which all rows are at least row, where it goes up; where it goes down, below row.
int PlaceOfRow(const Stair &stair, int row, int first, int last) {
    while (first < last) { // the rows are in order
        const int middle = first + (last - first) / 2;
        if ((stair.acrossAt(middle) >= row) == (stair.step > 0))
            last = middle;
        else
            first = middle + 1;
    }
    return first;
}

// The places first..last of a stair; the one before its first and the one behind its last may lie off the picture.
void PutStair(const PixelRows &rows, const Stair &stair, int first, int last, std::uint32_t pixel) {
    const auto onPicture = [&](int place) { return stair.acrossAt(place) >= 0 && stair.acrossAt(place) < rows.width; };
    if (stair.steep) {
        first = std::max(first, rows.top);
        last = std::min(last, rows.bottom - 1);
        while (first <= last && !onPicture(first))
            ++first;
        while (first <= last && !onPicture(last))
            --last;
    } else if (stair.step == 0) {
        const int row = stair.acrossAt(first);
        if (row < rows.top || row >= rows.bottom)
            return;
    } else {
        const bool down = stair.step > 0;
        const int end = last + 1;
        const int from = PlaceOfRow(stair, down ? rows.top : rows.bottom, first, end);
        last = PlaceOfRow(stair, down ? rows.bottom : rows.top, first, end) - 1;
        first = from;
    }
    if (!stair.steep) {
        first = std::max(first, 0);
        last = std::min(last, rows.width - 1);
    }
    std::int64_t across = stair.across + static_cast<std::int64_t>(first - stair.first) * stair.step;
    if (first > last)
        return;
    if (stair.steep) {
        std::uint32_t *row = rows.pixels + static_cast<std::size_t>(first) * rows.stride;
        for (int place = first; place <= last; ++place, across += stair.step, row += rows.stride)
            row[across >> 16] = pixel;
    } else {
        for (int place = first; place <= last; ++place, across += stair.step)
            rows.pixels[static_cast<std::size_t>(across >> 16) * rows.stride + static_cast<std::size_t>(place)] = pixel;
    }
}

// The sides of a closed figure one after the other. Each leaves out its far end along the rising axis, as the next one
// begins there; how two sides meet decides over a pixel more or less.
class Outline {
public:
    Outline(const PixelRows &rows, std::uint32_t pixel) : rows_(rows), pixel_(pixel) {}

    // The side that closes the figure is walked first without a pixel, for the first one to meet it.
    void side(Pixel a, Pixel b, bool seen) {
        if (a == b)
            return;
        const bool steep = std::abs(b.x - a.x) < std::abs(b.y - a.y);
        const bool rises = steep ? a.y < b.y : a.x < b.x;
        const bool sameWay = any_ && steep_ == steep && rises_ == rises;
        const bool turnsBack = any_ && steep_ == steep && rises_ != rises;
        const Stair stair(a, b, turnsBack && rises);
        int first = stair.first;
        int last = turnsBack && !rises ? stair.last : stair.last - 1;
        const Pixel begins = stair.at(rises ? first : last);
        const Pixel ends = stair.at(rises ? last : first);
        if (seen && any_ && !sameWay && !(begins == end_) && leavesGap(stair, begins))
            (rises ? first : last) += rises ? -1 : 1;
        if (seen)
            put(stair, first, last, begins);
        any_ = true;
        steep_ = steep;
        rises_ = rises;
        nearlyFlat_ = stair.nearlyFlat();
        end_ = ends;
    }

private:
    bool leavesGap(const Stair &stair, Pixel begins) const {
        const int dx = std::abs(end_.x - begins.x);
        const int dy = std::abs(end_.y - begins.y);
        return (stair.nearlyFlat() && nearlyFlat_ && dx != 0 && dy != 0) || dx > 1 || dy > 1;
    }
    // A side of one pixel, that the side before has put already, goes on by one.
    void put(const Stair &stair, int first, int last, Pixel begins) {
        if (any_ && first == last && begins == end_ && stair.rises)
            first = ++last;
        PutStair(rows_, stair, first, last, pixel_);
    }

    const PixelRows &rows_;
    std::uint32_t pixel_;
    // of the side before, when there is any
    bool any_ = false, steep_ = false, rises_ = false, nearlyFlat_ = false;
    Pixel end_;
};

// Where a side crosses the middles of rows: left of this pixel, which is the first one inside.
struct Crossing {
    int first = 0, end = 0; // rows
    int slope = 0;
    std::int64_t x = 0; // at the first row

    Crossing() = default;
    Crossing(Pixel a, Pixel b) : first(std::min(a.y, b.y)), end(std::max(a.y, b.y)) {
        if (a.y == b.y)
            return;
        if (a.y > b.y)
            std::swap(a, b);
        slope = static_cast<int>((b.x - a.x) / static_cast<double>(b.y - a.y) * kOne);
        x = static_cast<std::int64_t>(a.x) * kOne + kOne / 2 + (static_cast<std::int64_t>(slope) * (kOne / 2) >> 16);
    }
    std::int64_t at(int row) const { return x + static_cast<std::int64_t>(row - first) * slope; }
};

void PutRow(const PixelRows &rows, int row, int from, int end, std::uint32_t pixel) {
    if (from < end)
        std::fill_n(rows.pixels + static_cast<std::size_t>(row) * rows.stride + from, end - from, pixel);
}

} // namespace

void PutArea(const PixelRows &rows, int x1, int y1, int x2, int y2, std::uint32_t pixel) {
    for (int row = std::max(y1, rows.top); row <= std::min(y2, rows.bottom - 1); ++row)
        PutRow(rows, row, x1, x2 + 1, pixel);
}

void PutLine(const PixelRows &rows, Pixel from, Pixel to, std::uint32_t pixel) {
    if (from == to)
        return PutArea(rows, from.x, from.y, from.x, from.y, pixel);
    const Stair stair(from, to, true);
    PutStair(rows, stair, stair.first, stair.last, pixel);
}

void PutOutline(const PixelRows &rows, std::span<const Pixel> corners, std::uint32_t pixel) {
    const std::size_t n = corners.size();
    const bool closed = n > 2 && corners[0] == corners[n - 1];
    Outline outline(rows, pixel);
    outline.side(corners[closed ? n - 2 : n - 1], corners[0], false);
    for (std::size_t k = 0; k < n; ++k)
        outline.side(corners[k], corners[(k + 1) % n], true);
}

namespace {

void SortFirst(std::array<int, kMostCorners> &values, std::size_t count) {
    for (std::size_t k = 1; k < count; ++k)
        for (std::size_t i = k; i > 0 && values[i - 1] > values[i]; --i)
            std::swap(values[i - 1], values[i]);
}

using Crossings = std::array<const Crossing *, kMostCorners>;

// Rows first..end-1, all of which are crossed by the same two sides.
void PutTrapezium(const PixelRows &rows, int first, int end, const Crossing &one, const Crossing &other,
                  std::uint32_t pixel) {
    std::int64_t left = one.at(first);
    std::int64_t right = other.at(first);
    for (int row = first; row < end; ++row, left += one.slope, right += other.slope) {
        const int a = static_cast<int>(left >> 16);
        const int b = static_cast<int>(right >> 16);
        PutRow(rows, row, std::min(a, b), std::max(a, b), pixel);
    }
}

// The same of any number of sides.
void PutBetween(const PixelRows &rows, int first, int end, const Crossings &side, std::size_t count,
                std::uint32_t pixel) {
    std::array<int, kMostCorners> at{};
    for (int row = first; row < end; ++row) {
        for (std::size_t k = 0; k < count; ++k)
            at[k] = static_cast<int>(side[k]->at(row) >> 16);
        SortFirst(at, count);
        for (std::size_t k = 0; k + 1 < count; k += 2)
            PutRow(rows, row, at[k], at[k + 1], pixel);
    }
}

} // namespace

// From corner to corner downward, as no side begins or ends between.
void PutFilling(const PixelRows &rows, std::span<const Pixel> corners, std::uint32_t pixel) {
    const std::size_t n = std::min(corners.size(), kMostCorners);
    std::array<Crossing, kMostCorners> side;
    std::array<int, kMostCorners> level{};
    for (std::size_t k = 0; k < n; ++k) {
        side[k] = Crossing(corners[k], corners[(k + 1) % n]);
        level[k] = corners[k].y;
    }
    SortFirst(level, n);
    for (std::size_t k = 0; k + 1 < n; ++k) {
        const int first = std::max(level[k], rows.top);
        const int end = std::min(level[k + 1], rows.bottom);
        if (first >= end)
            continue;
        Crossings crossing{};
        std::size_t count = 0;
        for (std::size_t s = 0; s < n; ++s)
            if (side[s].first <= first && side[s].end > first)
                crossing[count++] = &side[s];
        if (count == 2)
            PutTrapezium(rows, first, end, *crossing[0], *crossing[1], pixel);
        else
            PutBetween(rows, first, end, crossing, count, pixel);
    }
}

} // namespace havuz
