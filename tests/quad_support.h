// What the tests of the general quadrilateral share: shapes, planes to put them in, displacement fields, products.
#pragma once

#include "fea/matrix.h"
#include "fea/plane_stress.h"
#include "fea/quad_work.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace havuz {

constexpr double kE = 3000000.0, kPoisson = 0.25, kEps = 2.220446049250313e-16;

struct Point {
    double x, y;
};
using Shape = std::array<Point, 4>;
using Six = std::array<double, 6>; // of a node, or of a point of the plane: u, v, w, rotations about the axes
using Corners24 = std::array<double, 24>;

// A plane in space with axes e1, e2, n.
struct Plane {
    Vector3 origin, e1, e2, n;
    Vector3 at(const Point &p) const { return origin + p.x * e1 + p.y * e2; }
    Vector3 inSpace(double a, double b, double c) const { return a * e1 + b * e2 + c * n; }
    Six inSpace(const Six &s) const {
        const Vector3 u = inSpace(s[0], s[1], s[2]), r = inSpace(s[3], s[4], s[5]);
        return {u.x, u.y, u.z, r.x, r.y, r.z};
    }
};

inline const Plane kFlat{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
inline const Plane kWallX{{0, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}};
inline Plane Tilted() {
    const Vector3 e1 = Normalised({2, -1, 0.5}, Thing::QuadBasis),
                  n = Normalised(Cross(e1, {0.3, 1, -0.7}), Thing::QuadBasis);
    return {{3, -2, 1}, e1, Cross(n, e1), n};
}

// The shape in the plane, with thickness t and concrete.
inline void PutQuad(const Shape &shape, const Plane &plane, double t) {
    for (int n = 1; n <= 4; ++n)
        QuadCorner[n] = plane.at(shape[static_cast<std::size_t>(n - 1)]);
    for (int i = 1; i <= 3; ++i)
        TriThickness[i] = t;
    FillPlaneD(kE, kPoisson);
}

// The field of the plane's own coordinates at the four corners, in global axes.
inline Corners24 AtCorners(const Shape &shape, const Plane &plane, const std::function<Six(Point)> &field) {
    Corners24 u{};
    for (std::size_t n = 0; n < 4; ++n) {
        const Six s = plane.inSpace(field(shape[n]));
        std::copy(s.begin(), s.end(), u.begin() + static_cast<std::ptrdiff_t>(6 * n));
    }
    return u;
}

// The first rows and columns of K, `size` of them, times u.
template <int Rows, int Cols>
Corners24 Times(const Matrix<Rows, Cols> &K, const Corners24 &u, int size = 24) {
    Corners24 f{};
    for (int i = 1; i <= size; ++i)
        for (int j = 1; j <= size; ++j)
            f[static_cast<std::size_t>(i - 1)] += K(i, j) * u[static_cast<std::size_t>(j - 1)];
    return f;
}

template <int Rows, int Cols>
double Largest(const Matrix<Rows, Cols> &K, int size = Rows) {
    double largest = 0.0;
    for (int i = 1; i <= size; ++i)
        for (int j = 1; j <= size; ++j)
            largest = std::max(largest, std::fabs(K(i, j)));
    return largest;
}

inline double Largest(const Corners24 &u) {
    double largest = 0.0;
    for (const double v : u)
        largest = std::max(largest, std::fabs(v));
    return largest;
}

// States of constant strain and curvature with the strains and curvatures they have: ex, ey, exy, w,xx, w,yy, 2*w,xy.
// Rotations are right-handed: rx = dw/dy, ry = -dw/dx.
struct ConstantState {
    const char *name;
    std::function<Six(Point)> field;
    Six strain;
};
inline const ConstantState kConstantStates[] = {
    {"u = x", [](Point p) { return Six{p.x, 0, 0, 0, 0, 0}; }, {1, 0, 0, 0, 0, 0}},
    {"v = y", [](Point p) { return Six{0, p.y, 0, 0, 0, 0}; }, {0, 1, 0, 0, 0, 0}},
    {"u = y", [](Point p) { return Six{p.y, 0, 0, 0, 0, 0}; }, {0, 0, 1, 0, 0, 0}},
    {"w = x2/2", [](Point p) { return Six{0, 0, p.x * p.x / 2, 0, -p.x, 0}; }, {0, 0, 0, 1, 0, 0}},
    {"w = y2/2", [](Point p) { return Six{0, 0, p.y * p.y / 2, p.y, 0, 0}; }, {0, 0, 0, 0, 1, 0}},
    {"w = xy", [](Point p) { return Six{0, 0, p.x * p.y, p.x, -p.y, 0}; }, {0, 0, 0, 0, 0, 2}},
};

// PlaneD times the strains, then PlaneD times the curvatures.
inline Six TimesMaterial(const Six &strain) {
    Six s{};
    for (int g : {0, 3})
        for (int i = 1; i <= 3; ++i)
            for (int j = 1; j <= 3; ++j)
                s[static_cast<std::size_t>(g + i - 1)] += PlaneD(i, j) * strain[static_cast<std::size_t>(g + j - 1)];
    return s;
}

} // namespace havuz
