// What the pointer catches of panels and plates in the plate view: the panel or plate under it, the edges and points
// near it. Pixels of SCR; writes the edge state (ui/window/command_state.h) and the note Label1.
#pragma once

#include "model/store.h"
#include "ui/window/workbench.h"
#include "view/projection.h"

namespace havuz {

// SelectedPanel becomes the first panel that encloses (x, y), else 1000 + the first such plate, else 0.
void PlakAra(Workbench &bench, double x, double y);

// Lists the edges within 5 pixels of (x, y); for an edge move, the points within 7 pixels instead where there are any.
// The shortest edge, or the last point, gives SelectedPanel, SeciliKenar and the marker.
void KenarAra(Workbench &bench, double x, double y);

// Shows a note beside the pointer, above the bottom of the surface.
void ShowNote(Workbench &bench, const std::string &text, double x, double y);

// An outline point as it lies in the plate view; a corner of a panel.
ScreenPoint PlatePointPixels(int plate, int point);
ScreenPoint PanelCornerPixels(int panel, int corner);

// The direction of (dx, dy) on the screen, counted from the right against the clock, 0..2 pi.
double ScreenDirection(double dx, double dy);

// Whether a panel stands upright in plan: corners 1 and 4 less than 0.01 m apart.
bool SeenOnEnd(const PanelRecord &panel);

} // namespace havuz
