// Thin plate bending of a flat quadrilateral or triangle: discrete Kirchhoff elements. Batoz and Ben Tahar, "Evaluation
// of a new quadrilateral thin plate bending element", Int. J. Num. Meth. Eng. 18 (1982) 1655-1677; for the triangle
// Batoz, Bathe and Ho, ibid. 15 (1980) 1771-1812. Freedoms of a corner: w, rotations about local x and y (right hand).
#pragma once

#include "consistent/flat_shape.h"

namespace havuz::consistent {

using BendingMatrix = Eigen::Matrix<double, 3, 12>; // rows: curvature xx, yy, twice xy; three columns a corner

// Curvatures whose product with the plate stiffness is the moment, the integral of stress times local z.
BendingMatrix Curvatures(const FlatShape &shape, const ShapeDerivatives &d);

// rigidity: moments from curvatures, t.m. Columns of corners the shape lacks are 0.
Eigen::Matrix<double, 12, 12> BendingStiffness(const FlatShape &shape, const Eigen::Matrix3d &rigidity);

} // namespace havuz::consistent
