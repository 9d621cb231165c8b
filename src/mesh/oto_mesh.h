// Automatic mesh driver: the whole mesh of a model that has plates. Plates are meshed first; the walls that stand on
// their edges rise column by column from the very nodes that the plate mesh put there; then nodes are numbered.
// Coordinates and levels in metres.
#pragma once

#include "mesh/mesh_window.h"

namespace havuz {

constexpr int kStripCapacity = 1000; // edge nodes under walls
constexpr int kEdgeNodes = 100;      // nodes of one plate edge
constexpr int kWallGrid = 20;        // nodes along the foot of a wall; rows of nodes

// Replaces NoktaTable, MeshTable and NokYukTable; sets Nx (foot nodes) and Ny (mesh rows) of every panel. Besides the
// failures of PlakMeshle: Subscript, naming plate or wall, past one of the limits above; DivisionByZero for a wall with
// a foot of no length and for a mesh width of 0.
void OtoMesh(double width, MeshWindow &window);

// What "auto mesh" does: PanelMeshle, NoktaNumarala and the mesh view for a pool of the library (HavuzTip below 2)
// without plates, OtoMesh at MeshGenisligi for any other model.
void AutoMesh(MeshWindow &window);

} // namespace havuz
