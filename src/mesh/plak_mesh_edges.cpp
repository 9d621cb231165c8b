// Plate meshing, middle steps: grid points nearest the outline move onto its edges, each corner takes the nearest grid
// point, and inside points next to moved ones are centred. Plan m.
//
// Pulling: a grid point that is not, with its four neighbours, all inside or all outside lies at the outline. For every
// edge e a probe of one step goes from it across the edge - along Y for an edge that is longer in X than in Y, else
// along X - to the side that its neighbours tell. Where the probe crosses the edge at a place c
//   |c - P| < h/2     P itself moves to c,
//   else              the next grid point in the way of the probe does,
// takes edge e as its code and state 2. So a point moves by about half a step at most.
// Example: columns at 5.3 and 6.3, step 1, an edge along Y. At X = 5.5 the crossing is 0.2 from the inside point
// at 5.3, which moves to it; at X = 5.9 it is 0.6 away, and the outside point at 6.3 becomes a point of the mesh there,
// so that the last column of cells is between a half and one and a half steps wide. Pinning: corner k of the outline
// takes the grid point that is nearest now, whatever its state; it takes the place of the corner, code -k and state 3.
// Easing: a free point between a moved one and a kept one, on the side of the higher state, goes halfway between the
// two along that axis, so that cells beside the outline keep about one width:
//   X(near) = (X(P) + X(far)) / 2.
// One pass each, in the order of the grid: what a pass has moved the rest of it sees moved.
#include "mesh/plak_mesh_work.h"
#include "model/arithmetic.h"

#include <cmath>

