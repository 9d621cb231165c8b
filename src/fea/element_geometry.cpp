// Nodes, local axes and the even load of a mesh. Units: m, t.
//
// The axes of a mesh with corners P1..P4, also of one that is no rectangle and no plane:
//   vx = ((P2 - P1) + (P3 - P4)) / 2     the mean of the two sides along x
//   vy = ((P4 - P1) + (P3 - P2)) / 2     the mean of the two sides along y
//   x = vx / |vx|,  y = vy / |vy|,  z = (vx x vy) / |vx x vy|
// y is not made square to x. On a rectangle the three are orthonormal and T, with them as rows in eight diagonal
// blocks, is a rotation: u_local = T * u_global, K_global = T' * K_local * T. On any other mesh T' is not the inverse
// of T and the product is used all the same: wanted, the results of distorted meshes follow from it.
// An even load of f (t/m2) on an area A is A*f/4 at each corner, without moments: the lumped form, in equilibrium with
// f though not the work-equivalent one of the plate's polynomial, whose corner moments it leaves out.
// Example: the trapezoid (0,0) (2,0) (1.4,1) (0.3,1) in plan. vx = (1.55, 0), vy = (-0.15, 1): x = (1, 0),
// y = (-0.148, 0.989), 98.5 degrees between them. It is computed as the rectangle of 1.55 by 1.105, the means of its
// sides of 2 and 1.1 and of 1.044 and 1.166, which has 1.71 m2 where the trapezoid has 1.55.
#include "fea/element_geometry.h"

#include "model/arithmetic.h"
#include "model/mesh_facts.h"
#include "model/store.h"

namespace havuz {

MeshNodes MeshNodeData(int mesh) {
    const MeshRecord &record = MeshTable[mesh];
    MeshNodes m;
    m.mesh = mesh;
    const std::array<int, 4> corners = MeshCorners(record);
    for (std::size_t k = 1; k <= 4; ++k) {
        m.n[k] = corners[k - 1];
        if (m.n[k] < 1 || m.n[k] > NoktaCount)
            throw RuntimeFailure({.fault = Fault::NamesOutside,
                                  .where = {{Thing::MeshTable, mesh}},
                                  .number = m.n[k],
                                  .first = 1,
                                  .bound = NoktaCount});
        const NoktaRecord &node = NoktaTable[m.n[k]];
        m.x[k] = node.X;
        m.y[k] = node.Y;
        m.z[k] = node.Z;
    }
    return m;
}

// The mean of two sides, from point a to b and from d to c.
static Vector3 MeanSide(const MeshNodes &m, std::size_t a, std::size_t b, std::size_t d, std::size_t c) {
    return {((m.x[b] - m.x[a]) + (m.x[c] - m.x[d])) / 2.0, ((m.y[b] - m.y[a]) + (m.y[c] - m.y[d])) / 2.0,
            ((m.z[b] - m.z[a]) + (m.z[c] - m.z[d])) / 2.0};
}

static Vector3 Normalised(const Vector3 &v, int mesh) {
    const double length = Distance3(v.x, v.y, v.z);
    if (length == 0.0)
        throw RuntimeFailure({.fault = Fault::NoExtent, .where = {{Thing::MeshTable, mesh}}});
    return {v.x / length, v.y / length, v.z / length};
}

static std::array<Vector3, 3> LocalAxes(const MeshNodes &m) {
    const Vector3 vx = MeanSide(m, 1, 2, 4, 3);
    const Vector3 vy = MeanSide(m, 1, 4, 2, 3);
    return {Normalised(vx, m.mesh), Normalised(vy, m.mesh), Normalised(Cross(vx, vy), m.mesh)};
}

void ElementAxes(Matrix<24, 24> &T, const MeshNodes &m) {
    const std::array<Vector3, 3> axes = LocalAxes(m);
    T.clear();
    for (int block = 0; block < 24; block += 3)
        for (int row = 1; row <= 3; ++row) {
            const Vector3 &axis = axes[static_cast<std::size_t>(row - 1)];
            T(block + row, block + 1) = axis.x;
            T(block + row, block + 2) = axis.y;
            T(block + row, block + 3) = axis.z;
        }
}

Vector3 LoadToLocal(const Vector3 &f, const MeshNodes &m) {
    const std::array<Vector3, 3> axes = LocalAxes(m);
    return {Dot(f, axes[0]), Dot(f, axes[1]), Dot(f, axes[2])};
}

void UniformLoadVector(double area, const Vector3 &f, std::array<double, 25> &F) {
    F = {};
    for (std::size_t node = 0; node < 24; node += 6) {
        F[node + 1] = area * f.x / 4.0;
        F[node + 2] = area * f.y / 4.0;
        F[node + 3] = area * f.z / 4.0;
    }
}

} // namespace havuz
