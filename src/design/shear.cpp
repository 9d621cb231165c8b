#include "design/shear.h"

#include <algorithm>
#include <cmath>

namespace havuz::design {

// (6.2a), (6.2b), with CRd,c = .18/1.5, k1 = .15, vmin = .035 k^1.5 fck^.5; N/mm2 and mm, 1 t/m = 10 N/mm.
ShearStrength ShearWithoutLinks(const Materials &m, const Section &s, double As, double N) {
    const double fck = m.fck / kKgPerSquareCm, d = s.d * 10.0;
    ShearStrength v;
    if (!(d > 0.0))
        return v;
    v.k = std::min(2.0, 1.0 + std::sqrt(200.0 / d));
    v.rho = std::min(.02, As / (kWidth * s.d));
    v.sigma = std::min(-N / s.h, .2 * m.fcd() / kKgPerSquareCm); // t/m over cm is N/mm2: 10 N/mm over 10 mm
    const double least = .035 * std::pow(v.k, 1.5) * std::sqrt(fck) + .15 * v.sigma;
    const double full = .12 * v.k * std::cbrt(100.0 * v.rho * fck) + .15 * v.sigma;
    v.least = std::max(0.0, least * d / 10.0);
    v.vrd = std::max(v.least, full * d / 10.0);
    return v;
}

double ThicknessForShear(const Materials &m, const Section &s, double As, double N, double V) {
    const double behind = s.h - s.d;
    for (double h = std::ceil(s.h); h <= 300.0; h += 1.0)
        if (ShearWithoutLinks(m, {h, h - behind}, As, N).vrd >= V)
            return h;
    return 0.0;
}

} // namespace havuz::design
