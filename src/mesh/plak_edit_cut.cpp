// Plate editing: where a line cuts a plate, the points it inserts, and the split into two plates.
// A cut is worked out on a copy of the plate; plate, walls and new plate are written only when it is made. Plan m.
//
// Where: an end of the line within 0.1 m of an outline point counts as that corner. Corner to corner needs no crossing;
// from a corner the farthest crossing on an edge that does not touch it is the other end; without a corner exactly two
// crossings make a cut. Points: a crossing becomes an outline point behind the start of its edge, its height linear
// along the edge,
//   z = z1 + (z2 - z1) * |P1 P| / |P1 P2|,
// and the wall on the edge is split at the same place. Split: with a < b the two outline points, plate `plak` keeps
// 1..a, b..n and the new plate takes a..b; their common edge carries the code of the other plate on both sides
// (link_code.h). A piece of fewer than three different points in plan is no plate, and nothing is cut.
// Example: the square (0,0) (4,0) (4,4) (0,4) cut along x = 1. Crossings on the edges 1 and 3; the later is inserted
// first, then the earlier: (0,0) (1,0) (4,0) (4,4) (1,4) (0,4), a = 2, b = 5. The plate keeps (0,0) (1,0) (1,4) (0,4),
// the new plate is (1,0) (4,0) (4,4) (1,4).
#include "mesh/plak_edit.h"
#include "mesh/plak_mesh.h"
#include "model/link_code.h"
#include "model/parameters.h"
#include "model/store.h"

#include <set>
#include <utility>
#include <vector>