namespace havuz {

// The way each probe goes, +1 or -1. Where no rule says which, the way of the probe before stays: wanted.
struct ProbeWay {
    int dirI = 0, dirJ = 0;
};

static bool AllAroundAlike(PlakMeshWork &w, int i, int j) {
    const int a = w.Durum(i, j) == Inside;
    const int c1 = a + (w.Durum(i + 1, j) == Inside) + (w.Durum(i - 1, j) == Inside);
    const int c2 = a + (w.Durum(i, j + 1) == Inside) + (w.Durum(i, j - 1) == Inside);
    return c1 + c2 == 0 || c1 + c2 == 6;
}

// Below any state above 0 counts, to the left only state 1: wanted, also in the next procedure.
static void ChooseWayAlongY(PlakMeshWork &w, int i, int j, ProbeWay &way) {
    const int out = w.Durum(i, j) > 0 ? 1 : -1;
    if (w.Durum(i, j - 1) > 0)
        way.dirJ = out;
    else if (w.Durum(i, j + 1) == Inside)
        way.dirJ = -out;
}

static void ChooseWayAlongX(PlakMeshWork &w, int i, int j, ProbeWay &way) {
    const int out = w.Durum(i, j) > 0 ? 1 : -1;
    if (w.Durum(i - 1, j) == Inside)
        way.dirI = out;
    else if (w.Durum(i + 1, j) == Inside)
        way.dirI = -out;
}

// Grid point (i, j) takes a place on an edge: the number of its point, or 0 when it holds an edge or corner already.
static int TakePlaceOnEdge(PlakMeshWork &w, int i, int j) {
    int p = 0;
    if (w.Durum(i, j) == Outside)
        p = w.newPointAt(i, j);
    else if (w.Durum(i, j) == Inside)
        p = w.GridNo(i, j);
    if (p > 0)
        w.Durum(i, j) = OnEdge;
    return p;
}

// One grid point against edge e. A crossing nearer than half a step moves the point itself, a farther one the next grid
// point in the way of the probe. Where neither moves, scratch point 0 takes the crossing.
static void PullOntoEdge(PlakMeshWork &w, int i, int j, int e, ProbeWay &way, Kesisim &k) {
    const PlanPoint from = w.outline(e), to = w.outline(e + 1);
    int ni = i, nj = j;
    if (std::fabs(from.x - to.x) > std::fabs(from.y - to.y)) {
        ChooseWayAlongY(w, i, j, way);
        nj = j + way.dirJ;
    } else {
        ChooseWayAlongX(w, i, j, way);
        ni = i + way.dirI;
    }
    DogruKesisimi(w.grid(i, j), w.grid(ni, nj), from, to, k);
    if (k.kod != 2)
        return;
    const PlanPoint hit{k.xi, k.yi};
    int p = 0;
    if (PlanDistance(hit, w.grid(i, j)) < w.h / 2) {
        if (w.Durum(ni, nj) < OnEdge)
            p = TakePlaceOnEdge(w, i, j);
    } else if (w.Durum(i, j) < OnEdge) {
        p = TakePlaceOnEdge(w, ni, nj);
    }
    w.put(p, hit, e);
}

void PullOntoEdges(PlakMeshWork &w) {
    ProbeWay way;
    Kesisim k;
    for (int i = 1; i <= w.imax - 1; ++i) {
        for (int j = 1; j <= w.jmax - 1; ++j) {
            if (AllAroundAlike(w, i, j))
                continue;
            for (int e = 1; e <= w.n; ++e)
                PullOntoEdge(w, i, j, e, way, k);
        }
    }
}

// Of a grid point in use its own place, else that of the grid.
static PlanPoint PlaceNow(PlakMeshWork &w, int i, int j) {
    return w.Durum(i, j) > 0 ? w.point(w.GridNo(i, j)) : w.grid(i, j);
}

// A place that is off by the least distance on one axis alone cannot be nearer: most places fall out there.
static void PinCorner(PlakMeshWork &w, int corner) {
    const PlanPoint at = w.outline(corner);
    double nearest = 1000.0;
    int ni = 0, nj = 0;
    for (int i = 0; i <= w.imax; ++i) {
        for (int j = 0; j <= w.jmax; ++j) {
            const PlanPoint place = PlaceNow(w, i, j);
            if (std::fabs(place.x - at.x) >= nearest || std::fabs(place.y - at.y) >= nearest)
                continue;
            const double d = PlanDistance(place, at);
            if (d < nearest) {
                nearest = d;
                ni = i;
                nj = j;
            }
        }
    }
    if (w.imax < 0 || w.jmax < 0)
        return;
    const double last = PlanDistance(PlaceNow(w, w.imax, w.jmax), at);
    if (!(last < 1000.0)) // of the last grid point, not of the nearest: wanted
        return;
    const int p = w.Durum(ni, nj) == Outside ? w.newPointAt(ni, nj) : w.GridNo(ni, nj);
    w.Durum(ni, nj) = OnCorner;
    w.put(p, w.outline(corner), -corner);
}

void PinCorners(PlakMeshWork &w) {
    for (int corner = 1; corner <= w.n; ++corner)
        PinCorner(w, corner);
}

// The grid point one step (di, dj) from (i, j) goes halfway to the one two steps away, along that axis alone.
static void Centre(PlakMeshWork &w, int i, int j, int di, int dj) {
    const int p = w.GridNo(i, j), near = w.GridNo(i + di, j + dj), far = w.GridNo(i + 2 * di, j + 2 * dj);
    if (di != 0)
        w.gx(near) = (w.gx(p) + w.gx(far)) / 2.0;
    else
        w.gy(near) = (w.gy(p) + w.gy(far)) / 2.0;
    w.gk(near) = 0;
}

// The far one is in use, the near one not yet on an edge or corner.
static bool MayCentre(PlakMeshWork &w, int i, int j, int di, int dj) {
    return w.Durum(i + 2 * di, j + 2 * dj) > 0 && w.Durum(i + di, j + dj) < OnEdge;
}

// Towards the side of the higher state. No neighbour is looked at two steps before the third row.
static void EaseAlong(PlakMeshWork &w, int i, int j, int di, int dj) {
    if (w.Durum(i - di, j - dj) < w.Durum(i + di, j + dj)) {
        if (MayCentre(w, i, j, di, dj))
            Centre(w, i, j, di, dj);
    } else if (i * di + j * dj > 2 && MayCentre(w, i, j, -di, -dj)) {
        Centre(w, i, j, -di, -dj);
    }
}

void EasePoints(PlakMeshWork &w) {
    for (int i = 1; i <= w.imax - 1; ++i) {
        for (int j = 1; j <= w.jmax - 1; ++j) {
            if (w.Durum(i, j) < OnEdge)
                continue;
            EaseAlong(w, i, j, 1, 0);
            EaseAlong(w, i, j, 0, 1);
        }
    }
}

} // namespace havuz
