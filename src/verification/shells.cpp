// Curved shells. Source: T. Belytschko and others, Comp. Meth. Appl. Mech. Eng. 51 (1985) 221-258 (the obstacle
// course); MacNeal and Harder 1985; Timoshenko and Woinowsky-Krieger, "Theory of Plates and Shells", 1959, article 117.
#include "verification/examples.h"

#include <cmath>

namespace havuz::verification {

namespace {

const char *const kNotLiteral = "the run has E and ν of concrete only";
const char *const kFlat = "flat meshes follow the shell; the difference falls as they are halved";

Example ScordelisLo() {
    Example e;
    e.key = "scordelis-lo";
    e.title = "Scordelis and Lo's roof";
    e.words = "Radius 25, length 50, 80 degrees, thickness 0.25, E 4.32·10⁸, ν 0, weight 90; a quarter on end walls. "
              "Deflection in the middle of the free edge.";
    e.quantities = {{"deflection", "", 0.3024,
                     "Belytschko and others 1985, MacNeal and Harder 1985: 0.3024 (0.3086 by deep shell theory)",
                     kFlat}};
    e.meshes = {"4 x 4", "8 x 8", "16 x 16"};
    e.notLiteral = kNotLiteral;
    const double a = 40 * kPi / 180;
    const auto tank = [a](std::size_t mesh) {
        HandTank t(4.32e8, 0.0);
        const int p = t.panel(kPlain, 0.25, 90.0), n = 4 << mesh;
        t.grid(p, n, n, [a](double s, double v) {
            return Vector3{25 * std::sin(a * s), 25 * v, 25 * std::cos(a * s)};
        });
        t.hold(8 | 32, [](const Vector3 &at) { return Near(at.y, 0); });
        t.hold(16 | 1 | 64, [](const Vector3 &at) { return Near(at.y, 25); });
        t.hold(8 | 2 | 64, [](const Vector3 &at) { return Near(at.x, 0); });
        return t;
    };
    const auto measure = [a](const HandTank &t, const CaseResult &r) {
        return std::vector<double>{-Moved(t, r, {25 * std::sin(a), 25, 25 * std::cos(a)}, 2)};
    };
    TakeModel(e, {tank, kDead, measure});
    return e;
}

Example PinchedCylinder() {
    Example e;
    e.key = "pinched-cylinder";
    e.title = "Pinched cylinder with end walls";
    e.words = "Radius 300, length 600, thickness 3, E 3·10⁶, ν 0.3, two forces of 1 across its middle; an eighth. "
              "Displacement under a force, 10⁻⁵.";
    e.quantities = {{"displacement", "", 1.8248, "Belytschko and others 1985: 1.8248·10⁻⁵",
                     "the dent under the force is narrower than a mesh; the difference falls as they are halved"}};
    e.meshes = {"8 x 8", "16 x 16", "32 x 32"};
    e.notLiteral = kNotLiteral;
    const auto tank = [](std::size_t mesh) {
        HandTank t(3e6, 0.3);
        const int p = t.panel(kPlain, 3), n = 8 << mesh;
        t.grid(p, n, n, [](double s, double v) {
            return Vector3{300 * std::sin(kPi / 2 * s), 300 * v, 300 * std::cos(kPi / 2 * s)};
        });
        t.hold(8 | 32, [](const Vector3 &at) { return Near(at.y, 0); });
        t.hold(16 | 1 | 64, [](const Vector3 &at) { return Near(at.y, 300); });
        t.hold(8 | 2 | 64, [](const Vector3 &at) { return Near(at.x, 0); });
        t.hold(32 | 1 | 2, [](const Vector3 &at) { return Near(at.z, 0); });
        t.load(t.nodeAt({0, 300, 300}), {0, 0, -0.25});
        return t;
    };
    const auto measure = [](const HandTank &t, const CaseResult &r) {
        return std::vector<double>{-Moved(t, r, {0, 300, 300}, 2) * 1e5};
    };
    TakeModel(e, {tank, kPoint, measure});
    return e;
}

// top: latitude of the upper rim in degrees, 90 without a hole.
Example Hemisphere(double top) {
    const bool hole = top < 90;
    Example e;
    e.key = hole ? "hemisphere-hole" : "hemisphere";
    e.title = hole ? "Hemisphere with a hole of 18 degrees" : "Hemisphere";
    e.words =
        "Radius 10, thickness 0.04, E 6.825·10⁷, ν 0.3, pulled and pressed by pairs of forces of 2 at the equator; "
        "a quarter. Displacement under a force.";
    e.quantities = {{"displacement", "", hole ? 0.0940 : 0.0924,
                     hole ? "MacNeal and Harder 1985: 0.0940" : "Belytschko and others 1985: 0.0924", kFlat}};
    e.meshes = {"4 x 4", "8 x 8", "16 x 16"};
    e.notLiteral = kNotLiteral;
    const auto tank = [top](std::size_t mesh) {
        HandTank t(6.825e7, 0.3);
        const int p = t.panel(kPlain, 0.04), n = 4 << mesh;
        t.grid(p, n, n, [top](double s, double v) {
            const double a = kPi / 2 * s, b = top * kPi / 180 * v;
            return Vector3{10 * std::cos(b) * std::cos(a), 10 * std::cos(b) * std::sin(a), 10 * std::sin(b)};
        });
        t.hold(8 | 2 | 64, [](const Vector3 &at) { return Near(at.x, 0); });
        t.hold(16 | 1 | 64, [](const Vector3 &at) { return Near(at.y, 0); });
        const int out = t.nodeAt({10, 0, 0}), in = t.nodeAt({0, 10, 0});
        t.tank.nodes[static_cast<std::size_t>(out)].held |= 32;
        t.load(out, {1, 0, 0});
        t.load(in, {0, -1, 0});
        return t;
    };
    const auto measure = [](const HandTank &t, const CaseResult &r) {
        return std::vector<double>{Moved(t, r, {10, 0, 0}, 0)};
    };
    TakeModel(e, {tank, kPoint, measure});
    return e;
}

// A round tank of diameter 10 and height 4, wall 0.2, full.
constexpr double kRadius = 5, kDepth = 4, kWall = 0.2, kE = kConcreteE, kPoisson = kConcretePoisson;

int Around(std::size_t mesh) { return 40 << mesh; }
int Rows(std::size_t mesh) { return 14 << mesh; }

HandTank RoundTank(std::size_t mesh, bool clamped) {
    HandTank t(kE, kPoisson);
    const int p = t.panel(1, kWall), around = Around(mesh), rows = Rows(mesh);
    for (int j = 0; j <= rows; ++j)
        for (int i = 0; i < around; ++i) {
            const bool quarter = 4 * i % around == 0; // slides along its radius
            const bool onX = 2 * i % around == 0;
            const int foot = clamped ? kClamped : 32 | (quarter ? onX ? 16 : 8 : 0);
            t.node(
                {kRadius * std::cos(2 * kPi * i / around), kRadius * std::sin(2 * kPi * i / around), kDepth * j / rows},
                j == 0 ? foot : 0);
        }
    for (int j = 0; j < rows; ++j)
        for (int i = 0; i < around; ++i) {
            const int k = (i + 1) % around, below = j * around + 1, above = below + around;
            t.mesh(p, above + i, above + k, below + k, below + i);
        }
    t.tank.liquidDensity = 1;
    t.tank.liquidLevel = kDepth;
    return t;
}

Example FixedFoot() {
    const double v = kPoisson, root = std::sqrt(12 * (1 - v * v));
    const double beta = std::pow(3 * (1 - v * v), 0.25) / std::sqrt(kRadius * kWall);
    const auto hoop = [=](double x) {
        return kRadius * (kDepth - x) -
               kRadius * std::exp(-beta * x) * (kDepth * std::cos(beta * x) + (kDepth - 1 / beta) * std::sin(beta * x));
    };
    double greatest = 0;
    for (int k = 0; k <= 4000; ++k)
        greatest = std::max(greatest, hoop(kDepth * k / 4000.0));
    const std::string source = "Timoshenko and Woinowsky-Krieger, article 117, closed form computed here";
    Example e;
    e.key = "round-tank-fixed";
    e.title = "Round tank, fixed foot";
    e.words = "Diameter 10 m, height 4 m, wall 20 cm, full of water, foot clamped; E 2.85·10⁶ t/m², ν 0.25.";
    e.quantities = {
        {"foot moment", "t.m/m", (1 - 1 / (beta * kDepth)) * kRadius * kDepth * kWall / root, source, kFlat,
         "the run's 32-bit cells do not hold the ring of many narrow meshes"},
        {"greatest hoop force", "t/m", greatest, source, kFlat},
        {"shear at the foot", "t/m", (2 * kDepth - 1 / beta) * kRadius * kWall / root * beta, source, kFlat}};
    e.meshes = {"40 x 14", "80 x 28", "160 x 56"};
    const auto measure = [](const HandTank &, const CaseResult &r) {
        double most = 0;
        for (const MeshResult &m : r.meshes)
            most = std::max(most, m[0].N11);
        return std::vector<double>{r.meshes[0][4].M22, most, std::fabs(r.meshes[0][4].Q2)};
    };
    const auto tank = [](std::size_t mesh) { return RoundTank(mesh, true); };
    TakeModel(e, {tank, kLiquid, measure, true});
    NoLiteralOf(e, {1, 2}); // a run tells them in other terms
    return e;
}

Example SlidingFoot() {
    const std::string source =
        "membrane theory: γ a (d − x), γ a² d/(E h); Timoshenko and Woinowsky-Krieger, article 117";
    Example e;
    e.key = "round-tank-sliding";
    e.title = "Round tank, sliding foot";
    e.words = "The same tank; the foot slides and turns freely.";
    e.quantities = {{"hoop force half way up", "t/m", kRadius * kDepth / 2, source, kFlat},
                    {"foot moves outward", "mm", 1000 * kRadius * kRadius * kDepth / (kE * kWall), source, kFlat},
                    {"vertical moment half way up", "t.m/m", 0.0, source, "", "", 1.0}};
    e.meshes = {"40 x 14", "80 x 28", "160 x 56"};
    e.notLiteral = "a project holds all three translations or none";
    const auto tank = [](std::size_t mesh) { return RoundTank(mesh, false); };
    const auto measure = [](const HandTank &t, const CaseResult &r) {
        const Vector3 middle{kRadius, 0, kDepth / 2};
        return std::vector<double>{MeanAt(t, r, middle, &ShellResult::N11), 1000 * Moved(t, r, {kRadius, 0, 0}, 0),
                                   MeanAt(t, r, middle, &ShellResult::M22)};
    };
    TakeModel(e, {tank, kLiquid, measure});
    return e;
}

} // namespace

std::vector<Example> ShellExamples() {
    return {FixedFoot(), SlidingFoot(), ScordelisLo(), PinchedCylinder(), Hemisphere(72), Hemisphere(90)};
}

} // namespace havuz::verification
