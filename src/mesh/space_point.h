// Points in space, m, and the little vector arithmetic that the mesh files need.
#pragma once

#include "model/arithmetic.h"
#include "model/store.h"

namespace havuz {

struct SpacePoint {
    double x = 0.0, y = 0.0, z = 0.0;
};

inline SpacePoint Minus(SpacePoint a, SpacePoint b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline SpacePoint Along(SpacePoint a, SpacePoint b, double t) {
    return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), a.z + t * (b.z - a.z)};
}
inline SpacePoint Cross(SpacePoint a, SpacePoint b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double Dot(SpacePoint a, SpacePoint b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline double Length(SpacePoint a) { return Distance3(a.x, a.y, a.z); }
inline double SpaceDistance(SpacePoint a, SpacePoint b) { return Distance3(a.x - b.x, a.y - b.y, a.z - b.z); }

inline SpacePoint NodePlace(int node) { return {NoktaTable[node].X, NoktaTable[node].Y, NoktaTable[node].Z}; }
inline SpacePoint PanelCorner(const PanelRecord &panel, int k) { return {panel.X[k], panel.Y[k], panel.Z[k]}; }
inline SpacePoint PlakPoint(const PlakRecord &plate, int k) { return {plate.X[k], plate.Y[k], plate.Z[k]}; }

} // namespace havuz
