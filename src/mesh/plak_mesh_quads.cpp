// Plate meshing: quadrilaterals from whole cells, at corners that stand out from the grid, and along grid diagonals.
// A point that a cell lacks goes into a quadrilateral as point 0: wanted.
//
// 1. Every cell (i, j), (i+1, j), (i+1, j+1), (i, j+1) of four points in use is one.
// 2. A corner point without neighbours on one axis, with three points beside it on the other, makes one with these
//    three; four rows of a table, one for each side on which the three may lie.
// 3. Where the outline runs along grid diagonals a point on it belongs to two cells of three corners, one on each side.
//    It is doubled: a new point takes its place on the outline, the old one moves inward,
//      P = (P + (A + B)/2) / 2,    A, B the two guide points,
//    and the two triangles with the new edge P-outer between them become two quadrilaterals.
//        before              after           the outline runs from lower left to upper right through P, the upper
//        .   .   Q           .   .   Q       left is outside: cells of three corners on both sides of P
//        .   P   B           .   O   B       O the new point on the outline, P moved towards A and B
//        S   A   .           S   A P .       quadrilaterals P B Q O and S A P O
// Hucre names the quadrilateral that owns a cell; a cell that one owns is left alone by the later steps.
#include "mesh/plak_mesh_work.h"

namespace havuz {

void MakeFullCells(PlakMeshWork &w) {
    for (int i = 0; i <= w.imax - 1; ++i) {
        for (int j = 0; j <= w.jmax - 1; ++j) {
            if (w.Durum(i, j) == 0 || w.Durum(i + 1, j) == 0 || w.Durum(i + 1, j + 1) == 0 || w.Durum(i, j + 1) == 0)
                continue;
            w.Hucre(i, j) =
                w.newQuad({w.GridNo(i, j), w.GridNo(i + 1, j), w.GridNo(i + 1, j + 1), w.GridNo(i, j + 1)}, i, j);
        }
    }
}

// A step on the grid, counted from the grid point in hand.
struct GridStep {
    int i, j;
};

// A lone corner without neighbours on one axis joins the three points beside it.
struct LoneCornerRow {
    GridStep neighbour[2]; // both outside
    GridStep beside[3];    // all in use
    GridStep corner[4];    // corners of the quadrilateral in order
    GridStep marked;       // the second cell that it owns, beside the point's own
};

// clang-format off
static const LoneCornerRow kLoneCorners[] = {
    {{{-1, 0}, {1, 0}}, {{-1,  1}, { 0,  1}, { 1,  1}}, {{ 0,  0}, {1,  1}, { 0, 1}, {-1, 1}}, {-1, 0}},
    {{{-1, 0}, {1, 0}}, {{-1, -1}, { 0, -1}, { 1, -1}}, {{-1, -1}, {0, -1}, { 1, -1}, { 0, 0}}, {-1, 0}},
    {{{0, -1}, {0, 1}}, {{ 1, -1}, { 1,  0}, { 1,  1}}, {{ 0,  0}, {1, -1}, { 1, 0}, { 1, 1}}, { 0, 1}},
    {{{0, -1}, {0, 1}}, {{-1, -1}, {-1,  0}, {-1,  1}}, {{-1, -1}, {0,  0}, {-1, 1}, {-1, 0}}, { 0, 1}},
};
// clang-format on

static void TryLoneCorner(PlakMeshWork &w, int i, int j, const LoneCornerRow &row) {
    for (const GridStep s : row.neighbour)
        if (w.Durum(i + s.i, j + s.j) != 0)
            return;
    for (const GridStep s : row.beside)
        if (w.Durum(i + s.i, j + s.j) == 0)
            return;
    int kose[4];
    for (int k = 0; k < 4; ++k)
        kose[k] = w.GridNo(i + row.corner[k].i, j + row.corner[k].j);
    w.Hucre(i, j) = w.Hucre(i + row.marked.i, j + row.marked.j) = w.newQuad(kose, i, j);
}

void MakeLoneCorners(PlakMeshWork &w) {
    for (int i = 1; i <= w.imax; ++i) {
        for (int j = 1; j <= w.jmax; ++j) {
            if (w.Durum(i, j) != OnCorner || w.Hucre(i, j) != 0)
                continue;
            for (const LoneCornerRow &row : kLoneCorners)
                TryLoneCorner(w, i, j, row);
        }
    }
}

// The point of (i, j) leaves its place on the outline to a new point, gives up its edge and moves halfway towards the
// middle of the two guide points. A guide without a point is scratch point 0: wanted. Gives the new point.
static int DoublePoint(PlakMeshWork &w, int i, int j, int guideA, int guideB) {
    const int p = w.GridNo(i, j);
    const int outer = w.newPoint();
    w.put(outer, w.point(p), w.gk(p));
    w.gk(p) = 0;
    w.gx(p) = (w.gx(p) + (w.gx(guideA) + w.gx(guideB)) / 2.0) / 2.0;
    w.gy(p) = (w.gy(p) + (w.gy(guideA) + w.gy(guideB)) / 2.0) / 2.0;
    return outer;
}

static bool CornersOnOutline(PlakMeshWork &w, int i, int j, int di) {
    return w.Durum(i - di, j - 1) > Inside && w.Durum(i + di, j + 1) > Inside;
}

static void DoubleOnRisingDiagonal(PlakMeshWork &w, int i, int j) {
    const auto no = [&w, i, j](int di, int dj) { return w.GridNo(i + di, j + dj); };
    if (w.Durum(i - 1, j + 1) == 0) {
        const int outer = DoublePoint(w, i, j, no(0, -1), no(1, 0));
        w.Hucre(i, j) = w.newQuad({no(0, 0), no(1, 0), no(1, 1), outer}, i, j);
        w.Hucre(i - 1, j - 1) = w.newQuad({no(-1, -1), no(0, -1), no(0, 0), outer}, i - 1, j - 1);
    } else if (w.Durum(i + 1, j - 1) == 0) {
        const int outer = DoublePoint(w, i, j, no(-1, 0), no(0, 1));
        w.Hucre(i, j) = w.newQuad({no(0, 0), outer, no(1, 1), no(0, 1)}, i, j);
        w.Hucre(i - 1, j - 1) = w.newQuad({no(-1, -1), outer, no(0, 0), no(-1, 0)}, i - 1, j - 1);
    }
}

// The second quadrilateral of the first case carries cell row j - 1, not its own: wanted.
static void DoubleOnFallingDiagonal(PlakMeshWork &w, int i, int j) {
    const auto no = [&w, i, j](int di, int dj) { return w.GridNo(i + di, j + dj); };
    if (w.Durum(i + 1, j + 1) == 0) {
        const int outer = DoublePoint(w, i, j, no(0, -1), no(-1, 0));
        w.Hucre(i, j - 1) = w.newQuad({no(0, -1), no(1, -1), outer, no(0, 0)}, i, j - 1);
        w.Hucre(i - 1, j) = w.newQuad({no(-1, 0), no(0, 0), outer, no(-1, 1)}, i - 1, j - 1);
    } else if (w.Durum(i - 1, j - 1) == 0) {
        const int outer = DoublePoint(w, i, j, no(0, 1), no(1, 0));
        w.Hucre(i, j - 1) = w.newQuad({outer, no(1, -1), no(1, 0), no(0, 0)}, i, j - 1);
        w.Hucre(i - 1, j) = w.newQuad({outer, no(0, 0), no(0, 1), no(-1, 1)}, i - 1, j);
    }
}

// A point in the middle of a run of outline points along a grid diagonal leaves two triangles; doubled, it leaves two
// quadrilaterals.
static void DoubleDiagonalPoint(PlakMeshWork &w, int i, int j) {
    if (w.Hucre(i, j) == 0 && w.Hucre(i - 1, j - 1) == 0) {
        if (CornersOnOutline(w, i, j, 1))
            DoubleOnRisingDiagonal(w, i, j);
    } else if (w.Hucre(i - 1, j) == 0 && w.Hucre(i, j - 1) == 0 && CornersOnOutline(w, i, j, -1)) {
        DoubleOnFallingDiagonal(w, i, j);
    }
}

void DoubleDiagonalPoints(PlakMeshWork &w) {
    for (int i = 1; i <= w.imax; ++i)
        for (int j = 1; j <= w.jmax; ++j)
            if (w.Durum(i, j) == OnEdge)
                DoubleDiagonalPoint(w, i, j);
}

} // namespace havuz
