// Which side of a wall is wet: the side of its foot on which its own floor lies; where there is none, the side of the
// centre of all floors. Lengths in m.
#pragma once

#include "consistent/quad.h"
#include "consistent/tank.h"

#include <vector>

namespace havuz::consistent {

Corners CornersOf(const Tank &tank, const TankMesh &mesh);

// A lower side of a wall mesh on which nothing of the same panel stands below.
struct FootEdge {
    Vector3 a, b;
    Vector3 inward; // horizontal unit vector to the wet side; zero where the foot alone does not tell
    double length() const { return Length(b - a); }
};

struct WallSide {
    Vector3 outward; // unit normal out of the tank; zero for a mesh that is no wall
    FootEdge foot;   // the foot edge of the panel below the mesh
};

struct WallSides {
    std::map<int, std::vector<FootEdge>> feet; // of each panel of kind 1
    std::vector<WallSide> side;                // by mesh, in the order of Tank::meshes
};
WallSides FindWallSides(const Tank &tank);

} // namespace havuz::consistent
