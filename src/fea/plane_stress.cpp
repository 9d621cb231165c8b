// Isotropic plane stress: sx = E/(1-v^2) * (ex + v*ey), sxy = E/(2*(1+v)) * gxy. t/m2.
//   PlaneD = E/(1-v^2) * | 1  v     0     |      of concrete, v 0.25: 1.0667*E, 0.2667*E, 0.4*E
//                        | v  1     0     |      times t: forces by strains, t/m
//                        | 0  0  (1-v)/2  |      times t^3/12: moments by curvatures w,xx, w,yy, 2*w,xy, t.m/m
// The terms (1,3) and (2,3) are 0 here; the formulas of the quadrilateral carry them all the same.
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
