// What the rules of the run, kept to the letter, make of practical tanks: beside statics and beside the consistent
// analysis at finer meshes. t, m, t.m/m.
#include "consistent/run_model.h"
#include "consistent/stress_axes.h"
#include "fea/equations.h"
#include "model/store.h"
#include "verification/examples.h"
#include "verification/literal_run.h"
#include "verification/pools.h"
#include "verification/sketch.h"

#include <cmath>
#include <stdexcept>

namespace havuz::verification {

namespace {

using MakeTank = std::function<Tank(double width)>; // and leaves the model in the store

struct Outcome {
    std::string key, title, words;
    MakeTank tank;
    std::vector<double> widths; // the literal run at the first, an engineer's
    std::vector<Quantity> quantities;
    Case drawn = kLiquid;
    std::function<std::vector<double>(const Tank &)> consistent, literal;
};

Example Of(const Outcome &o) {
    Example e;
    e.key = o.key;
    e.title = o.title;
    e.words = o.words;
    e.quantities = o.quantities;
    for (const double width : o.widths) {
        const std::string text = std::to_string(width);
        e.meshes.push_back(text.substr(0, text.find_last_not_of("0.") + 1) + " m");
    }
    e.values = [o](std::size_t mesh) { return o.consistent(o.tank(o.widths[mesh])); };
    e.literal = [o] {
        const std::vector<double> values = o.literal(o.tank(o.widths[0]));
        return std::vector<std::optional<double>>(values.begin(), values.end());
    };
    e.sketch = [o] {
        const Tank tank = o.tank(1.0);
        return Sketch(tank, NodalLoads(tank, o.drawn));
    };
    return e;
}

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

// The load column of that code in a run of the model in the store.
CaseResult Column(const Tank &tank, int code) {
    const std::vector<int> codes = ColumnCodes();
    const std::vector<CaseResult> columns = RunStore(tank);
    for (std::size_t c = 0; c < codes.size(); ++c)
        if (codes[c] == code)
            return columns[c];
    throw std::logic_error("the run has no such column");
}

// Forces of the run's column of that code on the nodes.
std::vector<Vector3> RunForces(const Tank &tank, int code) {
    const std::vector<int> codes = ColumnCodes();
    for (std::size_t c = 0; c < codes.size(); ++c)
        if (codes[c] == code)
            return RunLoads(tank, LoadStep::AsTheyAre)[c];
    throw std::logic_error("the run has no such column");
}

constexpr int kColumnBoth = 1, kColumnLiquid = 2, kColumnSoil = 3, kColumnWater = 4;

const Combination kBoth{"x", {0, 0, 0, 1, 1, 0, 0, 0}}, kWaterAll{"x", {0, 0, 0, 0, 0, 1, 1, 0}};

Parameters With(Parameters parameters, double width) {
    for (int k = 0; k <= 3; ++k) // every load situation
        parameters.emplace_back(&YukDurum[k], 1.0);
    parameters.emplace_back(&MeshGenisligi, width);
    return parameters;
}

MakeTank Rectangular(const Parameters &parameters) {
    return [=](double width) { return LibraryPool(1, With(parameters, width)); };
}

MakeTank Polygon(PolygonShape shape, const Parameters &parameters) {
    return [=](double width) {
        PolygonShape meshed = shape;
        meshed.width = width;
        return PolygonTank(meshed, With(parameters, width));
    };
}

// The foot moment at a place of a panel in a load column of the run, and what it should be.
void AtFoot(Outcome &o, int panel, const Vector3 &at, int column, const Combination &sum) {
    o.consistent = [=](const Tank &t) { return std::vector<double>{FootMoment(t, Analysis(t).solve(sum), panel, at)}; };
    o.literal = [=](const Tank &t) { return std::vector<double>{FootMoment(t, Column(t, column), panel, at)}; };
}

Combination Alone(Case c) {
    Combination sum{"x", {}};
    sum.factor[static_cast<std::size_t>(c)] = 1.0;
    return sum;
}

const char *const kFine = "the consistent analysis at meshes of half the finest width here";

// The target of an outcome without a closed form: its own consistent value at half the finest width.
void TargetFromFiner(Outcome &o) {
    const std::vector<double> finer = o.consistent(o.tank(o.widths.back() / 2));
    for (std::size_t i = 0; i < finer.size(); ++i)
        o.quantities[i].target = finer[i];
}

std::vector<Outcome> FootMoments() {
    Outcome above;
    above.key = "literal-above-ground";
    above.title = "12 x 6 x 4 m above ground, liquid 3.7 m";
    above.words = "No strip, walls 30, base 40 cm. In the run's column \"liquid and soil\" the soil, which reaches no "
                  "wall, takes "
                  "over the pressure of the liquid and turns it inward: both cancel.";
    above.tank = Rectangular({{&Lx, 12},
                              {&Ly, 6},
                              {&UstKot, 4},
                              {&Bk, 0},
                              {&KenarKalinlik, 30},
                              {&AltKalinlik, 40},
                              {&SiviKotu, 3.7},
                              {&ToprakKotu, 0}});
    above.widths = {0.5, 0.25};
    above.quantities = {{"foot moment in the middle of the long wall", "t.m/m", 5.31,
                         "an independent computation of the same tank at fine meshes", "",
                         "the soil's column takes the liquid away again; the column \"liquid\" alone has it"}};
    AtFoot(above, 3, {6, 0, 0}, kColumnBoth, kBoth);

    Outcome soil;
    soil.key = "literal-soil";
    soil.title = "20 x 10 x 5 m, soil 2.5 m, column \"soil\"";
    soil.words = "No strip, walls 40, base 50 cm, full of liquid to 3 m in the other columns.";
    soil.tank = Rectangular(
        {{&Lx, 20}, {&Ly, 10}, {&UstKot, 5}, {&Bk, 0}, {&KenarKalinlik, 40}, {&AltKalinlik, 50}, {&ToprakKotu, 2.5}});
    soil.widths = {1, 0.5};
    soil.quantities = {{"foot moment in the middle of the long wall", "t.m/m", -1.52,
                        "an independent computation of the same tank at meshes of 1 m",
                        "the finer mesh bends its foot "
                        "more sharply; the target is that of meshes of 1 m",
                        "above the soil the walls keep the pressure of the liquid, inward"}};
    soil.drawn = kSoil;
    AtFoot(soil, 3, {10, 0, 0}, kColumnSoil, Alone(kSoil));

    Outcome repeats;
    repeats.key = "literal-water-repeats";
    repeats.title = "10 x 5 x 3 m, soil 2.5 m, no groundwater: column \"groundwater\"";
    repeats.words = "Where there is no groundwater the run's column of it repeats the pressure of the soil. "
                    "Differences are told in "
                    "parts of 1 t.m/m.";
    repeats.tank = Rectangular({{&ToprakKotu, 2.5}, {&YeraltiSuKotu, 0}, {&SiviKotu, 0}});
    repeats.widths = {1, 0.5};
    repeats.quantities = {{"foot moment in the middle of the long wall", "t.m/m", 0, "statics: there is no water", "",
                           "the wall keeps the pressure of the soil", 1.0}};
    repeats.drawn = kSoil;
    AtFoot(repeats, 3, {5, 0, 0}, kColumnWater, kWaterAll);

    Outcome liquid;
    liquid.key = "literal-liquid";
    liquid.title = "10 x 5 x 3 m, liquid 2.9 m, column \"liquid\"";
    liquid.words = "A column in which the rules do no harm.";
    liquid.tank = Rectangular({{&SiviKotu, 2.9}, {&ToprakKotu, 0}});
    liquid.widths = {1, 0.5};
    liquid.quantities = {{"foot moment in the middle of the long wall", "t.m/m", 0, kFine,
                          "the strip on the wall is stiff in its plane while it is few meshes across",
                          "the run's element and its shares of nodes at this width"}};
    AtFoot(liquid, 3, {5, 0, 0}, kColumnLiquid, Alone(kLiquid));
    TargetFromFiner(liquid);
    return {above, soil, repeats, liquid};
}

// Force and moment of a load column on the wall at y = 0, a metre.
Outcome LevelOnEdge(double width, const std::string &key) {
    Outcome o;
    o.key = key;
    const std::string text = width == 1.0 ? "1" : "0.5";
    o.title = "10 x 5 x 4 m, liquid 3.0 m, meshes of " + text + " m: a level on a mesh edge";
    o.words = "The run drops the pressure of the row whose upper edge lies in the level.";
    o.tank = Rectangular({{&UstKot, 4}, {&SiviKotu, 3}, {&ToprakKotu, 0}});
    o.widths = {width};
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
        const std::vector<Vector3> forces = RunForces(t, kColumnLiquid);
        for (std::size_t n = 1; n < forces.size(); ++n)
            if (Near(t.nodes[n].at.y, 0)) {
                force += std::fabs(forces[n].y) / 10;
                moment += std::fabs(forces[n].y) * t.nodes[n].at.z / 10;
            }
        return std::vector<double>{force, moment};
    };
    return o;
}

double SumOfZ(const std::vector<Vector3> &forces) {
    double sum = 0;
    for (const Vector3 &f : forces)
        sum += f.z;
    return sum;
}

Outcome Uplift(const std::string &key, double height, double base, double water, double target) {
    Outcome o;
    o.key = key;
    const std::string level = water == 4 ? "4" : "1.4", thick = base == 60 ? "60" : "40";
    o.title = "8 x 8 x " + std::string(height == 6 ? "6" : "3") + " m, base " + thick + " cm, groundwater " + level +
              " m above its underside";
    o.words = "The run takes the water's head from the top of the slab, on the unsafe side.";
    o.tank = Rectangular({{&Lx, 8},
                          {&Ly, 8},
                          {&UstKot, height},
                          {&Bk, 0},
                          {&KenarKalinlik, 40},
                          {&AltKalinlik, base},
                          {&YeraltiSuKotu, water}});
    o.widths = {1};
    o.quantities = {
        {"uplift", "t", target, "statics: water times area", "", "the head is short by the thickness of the slab"}};
    o.drawn = kUplift;
    o.consistent = [](const Tank &t) { return std::vector<double>{SumOfZ(NodalLoads(t, kUplift))}; };
    o.literal = [](const Tank &t) { return std::vector<double>{SumOfZ(RunForces(t, kColumnWater))}; };
    return o;
}

const std::vector<std::pair<double, double>> kL = {{0, 0}, {8, 0}, {8, 4}, {4, 4}, {4, 8}, {0, 8}};

std::vector<std::pair<double, double>> Hexagon(double side) {
    std::vector<std::pair<double, double>> points;
    for (int k = 0; k < 6; ++k)
        points.emplace_back(side * std::cos(k * kPi / 3), side * std::sin(k * kPi / 3));
    return points;
}

Outcome Weight(const std::string &key, const std::string &title, PolygonShape shape, double target,
               const std::string &source) {
    Outcome o;
    o.key = key;
    o.title = title;
    o.words = "Walls 30, base 40 cm, 3 m high. The run gives the walls of a polygon no weight of their own.";
    shape.wall = 30;
    shape.base = 40;
    shape.top = 3;
    o.tank = Polygon(shape, {});
    o.widths = {1};
    o.quantities = {
        {"weight", "t", target, source,
         "the program's own mesher runs past the outline at the inner corner and stops short of it in the walls; "
         "its mesh report names the places",
         "the walls weigh nothing"}};
    o.drawn = kDead;
    o.consistent = [](const Tank &t) { return std::vector<double>{-SumOfZ(NodalLoads(t, kDead))}; };
    o.literal = [](const Tank &t) { return std::vector<double>{-SumOfZ(RunForces(t, 0))}; };
    return o;
}

// The greatest vertical moment of the walls, and how far any moment of the run lies from what its own equations give in
// doubles, as a part of the greatest one.
std::vector<double> CellsOf(const Tank &tank, int code) {
    const CaseResult column = Column(tank, code);
    const RunModel run(tank);
    const Vector u = run.solve(RunForces(tank, code));
    const std::vector<AxesOfMesh> axes = StressAxes(tank, FindWallSides(tank));
    double wall = 0, greatest = 0, off = 0;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 1; k <= 4; ++k) {
            const auto exact = run.momentsAt(i, static_cast<int>(k), u, axes[i][k]);
            const ShellResult &r = column.meshes[i][k];
            if (tank.panelOf(tank.meshes[i]).kind == 1)
                wall = std::max(wall, std::fabs(r.M22));
            greatest = std::max({greatest, std::fabs(exact[0]), std::fabs(exact[1])});
            off = std::max({off, std::fabs(r.M11 - exact[0]), std::fabs(r.M22 - exact[1])});
        }
    return {wall, off / greatest};
}

