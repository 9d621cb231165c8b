// What a model that cannot stand is told: which node, which direction, what is not held.
#pragma once

#include "consistent/factor.h"

namespace havuz::consistent {

// bed: spring of each project node, t/m. A piece of the model with neither bed nor support is an AnalysisFailure.
void RequireFooting(const Tank &tank, const Freedoms &freedoms, const std::vector<double> &bed);

// A factor with a lost equation is an AnalysisFailure by the motion that nothing resists.
void RequireStanding(const Tank &tank, const Freedoms &freedoms, const Factor &factor);

} // namespace havuz::consistent
