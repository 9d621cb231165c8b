// What the two generators of the pool library share. Private to src/pool.
#pragma once

#include "model/store.h"

namespace havuz {

// Bk over the mesh width, 1 when that is under 1; not rounded.
double StripDivisions();

// Dead area load of a panel of thickness t cm, t/m2 (concrete at 2.5 t/m3).
double PanelDeadLoad(double t);

void GenerateRectangularPool();
void GenerateCircularPool();

} // namespace havuz
