// A polygon pool: a base plate of any outline with a wall on each of its edges.
#pragma once

#include "mesh/plane_geometry.h"

#include <vector>

namespace havuz {

struct PolygonPool {
    std::vector<PlanPoint> points;     // outline in order, m
    double dp = 0.0, ds = 0.0;         // wall and base thickness, cm
    double UstKot = 0.0, AltKot = 0.0; // top and bottom level, m
};

// Appends the pool to the model: one plate and a wall for each edge; sets UstKot and AltKot. The link codes number the
// walls from 1, whatever panels stand before them, and do not close the ring at the last wall: wanted. Subscript past
// 200 points or the tables' ends.
void BuildPolygonPool(const PolygonPool &pool);

} // namespace havuz
