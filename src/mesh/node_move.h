// The end of a node move by the pointer: the listed meshes take another node, or the node takes a new place.
#pragma once

namespace havuz {

// Ends the move of node SeciliNo at pixel (x, y) of the mesh view. Over a node, the listed meshes (NeighbourMeshList)
// take that node in place of SeciliNo, which stays in the table with no mesh; elsewhere SeciliNo moves on its panel.
void FinishNodeMove(double x, double y);

} // namespace havuz