Outcome Circular(const std::string &key, const std::string &title, const Parameters &parameters) {
    Outcome o;
    o.key = key;
    o.title = title;
    o.words = "The stiff ring of narrow meshes around the middle of the floor is more than 32-bit cells hold; the run "
              "says so by "
              "its residual.";
    o.tank = [=](double width) { return LibraryPool(2, With(parameters, width)); };
    o.widths = {0.5};
    o.quantities = {{"greatest vertical moment of the wall, column \"liquid\"", "t.m/m", 0, kFine,
                     "the wall bends within a mesh or two of its foot", "32-bit cells, and the width of the meshes"},
                    {"greatest error of a moment by its own cells, part of the greatest moment", "", 0,
                     "the run's own equations solved in doubles", "", "32-bit cells", 1.0}};
    o.consistent = [](const Tank &t) {
        const CaseResult r = Analysis(t).solve(kLiquid);
        double wall = 0;
        for (std::size_t i = 0; i < t.meshes.size(); ++i)
            for (std::size_t k = 1; k <= 4 && t.panelOf(t.meshes[i]).kind == 1; ++k)
                wall = std::max(wall, std::fabs(r.meshes[i][k].M22));
        return std::vector<double>{wall, std::nan("")};
    };
    o.literal = [](const Tank &t) { return CellsOf(t, kColumnLiquid); };
    TargetFromFiner(o);
    o.quantities[1].target = 0;
    return o;
}

