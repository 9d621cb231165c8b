#include "design/section.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace havuz::design {

namespace {

constexpr double kKgCm = 1.0e5; // kg.cm in 1 t.m
constexpr double kKg = 1.0e3;   // kg in 1 t

// The two layers carry a pair of forces alone: no concrete takes part.
SteelNeed PulledThrough(const Materials &m, const Section &s, double M, double N) {
    SteelNeed need;
    need.allTension = true;
    need.area = std::max(0.0, N * kKg / (2.0 * m.f()) + M * kKgCm / (m.f() * s.leverArm()));
    return need;
}

// .85 fcd b a (d - a/2) = Ms. The steel yields first as long as its strain at c reaches fyd/Es.
SteelNeed ByStrength(const Materials &m, const Section &s, double ms, double N) {
    SteelNeed need;
    need.ms = ms / kKgCm;
    need.concrete = .85 * m.fcd();
    const double block = need.concrete * kWidth;
    const double root = s.d * s.d - 2.0 * ms / block;
    if (!(root > 0.0)) {
        need.area = std::numeric_limits<double>::infinity();
        need.depth = s.d;
        need.met = false;
        return need;
    }
    const double a = s.d - std::sqrt(root);
    need.depth = a / m.k1();
    need.area = std::max(0.0, (block * a + N * kKg) / m.fyd());
    need.met = need.depth <= s.d * kUltimateStrain / (kUltimateStrain + m.fyd() / kSteelModulus);
    return need;
}

// Finds the zero of a function that rises from below 0 at lo to above 0 at hi.
template <class Function>
double RisingZero(double lo, double hi, const Function &f) {
    for (int i = 0; i < 80 && hi - lo > 1e-14 * hi; ++i) {
        const double mid = .5 * (lo + hi);
        (f(mid) < 0.0 ? lo : hi) = mid;
    }
    return .5 * (lo + hi);
}

// sc b x (d - x/3)/2 = Ms with sc = f x/(15 (d - x)): the steel stands at its allowable stress.
SteelNeed Elastically(const Materials &m, const Section &s, double ms, double N) {
    const auto stress = [&](double x) { return m.f() * x / (kElasticRatio * (s.d - x)); };
    const double x =
        RisingZero(0.0, s.d, [&](double x) { return stress(x) * kWidth * x * (s.d - x / 3.0) / 2.0 - ms; });
    SteelNeed need;
    need.ms = ms / kKgCm;
    need.depth = x;
    need.concrete = stress(x);
    need.area = std::max(0.0, (need.concrete * kWidth * x / 2.0 + N * kKg) / m.f());
    need.met = need.concrete <= m.allowableConcrete;
    return need;
}

} // namespace

SteelNeed RequiredSteel(const Materials &m, const Section &s, double M, double N) {
    if (!(s.d > 0.0) || (N > 0.0 && !(s.leverArm() > 0.0))) // no depth, or the layers lie in one another
        return {std::numeric_limits<double>::infinity(), false, M, 0, 0, false};
    if (M <= N * s.leverArm() / 200.0) // cm to m, half the arm
        return PulledThrough(m, s, M, N);
    const double ms = M * kKgCm - N * kKg * (s.d - s.h / 2.0);
    return m.method == DesignMethod::Strength ? ByStrength(m, s, ms, N) : Elastically(m, s, ms, N);
}

static CrackedState PulledState(const Section &s, double As, double M, double N) {
    const double near = N * kKg / 2.0 + M * kKgCm / s.leverArm();
    const double far = N * kKg - near;
    CrackedState state;
    if (!(near > 0.0))
        return state;
    state.allTension = far >= 0.0;
    state.steel = near / As;
    state.strainRatio = std::clamp(std::min(near, far) / std::max(near, far), 0.0, 1.0);
    return state;
}

// Equilibrium of forces and of moments about the bars, with sc taken out:
// n As (d - x)/x - b x/2 = N b x (d - x/3)/(2 Ms). The left side less the right falls as x grows.
CrackedState CrackedSection(const Section &s, double As, double n, double M, double N) {
    if (M <= N * s.leverArm() / 200.0)
        return PulledState(s, As, M, N);
    const double ms = M * kKgCm - N * kKg * (s.d - s.h / 2.0);
    const auto rest = [&](double x) {
        return kWidth * x * x / 2.0 + N * kKg * kWidth * x * x * (s.d - x / 3.0) / (2.0 * ms) - n * As * (s.d - x);
    };
    CrackedState state;
    if (rest(s.d) <= 0.0) // the bars are not pulled
        return state;
    state.x = RisingZero(0.0, s.d, rest);
    const double concrete = 2.0 * ms / (kWidth * state.x * (s.d - state.x / 3.0));
    state.steel = n * concrete * (s.d - state.x) / state.x;
    return state;
}

} // namespace havuz::design
