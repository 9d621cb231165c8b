// MacNeal and Harder's patch and beams. Source: R. H. MacNeal and R. L. Harder, "A proposed standard set of problems to
// test finite element accuracy", Finite Elements in Analysis and Design 1 (1985) 3-20.
#include "consistent/shell_element.h"
#include "verification/examples.h"
#include "verification/sketch.h"

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

std::string SketchOf(Beam beam, const Vector3 &force) {
    LoadEnd(beam.tank, beam.end, force);
    return Sketch(beam.tank.tank, NodalLoads(beam.tank.tank, kPoint));
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
    e.sketch = [=] { return SketchOf(StraightBeam(slant, 0), {0, 1, 0}); };
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
    e.sketch = [] { return SketchOf(CurvedBeam(0), {0, 1, 0}); };
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
    e.sketch = [] {
        HandTank t = TwistedBeam(0);
        t.load(t.nodeAt({12, 0, 0}), {0, 0, 1});
        return Sketch(t.tank, NodalLoads(t.tank, kPoint));
    };
    return e;
}

// The patch: 0.24 by 0.12 with a slanted mesh inside, its rim moved by a field.
struct PatchNode {
    double x, y;
};
constexpr std::array<PatchNode, 8> kPatch = {
    {{0, 0}, {.24, 0}, {.24, .12}, {0, .12}, {.04, .02}, {.18, .03}, {.16, .08}, {.08, .08}}};
constexpr std::array<std::array<std::size_t, 4>, 5> kPatchMeshes = {
    {{0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}, {4, 5, 6, 7}}};

using Field = std::function<std::array<double, 6>(double, double)>;

Corners PatchCorners(const std::array<std::size_t, 4> &mesh) {
    Corners p;
    for (std::size_t k = 0; k < 4; ++k)
        p[k] = {kPatch[mesh[k]].x, kPatch[mesh[k]].y, 0};
    return p;
}

// Stresses of all meshes at centre and corners once the four inner nodes are in balance.
std::vector<LocalStress> PatchStresses(const Field &field) {
    const ShellSection section{1e6, 0.25, 0.001, 1.0, InnerModes::All};
    Eigen::MatrixXd k = Eigen::MatrixXd::Zero(48, 48);
    std::vector<ShellElement> elements;
    const auto row = [](std::size_t node, Eigen::Index d) { return 6 * static_cast<Eigen::Index>(node) + d; };
    for (const auto &mesh : kPatchMeshes) {
        elements.emplace_back(PatchCorners(mesh), section, "patch");
        for (std::size_t a = 0; a < 4; ++a)
            for (std::size_t b = 0; b < 4; ++b)
                k.block<6, 6>(row(mesh[a], 0), row(mesh[b], 0)) += elements.back().stiffness().block<6, 6>(
                    6 * static_cast<Eigen::Index>(a), 6 * static_cast<Eigen::Index>(b));
    }
    Eigen::VectorXd u = Eigen::VectorXd::Zero(48);
    for (std::size_t n = 0; n < 4; ++n)
        for (Eigen::Index d = 0; d < 6; ++d)
            u(row(n, d)) = field(kPatch[n].x, kPatch[n].y)[static_cast<std::size_t>(d)];
    u.tail<24>() = k.bottomRightCorner<24, 24>().ldlt().solve(-k.bottomLeftCorner<24, 24>() * u.head<24>());
    std::vector<LocalStress> all;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        Vector24 at;
        for (std::size_t c = 0; c < 4; ++c)
            at.segment<6>(6 * static_cast<Eigen::Index>(c)) = u.segment<6>(row(kPatchMeshes[i][c], 0));
        const Eigen::Matrix3d axes = elements[i].shape().axes(); // results come in these: turned to X, Y
        for (const LocalStress &s : elements[i].stresses(at)) {
            LocalStress global;
            for (Eigen::Index part = 0; part < 6; part += 3) {
                Eigen::Matrix2d tensor;
                tensor << s(part), s(part + 2), s(part + 2), s(part + 1);
                const Eigen::Matrix2d turn = axes.topLeftCorner<2, 2>();
                const Eigen::Matrix2d t = turn.transpose() * tensor * turn;
                global.segment<3>(part) << t(0, 0), t(1, 1), t(0, 1);
            }
            all.push_back(global);
        }
    }
    return all;
}

// The value that lies farthest from the target among all meshes and places.
double Farthest(const std::vector<LocalStress> &all, Eigen::Index component, double target) {
    double worst = target;
    for (const LocalStress &s : all)
        if (std::fabs(s(component) - target) > std::fabs(worst - target))
            worst = s(component);
    return worst;
}

std::vector<double> PatchValues() {
    const std::vector<LocalStress> pulled = PatchStresses(
        [](double x, double y) { return std::array<double, 6>{1e-3 * (x + y / 2), 1e-3 * (y + x / 2), 0, 0, 0, 0}; });
    const std::vector<LocalStress> bent = PatchStresses([](double x, double y) {
        return std::array<double, 6>{0, 0, 1e-3 * (x * x + x * y + y * y) / 2, 1e-3 * (y + x / 2), -1e-3 * (x + y / 2),
                                     0};
    });
    const auto moment = [&](Eigen::Index c, double target) {
        const double sign = bent.front()(c) < 0 ? -1 : 1; // tension above or below
        std::vector<LocalStress> turned = bent;
        for (LocalStress &s : turned)
            s *= sign;
        return Farthest(turned, c, target);
    };
    return {Farthest(pulled, 0, 1.0 / .75) / 1e-3, Farthest(pulled, 2, .4) / 1e-3, moment(3, 1e-6 / 9) * 1e7,
            moment(5, 1e-6 / 30) * 1e7};
}

} // namespace

std::vector<Example> PatchExamples() {
    Example e;
    e.key = "macneal-patch";
    e.title = "Patch test, membrane and bending";
    e.words =
        "0.24 by 0.12, thickness 0.001, E 10⁶, ν 0.25; the rim moved by u = 10⁻³(x + y/2), v = 10⁻³(y + x/2), or "
        "bent to w = 10⁻³(x² + xy + y²)/2. Of all meshes and places the value that lies farthest from the target.";
    e.quantities = {{"σx pulled", "", 4000.0 / 3, kSource},
                    {"τxy pulled", "", 400, kSource},
                    {"Mx bent, 10⁻⁷", "", 1.0 / .9, kSource},
                    {"Mxy bent, 10⁻⁷", "", 1.0 / 3, kSource}};
    e.meshes = {"5 meshes"};
    e.notLiteral = kNotLiteral;
    e.values = [](std::size_t) { return PatchValues(); };
    e.sketch = [] {
        HandTank t(1e6, .25);
        const int p = t.panel(kPlain, .001);
        for (const PatchNode &n : kPatch)
            t.node({n.x, n.y, 0});
        for (const auto &m : kPatchMeshes)
            t.mesh(p, static_cast<int>(m[0]) + 1, static_cast<int>(m[1]) + 1, static_cast<int>(m[2]) + 1,
                   static_cast<int>(m[3]) + 1);
        return Sketch(t.tank, {});
    };
    return {e};
}

std::vector<Example> BeamExamples() {
    return {StraightBeams("macneal-beam-rectangles", "rectangles", Slant::None),
            StraightBeams("macneal-beam-parallelograms", "parallelograms", Slant::Same),
            StraightBeams("macneal-beam-trapezoids", "trapezoids", Slant::Opposite), CurvedBeams(), TwistedBeams()};
}

} // namespace havuz::verification
