// Boxes in space, sorted into a grid of cells: the few that may hold a point are found without asking all. Lengths in
// m.
#pragma once

#include "mesh/space_point.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace havuz {

struct SpaceBox {
    SpacePoint low, high;
};

// The box around a point, as far as reach to each side.
SpaceBox BoxAround(SpacePoint at, double reach);

// The box that holds every point whose distances from a and b are together at most slack above their own.
SpaceBox BoxAlong(SpacePoint a, SpacePoint b, double slack);

class BoxCells {
public:
    explicit BoxCells(std::span<const SpaceBox> boxes);

    // Places of boxes, rising: all that hold the point, and neighbours of theirs that do not.
    std::span<const int> near(SpacePoint at) const;

private:
    struct Axis {
        double low = 0.0, high = 0.0, perMetre = 0.0; // cells to a metre
        int cells = 1;
        int cell(double v) const;
        bool holds(double v) const { return v >= low && v <= high; }
    };
    std::size_t cell(int i, int j, int k) const;
    template <class Job>
    void forCellsOf(const SpaceBox &box, Job job) const;

    std::array<Axis, 3> axis_;
    std::vector<std::size_t> start_; // of each cell's boxes
    std::vector<int> box_;
};

} // namespace havuz
