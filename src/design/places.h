// Where a mesh lies in its panel as an engineer draws steel: foot, span, top, corner; and how far its corners are from
// the lines that hold the panel. Lengths in m. Built once from the tank.
#pragma once

#include "consistent/tank.h"

#include <array>
#include <vector>

namespace havuz::design {

// Zones of a wall: its vertical bars (direction 2) change over the height: foot (lower quarter), span, top (upper
// quarter); its horizontal bars along the length: corner (a quarter of the length, at most half the height, from an end
// that another wall holds), span. A round wall has foot, span and top in both directions. A floor has foot (the strip
// of a quarter of its lesser side along the walls) and span; a strip is all top.
enum class Zone { Foot, Span, Corner, Top };
constexpr std::array<Zone, 4> kZones = {Zone::Foot, Zone::Span, Zone::Corner, Zone::Top};
const char *NameOf(Zone zone);        // "foot"
const char *TurkishNameOf(Zone zone); // "dip"

struct MeshPlace {
    std::array<Zone, 2> zone{};        // for bars along 1 and 2
    std::array<double, 4> toSupport{}; // of the corners, in the stored order; infinite where nothing holds the panel
};

// In the order of Tank::meshes.
std::vector<MeshPlace> FindPlaces(const consistent::Tank &tank);

// Size of a panel: plan box of a floor; of a wall its length around, its height and its lowest point.
struct PanelSize {
    double length = 0, width = 0; // m; a wall's width is its height
    double lowest = 0, highest = 0;
};
PanelSize SizeOf(const consistent::Tank &tank, int panel);

} // namespace havuz::design
