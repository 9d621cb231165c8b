// The meshed tank as input of CalculiX: S8R shells (S6 where a mesh has three corners) with nodes of their own in the
// middle of the sides, springs to the ground, supports, places that hang on an edge as equations, a step for each load
// case. Runs in CalculiX 2.20 as it is. Units: m, t, t/m2.
#pragma once

#include "export/shell_model.h"

#include <string>

namespace havuz {

std::string CalculixText(const ShellModel &model);

} // namespace havuz
