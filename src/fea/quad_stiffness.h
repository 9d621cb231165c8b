// The stiffness of the general quadrilateral shell: flat triangles of membrane and bending around a centre that is
// condensed out. Theory, sources and oddities: docs/quad-element.md. Units: m, t, radians.
#pragma once

namespace havuz {

// Reads QuadCorner, TriThickness and PlaneD; leaves the stiffness in global axes in QuadK. Freedoms of node n are
// 6n-5..6n: ux, uy, uz, then the right-hand rotations about the same axes.
//   triangles  triangles of corners            result
//   1          123                             18 by 18 corner of QuadK
//   2          123 134                         24 by 24
//   3          124 234 314, centre 4           18 by 18; corner 4 becomes the mean of 1..3
//   4          125 235 345 415, centre 5       24 by 24; corner 5 becomes the mean of 1..4
// Rows and columns of a centre hold the eliminated freedoms, in the axes of QuadBasis. Overwrites the shared work data.
// A triangle without area is DivisionByZero. Source: Clough and Felippa (triangle_bending.h); Wilson, "The static
// condensation algorithm", International Journal for Numerical Methods in Engineering 8 (1974).
void QuadShellStiffness(int triangles);

} // namespace havuz