namespace havuz {

namespace {

constexpr double kAtCorner = 0.1; // m

PlanPoint Point(const PlakRecord &plate, int k) { return {plate.X[k], plate.Y[k]}; }
int NextPoint(const PlakRecord &plate, int k) { return k < plate.NoktaSayisi ? k + 1 : 1; }

// The last outline point within 0.1 of a place, 0 when there is none.
int CornerNear(const PlakRecord &plate, PlanPoint at) {
    for (int k = plate.NoktaSayisi; k >= 1; --k)
        if (PlanDistance(Point(plate, k), at) < kAtCorner)
            return k;
    return 0;
}

struct Crossing {
    int edge = 0;
    PlanPoint at;
};

// Crossings of the line with all edges, in edge order.
std::vector<Crossing> CrossingsOf(const PlakRecord &plate, const CutLine &line, Kesisim &k) {
    std::vector<Crossing> crossings;
    for (int e = 1; e <= plate.NoktaSayisi; ++e) {
        DogruKesisimi(line.a, line.b, Point(plate, e), Point(plate, NextPoint(plate, e)), k);
        if (k.kod == 2)
            crossings.push_back({e, {k.xi, k.yi}});
    }
    return crossings;
}

// A cut in the making: the plate with the points it inserts, the outline points between which it splits, and the walls
// to split in their order.
struct Cut {
    struct WallSplit {
        int kod;
        PlanPoint at;
    };
    int plak = 0;
    PlakRecord plate;
    int a = 0, b = 0;
    std::vector<WallSplit> walls;
};

double HeightOnEdge(const PlakRecord &plate, int edge, PlanPoint at) {
    const int next = NextPoint(plate, edge);
    const double length = PlanDistance(Point(plate, edge), Point(plate, next));
    if (length == 0.0)
        return plate.Z[edge];
    return plate.Z[edge] + (plate.Z[next] - plate.Z[edge]) * PlanDistance(Point(plate, edge), at) / length;
}

// A new outline point behind point e. Codes that move up name the next wall or plate, a code of 0 becomes -100; the new
// point keeps the code that its place held, which in a closed ring of walls is its own wall: all wanted.
void InsertPoint(Cut &cut, const Crossing &crossing) {
    PlakRecord &plate = cut.plate;
    const int e = crossing.edge, n = plate.NoktaSayisi;
    if (n + 1 > kPlakPoints)
        FailSubscript({{Thing::Plate, cut.plak}}, Thing::OutlinePoint, n + 1, kPlakPoints);
    const double z = HeightOnEdge(plate, e, crossing.at);
    for (int t = n; t > e; --t) {
        plate.X[t + 1] = plate.X[t];
        plate.Y[t + 1] = plate.Y[t];
        plate.Z[t + 1] = plate.Z[t];
        plate.KenarKodu[t + 1] = plate.KenarKodu[t] + (plate.KenarKodu[t] > 0 ? 100 : -100);
    }
    plate.X[e + 1] = crossing.at.x;
    plate.Y[e + 1] = crossing.at.y;
    plate.Z[e + 1] = z;
    plate.NoktaSayisi = n + 1;
    if (plate.KenarKodu[e] > 0) {
        plate.KenarKodu[n + 1] = plate.KenarKodu[n] + 100;
        cut.walls.push_back({plate.KenarKodu[e], crossing.at});
    }
}

// From the corner of point a to the farthest crossing on an edge that does not touch it. The last edge's code is made
// anew, whether or not a wall stands there: wanted.
bool CutFromCorner(Cut &cut, int corner, const std::vector<Crossing> &crossings) {
    const PlakRecord &plate = cut.plate;
    Crossing far;
    double farthest = 0.0;
    for (const Crossing &crossing : crossings) {
        if (crossing.edge == corner || NextPoint(plate, crossing.edge) == corner)
            continue;
        const double d = PlanDistance(crossing.at, Point(plate, corner));
        if (d > farthest) {
            farthest = d;
            far = crossing;
        }
    }
    if (!(farthest > kAtCorner))
        return false;
    InsertPoint(cut, far);
    cut.plate.KenarKodu[plate.NoktaSayisi] = PanelLink(plate.NoktaSayisi, 3);
    cut.a = corner > far.edge ? corner + 1 : corner;
    cut.b = far.edge + 1;
    return true;
}

// The later crossing first, so that the earlier one's number stays.
bool CutFromEdgeToEdge(Cut &cut, const std::vector<Crossing> &crossings) {
    if (crossings.size() != 2)
        return false;
    InsertPoint(cut, crossings[1]);
    InsertPoint(cut, crossings[0]);
    cut.a = crossings[0].edge + 1;
    cut.b = crossings[1].edge + 2;
    return true;
}

// Where the line splits the plate; false when it does not.
//   ends at corners   crossings                                          cut
//   two               none is asked for                                  corner to corner
//   one               the farthest on an edge that it does not end       corner to edge
//   none              two, no more and no less                           edge to edge
bool FindCut(Cut &cut, const CutLine &line, Kesisim &k) {
    cut.a = CornerNear(cut.plate, line.a);
    cut.b = CornerNear(cut.plate, line.b);
    if (cut.a > 0 && cut.b > 0)
        return true;
    const std::vector<Crossing> crossings = CrossingsOf(cut.plate, line, k);
    if (cut.a > 0 || cut.b > 0)
        return CutFromCorner(cut, cut.a > 0 ? cut.a : cut.b, crossings);
    return CutFromEdgeToEdge(cut, crossings);
}

void CopyPoint(PlakRecord &to, int k, const PlakRecord &from, int p) {
    to.X[k] = from.X[p];
    to.Y[k] = from.Y[p];
    to.Z[k] = from.Z[p];
    to.KenarKodu[k] = from.KenarKodu[p];
}

// Two pieces of an outline: a..b, and the rest with both ends. Slots behind the points of a piece keep what they held.
struct Pieces {
    PlakRecord between, rest;
};

Pieces SplitOutline(const PlakRecord &plate, int a, int b) {
    Pieces pieces{plate, plate};
    for (int k = a; k <= b; ++k)
        CopyPoint(pieces.between, k - a + 1, plate, k);
    pieces.between.NoktaSayisi = b - a + 1;
    for (int k = b; k <= plate.NoktaSayisi; ++k)
        CopyPoint(pieces.rest, k - b + a + 1, plate, k);
    pieces.rest.NoktaSayisi = a + plate.NoktaSayisi - b + 1;
    return pieces;
}

// Three different places at least; Z is not looked at.
bool IsPlate(const PlakRecord &piece) {
    std::set<std::pair<double, double>> places;
    for (int k = 1; k <= piece.NoktaSayisi; ++k)
        places.emplace(piece.X[k], piece.Y[k]);
    return places.size() >= 3;
}

// The pieces of the plate and of new plate q, with the codes of their common edge.
bool MakePieces(Cut &cut, int q, Pieces &pieces) {
    if (cut.a > cut.b)
        std::swap(cut.a, cut.b);
    const int a = cut.a, b = cut.b;
    pieces = SplitOutline(cut.plate, a, b);
    pieces.rest.KenarKodu[a] = PlateLink(q, b - a + 1);
    pieces.between.KenarKodu[b - a + 1] = PlateLink(cut.plak, a);
    return IsPlate(pieces.rest) && IsPlate(pieces.between);
}

// Works on the copy until it is sure; then walls, the new plate behind the last, the old one, all codes.
bool CutPlate(int plak, const CutLine &line, Kesisim &k) {
    Cut cut{plak, PlakTable[plak], 0, 0, {}};
    Pieces pieces;
    if (!FindCut(cut, line, k) || !MakePieces(cut, PlakCount + 1, pieces))
        return false;
    PlakRecord &cutOff = PlakTable[PlakCount + 1];
    for (const Cut::WallSplit &split : cut.walls)
        PanelBol(split.kod, split.at.x, split.at.y);
    cutOff = pieces.between;
    PlakTable[plak] = pieces.rest;
    ++PlakCount;
    KomsulukKur(MeshWidth());
    return true;
}

} // namespace

void PlakKes(const CutLine &line, int &degisti, MeshWindow &window) {
    Kesisim k;
    const int plates = PlakCount; // pieces cut off on the way are not cut again
    for (int plak = 1; plak <= plates; ++plak)
        if (CutPlate(plak, line, k))
            degisti = 1;
    if (degisti > 0)
        window.RebuildPlateList();
}

// The pieces change places by way of record 0, which is blank again afterwards.
void PlakKoseKes(int plak, int a, int b, int &sonuc) {
    Cut cut{plak, PlakTable[plak], a, b, {}};
    Pieces pieces;
    if (!MakePieces(cut, PlakCount + 1, pieces))
        return;
    PlakTable[PlakCount + 1] = pieces.rest;
    PlakTable[plak] = pieces.between;
    ++PlakCount;
    sonuc = 2;
    KomsulukKur(MeshWidth());
}

} // namespace havuz