// A square of 8 m turned about its first corner.
Outcome Turned(const std::string &key, double degrees) {
    const double c = std::cos(degrees * kPi / 180), s = std::sin(degrees * kPi / 180);
    const auto tank = [=](double cosine, double sine) {
        PolygonShape shape;
        for (const auto &[x, y] : {std::pair(0., 0.), std::pair(8., 0.), std::pair(8., 8.), std::pair(0., 8.)})
            shape.points.emplace_back(cosine * x - sine * y, sine * x + cosine * y);
        shape.wall = 30;
        shape.base = 40;
        shape.top = 3;
        return Polygon(shape, {{&SiviKotu, 2.9}, {&ToprakKotu, 0}});
    };
    Outcome o;
    o.key = key;
    o.title = "Square of 8 m turned by " + std::to_string(static_cast<int>(degrees)) + " degrees, liquid 2.9 m";
    o.words = "3 m high, walls 30, base 40 cm, meshed by the program's own mesher. Its floor is no longer made of "
              "rectangles, and "
              "the run makes rectangles of it.";
    o.tank = tank(c, s);
    o.widths = {1};
    o.quantities = {
        {"greatest moment of the walls' feet", "t.m/m", 0,
         "the same tank along the axes, consistent analysis, meshes of 0.5 m",
         "the mesh of the turned floor is coarse and skew", "trapezoids of the floor are taken as rectangles"},
        {"greatest settlement", "mm", 0, "the same tank along the axes, consistent analysis, meshes of 0.5 m",
         "the mesh of the turned floor is coarse and skew", "trapezoids of the floor are taken as rectangles"}};
    const auto greatest = [](const Tank &t, const CaseResult &r) {
        double moment = 0, settlement = 0;
        for (std::size_t i = 0; i < t.meshes.size(); ++i)
            for (std::size_t k = 1; k <= 4; ++k) {
                const Vector3 at = t.corner(t.meshes[i], k - 1);
                if (t.panelOf(t.meshes[i]).kind == 1 && Near(at.z, 0))
                    moment = std::max(moment, std::fabs(r.meshes[i][k].M22));
                const auto node = static_cast<std::size_t>(t.meshes[i].node[k - 1]);
                settlement = std::max(settlement, -1000 * r.nodes[node].u[2]);
            }
        return std::vector<double>{moment, settlement};
    };
    o.consistent = [=](const Tank &t) { return greatest(t, Analysis(t).solve(kLiquid)); };
    o.literal = [=](const Tank &t) { return greatest(t, Column(t, kColumnLiquid)); };
    const std::vector<double> along = o.consistent(tank(1, 0)(0.5));
    for (std::size_t i = 0; i < along.size(); ++i)
        o.quantities[i].target = along[i];
    return o;
}

