// What the rules of the run, kept to the letter, make of practical tanks: beside statics and beside the consistent
// analysis at finer meshes. t, m, t.m/m.
#include "consistent/run_model.h"
#include "consistent/stress_axes.h"
#include "model/store.h"
#include "verification/examples.h"
#include "verification/outcome.h"

#include <cmath>
#include <stdexcept>

namespace havuz::verification {

namespace {

// M22 at a place of a panel.
double FootMoment(const Tank &tank, const CaseResult &r, int panel, const Vector3 &at) {
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k) {
            const Vector3 d = tank.corner(tank.meshes[i], k) - at;
            if (tank.meshes[i].panel == panel && Dot(d, d) < 1e-6)
                return r.meshes[i][k + 1].M22;
        }
    throw std::logic_error("no corner at the foot");
}

// The greatest of all walls, of their feet alone where asked.
double GreatestVerticalMoment(const Tank &tank, const CaseResult &r, bool feet) {
    double most = 0;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 1; k <= 4 && tank.panelOf(tank.meshes[i]).kind == 1; ++k)
            if (!feet || Near(tank.corner(tank.meshes[i], k - 1).z, 0))
                most = std::max(most, std::fabs(r.meshes[i][k].M22));
    return most;
}

Combination Alone(Case c) {
    Combination sum{"x", {}};
    sum.factor[static_cast<std::size_t>(c)] = 1.0;
    return sum;
}

const Combination kBoth{"x", {0, 0, 0, 1, 1, 0, 0, 0}}, kWaterAll{"x", {0, 0, 0, 0, 0, 1, 1, 0}};
const std::vector<double> kFromOne = {1, 0.5, 0.25}, kFromTwo = {2, 1, 0.5};
const char *const kFine = "the consistent analysis at meshes of half the finest width here";

// Where a foot moment is taken, and of what: a load column of the run, and what it should be.
struct Foot {
    int panel;
    Vector3 at;
    int column;
    Combination sum;
};

Outcome FootMomentOf(const std::string &key, const std::string &title, const std::string &words,
                     const Parameters &parameters, const Foot &foot, Quantity quantity) {
    Outcome o;
    o.key = key;
    o.title = title;
    o.words = words;
    o.tank = Rectangular(parameters);
    o.widths = kFromOne;
    quantity.name = "foot moment in the middle of the long wall";
    quantity.unit = "t.m/m";
    o.quantities = {std::move(quantity)};
    o.consistent = [=](const Tank &t) {
        return std::vector<double>{FootMoment(t, Analysis(t).solve(foot.sum), foot.panel, foot.at)};
    };
    o.literal = [=](const Tank &t) {
        return std::vector<double>{FootMoment(t, ColumnOfRun(t, foot.column), foot.panel, foot.at)};
    };
    return o;
}

Outcome AboveGround() {
    Outcome o = FootMomentOf("literal-above-ground", "12 x 6 x 4 m above ground, liquid 3.7 m",
                             "No strip, walls 30, base 40 cm. In the run's column \"liquid and soil\" the soil, which "
                             "reaches no wall, takes "
                             "over the pressure of the liquid and turns it inward: both cancel.",
                             TwelveBySix({{&SiviKotu, 3.7}, {&ToprakKotu, 0}}), {3, {6, 0, 0}, kColumnBoth, kBoth},
                             {"", "", 5.31, "an independent computation of the same tank at fine meshes", "",
                              "the soil's column takes the liquid away again; the column \"liquid\" alone has it"});
    o.literalMesh = 1;
    return o;
}

Outcome SoilAlone() {
    Outcome o = FootMomentOf(
        "literal-soil", "20 x 10 x 5 m, soil 2.5 m, column \"soil\"",
        "No strip, walls 40, base 50 cm, full of liquid to 3 m in the other columns.",
        {{&Lx, 20}, {&Ly, 10}, {&UstKot, 5}, {&Bk, 0}, {&KenarKalinlik, 40}, {&AltKalinlik, 50}, {&ToprakKotu, 2.5}},
        {3, {10, 0, 0}, kColumnSoil, Alone(kSoil)},
        {"", "", -1.52, "an independent computation of the same tank at meshes of 1 m",
         "the finer mesh bends its foot more sharply; the target is that of meshes of 1 m",
         "above the soil the walls keep the pressure of the liquid, inward"});
    o.widths = kFromTwo;
    o.literalMesh = 1;
    o.drawn = kSoil;
    return o;
}

