// Points by the keyboard: while a command waits for a point, the entry beside the prompt takes one as text. m, degrees.
#pragma once

#include "ui/window/workbench.h"

#include <string>

namespace havuz {

// Whether a command waits for a point that can be typed.
bool AwaitsPoint();

// "8,5;3" places the point (8.5, 3) as a press there does, exactly and without snapping; "@2;0" counts from the last
// point, "@3<90" by length and angle, against the clock from the X axis. Text that is none of these is told of in the
// prompt line and stays.
void PlaceTypedPoint(Workbench &bench);

// A key in the entry: Enter places, and in an empty one ends the command; Escape leaves it for the surface.
bool OnEntryKey(Workbench &bench, Key key);

// A key on the surface: Enter and Escape end the armed command as the right button does. False when nothing is armed.
bool OnSurfaceKey(Workbench &bench, Key key);

} // namespace havuz
