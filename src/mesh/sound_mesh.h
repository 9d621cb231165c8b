// The sound mesher: conforming quadrilaterals for panels, plates of any simple outline and circular library pools. It
// stands beside the literal meshers of panel_mesh.h and oto_mesh.h and fills the same tables. Lengths in m.
// docs/meshing.md tells the method, its sources and why it ends.
#pragma once

#include "mesh/mesh_window.h"
#include "model/failure.h"

#include <string>
#include <vector>

namespace havuz {

struct SoundOptions {
    double width = 0.0; // mesh width; 0: MeshGenisligi, and panels without plates keep their Nx, Ny
    double foot =
        0.0; // height of the first row at wall feet and corners; 0: no finer rows. With it panels follow the width
};

// What did not find a place in the new mesh, a sentence each: supports, point loads, meshes that had been switched off.
using SoundLosses = std::vector<std::string>;

// Replaces NoktaTable, MeshTable and NokYukTable by a sound mesh of the model, numbered for a short profile; sets Nx,
// Ny of panels, and G of polygon walls that have none. Edge supports come from the panels; node supports and point
// loads go over to nodes within 1 mm of their old place. The tables stay as they were when it fails: BadShape
// with the plate or panel whose outline cannot be meshed, BadNumber with a width that is no length, Subscript with the
// least width that fits for one that is too fine, DivisionByZero for MeshGenisligi 0.
SoundLosses SoundMesh(MeshWindow &window, const SoundOptions &options);

} // namespace havuz
