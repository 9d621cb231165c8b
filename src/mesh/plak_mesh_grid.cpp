// Plate meshing, first steps: the outline and its bounds, the grid, and which grid points lie inside. Plan m.
//
// Grid: step h = 2 * (width / 2); point (i, j) lies at (x0 + i*h, y0 + j*h), with x0, y0 so that the start of the
// longest edge is a grid point and one spare row lies before the bounds on both axes, one behind them:
//   imax = Int((xmax - xmin)/h) + 2,   x0 = start.x - (Int((start.x - xmin)/h) + 1) * h,   y alike.
// A plate whose sides are whole multiples of the width so becomes its plain grid.
// Example: X from 0.3 to 5.5, the longest edge begins at 0.3, width 1: x0 = -0.7, imax = 7, points at -0.7, 0.3, 1.3,
// ... 5.3, 6.3. Those at 0.3 and 5.3 lie next to the outline and are pulled onto it by the step that follows.
// Inside test: from a grid point P a probe of 1000 m goes left and right, one down and up. For each direction a
// crossing with the outline is kept, A or B; P is inside when all four directions have one and it lies between opposite
// ones, |A P| + |P B| < |A B| + 0.1. That is a ray casting that asks for a hit in each direction instead of counting
// crossings (Shimrat 1962 counts): in a re-entrant corner it may call an outside point inside, wanted. Which crossing
// is kept is decided by its distance from the place in its slot, not from P: wanted.
#include "mesh/plak_mesh_work.h"
#include "model/arithmetic.h"

#include <algorithm>

namespace havuz {

constexpr int kScratchPlak = 10;     // the working copy lies this far behind the last plate
constexpr double kFarAway = 1000.0;  // m: start of minima and maxima, half length of a probe, first distance of a hit
constexpr double kInsideSlack = 0.1; // m: how far two opposite hits may miss the line through the point

// The closed working copy of the plate. The last point's Sonraki is that point itself: wanted.
static void FillScratchPlak(const PlakMeshWork &w) {
    if (PlakCount + kScratchPlak > kPlakCapacity)
        FailSubscript({{Thing::Plate, w.plak}}, Thing::WorkingCopy, PlakCount + kScratchPlak, kPlakCapacity);
    PlakRecord &plate = PlakTable[w.plak];
    PlakRecord &copy = PlakTable[PlakCount + kScratchPlak];
    copy = plate;
    copy.X[w.n + 1] = plate.X[w.n + 1] = plate.X[1];
    copy.Y[w.n + 1] = plate.Y[w.n + 1] = plate.Y[1];
    copy.X[0] = plate.X[w.n];
    copy.Y[0] = plate.Y[w.n];
    for (int k = 1; k <= w.n; ++k) {
        copy.Sonraki[k] = static_cast<std::uint8_t>(k < w.n ? k + 1 : k);
        copy.Onceki[k] = static_cast<std::uint8_t>(k > 1 ? k - 1 : w.n);
    }
}

// First lowest and first highest point count; a plate beyond 1000 m is not measured.
static void FindBounds(PlakMeshWork &w) {
    const PlakRecord &plate = PlakTable[w.plak];
    double zmin = kFarAway, zmax = -kFarAway;
    w.xmin = w.ymin = kFarAway;
    w.xmax = w.ymax = -kFarAway;
    for (int k = 1; k <= w.n; ++k) {
        const PlanPoint at = w.outline(k);
        const double z = plate.Z[k];
        if (at.x < w.xmin)
            w.xmin = at.x;
        if (at.x > w.xmax)
            w.xmax = at.x;
        if (at.y < w.ymin)
            w.ymin = at.y;
        if (at.y > w.ymax)
            w.ymax = at.y;
        if (z < zmin) {
            zmin = z;
            w.ZminNo = k;
        }
        if (z > zmax) {
            zmax = z;
            w.ZmaxNo = k;
        }
    }
}

void CopyOutline(PlakMeshWork &w) {
    const PlakRecord &plate = PlakTable[w.plak];
    w.n = plate.NoktaSayisi;
    if (w.n < 0 || w.n > kMeshedPlakPoints)
        FailSubscript({{Thing::Plate, w.plak}}, Thing::OutlinePoint, w.n, kMeshedPlakPoints);
    FillScratchPlak(w);
    w.OX.assign(static_cast<std::size_t>(w.n + 2), 0.0);
    w.OY = w.OX;
    for (int k = 0; k <= w.n + 1; ++k) {
        const int from = k == 0 ? w.n : k == w.n + 1 ? 1 : k;
        w.OX[static_cast<std::size_t>(k)] = plate.X[from];
        w.OY[static_cast<std::size_t>(k)] = plate.Y[from];
    }
    FindBounds(w);
}

// The first edge of the greatest length, 0 when all are points.
static int LongestEdge(const PlakMeshWork &w) {
    int longest = 0;
    double length = 0.0;
    for (int k = 1; k <= w.n; ++k) {
        const double d = PlanDistance(w.outline(k), w.outline(k + 1));
        if (d > length) {
            length = d;
            longest = k;
        }
    }
    return longest;
}

// Whole steps in a length. Two more of them, the spare rows, still lie on the grid.
static int WholeSteps(const PlakMeshWork &w, double length) {
    const double steps = Divide(length, w.h, Thing::MeshGenisligi);
    if (steps >= kPlakGrid - 1)
        FailSubscript({{Thing::Plate, w.plak}}, Thing::GridStep, static_cast<long long>(std::min(steps, 1e15)) + 2,
                      kPlakGrid);
    return FloorToWhole(steps);
}

void LayGrid(PlakMeshWork &w, double width) {
    if (w.xmax - w.xmin == 0.0 || w.ymax - w.ymin == 0.0)
        throw RuntimeFailure({.fault = Fault::NoPlanExtent, .where = {{Thing::Plate, w.plak}}});
    const PlanPoint start = w.outline(LongestEdge(w));
    w.h = 2 * (width / 2);
    w.imax = WholeSteps(w, w.xmax - w.xmin) + 2;
    w.jmax = WholeSteps(w, w.ymax - w.ymin) + 2;
    w.x0 = start.x + (-WholeSteps(w, start.x - w.xmin) - 1) * w.h;
    w.y0 = start.y + (-WholeSteps(w, start.y - w.ymin) - 1) * w.h;
    w.Durum.size(w.plak, Thing::GridDurum, w.imax, w.jmax);
    w.GridNo.size(w.plak, Thing::GridGridNo, w.imax, w.jmax);
    w.Hucre.size(w.plak, Thing::GridHucre, w.imax, w.jmax);
}

// What the four probes from one grid point met: 1 left, 2 right, 3 below, 4 above.
struct Hits {
    bool filled[5] = {};
    double distance[5] = {kFarAway, kFarAway, kFarAway, kFarAway, kFarAway};

