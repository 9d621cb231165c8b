// A quadrilateral in space with its bilinear functions: areas, node shares, pressures over its wetted part. Lengths in
// m. Corners run around; two at one place make a triangle, for which every formula here holds as well.
#pragma once

#include "fea/vector3.h"

#include <array>

namespace havuz::consistent {

using Corners = std::array<Vector3, 4>;
using Shares = std::array<double, 4>; // one value a corner

// Half the cross product of the diagonals: along the normal by the right hand, as long as the area.
Vector3 AreaVector(const Corners &p);

double Length(const Vector3 &v);

// v divided by its length. No length is the AnalysisFailure of a mesh without area.
Vector3 UnitOf(const Vector3 &v);

// The bilinear functions at (xi, eta) in -1..1; corners 1..4 at (-1,-1), (1,-1), (1,1), (-1,1).
Shares Bilinear(double xi, double eta);

// Integral of each function over the quadrilateral as seen along the unit vector m: its true area along its own normal,
// its plan area along Z. Signed as m lies to the normal.
Shares AreaShares(const Corners &p, const Vector3 &m);

// The same times a pressure that is linear over the plane: value at the corners, counted where it is above 0, with the
// part cut exactly there. Force and moment of the shares are those of the pressure, exactly, on every plane shape.
Shares PressureShares(const Corners &p, const Vector3 &m, const Shares &value);

// The same for the constant 1 where value is above 0.
Shares WettedShares(const Corners &p, const Vector3 &m, const Shares &value);

} // namespace havuz::consistent
