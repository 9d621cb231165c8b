// Elimination without pivot search on the symmetric profile, skipping zero entries of each pivot row, and back
// substitution, for all load columns together.
#pragma once

#include "fea/analysis_window.h"
#include "fea/solve_kernels.h"

namespace havuz {

// Which kernels, and how many threads; null and 0: the best that this processor has, as many as are allowed and pay.
struct SolveMeans {
    const SolveKernels *kernels = nullptr;
    int threads = 0;
};

// Solves K*x = -Rhs. S becomes the eliminated matrix, Rhs the solution. Factors, sums and products are doubles, every
// store into S and Rhs is cut to 32 bits. A pivot of exactly 0 is passed, its row giving 0; a near-zero pivot is used
// as it stands. A value that leaves the 32-bit range is Overflow, naming the equation. Every stored bit is that of the
// plain procedure, row by row, whatever the means.
void ProfileSolve(AnalysisWindow &window, const SolveMeans &means = {});

} // namespace havuz
