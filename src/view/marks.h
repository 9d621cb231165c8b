// Small marks on the drawings: labels, the axis mark, arrows of point loads, displacements. Colours are QB colours.
#pragma once

#include "view/displacements.h"
#include "view/projection.h"
#include "view/surface.h"

#include <string>

namespace havuz {

// Small text whose foot stands at (x, y).
void DrawLabel(Surface &scr, const std::string &text, double x, double y, int colour);

// The axes in the bottom right corner. In the rotated view it sets the eye point as well, from which depths are
// measured.
void DrawAxisMark(Surface &scr);

// The point load of a node as an arrow of 30 pixels down to it; nothing without a load, and in plan.
void DrawPointLoadArrow(Surface &scr, int node);

// The displacement of a node in a load case: its plan part as a line with its length in mm, then its vertical part.
void DrawDisplacement(Surface &scr, int node, const LoadCase &result);

} // namespace havuz
