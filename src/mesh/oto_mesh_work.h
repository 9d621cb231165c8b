// The edge nodes under walls, from which the automatic driver raises the walls. Only the oto_mesh files use it.
#pragma once

#include <vector>

namespace havuz {

struct StripEntry {
    int node = 0;
    int panel = 0; // the wall that stands on the edge
    int group = 0; // entries of one node share it; for the diagnostic list
    int plak = 0;  // plate of the edge, to name it in a failure
};

// Entries 1..count in plate order, edge order, then along the edge. Entry 0 and the one behind the last are blank.
using StripList = std::vector<StripEntry>;

// Meshes of all walls above the foot nodes of the list (oto_mesh_walls.cpp).
void RaiseWalls(const StripList &strips);

// Joins nodes above c0 that lie within 0.1 m of each other, closes the gaps they leave and renumbers the corners of
// meshes above m0 (oto_mesh_walls.cpp).
void JoinWalls(int c0, int m0);

} // namespace havuz
