// The panels of a tank laid flat with their steel by zones, as a drawing: DXF of AutoCAD release 12 in ASCII, which
// every drawing program reads. Lengths in m, walls side by side as one sees them unfolded, vertical bars (direction 2)
// above the horizontal ones.
#pragma once

#include "design/steel.h"

#include <string>
#include <vector>

namespace havuz::report {

// Layers: PANEL_n the outline of a panel and its name, PANEL_n_MESH its meshes, PANEL_n_d_ZONE the border of a zone of
// the bars of direction d (FOOT, SPAN, CORNER, TOP) and what was chosen there. Lines of a border run around the zone
// anti-clockwise, so that their sum gives its area. Windows-1254, lines ended by CR LF.
std::string SteelDxf(const consistent::Tank &tank, const std::vector<design::SteelRow> &rows);

} // namespace havuz::report
