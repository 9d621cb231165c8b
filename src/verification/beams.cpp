// MacNeal and Harder's beams. Source: R. H. MacNeal and R. L. Harder, "A proposed standard set of problems to
// test finite element accuracy", Finite Elements in Analysis and Design 1 (1985) 3-20.
#include "verification/examples.h"

#include <algorithm>
#include <cmath>

namespace havuz::verification {

namespace {

const char *const kSource = "MacNeal and Harder 1985";
const char *const kNotLiteral = "the run has E and ν of concrete only, and makes a rectangle of each mesh";

// Half a force's share of the nodes of an end: of a unit spread evenly over it.
void LoadEnd(HandTank &t, const std::vector<int> &end, const Vector3 &force) {
    const double parts = static_cast<double>(end.size()) - 1;
    for (std::size_t i = 0; i < end.size(); ++i) {
        const double share = (i == 0 || i + 1 == end.size() ? 0.5 : 1.0) / parts;
        Vector3 &load = t.tank.nodes[static_cast<std::size_t>(end[i])].load;
        load = load + share * force;
    }
}

double MeanMove(const CaseResult &r, const std::vector<int> &end, std::size_t freedom) {
    double sum = 0.0;
    for (const int n : end)
        sum += r.nodes[static_cast<std::size_t>(n)].u[freedom] / static_cast<double>(end.size());
    return sum;
}

struct Beam {
    HandTank tank;
    std::vector<int> end; // nodes of the loaded end
};

// Six pieces, each as 2^mesh by 2^mesh: the inner ends of the pieces' upper and lower sides moved along the beam.
enum class Slant { None, Same, Opposite };

Beam StraightBeam(Slant slant, std::size_t mesh) {
    Beam beam{HandTank(1e7, 0.3), {}};
    HandTank &t = beam.tank;
    const int p = t.panel(kPlain, 0.1), fine = 1 << mesh;
    const auto place = [&](double along, bool upper) {
        const int k = std::min(static_cast<int>(along), 5);
        const auto end = [&](int i) {
            const double size = slant == Slant::None || i == 0 || i == 6 ? 0.0 : 0.1;
            const double up = slant == Slant::Opposite && i % 2 == 1 ? -size : size;
            return i + (upper ? up : -up);
        };
        return end(k) + (along - k) * (end(k + 1) - end(k));
    };
    const int first = t.grid(p, 6 * fine, fine, [&](double s, double v) {
        return Vector3{(1 - v) * place(6 * s, false) + v * place(6 * s, true), 0.2 * v, 0};
    });
    t.hold(kClamped, [](const Vector3 &at) { return Near(at.x, 0); });
    for (int j = 0; j <= fine; ++j)
        beam.end.push_back(first + (j + 1) * (6 * fine + 1) - 1);
    return beam;
}

double TipOf(Beam beam, const Vector3 &force, std::size_t freedom) {
    LoadEnd(beam.tank, beam.end, force);
    return MeanMove(Analysis(beam.tank.tank).solve(kPoint), beam.end, freedom);
}

// Turned by a couple of 1.
double TwistOf(Beam beam) {
    beam.tank.load(beam.end.front(), {0, 0, -5});
    beam.tank.load(beam.end.back(), {0, 0, 5});
    const CaseResult r = Analysis(beam.tank.tank).solve(kPoint);
    return (r.nodes[static_cast<std::size_t>(beam.end.back())].u[2] -
            r.nodes[static_cast<std::size_t>(beam.end.front())].u[2]) /
           0.2;
}

Tank Loaded(Beam beam, const Vector3 &force) {
    LoadEnd(beam.tank, beam.end, force);
    return beam.tank.tank;
}

Example StraightBeams(const std::string &key, const std::string &shape, Slant slant) {
    Example e;
    e.key = key;
    e.title = "Straight beam, " + shape;
    e.words = "6 by 0.2 by 0.1, E 10⁷, ν 0.3, one end clamped, a unit force or couple at the other.";
    e.quantities = {
        {"pulled", "", 3e-5, kSource},
        {"bent in its plane", "", 0.1081, kSource,
         slant == Slant::Opposite ? "a slanted mesh of one row locks in its plane; it lets go as the rows are halved"
                                  : "a slanted mesh of one row is stiff in its plane"},
        {"bent across its plane", "", 0.4321, kSource, "the clamped end holds the width that wants to narrow"},
        {"twisted", "", 0.03208, kSource,
         "a section of 2 to 1 is no thin plate: its twist is 0.229 b t³ by Saint-Venant, the thin plate's b t³/3, and "
         "shear across the thickness is left out"}};
    e.meshes = {"6 x 1", "12 x 2", "24 x 4"};
    e.notLiteral = kNotLiteral;
    e.values = [=](std::size_t mesh) {
        const Beam b = StraightBeam(slant, mesh);
        return std::vector<double>{TipOf(b, {1, 0, 0}, 0), TipOf(b, {0, 1, 0}, 1), TipOf(b, {0, 0, 1}, 2), TwistOf(b)};
    };
    e.sketch = SketchOf([=] { return Loaded(StraightBeam(slant, 0), {0, 1, 0}); }, kPoint);
    return e;
}

Beam CurvedBeam(std::size_t mesh) {
    Beam beam{HandTank(1e7, 0.25), {}};
    const int p = beam.tank.panel(kPlain, 0.1), columns = 6 << mesh, rows = 1 << mesh;
    const int first = beam.tank.grid(p, columns, rows, [](double s, double v) {
        const double r = 4.12 + 0.2 * v, a = kPi / 2 * (1 - s);
        return Vector3{r * std::cos(a), r * std::sin(a), 0};
    });
    beam.tank.hold(kClamped, [](const Vector3 &at) { return Near(at.y, 0); });
    for (int j = 0; j <= rows; ++j)
        beam.end.push_back(first + j * (columns + 1));
    return beam;
}

Example CurvedBeams() {
    Example e;
    e.key = "macneal-curved-beam";
    e.title = "Curved beam";
    e.words = "A quarter of a ring, radii 4.12 and 4.32, thickness 0.1, E 10⁷, ν 0.25, a unit force at its end.";
    e.quantities = {{"bent in its plane", "", 0.08734, kSource, "a chord of 15 degrees is stiffer than its arc"},
                    {"bent across its plane", "", 0.5022, kSource,
                     "the beam twists as well, and a section of 2 to 1 is no thin plate (straight beam, twisted)"}};
    e.meshes = {"6 x 1", "12 x 2", "24 x 4"};
    e.notLiteral = kNotLiteral;
    e.values = [](std::size_t mesh) {
        return std::vector<double>{TipOf(CurvedBeam(mesh), {0, 1, 0}, 1), TipOf(CurvedBeam(mesh), {0, 0, 1}, 2)};
    };
    e.sketch = SketchOf([] { return Loaded(CurvedBeam(0), {0, 1, 0}); }, kPoint);
    return e;
}

// 90 degrees of twist over its length: every mesh is warped.
HandTank TwistedBeam(std::size_t mesh) {
    HandTank t(29e6, 0.22);
    const int p = t.panel(kPlain, 0.32);
    t.grid(p, 6 << mesh, mesh == 0 ? 2 : 1 << mesh, [](double s, double v) {
        const double a = kPi / 2 * s, y = 1.1 * (v - 0.5);
        return Vector3{12 * s, y * std::cos(a), y * std::sin(a)};
    });
    t.hold(kClamped, [](const Vector3 &at) { return Near(at.x, 0); });
    return t;
}

Example TwistedBeams() {
    Example e;
    e.key = "macneal-twisted-beam";
    e.title = "Twisted beam";
    e.words =
        "12 by 1.1 by 0.32, turned by 90 degrees over its length, E 29·10⁶, ν 0.22, a unit force in the middle of "
        "its end.";
    e.quantities = {{"along its end", "", 0.005424, kSource, "a warped mesh is laid flat and hangs on links"},
                    {"across its end", "", 0.001754, kSource, "a warped mesh is laid flat and hangs on links"}};
    e.meshes = {"6 x 2", "12 x 2", "24 x 4"};
    e.notLiteral = kNotLiteral;
    const auto tip = [](std::size_t mesh, const Vector3 &force, std::size_t freedom) {
        HandTank t = TwistedBeam(mesh);
        t.load(t.nodeAt({12, 0, 0}), force);
        return Moved(t, Analysis(t.tank).solve(kPoint), {12, 0, 0}, freedom);
    };
    e.values = [tip](std::size_t mesh) {
        return std::vector<double>{tip(mesh, {0, 0, 1}, 2), tip(mesh, {0, 1, 0}, 1)};
    };
    e.sketch = SketchOf(
        [] {
            HandTank t = TwistedBeam(0);
            t.load(t.nodeAt({12, 0, 0}), {0, 0, 1});
            return t.tank;
        },
        kPoint);
    return e;
}

} // namespace

std::vector<Example> BeamExamples() {
    return {StraightBeams("macneal-beam-rectangles", "rectangles", Slant::None),
            StraightBeams("macneal-beam-parallelograms", "parallelograms", Slant::Same),
            StraightBeams("macneal-beam-trapezoids", "trapezoids", Slant::Opposite), CurvedBeams(), TwistedBeams()};
}

} // namespace havuz::verification
