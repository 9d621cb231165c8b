// Membrane forces and moments of the general quadrilateral. Units: m, t. Sources and oddities: docs/quad-element.md.
//
// Membrane: the bilinear quadrilateral of Taig (1961). With the corners at (0,0), (x1,y1), (x2,y2), (x3,y3) and xi, eta
// from 0 to 1,
//   x = x1*xi*(1-eta) + x2*xi*eta + x3*(1-xi)*eta     y alike; u and v with u1*(1-xi)*(1-eta) besides
//   u,x = (u,xi * y,eta - u,eta * y,xi) / J           u,y = (u,eta * x,xi - u,xi * x,eta) / J
//   J = x,xi * y,eta - x,eta * y,xi
// all taken at xi = eta = 1/2, where J, written out,
//   J = x1*y3 - x3*y1 + (x1*(y2-y3) - (x2-x3)*y1)/2 - ((x1-x2)*y3 - x3*(y1-y2))/2,
// is the signed area; forces are PlaneD times the strains times the mean thickness.
// Bending: one polynomial of twelve terms through w, dw/dy, -dw/dx of the corners. With a its twelve factors,
//   P * a = (w1, w1,y, -w1,x, w2, ..., -w4,x)'        P(12,12) the terms and their slopes at the corners
//   (Mx, My, Mxy) = -t^3/12 * PlaneD * C(x,y) * P^-1 * (w1, ..., -w4,x)'
// where C(x,y) has the second derivatives w,xx, w,yy, 2*w,xy of the terms 4..12; the first three have none.
#include "fea/quad_stress.h"

#include "fea/matrix_invert.h"
#include "fea/plane_stress.h"
#include "fea/quad_work.h"
#include "model/arithmetic.h"
#include "model/failure.h"

#include <cassert>

