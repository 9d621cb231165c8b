// A panel laid flat: its meshes in plane coordinates, metres. A flat wall by its length and height, a round wall rolled
// out by the way around it, a floor or strip in plan.
#pragma once

#include "consistent/tank.h"

#include <array>
#include <vector>

namespace havuz::report {

struct FlatPoint {
    double u = 0, v = 0; // m; v is the height of a wall, Y of a floor
};

struct FlatMesh {
    std::size_t place = 0; // in Tank::meshes
    std::array<FlatPoint, 4> corner{};
};

struct FlatPanel {
    int panel = 0, kind = 0;
    std::vector<FlatMesh> meshes;
    FlatPoint low, high; // box around them
};

FlatPanel Unfold(const consistent::Tank &tank, int panel);

} // namespace havuz::report
