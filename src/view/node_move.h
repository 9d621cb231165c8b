// Moving a node of the mesh by the pointer: onto another node, or to a new place on its panel.
#pragma once

#include "view/surface.h"
#include "view/view_window.h"

namespace havuz {

// Lists the meshes around node SeciliNo and their neighbour nodes (15 at most), and shows a rubber line to each of
// these.
void BeginNodeMove(ViewWindow &window);

// Ends the move of node SeciliNo at pixel (x, y). Over a node, the listed meshes take that node in place of SeciliNo,
// which stays in the table with no mesh; elsewhere SeciliNo moves. Draws the mesh view.
void FinishNodeMove(double x, double y, Surface &scr, ViewWindow &window);

} // namespace havuz
