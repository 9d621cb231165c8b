#include "design/crack.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace havuz::design {

double Bars::area() const {
    return spacing > 0.0 ? std::numbers::pi * diameter * diameter / 400.0 * kWidth / spacing : 0.0;
}

// hc,ef of 7.3.2 (3): the least of 2.5 (h - d), (h - x)/3 and h/2; without a compressed side the second falls out.
static double EffectiveDepth(const Section &s, const CrackedState &state) {
    const double least = std::min(2.5 * (s.h - s.d), s.h / 2.0);
    return state.allTension ? least : std::min(least, (s.h - state.x) / 3.0);
}

// (7.11) with k1 .8 (ribbed bars), k3 3.4, k4 .425; (7.14) where the bars stand wider than 5 (c + diameter/2).
static double GreatestSpacing(const Section &s, const Bars &bars, double cover, const CrackWidth &w) {
    if (bars.spacing * 10.0 > 5.0 * (cover * 10.0 + bars.diameter / 2.0))
        return 1.3 * (s.h - w.x) * 10.0;
    return 3.4 * cover * 10.0 + .8 * w.k2 * .425 * bars.diameter / w.rho;
}

CrackWidth CrackWidthOf(const Materials &m, const Section &s, const Bars &bars, double cover, double M, double N) {
    constexpr double kt = .4; // lasting load
    const double ratio = kSteelModulus / m.ecm();
    const CrackedState state = CrackedSection(s, bars.area(), ratio, M, N);
    CrackWidth w;
    if (!(state.steel > 0.0))
        return w;
    w.steel = state.steel;
    w.x = state.x;
    w.effective = EffectiveDepth(s, state);
    w.rho = bars.area() / (kWidth * w.effective);
    w.k2 = state.allTension ? (1.0 + state.strainRatio) / 2.0 : .5;
    const double stiffened = w.steel - kt * m.fctm() / w.rho * (1.0 + ratio * w.rho);
    w.strain = std::max(stiffened, .6 * w.steel) / kSteelModulus;
    w.srMax = GreatestSpacing(s, bars, cover, w);
    w.wk = w.srMax * w.strain;
    return w;
}

double CrackLimit(double head, double h) {
    const double ratio = h > 0.0 ? std::clamp(head * 100.0 / h, 5.0, 35.0) : 5.0;
    return .20 - (ratio - 5.0) / 30.0 * .15;
}

} // namespace havuz::design