// Greatest displacements of all nodes in G, L and S, mm, beside those of CalculiX on the same mesh of 0.5 m.
Outcome BesideCalculix(const std::string &key, const std::string &title, MakeTank tank, std::array<double, 3> targets) {
    Outcome o;
    o.key = key;
    o.title = title;
    o.words = "Greatest displacement of a node.";
    o.tank = std::move(tank);
    o.widths = {0.5};
    const std::string source = "CalculiX 2.20, S8R shells on the same mesh: `bench/cross-check` computes both",
                      shear = "CalculiX bends by shear, joins walls and floor as solids and takes rows as quadratic: "
                              "[export](export.md) tells their parts";
    o.quantities = {
        {"dead load", "mm", targets[0], source, shear, "in the run walls of polygons weigh nothing"},
        {"liquid", "mm", targets[1], source, shear, "the run's element, its shares of nodes and its 32-bit cells"},
        {"soil", "mm", targets[2], source, shear, "above the soil the walls keep the pressure of the liquid, inward"}};
    const auto greatest = [](const CaseResult &r) {
        double most = 0;
        for (const NodeResult &n : r.nodes)
            most = std::max(most, 1000 * std::sqrt(n.u[0] * n.u[0] + n.u[1] * n.u[1] + n.u[2] * n.u[2]));
        return most;
    };
    o.consistent = [=](const Tank &t) {
        const Analysis a(t);
        return std::vector<double>{greatest(a.solve(kDead)), greatest(a.solve(kLiquid)), greatest(a.solve(kSoil))};
    };
    o.literal = [=](const Tank &t) {
        return std::vector<double>{greatest(Column(t, 0)), greatest(Column(t, kColumnLiquid)),
                                   greatest(Column(t, kColumnSoil))};
    };
    return o;
}

} // namespace

