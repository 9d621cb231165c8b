// The compatible bending triangle of Clough and Felippa (1968), often called LCCT-9: three sub-triangles that meet at
// the centroid, w a full cubic in each. The ten factors of each cubic are bound by the nine freedoms of the vertices,
// by equal values and slopes on the inner sides, and by a normal slope that is linear along each outer side.
//
// In area coordinates L1, L2, L3 the second derivatives of a cubic are linear, so its curvatures at the two outer ends
// and at the centroid of each sub-triangle describe it: 7 points of three curvatures, 21 rows, on 9 freedoms. The
// energy needs the integral of a product of two linear functions f, g over a sub-triangle of area A/3:
//   (A/3)/12 * (f1*g1 + f2*g2 + f3*g3 + (f1+f2+f3)*(g1+g2+g3)),
// which is what the weighted columns hold; with t^3/12 and A = area2/2 the factor is t^3 * area2 / 864.
// Units: m, t, radians. The order of the operations is part of the results.
#include "fea/triangle_bending.h"

#include "fea/plane_stress.h"
#include "fea/quad_work.h"
#include "model/arithmetic.h"

#include <cmath>

namespace havuz {

// The vertices go round: 1, 2, 3, 1.
static int NextVertex(int i) { return i == 3 ? 1 : i + 1; }

// Side i lies opposite to vertex i. mu is the part of it, from the vertex before i, at which the height meets it; c*r1
// + d*r2 is the slope along the normal of the side, times twice the height, where r1 and r2 are the slopes.
struct Side {
    double x, y; // projections, m
    double mu;
    double c, d; // m
};

// s is the square of the side's length, l the length, h twice the height of the triangle on it.
static Side SideOf(int i, double area2) {
    const int j = NextVertex(i);
    const double x = TriX[i];
    const double y = TriY[i];
    const double s = x * x + y * y;
    const double mu = Divide(-(x * TriX[j] + y * TriY[j]), s, Thing::TriangleBending);
    const double l = std::sqrt(s);
    const double h = 2.0 * area2 / l;
    return {x, y, mu, h * x / l, -h * y / l};
}

// Row i of w holds the second derivatives w,xx, w,yy, 2*w,xy of L(i)^2/2, row i + 3 those of L(i)*L(j): L are the area
// coordinates, j the next vertex. With the slopes of an area coordinate, L(i),x = TriY(i)/A2 and L(i),y = TriX(i)/A2,
//   (L(i)^2/2),xx = L(i),x^2      (L(i)*L(j)),xx = 2*L(i),x*L(j),x      (L(i)*L(j)),xy = L(i),x*L(j),y + L(i),y*L(j),x
// and the curvature of any cubic is a sum of these six, each times an area coordinate: no other table is needed.
static void SecondDerivatives(int i, double area2, Matrix<6, 3> &w) {
    const int j = NextVertex(i);
    const double a1 = Divide(TriX[i], area2, Thing::TriangleBending);
    const double a2 = Divide(TriX[j], area2, Thing::TriangleBending);
    const double b1 = Divide(TriY[i], area2, Thing::TriangleBending);
    const double b2 = Divide(TriY[j], area2, Thing::TriangleBending);
    w(i, 1) = b1 * b1;
    w(i, 2) = a1 * a1;
    w(i, 3) = 2.0 * a1 * b1;
    w(i + 3, 1) = 2.0 * b1 * b2;
    w(i + 3, 2) = 2.0 * a1 * a2;
    w(i + 3, 3) = 2.0 * (a1 * b2 + a2 * b1);
}

// The curvatures of sub-triangle i, which lies on the side from vertex i to j: rows r at vertex i, r + 3 at vertex j,
// and its columns of the rows 18 + k at the point where the sub-triangles meet; each group of three is w,xx, w,yy,
// 2*w,xy. Columns 3n-2, 3n-1, 3n are w, r1, r2 of vertex n.
//
//            m             p1, p2, p3 and q1, q2, q3: the six second derivatives, from vertex i round
//           /|\            x1, x2, x3, mu1, ...: the sides opposite to i, j, m
//          / 0 \           0: the centroid, where the three sub-triangles meet with one curvature
//         / / \ \          i 0 j: the sub-triangle of this call
//        i-------j
// These are the closed forms of the paper: the conditions on the inner sides and in the middle of the outer sides are
// solved for the inner coefficients and put in, so that only second derivatives, projections and mu are left. Rotations
// enter with a length, w without: A1 .. F2 collect the lengths that r1 (projections y, normals c) and r2 (x, d) bring
// by each vertex.
static void CurvatureRows(int i, const Row<Side, 3> &side, const Matrix<6, 3> &w, Matrix<21, 9> &q) {
    const int j = NextVertex(i);
    const int m = NextVertex(j);
    const double x1 = side[i].x, x2 = side[j].x, x3 = side[m].x;
    const double y1 = side[i].y, y2 = side[j].y, y3 = side[m].y;
    const double mu1 = side[i].mu, mu2 = side[j].mu, mu3 = side[m].mu;
    const double c1 = side[i].c, c2 = side[j].c, c3 = side[m].c;
    const double d1 = side[i].d, d2 = side[j].d, d3 = side[m].d;
    const double o1 = 1.0 - mu1, o2 = 1.0 - mu2, o3 = 1.0 - mu3;
    const double X1 = 2.0 * x1, X2 = 2.0 * x2, X3 = 2.0 * x3;
    const double Y1 = 2.0 * y1, Y2 = 2.0 * y2, Y3 = 2.0 * y3;
    const double A1 = y1 - y3 * mu3 + c3;
    const double A2b = -Y1 + y2 * o2 + y3 * mu3 + c2 - c3;
    const double B1 = x1 - x3 * mu3 + d3;
    const double B2 = -X1 + x2 * o2 + x3 * mu3 + d2 - d3;
    const double C1 = y3 * o3 - y2 + c3;
    const double C2 = Y2 - y3 * o3 - y1 * mu1 + c1 - c3;
    const double D1 = x3 * o3 - x2 + d3;
    const double D2 = X2 - x3 * o3 - x1 * mu1 + d1 - d3;
    const double E1 = y3 - Y2 - y2 * mu2 + c2;
    const double E2 = Y1 - y3 + y1 * o1 + c1;
    const double F1 = x3 - X2 - x2 * mu2 + d2;
    const double F2 = X1 - x3 + x1 * o1 + d1;
    for (int k = 1; k <= 3; ++k) {
        const double p1 = w(i, k), p2 = w(j, k), p3 = w(m, k);
        const double q1 = w(i + 3, k), q2 = w(j + 3, k), q3 = w(m + 3, k);
        const double u = q2 - p3, v = q3 - p3;
        const int r = 6 * (i - 1) + k;
        q(r, 3 * i - 2) = 6.0 * (-p1 + o2 * p3 + mu3 * u);
        q(r, 3 * i - 1) = A1 * q2 + A2b * p3 - Y3 * q1 + Y2 * q3;
        q(r, 3 * i) = B1 * q2 + B2 * p3 - X3 * q1 + X2 * q3;
        q(r, 3 * j - 2) = 6.0 * (p2 + o3 * u);
        q(r, 3 * j - 1) = C1 * u + Y3 * p2;
        q(r, 3 * j) = D1 * u + X3 * p2;
        q(r, 3 * m - 2) = 6.0 * (1.0 + mu2) * p3;
        q(r, 3 * m - 1) = E1 * p3;
        q(r, 3 * m) = F1 * p3;
        q(r + 3, 3 * i - 2) = 6.0 * (p1 + mu3 * v);
        q(r + 3, 3 * i - 1) = A1 * v - Y3 * p1;
        q(r + 3, 3 * i) = B1 * v - X3 * p1;
        q(r + 3, 3 * j - 2) = 6.0 * (-p2 + mu1 * p3 + o3 * v);
        q(r + 3, 3 * j - 1) = C1 * q3 + C2 * p3 + Y3 * q1 - Y1 * q2;
        q(r + 3, 3 * j) = D1 * q3 + D2 * p3 + X3 * q1 - X1 * q2;
        q(r + 3, 3 * m - 2) = 6.0 * (1.0 + o1) * p3;
        q(r + 3, 3 * m - 1) = E2 * p3;
        q(r + 3, 3 * m) = F2 * p3;
        q(18 + k, 3 * i - 2) = 2.0 * (p1 + mu3 * q1 + o2 * q3);
        q(18 + k, 3 * m - 1) = ((Y1 - Y2) * p3 + E2 * q2 + E1 * q3) / 3.0;
        q(18 + k, 3 * m) = ((X1 - X2) * p3 + F2 * q2 + F1 * q3) / 3.0;
    }
}

// Column c of the curvatures, weighted as the integral over each sub-triangle of a product of two linear functions
// asks: every value plus the sum over its sub-triangle.
static void WeightedColumn(const Matrix<21, 9> &q, int c, Row<double, 21> &v) {
    for (int k = 1; k <= 3; ++k) {
        const double mid = q(18 + k, c);
        v[18 + k] = 0.0;
        for (int e = k; e <= k + 12; e += 6) {
            const double t1 = q(e, c);
            const double t2 = q(e + 3, c);
            const double sum = t1 + t2 + mid;
            v[e] = sum + t1;
            v[e + 3] = sum + t2;
            v[18 + k] += sum + mid;
        }
    }
}

// Curvatures to moments, a group of three at a time.
static void TimesPlaneD(Row<double, 21> &v) {
    for (int g = 1; g <= 19; g += 3) {
        const double v1 = v[g], v2 = v[g + 1], v3 = v[g + 2];
        for (int i = 1; i <= 3; ++i)
            v[g + i - 1] = PlaneD(i, 1) * v1 + PlaneD(i, 2) * v2 + PlaneD(i, 3) * v3;
    }
}

// K = t^3/12 * integral of q' * PlaneD * q, column by column: weights, then moments, then the products with the
// curvatures of the other columns, summed over the seven points in their order.
static void IntegrateEnergy(const Matrix<21, 9> &q, double area2) {
    const double t = TriangleThickness();
    const double factor = t * t * t * area2 / 864.0;
    Row<double, 21> v;
    for (int c = 1; c <= 9; ++c) {
        WeightedColumn(q, c, v);
        TimesPlaneD(v);
        for (int r = 1; r <= c; ++r) {
            double sum = 0.0;
            for (int g = 1; g <= 21; ++g)
                sum += v[g] * q(g, r);
            TriK(r, c) = TriK(c, r) = factor * sum;
        }
    }
}

// Sides, second derivatives of the area coordinates, curvatures of the three sub-triangles, energy.
void TriangleBending() {
    const double area2 = TriangleArea2();
    Row<Side, 3> side;
    Matrix<6, 3> w;
    for (int i = 1; i <= 3; ++i) {
        side[i] = SideOf(i, area2);
        SecondDerivatives(i, area2, w);
    }
    Matrix<21, 9> q;
    for (int i = 1; i <= 3; ++i)
        CurvatureRows(i, side, w, q);
    IntegrateEnergy(q, area2);
}

} // namespace havuz
