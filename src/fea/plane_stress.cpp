// Isotropic plane stress: sx = E/(1-v^2) * (ex + v*ey), sxy = E/(2*(1+v)) * gxy. t/m2.
#include "fea/plane_stress.h"

#include "model/arithmetic.h"

namespace havuz {

Matrix<3, 3> PlaneD;

void ResetPlaneD() { PlaneD.clear(); }

void FillPlaneD(double e, double v) {
    PlaneD.clear();
    PlaneD(1, 1) = PlaneD(2, 2) = Divide(e, 1.0 - v * v, Thing::PlaneD);
    PlaneD(1, 2) = PlaneD(2, 1) = Divide(e * v, 1.0 - v * v, Thing::PlaneD);
    PlaneD(3, 3) = Divide(0.5 * e, 1.0 + v, Thing::PlaneD);
}

} // namespace havuz