    // A later hit in the same direction is measured from the place stored in the slot, not from the grid point: wanted.
    void take(int slot, PlanPoint hit) {
        const double d = PlanDistance(hit, StoredHits[static_cast<std::size_t>(slot)]);
        if (filled[slot] && !(d < distance[slot]))
            return;
        filled[slot] = true;
        distance[slot] = d;
        StoredHits[static_cast<std::size_t>(slot)] = hit;
    }
    bool all() const { return filled[1] && filled[2] && filled[3] && filled[4]; }
};

static bool Between(PlanPoint a, PlanPoint at, PlanPoint b) {
    return PlanDistance(a, at) + PlanDistance(b, at) < PlanDistance(a, b) + kInsideSlack;
}

// A probe that passes an edge's end by more than this cannot hit it: the crossing of the two lines lies at least so far
// beyond the end, and more than 0.005 m is off the edge. Most edges fall out here, before any division.
constexpr double kClearOfEdge = 0.05; // m

static bool MayMeet(double probe, double from, double to) {
    return probe >= std::min(from, to) - kClearOfEdge && probe <= std::max(from, to) + kClearOfEdge;
}

// Inside is a point that meets the outline in all four directions, on a straight line each: a point in a re-entrant
// corner may be inside too, wanted.
static bool LiesInside(const PlakMeshWork &w, PlanPoint at) {
    Hits hits;
    Kesisim k;
    for (int e = 1; e <= w.n; ++e) {
        const PlanPoint from = w.outline(e), to = w.outline(e + 1);
        if (MayMeet(at.y, from.y, to.y)) {
            DogruKesisimi({at.x - kFarAway, at.y}, {at.x + kFarAway, at.y}, from, to, k);
            if (k.kod == 2)
                hits.take(k.xi <= at.x ? 1 : 2, {k.xi, k.yi});
        }
        if (MayMeet(at.x, from.x, to.x)) {
            DogruKesisimi({at.x, at.y - kFarAway}, {at.x, at.y + kFarAway}, from, to, k);
            if (k.kod == 2)
                hits.take(k.yi <= at.y ? 3 : 4, {k.xi, k.yi});
        }
    }
    return hits.all() && Between(StoredHits[1], at, StoredHits[2]) && Between(StoredHits[3], at, StoredHits[4]);
}

void TestInside(PlakMeshWork &w) {
    for (int i = 0; i <= w.imax; ++i) {
        for (int j = 0; j <= w.jmax; ++j) {
            const PlanPoint at = w.grid(i, j);
            if (!LiesInside(w, at))
                continue;
            w.Durum(i, j) = Inside;
            w.put(w.newPointAt(i, j), at, 0);
        }
    }
}

} // namespace havuz