Outcome WaterRepeats() {
    Outcome o =
        FootMomentOf("literal-water-repeats", "10 x 5 x 3 m, soil 2.5 m, no groundwater: column \"groundwater\"",
                     "Where there is no groundwater the run's column of it repeats the pressure of the soil. "
                     "Differences are told in parts of 1 t.m/m.",
                     {{&ToprakKotu, 2.5}, {&YeraltiSuKotu, 0}, {&SiviKotu, 0}}, {3, {5, 0, 0}, kColumnWater, kWaterAll},
                     {"", "", 0, "statics: there is no water", "", "the wall keeps the pressure of the soil", 1.0});
    o.drawn = kSoil;
    return o;
}

Outcome LiquidAlone() {
    Outcome o = FootMomentOf(
        "literal-liquid", "10 x 5 x 3 m, liquid 2.9 m, column \"liquid\"", "A column in which the rules do no harm.",
        {{&SiviKotu, 2.9}, {&ToprakKotu, 0}}, {3, {5, 0, 0}, kColumnLiquid, Alone(kLiquid)},
        {"", "", 1.38904, kFine, "the strip on the wall is stiff in its plane while it is few meshes across",
         "the run's element and its shares of nodes at this width"});
    o.finer = {0};
    return o;
}

// Force and moment of a load column on the wall at y = 0, a metre.
Outcome LevelOnEdge(const std::string &key, std::size_t literalMesh) {
    Outcome o;
    o.key = key;
    o.title = std::string("10 x 5 x 4 m, liquid 3.0 m: a level on a mesh edge, run with meshes of ") +
              (literalMesh == 0 ? "1" : "0.5") + " m";
    o.words = "The run drops the pressure of the row whose upper edge lies in the level.";
    o.tank = Rectangular({{&UstKot, 4}, {&SiviKotu, 3}, {&ToprakKotu, 0}});
    o.widths = kFromOne;
    o.literalMesh = literalMesh;
    const std::string row = "the row below the level has no pressure";
    o.quantities = {{"force on the long wall", "t/m", 4.5, "statics: w d²/2", "", row},
                    {"its moment about the foot", "t.m/m", 4.5, "statics: w d³/6", "", row}};
    o.consistent = [](const Tank &t) {
        for (const WallForce &wall : WallForces(t, kLiquid))
            if (wall.panel == 3)
                return std::vector<double>{wall.force / wall.length, wall.moment / wall.length};
        throw std::logic_error("no wall 3");
    };
    o.literal = [](const Tank &t) {
        double force = 0, moment = 0;
        const std::vector<Vector3> forces = ForcesOfRun(t, kColumnLiquid);
        for (std::size_t n = 1; n < forces.size(); ++n)
            if (Near(t.nodes[n].at.y, 0)) {
                force += std::fabs(forces[n].y) / 10;
                moment += std::fabs(forces[n].y) * t.nodes[n].at.z / 10;
            }
        return std::vector<double>{force, moment};
    };
    return o;
}

// The vertical sum of a case beside that of a column of the run; sign: of what counts as positive.
void SumVertically(Outcome &o, Case load, int column, double sign) {
    o.drawn = load;
    o.consistent = [=](const Tank &t) { return std::vector<double>{sign * SumOfZ(NodalLoads(t, load))}; };
    o.literal = [=](const Tank &t) { return std::vector<double>{sign * SumOfZ(ForcesOfRun(t, column))}; };
}

