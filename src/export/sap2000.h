// The meshed tank as tables of SAP2000 (".s2k"): joints, areas, sections, restraints, springs, load patterns with joint
// loads. Units: m, t. Numbers at 12 digits.
#pragma once

#include "export/shell_model.h"

#include <string>

namespace havuz {

// Where nodes hang on an edge the areas take SAP2000's own edge constraint.
std::string Sap2000Text(const ShellModel &model);

} // namespace havuz
