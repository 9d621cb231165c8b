// The general quadrilateral shell from flat triangles. Units: m, t, radians. Theory, sources and oddities:
// docs/quad-element.md.
//
// For each triangle: K of the membrane (6 by 6) and of the bending (9 by 9) in its own plane; each vertex brings three
// displacements and two rotations, which the maps turn to the six freedoms of the node: K_global = T' * K * T, block by
// block, T the components of e1, e2, n on the axes of the node. Corners refer to the global axes, the centre to the
// reference axes of the quadrilateral. A vertex has no stiffness about its n: the token drilling of the rectangle has
// no counterpart here, which is why freedoms that are almost without stiffness are dropped. The six freedoms of the
// centre are then eliminated one by one (Wilson 1974), last first: for the rest
//   K(c,d) -= K(c,e) * K(e,d) / K(e,e).
//
//   4-------3     1   123                    without centre: a triangle of its own
//   | \   / |     2   123, 134               the diagonal 1-3 decides
//   |   5   |     3   124, 234, 314          around centre 4, the mean of three corners
//   | /   \ |     4   125, 235, 345, 415     around centre 5: the element of the driver
//   1-------2
#include "fea/quad_stiffness.h"

#include "fea/quad_work.h"
#include "fea/triangle_bending.h"
#include "fea/triangle_membrane.h"

#include <cassert>