Outcome Uplift(const std::string &key, const std::string &title, const Parameters &parameters, double target) {
    Outcome o;
    o.key = key;
    o.title = title;
    o.words = "The run takes the water's head from the top of the slab, on the unsafe side.";
    Parameters all = {{&Lx, 8}, {&Ly, 8}, {&Bk, 0}, {&KenarKalinlik, 40}};
    all.insert(all.end(), parameters.begin(), parameters.end());
    o.tank = Rectangular(all);
    o.widths = kFromTwo;
    o.literalMesh = 1;
    o.quantities = {
        {"uplift", "t", target, "statics: water times area", "", "the head is short by the thickness of the slab"}};
    SumVertically(o, kUplift, kColumnWater, 1);
    return o;
}

std::vector<std::pair<double, double>> Hexagon(double side) {
    std::vector<std::pair<double, double>> points;
    for (int k = 0; k < 6; ++k)
        points.emplace_back(side * std::cos(k * kPi / 3), side * std::sin(k * kPi / 3));
    return points;
}

Outcome Weight(const std::string &key, const std::string &title, const PolygonShape &shape, double target,
               const std::string &source) {
    Outcome o;
    o.key = key;
    o.title = title;
    o.words = "Walls 30, base 40 cm, 3 m high. The run gives the walls of a polygon no weight of their own.";
    o.tank = Polygon(shape, {});
    o.widths = kFromOne;
    o.quantities = {
        {"weight", "t", target, source,
         "the program's own mesher runs past the outline at the inner corner and stops short of it in the walls; "
         "its mesh report names the places",
         "the walls weigh nothing"}};
    SumVertically(o, kDead, kColumnDead, -1);
    return o;
}

// How far any moment of the run lies from what its own equations give in doubles, as a part of the greatest one.
double ErrorOfCells(const Tank &tank, int code, const CaseResult &column) {
    const RunModel run(tank);
    const Vector u = run.solve(ForcesOfRun(tank, code));
    const std::vector<AxesOfMesh> axes = StressAxes(tank, FindWallSides(tank));
    double greatest = 0, off = 0;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 1; k <= 4; ++k) {
            const auto exact = run.momentsAt(i, static_cast<int>(k), u, axes[i][k]);
            const ShellResult &r = column.meshes[i][k];
            greatest = std::max({greatest, std::fabs(exact[0]), std::fabs(exact[1])});
            off = std::max({off, std::fabs(r.M11 - exact[0]), std::fabs(r.M22 - exact[1])});
        }
    return off / greatest;
}

Outcome RingInCells() {
    Outcome o;
    o.key = "literal-circular";
    o.title = "Circular, 10 m, 3 m high, as the library gives it";
    o.words = "The stiff ring of narrow meshes around the middle of the floor is more than 32-bit cells hold; the run "
              "says so by its residual.";
    o.tank = Circular({{&Lx, 10}, {&ToprakKotu, 0}});
    o.widths = kFromOne;
    o.literalMesh = 1;
    o.quantities = {{"greatest vertical moment of the wall, column \"liquid\"", "t.m/m", 0.236881, kFine,
                     "the wall bends within a mesh or two of its foot", "32-bit cells, and the width of the meshes"},
                    {"greatest error of a moment by its own cells, part of the greatest moment", "", 0,
                     "the run's own equations solved in doubles", "", "32-bit cells", 1.0}};
    o.consistent = [](const Tank &t) {
        return std::vector<double>{GreatestVerticalMoment(t, Analysis(t).solve(kLiquid), false), std::nan("")};
    };
    o.literal = [](const Tank &t) {
        const CaseResult column = ColumnOfRun(t, kColumnLiquid);
        return std::vector<double>{GreatestVerticalMoment(t, column, false), ErrorOfCells(t, kColumnLiquid, column)};
    };
    o.finer = {0};
    return o;
}

MakeTank TurnedSquare(double degrees, Mesher mesher) {
    const double c = std::cos(degrees * kPi / 180), s = std::sin(degrees * kPi / 180);
    std::vector<std::pair<double, double>> points;
    for (const auto &[x, y] : {std::pair(0., 0.), std::pair(8., 0.), std::pair(8., 8.), std::pair(0., 8.)})
        points.emplace_back(c * x - s * y, s * x + c * y);
    return Polygon(Shape(points), {{&SiviKotu, 2.9}, {&ToprakKotu, 0}}, mesher);
}

