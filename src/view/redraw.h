// The one call that draws whatever view is current.
#pragma once

#include "view/surface.h"
#include "view/view_window.h"

namespace havuz {

// The plate view when GorunusModu is 1, the mesh view when it is 2.
void Redraw(Surface &scr, ViewWindow &window);

} // namespace havuz
