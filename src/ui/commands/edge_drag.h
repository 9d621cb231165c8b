// One step of dragging what the pointer caught: edges and points in plan, levels in the rotated view. Writes plates,
// panels, the rubber lines pol and the note Label1. Pixels of SCR.
#pragma once

#include "ui/window/workbench.h"

namespace havuz {

// Moves the first four caught items to where (x, y) asks. The first step of a drag (SurukleBasladi 0) keeps where each
// began: plates whole in record PlakCount + item + 5 of PlakTable, the ends of the edge in outline slots n + 2, n + 3,
// its direction in X(0); panels in DraggedPanel. A plate of more than four points is split there, so that the edge goes
// with the two points beside it and the rest stays. Subscript: a plate of more than 197 points, more than 91 plates.
void KenarSurukle(Workbench &bench, double x, double y);

} // namespace havuz
