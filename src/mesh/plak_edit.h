// Plate editing without a window: cutting plates, splitting the walls that a cut meets, rebuilding link codes.
// Plan coordinates in metres. Link codes: model/link_code.h.
#pragma once

#include "mesh/mesh_window.h"
#include "mesh/plane_geometry.h"

namespace havuz {

// Rebuilds KenarKodu of plates and KenarKomsu of panels from places that agree within 0.1 m: walls on plate edges
// (which also sets the wall's Nx), plate edges on plate edges, walls next to each other around a plate. Clears no code.
// A width (m) of 0 is DivisionByZero where a wall stands on an edge.
void KomsulukKur(double width);

// Splits the wall that kod (100 * panel + edge) points to at plan place (x, y): the records from the wall on move up by
// one, and the codes of all of them close into one ring. Nothing for a negative kod. Panel 1001 is Subscript.
void PanelBol(int kod, double x, double y);

// The cut line, from its first to its second point.
struct CutLine {
    PlanPoint a, b;
};

// Cuts every plate by the segment: from edge to edge, from a corner to an edge or from corner to corner. Where it cuts,
// the walls on cut edges are split, the piece cut off becomes a new plate behind the last one, link codes are rebuilt
// and degisti becomes 1. Plates stay as they are where the segment crosses any other number of edges, or would leave
// a piece of fewer than three different points. Subscript: plate 101, outline point 201, panel 1001.
void PlakKes(const CutLine &line, int &degisti, MeshWindow &window);

// Splits a plate between its outline points a and b: the piece from a to b stays plate plak, the rest becomes the new
// last plate. sonuc becomes 2. A piece of fewer than three different points is not made; sonuc stays then.
void PlakKoseKes(int plak, int a, int b, int &sonuc);

} // namespace havuz
