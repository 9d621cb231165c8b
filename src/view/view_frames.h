// What both drawings tell the main window when they make their view the current one.
#pragma once

#include "view/view_window.h"

namespace havuz {

// Sets GorunusModu (1 plate view, 2 mesh view), shows the tools of that view and hides those of the other.
void TakeView(int gorunusModu, ViewWindow &window);

} // namespace havuz
