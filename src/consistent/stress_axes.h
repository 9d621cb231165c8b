// The axes in which results are told (results.h) at the centre and the corners of each mesh, and the planes in which
// nodal means are taken.
#pragma once

#include "consistent/mesh_loads.h"
#include "consistent/results.h"
#include "consistent/shell_element.h"

#include <array>
#include <vector>

namespace havuz::consistent {

using AxesOfMesh = std::array<Eigen::Matrix3d, 5>; // rows 1, 2, 3; element 0 the centre

std::vector<AxesOfMesh> StressAxes(const Tank &tank, const WallSides &walls);

// The plane of each mesh, numbered from 0: a panel is one plane, and so are flat panels of one kind that lie in one
// plane with one upper or inner side.
std::vector<int> PlanesOf(const Tank &tank, const std::vector<AxesOfMesh> &axes);

// Results in axes 1, 2, 3 from those in the local axes of the element (rows x, y, normal) and shear forces along x, y.
ShellResult InAxes(const LocalStress &s, const Eigen::Vector2d &shear, const Eigen::Matrix3d &local,
                   const Eigen::Matrix3d &axes);

} // namespace havuz::consistent
