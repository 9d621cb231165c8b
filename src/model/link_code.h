// Link codes: 16-bit numbers that pack the number of a panel or plate and the number of one of its edges or points.
// Every code is made and taken apart here.
//   KenarKomsu of a panel, KenarKodu of a plate: 100 * panel + edge, or -(100 * plate + edge), or 0 for a free edge.
//   PlakKodu of a node: 1000 * plate + edge, -(1000 * plate + corner), or -1000 * plate for an interior node.
//   PanelNo of a mesh: a panel number below 1000, or 1000 + plate.
#pragma once

#include "model/arithmetic.h"

namespace havuz {

constexpr int PanelLink(int panel, int edge) { return 100 * panel + edge; }
constexpr int PlateLink(int plate, int edge) { return -(100 * plate + edge); }

// Int(code / 100), the floor: the panel of a positive code. A negative code gives a number below 0.
inline int LinkPanel(int code) { return FloorToWhole(code / 100.0); }
inline int LinkEdge(int code) { return code - 100 * LinkPanel(code); }

// Node code from the place of the node: 0 inside the plate, +e on its edge e, -c at its corner c.
constexpr int NodePlakKodu(int plate, int place) { return (place > 0 ? 1000 : -1000) * plate + place; }
// The edge or corner of a node code, 0 for an interior node.
constexpr int PlakKoduPlace(int code) { return (code < 0 ? -code : code) % 1000; }

constexpr int kPlateOwner = 1000;
constexpr int PlateOwner(int plate) { return kPlateOwner + plate; }
constexpr bool OwnerIsPlate(int owner) { return owner >= kPlateOwner; }
constexpr int OwnerPlate(int owner) { return owner - kPlateOwner; }
// Of what is picked or drawn, panels up to number 1000 among it; a mesh of panel 1000 counts as a plate's.
constexpr bool ItemIsPlate(int item) { return item > kPlateOwner; }

} // namespace havuz
