// Moving a node of the mesh by the pointer: what lies around it, and the place that the pointer means. The move itself
// stands in mesh/node_move.h.
#pragma once

#include "model/points.h"
#include "view/view_window.h"

namespace havuz {

// Lists the meshes around node SeciliNo and their neighbour nodes (15 at most), and shows a rubber line to each of
// these.
void BeginNodeMove(ViewWindow &window);

// The place in plan, m, that pixel (x, y) of the mesh view means on a panel.
PlanPoint PlaceUnderPointer(const PanelRecord &panel, double x, double y);

} // namespace havuz
