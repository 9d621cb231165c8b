#include "mesh/box_cells.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace havuz {

// A point is found in a box by the distances as they are calculated, a box is made by others: more than their rounding.
static constexpr double kMargin = 0.001;

static SpaceBox Grown(SpacePoint low, SpacePoint high, double by) {
    return {{low.x - by, low.y - by, low.z - by}, {high.x + by, high.y + by, high.z + by}};
}

SpaceBox BoxAround(SpacePoint at, double reach) { return Grown(at, at, reach + kMargin); }

// An ellipsoid of revolution: half its thickness is the farther of its two reaches beyond the ends.
SpaceBox BoxAlong(SpacePoint a, SpacePoint b, double slack) {
    const SpacePoint low = {std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)};
    const SpacePoint high = {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)};
    return Grown(low, high, std::sqrt((2.0 * SpaceDistance(a, b) + slack) * slack) / 2.0 + kMargin);
}

// Rises with v, whatever is rounded: a point inside a box lies between the cells of its sides.
int BoxCells::Axis::cell(double v) const {
    return static_cast<int>(std::clamp((v - low) * perMetre, 0.0, static_cast<double>(cells - 1)));
}

std::size_t BoxCells::cell(int i, int j, int k) const {
    return static_cast<std::size_t>((k * axis_[1].cells + j) * axis_[0].cells + i);
}

template <class Job>
void BoxCells::forCellsOf(const SpaceBox &box, Job job) const {
    for (int k = axis_[2].cell(box.low.z); k <= axis_[2].cell(box.high.z); ++k)
        for (int j = axis_[1].cell(box.low.y); j <= axis_[1].cell(box.high.y); ++j)
            for (int i = axis_[0].cell(box.low.x); i <= axis_[0].cell(box.high.x); ++i)
                job(cell(i, j, k));
}

BoxCells::BoxCells(std::span<const SpaceBox> boxes) {
    constexpr int kMostCells = 16; // along an axis: a long slanted box lies in many
    constexpr std::array<double SpacePoint::*, 3> part = {&SpacePoint::x, &SpacePoint::y, &SpacePoint::z};
    for (std::size_t a = 0; a < 3 && !boxes.empty(); ++a) {
        Axis &axis = axis_[a];
        axis.low = boxes.front().low.*part[a];
        axis.high = boxes.front().high.*part[a];
        for (const SpaceBox &box : boxes) {
            axis.low = std::min(axis.low, box.low.*part[a]);
            axis.high = std::max(axis.high, box.high.*part[a]);
        }
        axis.cells = std::clamp(2 * static_cast<int>(std::cbrt(boxes.size())), 1, kMostCells);
        axis.perMetre = axis.cells / (axis.high - axis.low);
    }
    const auto cells = static_cast<std::size_t>(axis_[0].cells * axis_[1].cells * axis_[2].cells);
    start_.assign(cells + 1, 0);
    for (const SpaceBox &box : boxes)
        forCellsOf(box, [this](std::size_t cell) { ++start_[cell + 1]; });
    std::partial_sum(start_.begin(), start_.end(), start_.begin());
    box_.resize(start_.back());
    std::vector<std::size_t> next = start_;
    for (std::size_t b = 0; b < boxes.size(); ++b)
        forCellsOf(boxes[b], [&](std::size_t cell) { box_[next[cell]++] = static_cast<int>(b); });
}

std::span<const int> BoxCells::near(SpacePoint at) const {
    if (!axis_[0].holds(at.x) || !axis_[1].holds(at.y) || !axis_[2].holds(at.z))
        return {};
    const std::size_t in = cell(axis_[0].cell(at.x), axis_[1].cell(at.y), axis_[2].cell(at.z));
    return std::span(box_).subspan(start_[in], start_[in + 1] - start_[in]);
}

} // namespace havuz
