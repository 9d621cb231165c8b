// What the two generators of the pool library share. Private to src/pool.
#pragma once

#include "model/dead_load.h"
#include "model/store.h"

namespace havuz {

// Bk over the mesh width, 1 when that is under 1; not rounded.
double StripDivisions();

void GenerateRectangularPool();
void GenerateCircularPool();

} // namespace havuz
