// The work data that the procedures of the general quadrilateral share, and its two frames of reference. Theory and
// sources: docs/quad-element.md. Units: m, t/m2, t, radians. A caller fills QuadCorner 1..4, TriThickness and PlaneD
// (plane_stress.h), then calls QuadShellStiffness (quad_stiffness.h) or QuadShellStress (quad_stress.h).
#pragma once

#include "fea/matrix.h"
#include "fea/vector3.h"
#include "model/fields.h"

namespace havuz {

extern Row<Vector3, 5> QuadCorner;  // the corners 1..4 and their mean, the centre, at 5; m
extern Row<double, 3> TriThickness; // at the corners of a triangle, m
extern Matrix<3, 3> QuadBasis;      // reference axes of the quadrilateral; the columns are the axes
extern Row<double, 3> TriX, TriY;   // side projections of the triangle in its own plane, m
extern Row<Vector3, 3> TriAxes;     // e1, e2, n of the triangle
extern Matrix<12, 12> TriK;         // triangle stiffness in its own plane: membrane, then bending
extern Matrix<42, 42> WorkK;        // one triangle on the freedoms of the element; above 30 nothing is filled
extern Matrix<30, 30> QuadK;        // sum over the triangles; condensed, its 24 by 24 corner is the element

// All of it to zero.
void ResetQuadWork();

// Axis j of QuadBasis.
Vector3 QuadBasisAxis(int j);

// Reference axes from the mean directions of the two pairs of opposite sides, corner k taken as the fourth: axis 1
// along P2+P3-Pk-P1, axis 2 in the plane of it and P3+Pk-P1-P2, axis 3 normal to both. Corners on one line are
// DivisionByZero.
void QuadBasisBuild(int k);

// Plane of the triangle on the corners i, j, m: n normal to it, e1 normal to n and to axis 2 of QuadBasis, e2 = n x e1.
// Fills TriX, TriY and TriAxes. A triangle without area, or normal to axis 2, is DivisionByZero.
void TriangleBasis(int i, int j, int m);

// Twice the area of the triangle of TriX, TriY.
double TriangleArea2();

// Mean of TriThickness.
double TriangleThickness();

} // namespace havuz
