// A combination as the sum of its cases on a bed with tension: the same numbers as a solution of the sum, without one.
#pragma once

#include "consistent/analysis.h"

#include <vector>

namespace havuz::design {

// cases: solutions of all load cases in the order of kAllCases. The residual is a bound: the residual forces of the
// cases added by their sizes, over the loads of the sum.
consistent::CaseResult Superpose(const consistent::Analysis &analysis, const std::vector<consistent::CaseResult> &cases,
                                 const consistent::Combination &combination);

} // namespace havuz::design
