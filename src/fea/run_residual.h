// How well the solution of a run solves its own equations: a measure that needs no other analysis.
#pragma once

#include "fea/run_loads.h"

#include <string>
#include <vector>

namespace havuz {

// Above this the moments of a column are not to be trusted.
constexpr double kGreatestResidual = 0.002;

// |f - K u| / |f| of each column (2-norms over all equations) in doubles: u from project.DEP, K and f from the
// elements, springs and loads of the run. 0 for a column without load. A file that ends early is File.
std::vector<double> RunResiduals(const std::string &project, const std::vector<RunColumn> &columns);

} // namespace havuz
