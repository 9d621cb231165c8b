// The error estimate against a plate whose moments are known: w = sin(pi x) sin(pi y) over a hinged square of side 1
// (Timoshenko and Woinowsky-Krieger, "Theory of Plates and Shells", 1959, article 27).
#include "consistent/error_estimate.h"
#include "consistent/system.h"
#include "verification/hand_tank.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz::consistent {

namespace {

constexpr double kPi = 3.14159265358979323846, kE = 1e6, kThick = 0.01, kPoisson = 0.3;

// f at Gauss points of a mesh, with the weight that is an area.
template <class Function>
void Integrate(const Tank &tank, const TankMesh &m, const Function &f) {
    const Corners p = CornersOf(tank, m);
    for (const auto &[xi, a] :
         {std::pair(-std::sqrt(.6), 5. / 9), std::pair(0., 8. / 9), std::pair(std::sqrt(.6), 5. / 9)})
        for (const auto &[eta, b] :
             {std::pair(-std::sqrt(.6), 5. / 9), std::pair(0., 8. / 9), std::pair(std::sqrt(.6), 5. / 9)}) {
            const Shares n = Bilinear(xi, eta);
            Vector3 at;
            for (std::size_t k = 0; k < 4; ++k)
                at = at + n[k] * p[k];
            f(n, at, a * b * Length(AreaVector(p)) / 4.0); // of a parallelogram
        }
}

// n by n meshes; nodal forces of q = sin sin.
HandTank SinePlate(int n) {
    HandTank t(kE, kPoisson);
    t.grid(t.panel(2, kThick), n, n, [](double s, double v) { return Vector3{s, v, 0}; });
    const auto rim = [](double v) { return std::fabs(v) < 1e-6 || std::fabs(v - 1) < 1e-6; };
    t.hold(32, [&](const Vector3 &at) { return rim(at.x) || rim(at.y); });
    t.hold(8 | 16 | 64, [](const Vector3 &) { return true; });
    for (const TankMesh &m : t.tank.meshes)
        Integrate(t.tank, m, [&](const Shares &share, const Vector3 &at, double area) {
            for (std::size_t k = 0; k < 4; ++k)
                t.tank.nodes[static_cast<std::size_t>(m.node[k])].load.z -=
                    share[k] * area * std::sin(kPi * at.x) * std::sin(kPi * at.y);
        });
    return t;
}

double Density(double xx, double yy, double xy) {
    return 12 / (kE * kThick * kThick * kThick) *
           (xx * xx + yy * yy - 2 * kPoisson * xx * yy + 2 * (1 + kPoisson) * xy * xy);
}

// The true error of the moments of the elements, and the whole, as the estimate has them.
ErrorShare TrueError(const Tank &tank, const CaseResult &r) {
    ErrorShare share;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        Integrate(tank, tank.meshes[i], [&](const Shares &n, const Vector3 &at, double area) {
            const double s = std::sin(kPi * at.x) * std::sin(kPi * at.y),
                         c = std::cos(kPi * at.x) * std::cos(kPi * at.y);
            const double m = -(1 + kPoisson) / (4 * kPi * kPi) * s, m12 = (1 - kPoisson) / (4 * kPi * kPi) * c;
            double xx = 0, yy = 0, xy = 0;
            for (std::size_t k = 0; k < 4; ++k) {
                xx += n[k] * r.meshes[i][k + 1].M11;
                yy += n[k] * r.meshes[i][k + 1].M22;
                xy += n[k] * r.meshes[i][k + 1].M12;
            }
            share.energy += area * Density(m, m, m12);
            share.error += area * Density(xx - m, yy - m, xy - m12);
        });
    return share;
}

} // namespace

TEST(ErrorEstimate, FallsWithTheWidthAndMeetsTheTrueError) {
    double before = 0;
    for (const int n : {4, 8, 16, 32}) {
        const HandTank t = SinePlate(n);
        const Analysis analysis(t.tank);
        const CaseResult r = analysis.solve(kPoint);
        const ErrorShare estimate = EstimateError(analysis, r).whole, exact = TrueError(t.tank, r);
        EXPECT_NEAR(estimate.width(), 1.0 / n, 1e-9);
        EXPECT_NEAR(std::sqrt(estimate.error / exact.error), 1.0, 2.4 / (n * n) + 0.002) << n; // effectivity
        EXPECT_NEAR(estimate.energy / exact.energy, 1.0, 4.0 / (n * n)) << n;
        if (n > 4) { // the first order that widthFor takes
            EXPECT_NEAR(std::log2(before / estimate.relative()), 1.0, n > 8 ? 0.08 : 0.2) << n;
        }
        before = estimate.relative();
    }
}

// The width named is enough: meshed so, the plate has the error that was asked for. It never asks for wider meshes.
TEST(ErrorEstimate, NamesTheWidthThatIsEnough) {
    const auto errorAt = [](int n) {
        const Analysis analysis(SinePlate(n).tank);
        return EstimateError(analysis, analysis.solve(kPoint)).whole;
    };
    const ErrorShare coarse = errorAt(6);
    ASSERT_GT(coarse.relative(), 0.05);
    const int n = static_cast<int>(std::ceil(1.0 / coarse.widthFor(0.02)));
    EXPECT_LT(errorAt(n).relative(), 0.02);
    EXPECT_GT(errorAt(n).relative(), 0.015); // nor much finer
    EXPECT_EQ(coarse.widthFor(0.5), coarse.width());
}

// Axes that run around a point elsewhere tell the same state by other numbers: the estimate stays. Panels add up, in
// one plane they are smoothed as one; a case without load has no error.
TEST(ErrorEstimate, DoesNotHangOnAxesOrPanels) {
    HandTank t = SinePlate(8);
    const Analysis straight(t.tank);
    const ErrorEstimate one = EstimateError(straight, straight.solve(kPoint));
    const int other = t.panel(2, kThick);
    for (TankMesh &m : t.tank.meshes)
        if (t.tank.corner(m, 0).x > 0.6)
            m.panel = other;
    t.tank.circular = true;
    t.tank.centre = {0.4, -0.7, 0};
    const Analysis turned(t.tank);
    const ErrorEstimate two = EstimateError(turned, turned.solve(kPoint));
    EXPECT_NEAR(two.whole.error / one.whole.error, 1.0, 1e-9);
    EXPECT_NEAR(two.whole.energy / one.whole.energy, 1.0, 1e-9);
    ASSERT_EQ(two.panels.size(), 2U);
    EXPECT_NEAR(two.panels.at(1).error + two.panels.at(2).error, two.whole.error, 1e-12 * two.whole.error);
    EXPECT_EQ(two.panels.at(1).meshes + two.panels.at(2).meshes, 64);
    EXPECT_EQ(EstimateError(turned, turned.solve(kLive)).whole.relative(), 0.0);
}

} // namespace havuz::consistent
