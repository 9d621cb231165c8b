// Foundation springs: the elastic bed of the structure as one spring a node.
#pragma once

namespace havuz {

// Rebuilds Yay of all nodes (t/m): ZeminKo times the plan area that each mesh on the foundation gives its four nodes.
// Springs stand under panels of Tip 0 and under all plate meshes; a mesh with Sil above 0 gives none. Reads MeshTable,
// PanelTable, writes NoktaTable. Does nothing without nodes or meshes.
void SpringStiffness();

// Absolute plan area of a mesh by the shoelace rule over X and Y, m2; heights take no part.
double MeshPlanArea(int mesh);

} // namespace havuz
