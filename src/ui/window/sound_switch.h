// The switch in the top bar that asks "auto mesh" for the sound mesher. Off at first; the desktop remembers it.
#pragma once

#include "ui/window/element.h"

namespace havuz {

inline constexpr Element kSoundSwitch{kMain, "Tutarli", 0};

} // namespace havuz
