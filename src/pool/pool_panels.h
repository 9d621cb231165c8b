// What the two generators of the pool library share. Private to src/pool.
#pragma once

#include "model/dead_load.h"
#include "model/store.h"

namespace havuz {

// Bk over the mesh width (m), 1 when that is under 1; not rounded.
double StripDivisions(double width);

void GenerateRectangularPool(double width);
void GenerateCircularPool(double width);

} // namespace havuz
