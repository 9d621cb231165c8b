// The plane stress matrix of the material, shared by the membrane and bending formulas of the general quadrilateral.
// Units: t/m2. The analysis driver fills it at the start of a run.
#pragma once

#include "fea/matrix.h"

namespace havuz {

extern Matrix<3, 3> PlaneD;

// Isotropic material of elastic modulus e (t/m2) and Poisson ratio v. v of 1 or -1 is DivisionByZero.
void FillPlaneD(double e, double v);

// To zero.
void ResetPlaneD();

} // namespace havuz
