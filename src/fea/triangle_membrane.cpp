// The constant strain triangle of Turner, Clough, Martin and Topp (1956). Units: m, t/m.
//
// With TriX and TriY the projections of the sides opposite to the vertices, the strains are
//   e = B * (u1, v1, u2, v2, u3, v3) / (2*A), B of vertex n: (y_n, 0; 0, x_n; x_n, y_n),
// and K = t * A * B' * PlaneD * B / (4*A^2): each 2 by 2 block is PlaneD * t/(4*A) times products of projections.
#include "fea/triangle_membrane.h"

#include "fea/plane_stress.h"
#include "fea/quad_work.h"
#include "model/arithmetic.h"

namespace havuz {

// The 2 by 2 block of the vertices m and n, B(m)' * c * B(n), c PlaneD times thickness / (4 * area). Written out, with
// x, y the projections of m before those of n:
//   c11*yy + c33*xx + c13*(xy+yx)      c12*yx + c33*xy + c13*yy + c23*xx
//   c12*xy + c33*yx + c13*yy + c23*xx  c22*xx + c33*yy + c23*(xy+yx)
static void MembraneBlock(int m, int n, const Matrix<3, 3> &c) {
    const double xx = TriX[m] * TriX[n];
    const double yy = TriY[m] * TriY[n];
    const double xy = TriX[m] * TriY[n];
    const double yx = TriY[m] * TriX[n];
    const double s = xy + yx;
    TriK(2 * m - 1, 2 * n - 1) = c(1, 1) * yy + c(3, 3) * xx + c(1, 3) * s;
    TriK(2 * m, 2 * n) = c(2, 2) * xx + c(3, 3) * yy + c(2, 3) * s;
    TriK(2 * m - 1, 2 * n) = c(1, 2) * yx + c(3, 3) * xy + c(1, 3) * yy + c(2, 3) * xx;
    TriK(2 * m, 2 * n - 1) = c(1, 2) * xy + c(3, 3) * yx + c(1, 3) * yy + c(2, 3) * xx;
}

void TriangleMembrane() {
    const double f = Divide(TriangleThickness(), 2.0 * TriangleArea2(), Thing::TriangleMembrane);
    Matrix<3, 3> c;
    for (int i = 1; i <= 3; ++i)
        for (int j = 1; j <= 3; ++j)
            c(i, j) = PlaneD(i, j) * f;
    for (int n = 1; n <= 3; ++n)
        for (int m = 1; m <= n; ++m)
            MembraneBlock(m, n, c);
    for (int i = 2; i <= 6; ++i)
        for (int j = 1; j < i; ++j)
            TriK(i, j) = TriK(j, i);
}

} // namespace havuz
