// Foundation springs: the elastic bed of the structure as one spring a node.
#pragma once

#include "model/fields.h"

#include <vector>

namespace havuz {

// The springs that the model has now, element n that of node n (1..NoktaCount), t/m; the nodes keep theirs. A mesh that
// names a node outside its table is Subscript.
std::vector<Float32> FoundationSprings();

// Rebuilds Yay of all nodes (t/m): ZeminKo times the plan area that each mesh on the foundation gives its four nodes.
// Springs stand under panels of Tip 0 and under all plate meshes; a mesh with Sil above 0 gives none. Reads MeshTable,
// PanelTable, writes NoktaTable. Does nothing without nodes or meshes.
void SpringStiffness();

// Absolute plan area of a mesh by the shoelace rule over X and Y, m2; heights take no part.
double MeshPlanArea(int mesh);

} // namespace havuz