std::vector<Example> OutsideExamples() {
    PolygonShape l{kL, 3, 0, 30, 40, 0};
    const std::vector<Outcome> all = {
        BesideCalculix("outside-rectangular", "12 x 6 x 4 m",
                       Rectangular({{&Lx, 12},
                                    {&Ly, 6},
                                    {&UstKot, 4},
                                    {&Bk, 0},
                                    {&KenarKalinlik, 30},
                                    {&AltKalinlik, 40},
                                    {&SiviKotu, 3.7},
                                    {&ToprakKotu, 2.5},
                                    {&YeraltiSuKotu, 1}}),
                       {1.74134, 4.14811, 0.711383}),
        BesideCalculix("outside-l", "L-shaped, 8 x 8 x 3 m",
                       Polygon(l, {{&SiviKotu, 2.8}, {&ToprakKotu, 2}, {&YeraltiSuKotu, 0.5}}),
                       {1.67718, 1.51903, 0.179616}),
        BesideCalculix("outside-circular", "Circular, 10 m",
                       [](double width) {
                           return LibraryPool(2, With({{&Lx, 10},
                                                       {&UstKot, 4},
                                                       {&SiviKotu, 3.5},
                                                       {&ToprakKotu, 2},
                                                       {&KenarKalinlik, 25},
                                                       {&AltKalinlik, 35},
                                                       {&Bk, 0.5}},
                                                      width));
                       },
                       {1.47, 1.64306, 0.0237996})};
    std::vector<Example> examples;
    for (const Outcome &o : all)
        examples.push_back(Of(o));
    return examples;
}

std::vector<Example> LiteralOutcomes() {
    std::vector<Outcome> all = FootMoments();
    all.push_back(LevelOnEdge(1, "literal-level-on-edge"));
    all.push_back(LevelOnEdge(0.5, "literal-level-on-edge-fine"));
    all.push_back(Uplift("literal-uplift-deep", 6, 60, 4, 256));
    all.push_back(Uplift("literal-uplift-shallow", 3, 40, 1.4, 89.6));
    all.push_back(Weight("literal-weight-l", "L-shaped, 8 x 8 m: its weight", {kL}, 120,
                         "statics: 2.5 (48 · 0.40 + 32 · 3 · 0.30)"));
    all.push_back(Weight("literal-weight-hexagon", "Hexagon of 4 m sides: its weight", {Hexagon(4)},
                         2.5 * (24 * std::sqrt(3.0) * 0.4 + 24 * 3 * 0.3),
                         "statics: 2.5 (24 √3 · 0.40 + 24 · 3 · 0.30)"));
    all.push_back(Circular("literal-circular", "Circular, 10 m, 3 m high, as the library gives it",
                           {{&Lx, 10}, {&ToprakKotu, 0}}));
    all.push_back(Turned("literal-turned-20", 20));
    all.push_back(Turned("literal-turned-45", 45));
    std::vector<Example> examples;
    for (const Outcome &o : all)
        examples.push_back(Of(o));
    return examples;
}

} // namespace havuz::verification
