// The plate view: panels and plates as filled polygons.
#pragma once

#include "view/surface.h"
#include "view/view_window.h"

namespace havuz {

// Bounding record and depth order of panels and plates, and the fit of the plate view. In the rotated view it draws the
// axis mark, which sets the eye point.
void PlateBoundsAndDepth(Surface &scr);

// Draws the plate view and makes it the current one. While a line is being drawn (CommandState 10) the transform stays.
void DrawPlateView(Surface &scr, ViewWindow &window);

} // namespace havuz
