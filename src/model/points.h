// A point in plan and a point, or vector, in space: double, m where they are places. Sums run x, y, z.
#pragma once

#include "model/arithmetic.h"
#include "model/store.h"

#include <cassert>

namespace havuz {

struct PlanPoint {
    double x = 0.0, y = 0.0;
};

struct SpacePoint {
    double x = 0.0, y = 0.0, z = 0.0;
    double operator()(int i) const { // component 1..3
        assert(i >= 1 && i <= 3);
        return i == 1 ? x : i == 2 ? y : z;
    }
};

inline double Dot(const SpacePoint &a, const SpacePoint &b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline SpacePoint Cross(const SpacePoint &a, const SpacePoint &b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline SpacePoint NodePlace(int node) { return {NoktaTable[node].X, NoktaTable[node].Y, NoktaTable[node].Z}; }
inline SpacePoint PanelCorner(const PanelRecord &panel, int k) { return {panel.X[k], panel.Y[k], panel.Z[k]}; }
inline SpacePoint PlakPoint(const PlakRecord &plate, int k) { return {plate.X[k], plate.Y[k], plate.Z[k]}; }

} // namespace havuz
