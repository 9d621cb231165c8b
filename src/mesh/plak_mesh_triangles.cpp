// Plate meshing: cells of three corners. A neighbour quadrilateral along the same edge of the plate grows over the
// triangle, or the cell is flattened: no triangle is ever written.
//
// Growing: a table of eight rows, two for each corner that the cell may lack. A row holds when its two points s1, s2
// lie on the outline (state 2 or 3); the triangle is then given away when its points f and s lie on one edge of the
// plate: corner `kose` of the donor's quadrilateral moves to the cell's point `taken`. A corner point lies on two
// edges, its own and the one before it, unless its neighbour tells which is meant:
//   e1 = |code|,  e2 = |code| - 1 (of corner 1: the last edge).
//      4 - 3 - +          4 - 3 - +      corner 1 is missing, (1,0) and (2,0) lie on the outline,
//       \ | D |            \   D  |      (0,1) and (2,0) on one edge of the plate: the first row.
//         2 - +              ` - +       D gives up its corner 1 at (1,0) for (0,1) and covers 2 3 4
// Flattening: where no row of the table allows it, the corner opposite the missing one moves to the middle of its two
// neighbours, O = (A + B)/2, and takes their edge: the triangle has no area left and needs no mesh.
#include "mesh/plak_mesh_work.h"

#include <cstdlib>

namespace havuz {

// A step on the grid, counted from the cell's lower corner.
struct CellStep {
    int i, j;
};

// One way to give a triangle away: tried when the points s1 and s2 lie on the outline, done when f and s lie on one
// edge.
struct DonorRow {
    int missing;           // corner that the cell lacks
    CellStep s1, s2;       // both in state 2 or 3
    CellStep f, fa, s, sa; // points whose edges are compared, and the points that decide where they are corners
    CellStep donor;        // cell whose quadrilateral grows
    int kose;              // its corner that moves
    CellStep taken;        // to this point
};

// The second row of missing corner 1 asks point (0, 1) for its edge and (0, 2) for the choice: wanted.
// clang-format off
static const DonorRow kDonors[] = {
    {1, {1, 0}, {2,  0}, {0, 1}, {1, 0}, { 2,  0}, {1, 0}, { 1,  0}, 1, {0, 1}},
    {1, {0, 1}, {0,  2}, {1, 0}, {0, 1}, { 0,  1}, {0, 2}, { 0,  1}, 1, {1, 0}},
    {2, {0, 0}, {-1, 0}, {1, 1}, {0, 0}, {-1,  0}, {0, 0}, {-1,  0}, 2, {1, 1}},
    {2, {1, 1}, {1,  2}, {0, 0}, {1, 1}, { 1,  2}, {1, 1}, { 0,  1}, 2, {0, 0}},
    {3, {0, 1}, {-1, 1}, {1, 0}, {0, 1}, {-1,  1}, {0, 1}, {-1,  0}, 3, {1, 0}},
    {3, {1, 0}, {1, -1}, {0, 1}, {1, 0}, { 1, -1}, {1, 0}, { 0, -1}, 3, {0, 1}},
    {4, {1, 1}, {2,  1}, {0, 0}, {1, 1}, { 2,  1}, {1, 1}, { 1,  0}, 4, {0, 0}},
    {4, {0, 0}, {0, -1}, {1, 1}, {0, 0}, { 0, -1}, {0, 0}, { 0, -1}, 4, {1, 1}},
};
// clang-format on

static const CellStep kCellCorner[5] = {{0, 0}, {0, 0}, {1, 0}, {1, 1}, {0, 1}}; // corners 1..4 of a cell

// The two edges of the plate on which a point may lie; a corner point lies on two, unless its neighbour tells which.
struct EdgePair {
    int e1, e2;
};

static EdgePair EdgesOf(PlakMeshWork &w, int p, int neighbour) {
    const int code = w.gk(p), other = w.gk(neighbour);
    if (code >= 0)
        return {code, code};
    if (other > 0)
        return {other, other};
    const int corner = std::abs(code);
    return {corner, corner > 1 ? corner - 1 : w.n};
}

static bool OnOneEdge(EdgePair f, EdgePair s) { return f.e1 == s.e1 || f.e1 == s.e2 || f.e2 == s.e1 || f.e2 == s.e2; }

// The first row whose states hold decides alone. A donor cell without a quadrilateral takes the write in scratch record
// 0 and counts as found: wanted.
static bool GiveToNeighbour(PlakMeshWork &w, int i, int j, int missing) {
    if (((missing == 2 || missing == 3) && i <= 2) || ((missing == 3 || missing == 4) && j <= 2))
        return false;
    const auto state = [&w, i, j](CellStep s) { return w.Durum(i + s.i, j + s.j); };
    const auto no = [&w, i, j](CellStep s) { return w.GridNo(i + s.i, j + s.j); };
    for (const DonorRow &row : kDonors) {
        if (row.missing != missing || state(row.s1) <= Inside || state(row.s2) <= Inside)
            continue;
        if (!OnOneEdge(EdgesOf(w, no(row.f), no(row.fa)), EdgesOf(w, no(row.s), no(row.sa))))
            return false;
        const int quad = w.Hucre(i + row.donor.i, j + row.donor.j);
        w.Hucre(i, j) = quad;
        DortluTable[quad].Kose[row.kose] = no(row.taken);
        return true;
    }
    return false;
}

// The corner opposite the missing one moves onto the line between its two neighbours and takes over their edge.
static void Flatten(PlakMeshWork &w, int i, int j, int missing) {
    static const int neighbours[5][2] = {{0, 0}, {4, 2}, {1, 3}, {2, 4}, {1, 3}}; // in the order of asking for an edge
    const auto no = [&w, i, j](int corner) { return w.GridNo(i + kCellCorner[corner].i, j + kCellCorner[corner].j); };
    const int opposite = missing > 2 ? missing - 2 : missing + 2;
    const int o = no(opposite), a = no(neighbours[opposite][0]), b = no(neighbours[opposite][1]);
    w.gx(o) = (w.gx(a) + w.gx(b)) / 2.0;
    w.gy(o) = (w.gy(a) + w.gy(b)) / 2.0;
    if (w.gk(a) > 0)
        w.gk(o) = w.gk(a);
    else if (w.gk(b) > 0)
        w.gk(o) = w.gk(b);
}

// The corner that a free cell of three corners lacks, 0 for any other cell.
static int MissingCorner(PlakMeshWork &w, int i, int j) {
    int there = 0, missing = 0;
    for (int k = 1; k <= 4; ++k) {
        if (w.Durum(i + kCellCorner[k].i, j + kCellCorner[k].j) > 0)
            ++there;
        else
            missing = k;
    }
    return there == 3 && w.Hucre(i, j) == 0 ? missing : 0;
}

void RepairTriangles(PlakMeshWork &w) {
    for (int i = 0; i <= w.imax; ++i) {
        for (int j = 0; j <= w.jmax; ++j) {
            const int missing = MissingCorner(w, i, j);
            if (missing > 0 && !GiveToNeighbour(w, i, j, missing))
                Flatten(w, i, j, missing);
        }
    }
}

} // namespace havuz