namespace havuz {

namespace {

struct Triangle {
    int vertex[4]; // corners of its vertices 1..3; place 0 is not in use
};

// How the element is cut into triangles; the centre is 0 where there is none.
struct Scheme {
    int centre;
    Triangle triangle[4];
};

constexpr Scheme kSchemes[] = {
    {0, {{{0, 1, 2, 3}}}},
    {0, {{{0, 1, 2, 3}}, {{0, 1, 3, 4}}}},
    {4, {{{0, 1, 2, 4}}, {{0, 2, 3, 4}}, {{0, 3, 1, 4}}}},
    {5, {{{0, 1, 2, 5}}, {{0, 2, 3, 5}}, {{0, 3, 4, 5}}, {{0, 4, 1, 5}}}},
};

// How the six freedoms of a node give the Rows freedoms of its vertex in the plane of the triangle.
template <int Rows>
using VertexMap = Matrix<Rows, 6>;

} // namespace

// The mean of the corners, also of a warped quadrilateral: its triangles then lie in different planes.
static void PlaceCentre(int centre) {
    Vector3 sum = QuadCorner[1];
    for (int n = 2; n < centre; ++n)
        sum = sum + QuadCorner[n];
    const double count = centre - 1;
    QuadCorner[centre] = {sum.x / count, sum.y / count, sum.z / count};
}

// Axis v of the triangle into row r, columns first..first+2: its components on the axes that the node's freedoms refer
// to.
template <int Rows>
static void SetAxis(VertexMap<Rows> &map, int r, int first, const Vector3 &v, bool centre) {
    for (int a = 1; a <= 3; ++a)
        map(r, first + a - 1) = centre ? Dot(v, QuadBasisAxis(a)) : v(a);
}

// The vertex takes part in the membrane with its two displacements in the plane, in the bending with w and the two
// slopes r1, r2 about e1, e2.
static VertexMap<2> MembraneMap(bool centre) {
    VertexMap<2> map;
    SetAxis(map, 1, 1, TriAxes[1], centre); // u
    SetAxis(map, 2, 1, TriAxes[2], centre); // v
    return map;
}

static VertexMap<3> BendingMap(bool centre) {
    VertexMap<3> map;
    SetAxis(map, 1, 1, TriAxes[3], centre); // w
    SetAxis(map, 2, 4, TriAxes[1], centre); // r1
    SetAxis(map, 3, 4, TriAxes[2], centre); // r2
    return map;
}

// WorkK += transpose(row map) * block of TriK * column map, for the vertices n and m, written to both halves. Block
// (n, m) of TriK has the rows Rows*(n-1)+1..Rows*n; it lands on the rows 6*(corner-1)+1..6 of its node. Of a diagonal
// block the upper half alone is formed, and its mirror image is written with it.
template <int Rows>
static void ExpandBlock(const Triangle &t, int n, int m, const VertexMap<Rows> &rowMap, const VertexMap<Rows> &colMap) {
    for (int a = 1; a <= 6; ++a) {
        double left[Rows + 1] = {};
        for (int q = 1; q <= Rows; ++q)
            for (int p = 1; p <= Rows; ++p)
                left[q] += rowMap(p, a) * TriK(Rows * (n - 1) + p, Rows * (m - 1) + q);
        for (int b = n == m ? a : 1; b <= 6; ++b) {
            double sum = 0.0;
            for (int q = 1; q <= Rows; ++q)
                sum += left[q] * colMap(q, b);
            const int row = 6 * (t.vertex[n] - 1) + a;
            const int col = 6 * (t.vertex[m] - 1) + b;
            WorkK(row, col) = WorkK(col, row) = WorkK(row, col) + sum;
        }
    }
}

// Blocks n <= m alone: the matrix is symmetric and ExpandBlock writes both halves.
template <int Rows>
static void ExpandTriangle(const Triangle &t, int centre, VertexMap<Rows> (*mapOf)(bool)) {
    Row<VertexMap<Rows>, 3> map;
    for (int n = 1; n <= 3; ++n)
        map[n] = mapOf(t.vertex[n] == centre);
    for (int n = 1; n <= 3; ++n)
        for (int m = n; m <= 3; ++m)
            ExpandBlock(t, n, m, map[n], map[m]);
}

// 30 freedoms: six of each corner and, behind them, six of the centre.
static void AddTriangle(const Triangle &t, int centre) {
    WorkK.clear();
    TriK.clear();
    TriangleBasis(t.vertex[1], t.vertex[2], t.vertex[3]);
    TriangleMembrane();
    ExpandTriangle(t, centre, MembraneMap);
    TriangleBending();
    ExpandTriangle(t, centre, BendingMap);
    for (int i = 1; i <= 30; ++i)
        for (int j = 1; j <= 30; ++j)
            QuadK(i, j) += WorkK(i, j);
}

// A freedom with next to no stiffness, below a millionth of the sum of the two before it, is taken out: its row
// and its column become 0, so that it neither takes a force nor hands one on.
static void DropWeakFreedom(int g) {
    if (!(QuadK(g, g) < (QuadK(g - 1, g - 1) + QuadK(g - 2, g - 2)) * 0.000001))
        return;
    for (int i = 1; i <= 30; ++i)
        QuadK(g, i) = QuadK(i, g) = 0.0;
}

// Eliminates freedom e from those before it. No force acts on a centre, so its row of K*u = f gives
//   u(e) = -sum over d < e of K(e,d)*u(d) / K(e,e),
// which put into the other rows is the difference below. A pivot of 0 leaves them as they are: wanted. K(c,e) keeps the
// factor K(c,e)/K(e,e) of the freedom that went.
static void CondenseFreedom(int e) {
    const double p = QuadK(e, e);
    if (p == 0.0)
        return;
    for (int c = 1; c < e; ++c) {
        if (QuadK(c, e) == 0.0)
            continue;
        const double f = QuadK(c, e) / p;
        QuadK(c, e) = f;
        for (int d = c; d < e; ++d)
            QuadK(c, d) = QuadK(d, c) = QuadK(c, d) - f * QuadK(e, d);
    }
}

void QuadShellStiffness(int triangles) {
    assert(triangles >= 1 && triangles <= 4);
    const Scheme &scheme = kSchemes[triangles - 1];
    const int lastOfCentre = 6 * scheme.centre;
    if (scheme.centre != 0)
        PlaceCentre(scheme.centre);
    QuadK.clear();
    QuadBasisBuild(1);
    for (int t = 0; t < triangles; ++t)
        AddTriangle(scheme.triangle[t], scheme.centre);
    DropWeakFreedom(15); // uz of node 3, for itself and not for its neighbours: wanted
    if (scheme.centre == 0)
        return;
    DropWeakFreedom(lastOfCentre);
    for (int e = lastOfCentre; e > lastOfCentre - 6; --e)
        CondenseFreedom(e);
}

} // namespace havuz
