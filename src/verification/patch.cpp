// MacNeal and Harder's patch and thick-walled cylinder: plates in their plane, the patch bent as well. Source: R. H.
// MacNeal and R. L. Harder, Finite Elements in Analysis and Design 1 (1985) 3-20.
#include "consistent/shell_element.h"
#include "verification/examples.h"
#include "verification/halved.h"

#include <cmath>

namespace havuz::verification {

namespace {

const char *const kSource = "MacNeal and Harder 1985";
const char *const kNotLiteral = "the run has E and ν of concrete only, and makes a rectangle of each mesh";

// 0.24 by 0.12 with slanted meshes inside, each of the five halved so many times.
Tank PatchOf(std::size_t halvings) {
    constexpr std::array<std::array<double, 2>, 8> places = {
        {{0, 0}, {.24, 0}, {.24, .12}, {0, .12}, {.04, .02}, {.18, .03}, {.16, .08}, {.08, .08}}};
    HandTank t(1e6, 0.25);
    const int p = t.panel(kPlain, 0.001);
    for (const auto &[x, y] : places)
        t.node({x, y, 0});
    t.mesh(p, 1, 2, 6, 5);
    t.mesh(p, 2, 3, 7, 6);
    t.mesh(p, 3, 4, 8, 7);
    t.mesh(p, 4, 1, 5, 8);
    t.mesh(p, 5, 6, 7, 8);
    Tank tank = t.tank;
    for (std::size_t k = 0; k < halvings; ++k)
        tank = Halved(tank);
    return tank;
}

bool OnRim(const Vector3 &at) { return Near(at.x, 0) || Near(at.x, .24) || Near(at.y, 0) || Near(at.y, .12); }

using Field = std::function<std::array<double, 6>(double, double)>;

Eigen::Index RowOf(int node, Eigen::Index freedom) { return 6 * (static_cast<Eigen::Index>(node) - 1) + freedom; }

std::vector<ShellElement> ElementsOf(const Tank &tank) {
    const ShellSection section{tank.E, tank.poisson, 0.001, 1.0, InnerModes::All};
    std::vector<ShellElement> elements;
    for (const TankMesh &m : tank.meshes)
        elements.emplace_back(Corners{tank.corner(m, 0), tank.corner(m, 1), tank.corner(m, 2), tank.corner(m, 3)},
                              section, "patch");
    return elements;
}

// Displacements of all nodes: those of the rim by the field, the others in balance.
Eigen::VectorXd PatchMoves(const Tank &tank, const std::vector<ShellElement> &elements, const Field &field) {
    const auto size = RowOf(static_cast<int>(tank.nodes.size()), 0);
    Eigen::MatrixXd k = Eigen::MatrixXd::Zero(size, size);
    for (std::size_t i = 0; i < elements.size(); ++i)
        for (std::size_t a = 0; a < 4; ++a)
            for (std::size_t b = 0; b < 4; ++b)
                k.block<6, 6>(RowOf(tank.meshes[i].node[a], 0), RowOf(tank.meshes[i].node[b], 0)) +=
                    elements[i].stiffness().block<6, 6>(6 * static_cast<Eigen::Index>(a),
                                                        6 * static_cast<Eigen::Index>(b));
    Eigen::VectorXd u = Eigen::VectorXd::Zero(size);
    std::vector<Eigen::Index> rim, inner;
    for (int n = 1; n < static_cast<int>(tank.nodes.size()); ++n) {
        const Vector3 &at = tank.nodes[static_cast<std::size_t>(n)].at;
        for (Eigen::Index d = 0; d < 6; ++d) {
            (OnRim(at) ? rim : inner).push_back(RowOf(n, d));
            if (OnRim(at))
                u(RowOf(n, d)) = field(at.x, at.y)[static_cast<std::size_t>(d)];
        }
    }
    const Eigen::MatrixXd held = k(inner, inner), moved = k(inner, rim);
    const Eigen::VectorXd pull = -moved * u(rim), balanced = held.ldlt().solve(pull);
    u(inner) = balanced;
    return u;
}

// Results come in the axes of their element: turned to X, Y.
LocalStress InPlan(const LocalStress &s, const Eigen::Matrix3d &axes) {
    LocalStress plan;
    const Eigen::Matrix2d turn = axes.topLeftCorner<2, 2>();
    for (Eigen::Index part = 0; part < 6; part += 3) {
        Eigen::Matrix2d tensor;
        tensor << s(part), s(part + 2), s(part + 2), s(part + 1);
        const Eigen::Matrix2d t = turn.transpose() * tensor * turn;
        plan.segment<3>(part) << t(0, 0), t(1, 1), t(0, 1);
    }
    return plan;
}

// Of all meshes at centre and corners.
std::vector<LocalStress> PatchStresses(const Tank &tank, const Field &field) {
    const std::vector<ShellElement> elements = ElementsOf(tank);
    const Eigen::VectorXd u = PatchMoves(tank, elements, field);
    std::vector<LocalStress> all;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        Vector24 at;
        for (std::size_t c = 0; c < 4; ++c)
            at.segment<6>(6 * static_cast<Eigen::Index>(c)) = u.segment<6>(RowOf(tank.meshes[i].node[c], 0));
        for (const LocalStress &s : elements[i].stresses(at))
            all.push_back(InPlan(s, elements[i].shape().axes()));
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

std::vector<double> PatchValues(const Tank &tank) {
    const std::vector<LocalStress> pulled = PatchStresses(tank, [](double x, double y) {
        return std::array<double, 6>{1e-3 * (x + y / 2), 1e-3 * (y + x / 2), 0, 0, 0, 0};
    });
    std::vector<LocalStress> bent = PatchStresses(tank, [](double x, double y) {
        return std::array<double, 6>{0, 0, 1e-3 * (x * x + x * y + y * y) / 2, 1e-3 * (y + x / 2), -1e-3 * (x + y / 2),
                                     0};
    });
    const double upward = bent.front()(3) < 0 ? -1 : 1; // tension above or below
    for (LocalStress &s : bent)
        s *= upward;
    return {Farthest(pulled, 0, 1.0 / .75) / 1e-3, Farthest(pulled, 2, .4) / 1e-3, Farthest(bent, 3, 1e-6 / 9) * 1e7,
            Farthest(bent, 5, 1e-6 / 30) * 1e7};
}

Example Patch() {
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
    e.meshes = {"5 meshes", "20 meshes", "80 meshes"};
    e.notLiteral = kNotLiteral;
    e.values = [](std::size_t mesh) { return PatchValues(PatchOf(mesh)); };
    e.sketch = SketchOf([] { return PatchOf(0); }, kPoint);
    return e;
}

// A quarter of a ring, radii 3 and 9, pressed by 1 from inside. In plane strain a plate has E/(1 - v2) and v/(1 - v).
HandTank ThickCylinder(std::size_t mesh, double poisson) {
    constexpr double E = 1000;
    constexpr std::array<double, 6> radii = {3, 3.5, 4.2, 5.2, 6.75, 9}; // of the source's five rows
    HandTank t(E / (1 - poisson * poisson), poisson / (1 - poisson));
    const int p = t.panel(kPlain, 1), rows = 5 << mesh, columns = 9 << mesh;
    const int first = t.grid(p, columns, rows, [&](double s, double v) {
        const auto row = std::min(static_cast<std::size_t>(5 * v + 1e-9), std::size_t{4});
        const double r = radii[row] + (5 * v - static_cast<double>(row)) * (radii[row + 1] - radii[row]);
        return Vector3{r * std::cos(kPi / 2 * s), r * std::sin(kPi / 2 * s), 0};
    });
    t.hold(16 | 32 | 1 | 2 | 64, [](const Vector3 &at) { return Near(at.y, 0); });
    t.hold(8 | 32 | 1 | 2 | 64, [](const Vector3 &at) { return Near(at.x, 0); });
    t.hold(32, [](const Vector3 &) { return true; });
    for (int i = 0; i < columns; ++i) { // the pressure on a chord, half at each end
        TankNode &a = t.tank.nodes[static_cast<std::size_t>(first + i)];
        TankNode &b = t.tank.nodes[static_cast<std::size_t>(first + i + 1)];
        const Vector3 chord = b.at - a.at, half{chord.y / 2, -chord.x / 2, 0};
        a.load = a.load + half;
        b.load = b.load + half;
    }
    return t;
}

Example ThickCylinders() {
    Example e;
    e.key = "macneal-thick-cylinder";
    e.title = "Thick-walled cylinder in plane strain";
    e.words =
        "Radii 3 and 9, thickness 1, E 1000, pressed by 1 from inside; a quarter in place of 10 degrees of it, with "
        "meshes of 10 degrees and the source's five rows. The plate takes E/(1 − ν²) and ν/(1 − ν). Radial "
        "displacement of the inner face, 10⁻³.";
    e.notLiteral = kNotLiteral;
    e.meshes = {"9 x 5", "18 x 10", "36 x 20"};
    constexpr std::array<double, 3> poisson = {.49, .499, .4999}, target = {5.0399, 5.0602, 5.0623};
    const std::array<std::string, 3> names = {"ν 0.49", "ν 0.499", "ν 0.4999"};
    for (std::size_t i = 0; i < 3; ++i)
        e.quantities.push_back({names[i], "", target[i], "MacNeal and Harder 1985, by Lamé's formula",
                                "chords of 10 degrees in place of arcs"});
    e.values = [=](std::size_t mesh) {
        std::vector<double> values;
        for (const double v : poisson) {
            const HandTank t = ThickCylinder(mesh, v);
            values.push_back(1000 * Moved(t, Analysis(t.tank).solve(kPoint), {3, 0, 0}, 0));
        }
        return values;
    };
    e.sketch = SketchOf([] { return ThickCylinder(0, .49).tank; }, kPoint);
    return e;
}

} // namespace

std::vector<Example> PatchExamples() { return {Patch(), ThickCylinders()}; }

} // namespace havuz::verification
