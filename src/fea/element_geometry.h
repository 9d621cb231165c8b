// Geometry of a mesh: its nodes, its local axes, a surface load in them. Lengths in m, loads in t and t/m2.
#pragma once

#include "fea/matrix.h"
#include "fea/vector3.h"

#include <array>

namespace havuz {

// Corners 1..4 of a mesh in its stored order (element 0 is unused).
struct MeshNodes {
    int mesh = 0;
    std::array<int, 5> n{};
    std::array<double, 5> x{}, y{}, z{};
};

// Node numbers and coordinates of a mesh. A corner outside 1..NoktaCount is Subscript, naming the mesh.
MeshNodes MeshNodeData(int mesh);

// T: 24 by 24, the rows of local axes on its eight diagonal blocks, so that u_local = T * u_global. Row 1 is the mean
// of the two sides along x, row 2 the mean of the two along y, row 3 normal to both. Row 2 is not made square to row 1:
// of a mesh that is no rectangle T is no rotation, and its transpose serves as inverse all the same: wanted. A mesh
// without extent or area is DivisionByZero, naming the mesh.
void ElementAxes(Matrix<24, 24> &T, const MeshNodes &m);

// The components of f on the three local axes.
Vector3 LoadToLocal(const Vector3 &f, const MeshNodes &m);

// F: 24 local forces, a quarter of area * f at each node; no moments.
void UniformLoadVector(double area, const Vector3 &f, std::array<double, 25> &F);

} // namespace havuz
