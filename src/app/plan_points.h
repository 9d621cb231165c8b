// Plan points as the command line takes them: "x,y x,y ...", metres.
#pragma once

#include "mesh/plane_geometry.h"

#include <string>
#include <vector>

namespace havuz {

// Text that is no list of points is UsageError.
std::vector<PlanPoint> ParsePlanPoints(const std::string &text);

} // namespace havuz
