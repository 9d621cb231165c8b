// Node numbering: one node for each AnaNo, support flags merged, numbers chosen for a short skyline by a greedy moving
// of rows.
#pragma once

namespace havuz {

// Turns the raw nodes 1..HamNoktaCount into the final NoktaTable 1..NoktaCount and rewrites the corners of all meshes.
// More than 20 neighbour entries in a row (11 active meshes at a node) is Subscript.
void NoktaNumarala();

} // namespace havuz
