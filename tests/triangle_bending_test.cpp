// The bending triangle against the element it is: the cubic plate triangle of three sub-triangles with continuous
// slopes and linear normal slopes on its sides, worked out here from those conditions alone, with no closed forms.
#include "fea/matrix_invert.h"
#include "fea/triangle_bending.h"
#include "quad_support.h"
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

namespace {

using Vertices = std::array<Point, 3>; // as seen from the centroid, which is (0, 0)
enum Derivative { W, Wx, Wy, Wxx, Wyy, Wxy };

// k-th derivative of x^e.
double Power(double x, int e, int k) {
    double value = 1.0;
    for (int i = 0; i < k; ++i)
        value *= e - i;
    for (int i = 0; i < e - k; ++i)
        value *= x;
    return value;
}

// A derivative of the c-th of the ten monomials 1, x, y, .. y^3.
double Cubic(Point p, Derivative d, int c) {
    const int degree = c < 2 ? 0 : c < 4 ? 1 : c < 7 ? 2 : 3;
    const int b = c - 1 - degree * (degree + 1) / 2;
    const int dx = d == Wx || d == Wxy ? 1 : d == Wxx ? 2 : 0;
    const int dy = d == Wy || d == Wxy ? 1 : d == Wyy ? 2 : 0;
    return Power(p.x, degree - b, dx) * Power(p.y, b, dy);
}

Point Middle(Point p, Point q) { return {(p.x + q.x) / 2, (p.y + q.y) / 2}; }

// Thirty conditions, one a row, on the coefficients 10*s+1..10*s+10 of the cubics of the sub-triangles s = 0, 1, 2; the
// right-hand side is what they ask of the nine freedoms.
struct Conditions {
    Matrix<30, 30> left;
    Matrix<30, 9> right;
    int row = 1;
    void put(std::size_t s, Point p, Derivative d, double factor) {
        for (int c = 1; c <= 10; ++c)
            left(row, 10 * static_cast<int>(s) + c) += factor * Cubic(p, d, c);
    }
    void putNormalSlope(std::size_t s, Point p, Point side, double factor) {
        put(s, p, Wx, factor * side.y);
        put(s, p, Wy, -factor * side.x);
    }
};

void ConditionsOf(std::size_t s, const Vertices &v, Conditions &all) {
    const std::size_t next = (s + 1) % 3;
    const Point side{v[next].x - v[s].x, v[next].y - v[s].y};
    Conditions &a = all;
    const int slope = a.row + 6; // the normal slope in the middle of the outer side is the mean of its ends
    for (const std::size_t vertex : {s, next}) {
        const int r2 = 3 * static_cast<int>(vertex) + 3; // w, r1 = dw/dy, r2 = -dw/dx
        a.put(s, v[vertex], W, 1), a.right(a.row++, r2 - 2) = 1;
        a.put(s, v[vertex], Wy, 1), a.right(a.row++, r2 - 1) = 1;
        a.put(s, v[vertex], Wx, -1), a.right(a.row++, r2) = 1;
        a.right(slope, r2 - 1) = -side.x / 2;
        a.right(slope, r2) = -side.y / 2;
    }
    a.putNormalSlope(s, Middle(v[s], v[next]), side, 1), ++a.row;
    for (const Derivative d : {W, Wx, Wy}) // the cubics meet at the centroid
        if (s < 2)
            a.put(s, {0, 0}, d, 1), a.put(next, {0, 0}, d, -1), ++a.row;
    a.putNormalSlope(s, Middle(v[next], {0, 0}), v[next], 1); // and their slopes along the inner side
    a.putNormalSlope(next, Middle(v[next], {0, 0}), v[next], -1), ++a.row;
}

// The curvatures w,xx, w,yy, 2*w,xy of sub-triangle s at p for a unit of each freedom.
Matrix<3, 9> Curvatures(const Conditions &solved, std::size_t s, Point p) {
    Matrix<3, 9> b;
    for (int r = 1; r <= 3; ++r)
        for (int f = 1; f <= 9; ++f)
            for (int c = 1; c <= 10; ++c)
                for (int k = 1; k <= 30; ++k)
                    b(r, f) += (r == 3 ? 2 : 1) * Cubic(p, static_cast<Derivative>(Wxx + r - 1), c) *
                               solved.left(10 * static_cast<int>(s) + c, k) * solved.right(k, f);
    return b;
}

// The energy of products of linear curvatures is exact from the middles of the sides of each sub-triangle.
Matrix<9, 9> Reference(const Vertices &v, double area, double t) {
    Conditions conditions;
    for (std::size_t s = 0; s < 3; ++s)
        ConditionsOf(s, v, conditions);
    EXPECT_EQ(conditions.row, 31);
    MatrixInvert(conditions.left.data(), 30);
    Matrix<9, 9> K;
    for (std::size_t s = 0; s < 3; ++s) {
        const Point p = v[s], q = v[(s + 1) % 3], centroid{0, 0};
        for (const Point m : {Middle(p, q), Middle(q, centroid), Middle(centroid, p)}) {
            const Matrix<3, 9> b = Curvatures(conditions, s, m);
            for (int i = 1; i <= 9; ++i)
                for (int j = 1; j <= 9; ++j)
                    for (int r = 1; r <= 3; ++r)
                        for (int u = 1; u <= 3; ++u)
                            K(i, j) += area / 9 * t * t * t / 12 * b(r, i) * PlaneD(r, u) * b(u, j);
        }
    }
    return K;
}

} // namespace

TEST(TriangleBending, IsTheCompatibleTriangleWithLinearNormalSlopes) {
    ResetAll();
    for (const Shape &shape : {Shape{{{0, 0}, {2, 0.3}, {0.7, 1.9}, {}}}, Shape{{{0, 0}, {1, 0}, {0, 1}, {}}},
                               Shape{{{-1, 4}, {0, 0.5}, {0.1, 3}, {}}}}) {
        PutQuad(shape, Tilted(), 0.2);
        QuadBasisBuild(1);
        TriangleBasis(1, 2, 3);
        TriangleBending();
        const Vector3 centroid = (1.0 / 3) * (QuadCorner[1] + QuadCorner[2] + QuadCorner[3]);
        Vertices v{};
        for (int n = 1; n <= 3; ++n)
            v[static_cast<std::size_t>(n - 1)] = {Dot(QuadCorner[n] - centroid, TriAxes[1]),
                                                  Dot(QuadCorner[n] - centroid, TriAxes[2])};
        const Matrix<9, 9> want = Reference(v, TriangleArea2() / 2, 0.2);
        double difference = 0.0;
        for (int i = 1; i <= 9; ++i)
            for (int j = 1; j <= 9; ++j)
                difference = std::max(difference, std::fabs(TriK(i, j) - want(i, j)));
        EXPECT_LT(difference, 30 * 30 * kEps * Largest(want));
    }
}

} // namespace havuz
