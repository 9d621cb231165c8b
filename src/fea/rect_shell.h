// The rectangular shell element: four nodes, six freedoms a node, closed forms without integration. The bilinear plane
// stress rectangle for the membrane, the non-conforming twelve-term bending rectangle of Melosh and of Zienkiewicz and
// Cheung, and a token stiffness on each drilling freedom, superposed without coupling.
//
// Local nodes: 1 at (0,0), 2 at (a,0), 3 at (a,b), 4 at (0,b). Freedoms of a node: u, v, w, rx = -dw/dy, ry = +dw/dx,
// drilling; rx and ry are the reverse of the right-hand rotation vector. docs/rectangular-element.md derives both
// matrices.
#pragma once

#include "fea/matrix.h"

namespace havuz {

// K: stiffness in local axes, t/m. a, b: sides along local x and y, m; E, t/m2; v Poisson ratio; t thickness, m.
// A side of length 0 is DivisionByZero.
void RectShellStiffness(Matrix<24, 24> &K, double a, double b, double E, double v, double t);

// S: from local displacements to results at the four corners, six rows a corner: sx, sy, sxy (membrane stress, t/m2),
// Mx, My, Mxy (t.m/m). The bending rows carry the thickness, the membrane rows do not. Mxy is +2*Dk*w,xy, opposite in
// sign to the curvature rule of Mx and My: the convention of the result files.
void RectShellStress(Matrix<24, 24> &S, double a, double b, double E, double v, double t);

} // namespace havuz