namespace havuz {

namespace {

// Places of the corners 2, 3, 4 as seen from corner 1: x1, y1 of the formulas is corner 2. The local axes are the rows
// of QuadBasis, not its columns: wanted.
struct LocalCorners {
    double x1, y1, x2, y2, x3, y3;
    double x(int corner) const { return corner == 1 ? 0.0 : corner == 2 ? x1 : corner == 3 ? x2 : x3; }
    double y(int corner) const { return corner == 1 ? 0.0 : corner == 2 ? y1 : corner == 3 ? y2 : y3; }
};

using PolynomialMatrix = Matrix<12, 12>;

} // namespace

// Components along axes 1 and 2 of a step between corners.
static double LocalX(const Vector3 &d) { return QuadBasis(1, 1) * d.x + QuadBasis(1, 2) * d.y + QuadBasis(1, 3) * d.z; }

static double LocalY(const Vector3 &d) { return QuadBasis(2, 1) * d.x + QuadBasis(2, 2) * d.y + QuadBasis(2, 3) * d.z; }

// The corners' own numbering is kept; a mesh that bends out of its plane is seen along axis 3.
static LocalCorners PlaceCorners() {
    QuadBasisBuild(4);
    const Vector3 d1 = QuadCorner[2] - QuadCorner[1];
    const Vector3 d2 = QuadCorner[3] - QuadCorner[1];
    const Vector3 d3 = QuadCorner[4] - QuadCorner[1];
    return {LocalX(d1), LocalY(d1), LocalX(d2), LocalY(d2), LocalX(d3), LocalY(d3)};
}

// The signed area of the quadrilateral as seen along the local normal: J at xi = eta = 0.5.
static double LocalArea(const LocalCorners &l) {
    return l.x1 * l.y3 - l.x3 * l.y1 + 0.5 * (l.x1 * (l.y2 - l.y3) - (l.x2 - l.x3) * l.y1) -
           0.5 * ((l.x1 - l.x2) * l.y3 - l.x3 * (l.y1 - l.y2));
}

// Membrane forces nx, ny, nxy from u, v of the corners, at xi = eta = 0.5 whatever the point: wanted. There each strain
// is a matter of the two diagonals alone,
//   u,x = (y2*(u2 - u4) + (y3 - y1)*(u3 - u1)) / (2*J)     u,y = (x2*(u4 - u2) + (x1 - x3)*(u3 - u1)) / (2*J)
// with u1..u4 of the corners; onX and onY are its factors as the derivatives by xi and eta give them, and the order of
// their sums is part of the results.
static Matrix<3, 8> MembraneForces(const LocalCorners &l, double J) {
    const double x1 = l.x1, x2 = l.x2, x3 = l.x3, y1 = l.y1, y2 = l.y2, y3 = l.y3;
    const double onX[4] = {((y1 - y3) - (y2 - y3) * 0.5 - (y1 - y2) * 0.5) / J, (y3 + (y2 - y3) * 0.5 - y3 * 0.5) / J,
                           (-y1 * 0.5 + y3 * 0.5) / J, (-y1 + y1 * 0.5 + (y1 - y2) * 0.5) / J};
    const double onY[4] = {(-x1 + x3 + (x2 - x3) * 0.5 + (x1 - x2) * 0.5) / J, (-x3 - (x2 - x3) * 0.5 + x3 * 0.5) / J,
                           (x1 * 0.5 - x3 * 0.5) / J, (x1 - x1 * 0.5 - (x1 - x2) * 0.5) / J};
    const double tm = TriangleThickness();
    Matrix<3, 8> force;
    for (int k = 1; k <= 4; ++k) {
        const double bx = onX[k - 1];
        const double by = onY[k - 1];
        for (int r = 1; r <= 3; ++r) {
            force(r, 2 * k - 1) = (PlaneD(r, 1) * bx + PlaneD(r, 3) * by) * tm;
            force(r, 2 * k) = (PlaneD(r, 2) * by + PlaneD(r, 3) * bx) * tm;
        }
    }
    return force;
}

// From w, dw/dy, -dw/dx of the corners to the factors of 1, x, y, x^2, xy, y^2, x^3, x^2y, xy^2, y^3, x^3y, xy^3.
static PolynomialMatrix PolynomialFactors(const LocalCorners &l) {
    PolynomialMatrix p;
    for (int k = 1; k <= 4; ++k) {
        const double x = l.x(k);
        const double y = l.y(k);
        const double w[12] = {1,         x,         y,         x * x,     x * y,         y * y,
                              x * x * x, x * x * y, x * y * y, y * y * y, x * x * x * y, x * y * y * y};
        const double wy[12] = {0, 0, 1, 0, x, 2 * y, 0, x * x, 2 * x * y, 3 * y * y, x * x * x, 3 * x * y * y};
        const double wx[12] = {0, 1, 0, 2 * x, y, 0, 3 * x * x, 2 * x * y, y * y, 0, 3 * x * x * y, y * y * y};
        for (int c = 1; c <= 12; ++c) {
            p(3 * k - 2, c) = w[c - 1];
            p(3 * k - 1, c) = wy[c - 1];
            p(3 * k, c) = -wx[c - 1];
        }
    }
    MatrixInvert(p.data(), 12);
    return p;
}

// Moments Mx, My, Mxy at (x, y) from w, dw/dy, -dw/dx of the corners. Mxy takes the sign of the other two: wanted, the
// rectangular element has the opposite one.
static Matrix<3, 12> Moments(double x, double y, const PolynomialMatrix &factors) {
    const double curvature[3][9] = {{2, 0, 0, 6 * x, 2 * y, 0, 0, 6 * x * y, 0},
                                    {0, 0, 2, 0, 0, 2 * x, 6 * y, 0, 6 * x * y},
                                    {0, 2, 0, 0, 4 * x, 4 * y, 0, 6 * x * x, 6 * y * y}};
    const double tm = TriangleThickness();
    const double stiffness = -(tm * tm * tm) / 12.0;
    Matrix<3, 12> moment;
    for (int r = 1; r <= 3; ++r) {
        double ofTerm[9];
        for (int c = 0; c < 9; ++c)
            ofTerm[c] =
                (PlaneD(r, 1) * curvature[0][c] + PlaneD(r, 2) * curvature[1][c] + PlaneD(r, 3) * curvature[2][c]) *
                stiffness;
        for (int j = 1; j <= 12; ++j) {
            double sum = 0.0;
            for (int c = 0; c < 9; ++c)
                sum += ofTerm[c] * factors(c + 4, j);
            moment(r, j) = sum;
        }
    }
    return moment;
}

// The six rows of one point; the factor 10 on the membrane is wanted. Of node k, e one of X, Y, Z:
//   S(r, ue)     = 10 * (force(r, u) * axis1(e) + force(r, v) * axis2(e))            r = nx, ny, nxy
//   S(r, ue)     = moment(r, w) * axis3(e)                                           r = Mx, My, Mxy
//   S(r, rot e)  = moment(r, w,y) * axis1(e) + moment(r, -w,x) * axis2(e)
// the rotation vector being (w,y, -w,x) in the plane.
static void StorePoint(Matrix<24, 24> &S, int point, const Matrix<3, 8> &force, const Matrix<3, 12> &moment) {
    for (int k = 1; k <= 4; ++k) {
        for (int r = 1; r <= 3; ++r) {
            const int row = 6 * (point - 1) + r;
            for (int e = 1; e <= 3; ++e) {
                const int col = 6 * (k - 1) + e;
                S(row, col) = 10.0 * (force(r, 2 * k - 1) * QuadBasis(1, e) + force(r, 2 * k) * QuadBasis(2, e));
                S(row + 3, col) = moment(r, 3 * k - 2) * QuadBasis(3, e);
                S(row + 3, col + 3) = moment(r, 3 * k - 1) * QuadBasis(1, e) + moment(r, 3 * k) * QuadBasis(2, e);
            }
        }
    }
}

// Corners that span no local area in their order were taken with 2 and 4 exchanged: the blocks of these two nodes,
// columns 7..12 and 19..24 and, as points, the same rows, go back.
static void ExchangeNodeBlocks(Matrix<24, 24> &S) {
    for (int i = 7; i <= 12; ++i)
        for (int j = 1; j <= 24; ++j)
            SwapValues(S(i, j), S(i + 12, j));
    for (int i = 1; i <= 24; ++i)
        for (int j = 7; j <= 12; ++j)
            SwapValues(S(i, j), S(i, j + 12));
}

static void FillPoints(Matrix<24, 24> &S, int points, const LocalCorners &l, double J) {
    const Matrix<3, 8> force = MembraneForces(l, J);
    const PolynomialMatrix factors = PolynomialFactors(l);
    if (points == 1)
        StorePoint(S, 1, force, Moments((l.x1 + l.x2 + l.x3) / 4.0, (l.y1 + l.y2 + l.y3) / 4.0, factors));
    else
        for (int point = 1; point <= points; ++point)
            StorePoint(S, point, force, Moments(l.x(point), l.y(point), factors));
}

void QuadShellStress(Matrix<24, 24> &S, int corners, int points) {
    assert(corners == 4 && points >= 1 && points <= 4);
    static_cast<void>(corners);
    S.clear();
    LocalCorners l = PlaceCorners();
    double J = LocalArea(l);
    const bool exchanged = J == 0.0;
    if (exchanged) {
        SwapValues(QuadCorner[2], QuadCorner[4]);
        l = PlaceCorners();
        J = LocalArea(l);
        if (J == 0.0)
            throw RuntimeFailure({.fault = Fault::NoLocalArea, .thing = Thing::QuadStress});
    }
    FillPoints(S, points, l, J);
    if (exchanged) {
        ExchangeNodeBlocks(S);
        SwapValues(QuadCorner[2], QuadCorner[4]);
    }
}

} // namespace havuz
