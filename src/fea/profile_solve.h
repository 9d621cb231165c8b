// Elimination without pivot search on the symmetric profile, skipping zero entries of each pivot row, and back
// substitution, for all load columns together.
#pragma once

#include "fea/analysis_window.h"

namespace havuz {

// Solves K*x = -Rhs. S becomes the eliminated matrix, Rhs the solution. Factors, sums and products are doubles, every
// store into S and Rhs is cut to 32 bits. A pivot of exactly 0 is passed, its row giving 0; a near-zero pivot is used
// as it stands. A value that leaves the 32-bit range is Overflow, naming the equation.
void ProfileSolve(AnalysisWindow &window);

} // namespace havuz
