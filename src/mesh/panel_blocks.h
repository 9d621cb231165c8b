// Steps of the panel meshing that panel_mesh.cpp calls in their order. Private to src/mesh.
#pragma once

namespace havuz {

void ClearMeshTables();
void MakePanelBlocks();
void JoinCornersOnCorners();
void JoinCornersOnEdges();
void JoinEdgesOnEdges();

} // namespace havuz
