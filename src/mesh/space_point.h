// The little vector arithmetic that the mesh files need beside that of model/points.h.
#pragma once

#include "model/points.h"

namespace havuz {

inline SpacePoint Minus(SpacePoint a, SpacePoint b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline SpacePoint Along(SpacePoint a, SpacePoint b, double t) {
    return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), a.z + t * (b.z - a.z)};
}
inline double Length(SpacePoint a) { return Distance3(a.x, a.y, a.z); }
inline double SpaceDistance(SpacePoint a, SpacePoint b) { return Distance3(a.x - b.x, a.y - b.y, a.z - b.z); }

} // namespace havuz
