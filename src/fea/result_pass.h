// The passes of the analysis behind the solution: displacements of the nodes into ".DEP", corner results of the meshes
// into ".SON" (docs/file-formats.md). Private to the driver and its tests. Units: m, rad; t/m2, t.m/m, t/m.
#pragma once

#include "fea/record_file.h"

namespace havuz {

// Displacements of every node: the solution, or exactly 0 for a held freedom.
void WriteDisplacements(RecordFile &dep);

// Corner results of every mesh in every column, by the element of ElementSwitch; 0 for a switched-off mesh and for the
// columns above YukSayisi.
void StressPass(double E, RecordFile &son);

} // namespace havuz
