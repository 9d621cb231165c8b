// The plate bending triangle of nine freedoms whose curvature is linear in each of its three sub-triangles, in the
// plane of the triangle. Units: m, t, radians. Freedoms of a vertex: w along n, r1 about e1, r2 about e2, both
// right-handed: r1 = dw/dy, r2 = -dw/dx.
#pragma once

namespace havuz {

// Reads TriX, TriY, TriThickness and PlaneD. Fills the 9 by 9 corner of TriK on w, r1, r2 of the vertices 1, 2, 3.
// Source: Clough and Felippa, "A refined quadrilateral element for analysis of plate bending", Proceedings of the
// Second Conference on Matrix Methods in Structural Mechanics, Wright-Patterson AFB (1968): the fully compatible
// triangle with linear normal slopes on its sides. A triangle without area, or with a side of no length, is
// DivisionByZero.
void TriangleBending();

} // namespace havuz
