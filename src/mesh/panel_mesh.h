// Panel meshing: every panel becomes a block of raw nodes and four-node meshes, and the blocks are joined by giving
// nodes the same AnaNo. Lengths in m; distances are worked out from the stored 32-bit coordinates.
#pragma once

#include "mesh/mesh_window.h"

namespace havuz {

// Meshes PanelTable into NoktaTable and MeshTable, whose earlier contents go, with those of NokYukTable. Sets
// HamNoktaCount and MeshCount; raises Nx, Ny of panels whose neighbours need it, for the next run. NoktaNumarala
// follows. Nx or Ny of 0 is DivisionByZero, more than 5000 nodes or meshes Subscript, more than 500 panels Subscript.
void PanelMeshle(MeshWindow &window);

// Removes raw nodes that no active mesh uses; renumbers N1..N4 of active meshes and AnaNo.
void NoktaSikistir();

// Raises Nx, Ny of panels on whose edges nodes of other panels found no partner. Sets degisti to 1 then, and leaves it
// alone otherwise. Marks partners in YeniNo.
void PanelSayiUyumu(int &degisti);

} // namespace havuz