// Greatest moment of the walls' feet and greatest settlement, mm.
std::vector<double> FootAndSettlement(const Tank &t, const CaseResult &r) {
    double settlement = 0;
    for (const TankMesh &m : t.meshes)
        for (const int n : m.node)
            settlement = std::max(settlement, -1000 * r.nodes[static_cast<std::size_t>(n)].u[2]);
    return {GreatestVerticalMoment(t, r, true), settlement};
}

// A square of 8 m turned about its first corner; along: what it is along the axes.
Outcome Turned(const std::string &key, double degrees, const std::vector<double> &along) {
    Outcome o;
    o.key = key;
    o.title = "Square of 8 m turned by " + std::to_string(static_cast<int>(degrees)) + " degrees, liquid 2.9 m";
    o.words =
        "3 m high, walls 30, base 40 cm. The run has the mesh of the program's own mesher: its floor is no longer "
        "made of rectangles, and the run makes rectangles of it. The consistent analysis has the sound mesh; of "
        "the square turned by 45 degrees it refuses the other at finer widths, where meshes overlap.";
    o.tank = TurnedSquare(degrees, Mesher::Sound);
    o.ofRun = TurnedSquare(degrees, Mesher::Own);
    o.widths = kFromOne;
    const std::string source = "the same tank along the axes, consistent analysis, meshes of 0.25 m",
                      skew = "the mesh of the turned floor is skew at its border",
                      literally = "trapezoids of the floor are taken as rectangles";
    o.quantities = {{"greatest moment of the walls' feet", "t.m/m", along[0], source, skew, literally},
                    {"greatest settlement", "mm", along[1], source, skew, literally}};
    o.consistent = [=](const Tank &t) { return FootAndSettlement(t, Analysis(t).solve(kLiquid)); };
    o.literal = [=](const Tank &t) { return FootAndSettlement(t, ColumnOfRun(t, kColumnLiquid)); };
    return o;
}

} // namespace

std::vector<Example> LiteralOutcomes() {
    std::vector<Outcome> all = {AboveGround(),
                                SoilAlone(),
                                WaterRepeats(),
                                LiquidAlone(),
                                LevelOnEdge("literal-level-on-edge", 0),
                                LevelOnEdge("literal-level-on-edge-fine", 1)};
    all.push_back(Uplift("literal-uplift-deep", "8 x 8 x 6 m, base 60 cm, groundwater 4 m above its underside",
                         {{&UstKot, 6}, {&AltKalinlik, 60}, {&YeraltiSuKotu, 4}}, 256));
    all.push_back(Uplift("literal-uplift-shallow", "8 x 8 x 3 m, base 40 cm, groundwater 1.4 m above its underside",
                         {{&UstKot, 3}, {&AltKalinlik, 40}, {&YeraltiSuKotu, 1.4}}, 89.6));
    all.push_back(Weight("literal-weight-l", "L-shaped, 8 x 8 m: its weight", LShape(), 120,
                         "statics: 2.5 (48 · 0.40 + 32 · 3 · 0.30)"));
    all.push_back(Weight("literal-weight-hexagon", "Hexagon of 4 m sides: its weight", Shape(Hexagon(4)),
                         2.5 * (24 * std::sqrt(3.0) * 0.4 + 24 * 3 * 0.3),
                         "statics: 2.5 (24 √3 · 0.40 + 24 · 3 · 0.30)"));
    all.push_back(RingInCells());
    const Tank axes = TurnedSquare(0, Mesher::Sound)(0.25);
    const std::vector<double> along = FootAndSettlement(axes, Analysis(axes).solve(kLiquid));
    all.push_back(Turned("literal-turned-20", 20, along));
    all.push_back(Turned("literal-turned-45", 45, along));
    std::vector<Example> examples;
    for (const Outcome &o : all)
        examples.push_back(AsExample(o));
    return examples;
}

} // namespace havuz::verification
