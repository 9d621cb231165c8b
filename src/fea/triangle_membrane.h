// The constant strain triangle of plane stress, in the plane of the triangle. Units: m, t/m.
#pragma once

namespace havuz {

// Reads TriX, TriY, TriThickness and PlaneD. Fills the 6 by 6 corner of TriK on the freedoms u, v of the vertices 1,
// 2, 3. Source: Turner, Clough, Martin and Topp, "Stiffness and deflection analysis of complex structures", Journal of
// the Aeronautical Sciences 23 (1956). A triangle without area is DivisionByZero.
void TriangleMembrane();

} // namespace havuz
