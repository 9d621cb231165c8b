// Plate grid meshing, the steps in their order. A square grid of the mesh width is laid over the outline, from the
// start of its longest edge; points inside are kept, those nearest the outline are pulled onto its edges and one onto
// each of its corners, the rest is eased; whole cells become quadrilaterals, cells of three corners are given to a
// neighbour or become a quadrilateral with two corners on one edge. The method is the program's own: it needs no
// triangulation, and a rectangle of whole widths becomes the plain grid.
#include "mesh/plak_mesh.h"

#include "mesh/plak_mesh_work.h"

namespace havuz {

Table<DortluRecord, kDortluCapacity> DortluTable(Thing::DortluTable);
std::array<PlanPoint, 5> StoredHits;

void ResetPlakMesh() {
    DortluTable.reset();
    StoredHits = {};
}

void PlakMeshWork::put(int p, PlanPoint at, int code) {
    gx(p) = at.x;
    gy(p) = at.y;
    gk(p) = code;
}

// Points are never given back: what no quadrilateral uses falls out at the end (NumberUsedPoints).
int PlakMeshWork::newPoint() {
    const int p = points() + 1;
    if (p > kPlakMeshPoints)
        FailSubscript({{Thing::Plate, plak}}, Thing::MeshPoint, p, kPlakMeshPoints);
    GX.push_back(0.0);
    GY.push_back(0.0);
    GK.push_back(0);
    return p;
}

int PlakMeshWork::newPointAt(int i, int j) {
    const int p = newPoint();
    GridNo(i, j) = p;
    return p;
}

int PlakMeshWork::newQuad(const int (&kose)[4], int ci, int cj) {
    if (++quads > kDortluCapacity)
        FailSubscript({{Thing::Plate, plak}}, Thing::DortluTable, quads, kDortluCapacity);
    DortluRecord &quad = DortluTable[quads];
    for (int k = 1; k <= 4; ++k)
        quad.Kose[k] = kose[k - 1];
    quad.CI = ci;
    quad.CJ = cj;
    return quads;
}

// Point 0 is scratch: steps that find no point write there and read there, as the method does.
PlakMeshWork BeginPlak(int plak) {
    PlakMeshWork w;
    w.plak = plak;
    w.GX = w.GY = {0.0};
    w.GK = {0};
    for (int q = 1; q <= kDortluCapacity; ++q)
        DortluTable[q] = DortluRecord{};
    return w;
}

// What each step leaves to the next:
//   CopyOutline            the closed outline, its bounds, its lowest and highest point
//   LayGrid                step and origin of the grid, empty tables over it
//   TestInside             states 0 and 1, a point at each grid point inside
//   PullOntoEdges          state 2: points moved onto an edge, code +edge
//   PinCorners             state 3: a point at each outline corner, code -corner
//   EasePoints             points beside moved ones between their neighbours
//   MakeFullCells          a quadrilateral for each cell of four points, its number in Hucre
//   MakeLoneCorners        one at each corner that stands out from the grid
//   DoubleDiagonalPoints   two where the outline runs along a grid diagonal
//   RepairTriangles        no cell of three points left over
//   NumberUsedPoints, HandOverCorners, AppendNodesAndMeshes     nodes and meshes of the model
// With G grid points and n edges the inside test asks for 2*G*n crossings, most of which a comparison settles
// (MayMeet).
void PlakMeshle(int plak, double width) {
    PlakMeshWork w = BeginPlak(plak);
    CopyOutline(w);
    LayGrid(w, width);
    TestInside(w);
    PullOntoEdges(w);
    PinCorners(w);
    EasePoints(w);
    MakeFullCells(w);
    MakeLoneCorners(w);
    DoubleDiagonalPoints(w);
    RepairTriangles(w);
    NumberUsedPoints(w);
    HandOverCorners(w);
    AppendNodesAndMeshes(w);
}

} // namespace havuz
