// Steps of the panel meshing that panel_mesh.cpp calls in their order. Private to src/mesh.
#pragma once

namespace havuz {

enum NodeKind { kInterior = 0, kEdge = 1, kCorner1 = 3, kCorner2 = 4, kCorner4 = 5, kCorner3 = 6 }; // Tur of a node

void ClearMeshTables();
void MakePanelBlocks();
void JoinCornersOnCorners();
void JoinCornersOnEdges();
void JoinEdgesOnEdges();

} // namespace havuz
