// The pictures of the report as vector drawings of the page's width: plan, section with levels, mesh, contours of a
// result on a panel laid flat, and the steel of a panel by zones. Words Turkish, numbers with comma and unit.
#pragma once

#include "report/result_picture.h"
#include "view/svg_canvas.h"

#include <string>
#include <vector>

namespace havuz::report {

constexpr double kPageWidth = 640.0; // pixels, 96 to the inch: A4 less its margins

// Walls cut at half their height, the outline of the floors, the greatest lengths.
SvgCanvas PlanPicture(const consistent::Tank &tank);

// Cut along X through the middle, with the levels of liquid, soil and groundwater.
SvgCanvas SectionPicture(const consistent::Tank &tank);

// All meshes seen from above at an angle, the farther ones first.
SvgCanvas MeshPicture(const consistent::Tank &tank);

// Contours of a result on a panel laid flat, with their legend; the greatest and the least value marked.
SvgCanvas ContourPicture(const consistent::Analysis &analysis, const consistent::CaseResult &result,
                         const Quantity &quantity, int panel);

// Zones with a bar of each, for each face and direction; wider than the page, to be shown at its width.
SvgCanvas SteelPicture(const consistent::Tank &tank, int panel, const std::vector<design::SteelRow> &rows);

} // namespace havuz::report
