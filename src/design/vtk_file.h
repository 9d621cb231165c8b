// The results as a VTK XML file of an unstructured grid in ASCII, for viewers of other makers.
#pragma once

#include "design/checks.h"

#include <string>

namespace havuz::design {

// Points in the order of nodes.csv, active meshes as quadrilaterals. Points: U_case (m, three components) and SOIL_case
// (t/m2); cells: stress results at their centres as M11_case and so on, PANEL, MESH. The cases as in nodes.csv, with
// the combination of that key when one is given; an unknown key is a DesignFailure.
std::string VtkText(const consistent::Tank &tank, const Design &design, const std::string &combination);

} // namespace havuz::design
