// What each mesh gives its corners in each load case, and its share of the bed. Forces in t along the global axes.
#pragma once

#include "consistent/loads.h"
#include "consistent/wall_side.h"

namespace havuz::consistent {

using CornerForces = std::array<Vector3, 4>;

// Case c on every mesh, in the order of Tank::meshes. Point loads lie on nodes: kPoint gives zeros.
std::vector<CornerForces> MeshLoads(const Tank &tank, const WallSides &walls, Case c, const LoadOptions &options);

// Plan area of the bed at each corner of each mesh, m2.
std::vector<Shares> MeshBedAreas(const Tank &tank);

// Pressure of a case on a wall mesh as forces along its outward normal, t.
Shares WallPressure(const Tank &tank, const Corners &p, Case c, const LoadOptions &options);

std::vector<Vector3> NodalLoads(const Tank &tank, const std::vector<CornerForces> &meshes, Case c);
std::vector<WallForce> WallForces(const Tank &tank, const WallSides &walls, Case c, const LoadOptions &options);

} // namespace havuz::consistent
