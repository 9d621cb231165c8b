// Assembly: element matrices and loads of STIF001, springs, point loads and pressures into S and Rhs.
#pragma once

#include "fea/analysis_window.h"
#include "fea/record_file.h"

namespace havuz {

// Fills S(1..ProfileSize) and Rhs(1..RhsSize) from nothing; sums are cut to 32 bits at each addition. Shows
// "Mesh eleman no:" and the number for each mesh.
void AssembleSystem(const RecordFile &stif, AnalysisWindow &window);

} // namespace havuz
