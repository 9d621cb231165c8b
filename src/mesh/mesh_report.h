// What is wrong with a mesh as it stands, in words for an engineer: torn, overlapping or unfinished places. It reads
// panels, plates, meshes and nodes alone, so that a project read from its file gives the same report as the command
// that meshed it, and it changes nothing. Lengths in m.
#pragma once

#include <string>
#include <vector>

namespace havuz {

// One line for each warning, with the plate, wall, mesh or node and its place; of many alike the first few and their
// number. Empty for a mesh without a fault. Warnings:
//   a plate's meshes cover more than 0.5 % more or less than its own area in plan, leave its outline or lose a corner;
//   meshes without area, folded, overlapping, using a node twice, or naming a node (node 0) or an owner that is not
//   there; a thickness of an owner, or the density of liquid or soil, that is not above 0;
//   two nodes in one place, nodes of no mesh; panels without a mesh or with meshes beside them; open joints of panels
//   and plates; divisions that were raised after the mesh was made.
std::vector<std::string> MeshReport();

// The same warnings for a picture: each kind that the report has, in Turkish, with the meshes that it stands at,
// rising. A kind without a mesh (a thickness, a panel without meshes) has none.
struct MeshFault {
    std::string turkish; // "katlanmış"
    std::vector<int> meshes;
};
std::vector<MeshFault> MeshFaults();

// Whether every corner of every active mesh is a node: without that there can be no analysis.
bool EveryCornerIsANode();

} // namespace havuz
