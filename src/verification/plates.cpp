// Rectangular plates by a quarter or the whole of them, pressed evenly, by a triangular load, or at a point. Source:
// S. Timoshenko and S. Woinowsky-Krieger, "Theory of Plates and Shells", 1959; R. H. MacNeal and R. L. Harder, Finite
// Elements in Analysis and Design 1 (1985) 3-20.
#include "verification/examples.h"
#include "verification/ritz.h"

#include <cmath>

namespace havuz::verification {

namespace {

constexpr double kE = kConcreteE, kPoisson = kConcretePoisson;
constexpr double kThickness = 0.01;
const char *const kBook = "Timoshenko and Woinowsky-Krieger";

double RigidityOf(const HandTank &t) {
    return PlateRigidity(t.tank.E, t.tank.poisson, t.tank.panels.begin()->second.thickness);
}

using Press = std::function<double(double, double)>;

// Downward forces of a pressure that is bilinear in a mesh or nearly, on nodes of rectangular meshes: Gauss 2 x 2.
void PressOn(HandTank &t, const Press &press) {
    for (const TankMesh &m : t.tank.meshes) {
        const Vector3 p = t.tank.corner(m, 0), size = t.tank.corner(m, 2) - p;
        for (const double s : {-1 / std::sqrt(3.0), 1 / std::sqrt(3.0)})
            for (const double v : {-1 / std::sqrt(3.0), 1 / std::sqrt(3.0)}) {
                const double x = (1 + s) / 2, y = (1 + v) / 2;
                const double q = press(p.x + x * size.x, p.y + y * size.y) * size.x * size.y / 4;
                const std::array<double, 4> share = {(1 - x) * (1 - y), x * (1 - y), x * y, (1 - x) * y};
                for (std::size_t k = 0; k < 4; ++k)
                    t.tank.nodes[static_cast<std::size_t>(m.node[k])].load.z -= q * share[k];
            }
    }
}

int BitsOf(Edge edge) { return edge == Edge::Clamped ? kClamped : edge == Edge::Hinged ? 4 : 0; }

// A quarter of a plate of a by b, its edges at x = 0 and y = 0 held, the other two lines of symmetry.
HandTank Quarter(double a, double b, int columns, int rows, Edge rim, double E, double poisson, double thickness) {
    HandTank t(E, poisson);
    const int p = t.panel(kPlain, thickness);
    t.grid(p, columns, rows, [&](double s, double v) { return Vector3{s * a / 2, v * b / 2, 0}; });
    t.hold(BitsOf(rim), [](const Vector3 &at) { return Near(at.x, 0) || Near(at.y, 0); });
    t.hold(2, [&](const Vector3 &at) { return Near(at.x, a / 2); });
    t.hold(1, [&](const Vector3 &at) { return Near(at.y, b / 2); });
    return t;
}

std::string Labels(std::size_t mesh) { return mesh == 0 ? "4 x 4" : mesh == 1 ? "8 x 8" : "16 x 16"; }
int Divisions(std::size_t mesh) { return 4 << mesh; }

// A square plate of side 1 under a load of 1 in all; w D / (q a4) and M / (q a2).
Example SquarePlate(const std::string &key, Edge rim, bool spread, std::vector<Quantity> quantities) {
    Example e;
    e.key = key;
    e.title = std::string(rim == Edge::Hinged ? "Hinged" : "Clamped") + " square plate, " +
              (spread ? "even load" : "load in the middle");
    e.words = "Side a, thickness a/100, a quarter of it with lines of symmetry. Deflection as w·D/(" +
              std::string(spread ? "q·a⁴" : "P·a²") + ")" + (spread ? ", moments as M/(q·a²)." : ".");
    if (rim == Edge::Hinged && spread)
        e.words += " The moment in the middle is told for Poisson's ratio 0.3: it goes with 1 + ν.";
    e.quantities = std::move(quantities);
    e.meshes = {Labels(0), Labels(1), Labels(2)};
    const auto tank = [=](std::size_t mesh) {
        HandTank t = Quarter(1, 1, Divisions(mesh), Divisions(mesh), rim, kE, kPoisson, kThickness);
        if (spread)
            PressOn(t, [](double, double) { return 1.0; });
        else
            t.load(t.nodeAt({0.5, 0.5, 0}), {0, 0, -0.25});
        return t;
    };
    const auto measure = [=](const HandTank &t, const CaseResult &r) {
        const Vector3 middle{0.5, 0.5, 0};
        std::vector<double> values = {-Moved(t, r, middle, 2) * RigidityOf(t)};
        if (spread)
            values.push_back(-MeanAt(t, r, middle, &ShellResult::M11) * 1.3 / (1 + t.tank.poisson));
        if (spread && rim == Edge::Clamped)
            values.push_back(MeanAt(t, r, {0, 0.5, 0}, &ShellResult::M11));
        return values;
    };
    TakeModel(e, {tank, kPoint, measure, true});
    return e;
}

RitzSolution SquareByRitz(Edge rim, Press press) {
    return RitzSolution({1, 1, 1, 0.3, {rim, rim, rim, rim}, std::move(press), 16});
}

const char *const kCorner = "the thin plate's deflection under a point is the limit of many meshes; the difference "
                            "falls with the square of the width";

const char *const kWidthSays =
    "the middle width; the consistent value of that width differs as much, and both fall with "
    "the square of the width";

std::vector<Example> SquarePlates() {
    const Press even = [](double, double) { return 1.0; };
    const RitzSolution hinged = SquareByRitz(Edge::Hinged, even), clamped = SquareByRitz(Edge::Clamped, even);
    const std::string ritz = "; digits behind by Ritz's method here";
    return {
        SquarePlate(
            "plate-hinged-even", Edge::Hinged, true,
            {{"deflection in the middle", "", hinged.deflection(.5, .5),
              std::string(kBook) + ", table 8: 0.00406" + ritz},
             {"moment in the middle", "", hinged.momentX(.5, .5), std::string(kBook) + ", table 8: 0.0479" + ritz}}),
        SquarePlate("plate-clamped-even", Edge::Clamped, true,
                    {{"deflection in the middle", "", clamped.deflection(.5, .5),
                      std::string(kBook) + ", table 35: 0.00126" + ritz},
                     {"moment in the middle", "", clamped.momentX(.5, .5),
                      std::string(kBook) + ", table 35: 0.0231; the digits here by Ritz's method: 0.02291, the table "
                                           "is rounded up"},
                     {"moment in the middle of an edge", "", -clamped.momentX(0, .5),
                      std::string(kBook) + ", table 35: 0.0513" + ritz}}),
        SquarePlate("plate-hinged-point", Edge::Hinged, false,
                    {{"deflection in the middle", "", 0.0116008, std::string(kBook) + ", table 23: 0.01160", kCorner}}),
        SquarePlate(
            "plate-clamped-point", Edge::Clamped, false,
            {{"deflection in the middle", "", 0.00561202, std::string(kBook) + ", table 37: 0.00560", kCorner}}),
    };
}

// A whole plate, its foot at y = 0, under a load that falls from 1 at the foot to 0 at the top, or of 1 everywhere.
// printed: what a book has of it.
Example WallPlate(const std::string &key, const std::string &title, double a, std::array<Edge, 4> edge, bool triangle,
                  const std::string &printed) {
    const Press press =
        triangle ? Press([](double, double y) { return 1 - y; }) : Press([](double, double) { return 1.0; });
    const RitzSolution exact({a, 1, 1, kPoisson, edge, press, 16});
    const bool open = edge[3] == Edge::Free, clamped = edge[2] == Edge::Clamped;
    const std::string source = "Ritz's method here, 16 x 16 polynomials; " + printed;
    Example e;
    e.key = key;
    e.title = title;
    e.words = "Width " + std::string(a == 1.0 ? "1" : "1.5") + ", height 1, thickness 0.01; " +
              (triangle ? "pressure 1 at the foot and 0 at the top" : "pressure 1") +
              "; Poisson's ratio 0.25. Deflections times D, moments as they are: both go with the pressure.";
    e.quantities.push_back({open ? "deflection in the middle of the free edge" : "deflection in the middle", "",
                            exact.deflection(a / 2, open ? 1 : .5), source, "", kWidthSays});
    if (clamped) {
        e.quantities.push_back({"moment at the foot", "", -exact.momentY(a / 2, 0), source, "", kWidthSays});
        e.quantities.push_back({"moment of the side, half way up", "", -exact.momentX(0, .5), source, "", kWidthSays});
    } else {
        e.quantities.push_back({"moment across, in the middle", "", exact.momentX(a / 2, .5), source});
    }
    e.meshes = {Labels(0), Labels(1), Labels(2)};
    const auto tank = [=](std::size_t mesh) {
        HandTank t(kE, kPoisson);
        const int p = t.panel(kPlain, kThickness);
        t.grid(p, Divisions(mesh), Divisions(mesh), [&](double s, double v) { return Vector3{s * a, v, 0}; });
        t.hold(BitsOf(edge[0]), [&](const Vector3 &at) { return Near(at.x, 0) || Near(at.x, a); });
        t.hold(BitsOf(edge[2]), [](const Vector3 &at) { return Near(at.y, 0); });
        t.hold(BitsOf(edge[3]), [](const Vector3 &at) { return Near(at.y, 1); });
        PressOn(t, press);
        return t;
    };
    const auto measure = [=](const HandTank &t, const CaseResult &r) {
        std::vector<double> values = {-Moved(t, r, {a / 2, open ? 1 : .5, 0}, 2) * RigidityOf(t)};
        if (clamped) {
            values.push_back(MeanAt(t, r, {a / 2, 0, 0}, &ShellResult::M22));
            values.push_back(MeanAt(t, r, {0, .5, 0}, &ShellResult::M11));
        } else {
            values.push_back(-MeanAt(t, r, {a / 2, .5, 0}, &ShellResult::M11));
        }
        return values;
    };
    TakeModel(e, {tank, kPoint, measure, true});
    return e;
}

std::vector<Example> WallPlates() {
    using enum Edge;
    const std::string book = kBook, atThree = "at ν 0.3 it gives what " + book + " print",
                      none = "no book's table is at hand for ν 0.25";
    return {
        WallPlate("plate-hinged-triangle", "Hinged square plate, triangular load", 1, {Hinged, Hinged, Hinged, Hinged},
                  true,
                  "at ν 0.3 half of table 8 of " + book +
                      ", 0.00406/2 and 0.0479/2: what the load has besides its mean turns about the middle"),
        WallPlate("plate-clamped-triangle", "Clamped square plate, triangular load", 1,
                  {Clamped, Clamped, Clamped, Clamped}, true, atThree + " in article 44: 0.00063, 0.0334 and 0.0257"),
        WallPlate("plate-three-clamped-even", "Three edges clamped, the upper free, even load", 1.5,
                  {Clamped, Clamped, Clamped, Free}, false, none),
        WallPlate("plate-three-clamped-triangle", "Three edges clamped, the upper free, triangular load", 1.5,
                  {Clamped, Clamped, Clamped, Free}, true, none),
        WallPlate("plate-three-hinged-even", "Three edges hinged, the upper free, even load", 1.5,
                  {Hinged, Hinged, Hinged, Free}, false,
                  atThree + " in article 46: 0.00968 of the width's fourth power and 0.055 of its square"),
        WallPlate("plate-three-hinged-triangle", "Three edges hinged, the upper free, triangular load", 1.5,
                  {Hinged, Hinged, Hinged, Free}, true, atThree + " of a square in article 46: 0.00368 and 0.0331")};
}

// MacNeal and Harder's plates: 2 by 2 and 2 by 10.
HandTank StandardPlate(std::size_t mesh, double b, Edge rim, bool spread) {
    HandTank t = Quarter(2, b, 2 << mesh, 2 << mesh, rim, 1.7472e7, 0.3, 1e-4);
    if (spread)
        PressOn(t, [](double, double) { return 1e-4; });
    else
        t.load(t.nodeAt({1, b / 2, 0}), {0, 0, -1e-4});
    return t;
}

Example StandardPlates() {
    Example e;
    e.key = "macneal-plates";
    e.title = "MacNeal and Harder's rectangular plates";
    e.words = "2 by 2 and 2 by 10, thickness 0.0001, E 1.7472·10⁷, ν 0.3; pressure 10⁻⁴ or a force of 4·10⁻⁴ in the "
              "middle; a quarter of each. Deflection in the middle. The picture shows the hinged square.";
    e.meshes = {"2 x 2", "4 x 4", "8 x 8"};
    e.notLiteral = "the run has E and ν of concrete only";
    struct Row {
        double b;
        Edge rim;
        bool spread;
        double target;
    };
    const std::vector<Row> rows = {{2, Edge::Hinged, true, 4.062},  {10, Edge::Hinged, true, 12.97},
                                   {2, Edge::Clamped, true, 1.26},  {10, Edge::Clamped, true, 2.56},
                                   {2, Edge::Hinged, false, 11.60}, {10, Edge::Hinged, false, 16.96},
                                   {2, Edge::Clamped, false, 5.60}, {10, Edge::Clamped, false, 7.23}};
    for (const Row &row : rows)
        e.quantities.push_back({std::string(row.rim == Edge::Hinged ? "hinged" : "clamped") + ", aspect " +
                                    (row.b > 2 ? "5" : "1") + (row.spread ? ", even" : ", point"),
                                "", row.target, "MacNeal and Harder 1985, rectangular plate",
                                row.b > 2
                                    ? "meshes are five times as long as wide; the difference falls with their size"
                                    : "the difference falls with the square of the width"});
    e.values = [rows](std::size_t mesh) {
        std::vector<double> values;
        for (const Row &row : rows) {
            const HandTank t = StandardPlate(mesh, row.b, row.rim, row.spread);
            values.push_back(-Moved(t, Analysis(t.tank).solve(kPoint), {1, row.b / 2, 0}, 2));
        }
        return values;
    };
    e.sketch = SketchOf([] { return StandardPlate(0, 2, Edge::Hinged, true).tank; }, kPoint);
    return e;
}

} // namespace

std::vector<Example> PlateExamples() {
    std::vector<Example> all = SquarePlates();
    for (Example &e : WallPlates())
        all.push_back(std::move(e));
    all.push_back(StandardPlates());
    return all;
}

} // namespace havuz::verification
