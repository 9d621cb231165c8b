// Plate editing: link codes from geometry, and the splitting of a wall. Plan m.
//
// Two places are one when they lie within 0.1 m of each other. From that alone follow, in this order,
//   wall on plate edge   top corners 1 and 2 of the wall at the two ends of edge k of plate p:
//                        KenarKodu(k) = 100*wall + 3, KenarKomsu(3) = -(100*p + k), Nx = |edge| / width, at least 1;
//   plate on plate       edges with both ends in common: each takes -(100*plate + edge) of the other;
//   wall next to wall    walls on edges that follow each other around a plate: edge 2 of one names edge 4 of the next.
//      1 --- 1 --- 2     corners 1..4 and edges 1..4 of a wall. It stands on the plate with edge 3; a wall is vertical,
//      4           2     so its corners 1 and 2 have the places of that edge in plan. Going round the plate, edge 2
//      4 --- 3 --- 3     meets edge 4 of the next wall
// Codes are only set, never cleared: an edge that stands alone now keeps the name of the neighbour that it had.
// Splitting a wall copies it behind itself, the later records moving up by one; its corners along the split edge come
// together at the place, and the walls are named anew as one closed ring.
#include "mesh/plak_edit.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/place.h"
#include "model/store.h"

namespace havuz {

namespace {

constexpr double kSamePlace = 0.1; // m

int NextPoint(const PlakRecord &plate, int k) { return k < plate.NoktaSayisi ? k + 1 : 1; }
PlanPoint Point(const PlakRecord &plate, int k) { return {plate.X[k], plate.Y[k]}; }
PlanPoint Corner(const PanelRecord &panel, int k) { return {panel.X[k], panel.Y[k]}; }
bool Near(PlanPoint a, PlanPoint b) { return PlanDistance(a, b) < kSamePlace; }

// Which top corner of the panel stands at the point: 2, 1 or 0.
int CornerAt(const PanelRecord &panel, PlanPoint at) {
    if (Near(at, Corner(panel, 2)))
        return 2;
    return Near(at, Corner(panel, 1)) ? 1 : 0;
}

// CornerAt gives 0, 1 or 2 for each end of the edge: 1*2 and 2*1 are a wall along it, from either side, 1*1 and any 0
// none. A panel whose top corners both stand at corner 2's end of the edge, 2*2, counts as well: wanted.
void LinkWallsOnEdge(int plak, int edge, double width) {
    PlakRecord &plate = PlakTable[plak];
    const PlanPoint a = Point(plate, edge), b = Point(plate, NextPoint(plate, edge));
    for (int w = 1; w <= PanelCount; ++w) {
        PanelRecord &wall = PanelTable[w];
        if (CornerAt(wall, a) * CornerAt(wall, b) <= 1)
            continue;
        plate.KenarKodu[edge] = PanelLink(w, 3);
        wall.KenarKomsu[3] = PlateLink(plak, edge);
        wall.Nx = Divide(PlanDistance(a, b), width, Thing::MeshGenisligi);
        if (wall.Nx < 1)
            wall.Nx = 1;
    }
}

bool SameEdge(const PlakRecord &p, int a, const PlakRecord &q, int d) {
    const PlanPoint a1 = Point(p, a), a2 = Point(p, NextPoint(p, a));
    const PlanPoint d1 = Point(q, d), d2 = Point(q, NextPoint(q, d));
    return (Near(a1, d1) && Near(a2, d2)) || (Near(a1, d2) && Near(a2, d1));
}

void LinkPlates(int p, int q) {
    for (int a = 1; a <= PlakTable[p].NoktaSayisi; ++a) {
        for (int d = 1; d <= PlakTable[q].NoktaSayisi; ++d) {
            if (!SameEdge(PlakTable[p], a, PlakTable[q], d))
                continue;
            PlakTable[p].KenarKodu[a] = PlateLink(q, d);
            PlakTable[q].KenarKodu[d] = PlateLink(p, a);
        }
    }
}

// Before point 1 stands the last point of the last plate, not of this one; and the wall before takes the wall behind
// as its neighbour on edge 4: both wanted.
void LinkWallsAroundPlate(const PlakRecord &plate) {
    for (int k = 1; k <= plate.NoktaSayisi; ++k) {
        const int u = NextPoint(plate, k), v = k > 1 ? k - 1 : int(PlakTable[PlakCount].NoktaSayisi);
        const int c = LinkPanel(plate.KenarKodu[k]), cu = LinkPanel(plate.KenarKodu[u]),
                  cv = LinkPanel(plate.KenarKodu[v]);
        if (c > 0 && cu > 0) {
            PanelTable[c].KenarKomsu[2] = PanelLink(cu, 4);
            PanelTable[cu].KenarKomsu[4] = PanelLink(c, 2);
        }
        if (c > 0 && cv > 0) {
            PanelTable[c].KenarKomsu[4] = PanelLink(cu, 2);
            PanelTable[cv].KenarKomsu[2] = PanelLink(c, 4);
        }
    }
}

} // namespace

void KomsulukKur(double width) {
    for (int p = 1; p <= PlakCount; ++p)
        for (int k = 1; k <= PlakTable[p].NoktaSayisi; ++k)
            LinkWallsOnEdge(p, k, width);
    for (int p = 1; p <= PlakCount - 1; ++p)
        for (int q = p + 1; q <= PlakCount; ++q)
            LinkPlates(p, q);
    for (int p = 1; p <= PlakCount; ++p)
        LinkWallsAroundPlate(PlakTable[p]);
}

// Up by one in absolute value; 0 stays.
static int RaisedCode(int code) { return code > 0 ? code + 1 : code < 0 ? code - 1 : 0; }

static void MoveCorner(PanelRecord &panel, int corner, double x, double y) {
    panel.X[corner] = x;
    panel.Y[corner] = y;
}

// A split on edge 2 moves no corner: wanted.
static void MoveSplitCorners(PanelRecord &first, PanelRecord &second, int edge, double x, double y) {
    if (edge == 1 || edge == 3) {
        MoveCorner(first, 2, x, y);
        MoveCorner(first, 3, x, y);
        MoveCorner(second, 1, x, y);
        MoveCorner(second, 4, x, y);
    }
    if (edge == 4) {
        MoveCorner(first, 3, x, y);
        MoveCorner(first, 4, x, y);
        MoveCorner(second, 1, x, y);
        MoveCorner(second, 2, x, y);
    }
}

void PanelBol(int kod, double x, double y) {
    if (kod < 0)
        return;
    const int k = LinkPanel(kod), e = LinkEdge(kod);
    for (int t = PanelCount; t >= k; --t) {
        PanelRecord &moved = PanelTable[t + 1];
        moved = PanelTable[t];
        moved.No = t + 1;
        AtPlace({Thing::PanelTable, t + 1}, [&] {
            moved.KenarKomsu[e] = RaisedCode(moved.KenarKomsu[e]);
            moved.KenarKomsu[2] = PanelLink(t + 2, 4);
            moved.KenarKomsu[4] = PanelLink(t, 2);
        });
    }
    MoveSplitCorners(PanelTable[k], PanelTable[k + 1], e, x, y);
    PanelTable[1].KenarKomsu[4] = PanelLink(++PanelCount, 2);
    PanelTable[PanelCount].KenarKomsu[2] = PanelLink(1, 4);
}

} // namespace havuz
