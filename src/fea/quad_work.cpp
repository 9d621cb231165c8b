// Frames of reference of the general quadrilateral and of its triangles. Units: m.
//
// Quadrilateral: axis 1 along (P2 + P3 - Pk - P1), axis 2 along (P3 + Pk - P1 - P2) less its part on axis 1
// (Gram-Schmidt), axis 3 their cross product. Triangle: n along (Pi - Pm) x (Pj - Pm), e1 along axis 2 x n, e2 = n x
// e1. TriX and TriY are the projections of the sides, opposite to vertices 1, 2, 3, on e1 and e2 (TriX of the side with
// the other sign), so that each of them sums to 0 and twice the area is TriX3*TriY2 - TriX2*TriY3.
// Example: vertices at (0,0), (1,0), (0,1) of e1 and e2: TriX = (-1, 0, 1), TriY = (-1, 1, 0), twice the area 1. The
// area coordinate L1 = 1 - x - y has the slopes TriY1 = TriX1 = -1, L2 = x those of TriY2 = 1 and TriX2 = 0.
#include "fea/quad_work.h"

namespace havuz {

Row<Vector3, 5> QuadCorner;
Row<double, 3> TriThickness;
Matrix<3, 3> QuadBasis;
Row<double, 3> TriX, TriY;
Row<Vector3, 3> TriAxes;
Matrix<12, 12> TriK;
Matrix<42, 42> WorkK;
Matrix<30, 30> QuadK;

void ResetQuadWork() {
    QuadCorner = {};
    TriThickness = TriX = TriY = {};
    TriAxes = {};
    QuadBasis.clear();
    TriK.clear();
    WorkK.clear();
    QuadK.clear();
}

Vector3 QuadBasisAxis(int j) { return {QuadBasis(1, j), QuadBasis(2, j), QuadBasis(3, j)}; }

static void SetQuadBasisAxis(int j, const Vector3 &v) {
    for (int i = 1; i <= 3; ++i)
        QuadBasis(i, j) = v(i);
}

// Corners on one line, or at one point, have no basis: DivisionByZero.
void QuadBasisBuild(int k) {
    const Vector3 along = QuadCorner[2] + QuadCorner[3] - QuadCorner[k] - QuadCorner[1];
    const Vector3 across = QuadCorner[3] + QuadCorner[k] - QuadCorner[1] - QuadCorner[2];
    const double part = Divide(Dot(along, across), Dot(along, along), Thing::QuadBasis);
    const Vector3 v1 = Normalised(along, Thing::QuadBasis);
    const Vector3 v2 = Normalised(across - part * along, Thing::QuadBasis);
    SetQuadBasisAxis(1, v1);
    SetQuadBasisAxis(2, v2);
    SetQuadBasisAxis(3, Cross(v1, v2));
}

// The sides a and b lead from vertex m to i and j.
void TriangleBasis(int i, int j, int m) {
    const Vector3 a = QuadCorner[i] - QuadCorner[m];
    const Vector3 b = QuadCorner[j] - QuadCorner[m];
    const Vector3 n = Normalised(Cross(a, b), Thing::TriangleAxes);
    const Vector3 e1 = Normalised(Cross(QuadBasisAxis(2), n), Thing::TriangleAxes);
    const Vector3 e2 = Cross(n, e1);
    TriX[1] = -Dot(e1, b);
    TriX[2] = Dot(e1, a);
    TriX[3] = -TriX[1] - TriX[2];
    TriY[1] = Dot(e2, b);
    TriY[2] = -Dot(e2, a);
    TriY[3] = -TriY[1] - TriY[2];
    TriAxes[1] = e1;
    TriAxes[2] = e2;
    TriAxes[3] = n;
}

// Twice the area, positive for vertices that go round n.
double TriangleArea2() { return TriX[3] * TriY[2] - TriX[2] * TriY[3]; }

// m, the mean of the vertices.
double TriangleThickness() { return (TriThickness[1] + TriThickness[2] + TriThickness[3]) / 3.0; }

} // namespace havuz
