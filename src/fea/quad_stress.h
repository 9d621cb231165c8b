// Stresses and moments of the general quadrilateral shell at its corners, from global displacements. Theory, sources
// and oddities (the factor 10, the fixed place of the membrane, the transposed axes): docs/quad-element.md. Units: m,
// t.
#pragma once

#include "fea/matrix.h"

namespace havuz {

// Fills S; S times the 24 global displacements of the corners (QuadShellStiffness) gives, in rows 6*(point-1)+1..6,
// 10 times the membrane forces nx, ny, nxy (t/m) and the moments Mx, My, Mxy (t.m/m) of the points 1..points, which are
// the corners; a single point is the mean of the corners 2, 3 and 4, and corner 1, in local axes. corners is 4.
// Reads QuadCorner 1..4, TriThickness and PlaneD; overwrites QuadBasis.
// Where the local area is exactly 0, the corners 2 and 4 are exchanged for the length of the call. An area of 0 in both
// orders, corners on one line, and four corners that cannot carry the twelve-term polynomial are DivisionByZero.
// Source: twelve-term polynomial of Melosh (1963) and of Zienkiewicz and Cheung (1964), bilinear membrane of Taig
// (1961).
void QuadShellStress(Matrix<24, 24> &S, int corners, int points);

} // namespace havuz
