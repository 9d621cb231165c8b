// Strips and plates on an elastic bed, and plates that meet at right angles. Sources: M. Hetenyi, "Beams on Elastic
// Foundation", 1946 (beam of limited length with free ends, force in the middle); Timoshenko and Woinowsky-Krieger,
// article 57 (great plate under a force); statics.
#include "consistent/quad.h"
#include "verification/examples.h"

#include <cmath>
#include <stdexcept>

namespace havuz::verification {

namespace {

constexpr double kE = kConcreteE, kPoisson = kConcretePoisson;
constexpr double kBed = 3000; // t/m3

double RigidityOf(double thickness) { return PlateRigidity(kE, kPoisson, thickness); }

// A strip 1 m wide that stays a cylinder, 10 m long, under a line load of 10 t/m across its middle.
Example HetenyiStrip() {
    const double length = 10, thickness = 0.4, force = 10;
    const double lambda = std::pow(kBed / (4 * RigidityOf(thickness)), 0.25), l = lambda * length;
    const double below = std::sinh(l) + std::sin(l);
    const std::string source = "Hetenyi 1946, free ends, force in the middle, with E t³/12/(1 − ν²) for EI";
    Example e;
    e.key = "hetenyi-strip";
    e.title = "Strip on an elastic bed";
    e.words = "10 m long, 40 cm thick, kept a cylinder (turns about its length are held), bed 3000 t/m³, 10 t/m across "
              "its middle.";
    e.quantities = {{"settlement in the middle", "mm",
                     1000 * force * lambda / (2 * kBed) * (2 + std::cosh(l) + std::cos(l)) / below, source},
                    {"settlement of the ends", "mm",
                     1000 * 2 * force * lambda / kBed * std::cosh(l / 2) * std::cos(l / 2) / below, source,
                     "a mesh of 1.25 m is wide for a bed whose length is 2.2 m; the difference falls with the square",
                     "as the consistent value at this width"},
                    {"moment in the middle", "t.m/m", force / (4 * lambda) * (std::cosh(l) - std::cos(l)) / below,
                     source, "the bed stands on nodes: its share beside the force is late by half a mesh"}};
    e.meshes = {"1.25 m", "0.625 m", "0.3125 m"};
    const auto tank = [=](std::size_t mesh) {
        HandTank t(kE, kPoisson);
        const int p = t.panel(0, thickness);
        t.grid(p, 8 << mesh, 1, [=](double s, double v) { return Vector3{s * length, v, 0}; });
        t.hold(1, [](const Vector3 &) { return true; });
        t.tank.bedding = kBed;
        t.load(t.nodeAt({length / 2, 0, 0}), {0, 0, -force / 2});
        t.load(t.nodeAt({length / 2, 1, 0}), {0, 0, -force / 2});
        return t;
    };
    const auto measure = [=](const HandTank &t, const CaseResult &r) {
        return std::vector<double>{-1000 * Moved(t, r, {length / 2, 0, 0}, 2), -1000 * Moved(t, r, {0, 0, 0}, 2),
                                   -MeanAt(t, r, {length / 2, 0, 0}, &ShellResult::M11)};
    };
    TakeModel(e, {tank, kPoint, measure, true});
    return e;
}

// A quarter of a plate so wide that its rim does not know of the force.
Example GreatPlate() {
    const double half = 10, thickness = 0.3, force = 10;
    Example e;
    e.key = "great-plate-point";
    e.title = "Great plate on an elastic bed, point load";
    e.words = "20 by 20 m, 30 cm thick, bed 3000 t/m³, 10 t in the middle; a quarter.";
    e.quantities = {{"settlement under the force", "mm", 1000 * force / (8 * std::sqrt(kBed * RigidityOf(thickness))),
                     "P/(8 √(k D)), Timoshenko and Woinowsky-Krieger, article 57",
                     "the bed stands on nodes and the force on one of them; the difference falls with the width",
                     "as the consistent value at this width"}};
    e.meshes = {"1 m", "0.5 m", "0.25 m"};
    const auto tank = [=](std::size_t mesh) {
        HandTank t(kE, kPoisson);
        const int p = t.panel(0, thickness), n = 10 << mesh;
        t.grid(p, n, n, [=](double s, double v) { return Vector3{s * half, v * half, 0}; });
        t.hold(2, [](const Vector3 &at) { return Near(at.x, 0); });
        t.hold(1, [](const Vector3 &at) { return Near(at.y, 0); });
        t.tank.bedding = kBed;
        t.load(t.nodeAt({0, 0, 0}), {0, 0, -force / 4});
        return t;
    };
    const auto measure = [](const HandTank &t, const CaseResult &r) {
        return std::vector<double>{-1000 * Moved(t, r, {0, 0, 0}, 2)};
    };
    TakeModel(e, {tank, kPoint, measure, true});
    return e;
}

// Evenly loaded, a plate on its bed sinks evenly, whatever its meshes.
Example EvenSettlement() {
    Example e;
    e.key = "bed-even";
    e.title = "Even load on a bed, slanted meshes";
    e.words = "4 by 4 m, 30 cm thick, bed 3000 t/m³, 1.5 t/m²; inner nodes moved out of their rows. Least and greatest "
              "settlement.";
    e.quantities = {{"least", "mm", 0.5, "q/k"}, {"greatest", "mm", 0.5, "q/k"}};
    e.meshes = {"4 x 4", "8 x 8", "16 x 16"};
    e.notLiteral = "its quarters of an area settle evenly on rectangles alone";
    const auto tank = [](std::size_t mesh) {
        HandTank t(kE, kPoisson);
        const int p = t.panel(0, 0.3, 1.5), n = 4 << mesh;
        t.grid(p, n, n, [n](double s, double v) {
            const bool inside = s > 0.01 && s < 0.99 && v > 0.01 && v < 0.99;
            const double slant = inside ? 0.25 / n * std::sin(40 * s + 25 * v) : 0;
            return Vector3{4 * (s + slant), 4 * (v - slant), 0};
        });
        t.tank.bedding = kBed;
        return t;
    };
    const auto measure = [](const HandTank &, const CaseResult &r) {
        double least = 1e30, greatest = -1e30;
        for (std::size_t n = 1; n < r.nodes.size(); ++n) {
            least = std::min(least, -1000 * r.nodes[n].u[2]);
            greatest = std::max(greatest, -1000 * r.nodes[n].u[2]);
        }
        return std::vector<double>{least, greatest};
    };
    TakeModel(e, {tank, kDead, measure});
    return e;
}

// A clamped wall strip with an arm at its head: a frame.
Example TwoPlates() {
    const double height = 3, arm = 2, width = 0.25, thickness = 0.2, force = 0.25;
    const double EI = kE * width * std::pow(thickness, 3) / 12;
    Example e;
    e.key = "two-plates";
    e.title = "Two plates at right angles";
    e.words =
        "A wall strip 3 m high, an arm 2 m long at its head, 0.25 m wide, 20 cm thick, 0.25 t at the arm's end; foot "
        "clamped.";
    const std::string frame = "frame: P L²(L/3 + H)/EI + P H/EA";
    e.quantities = {{"end of the arm sinks", "mm",
                     1000 * (force * arm * arm * (arm / 3 + height) / EI + force * height / (kE * width * thickness)),
                     frame},
                    {"moment of the wall, half way up", "t.m/m", force * arm / width, "statics: P L"},
                    {"moment of the arm at half its length", "t.m/m", force * arm / 2 / width, "statics: P L/2"}};
    e.meshes = {"0.5 m", "0.25 m", "0.125 m"};
    const auto tank = [=](std::size_t mesh) {
        HandTank t(kE, kPoisson);
        const int p = t.panel(1, thickness), q = t.panel(kPlain, thickness), n = 2 << mesh;
        const int columns = mesh == 0 ? 1 : 1 << (mesh - 1), across = columns + 1;
        t.grid(p, columns, 3 * n, [=](double s, double v) { return Vector3{0, width * s, height * v}; });
        const int head = static_cast<int>(t.tank.nodes.size()) - across;
        for (int i = 1; i <= 2 * n; ++i)
            for (int k = 0; k < across; ++k)
                t.node({arm * i / (2.0 * n), width * k / columns, height});
        for (int i = 0; i < 2 * n; ++i)
            for (int k = 0; k < columns; ++k) {
                const int a = head + i * across + k;
                t.mesh(q, a, a + across, a + across + 1, a + 1);
            }
        t.hold(kClamped, [](const Vector3 &at) { return Near(at.z, 0); });
        for (int k = 0; k < across; ++k)
            t.load(head + 2 * n * across + k, {0, 0, -force * (k == 0 || k == columns ? .5 : 1.) / columns});
        return t;
    };
    const auto measure = [=](const HandTank &t, const CaseResult &r) {
        return std::vector<double>{-1000 * Moved(t, r, {arm, 0, height}, 2),
                                   std::fabs(MeanAt(t, r, {0, 0, height / 2}, &ShellResult::M22)),
                                   std::fabs(MeanAt(t, r, {arm / 2, 0, height}, &ShellResult::M11))};
    };
    TakeModel(e, {tank, kPoint, measure, true});
    return e;
}

// A slice of a channel on two lines: floor and two walls under liquid.
Example Channel() {
    const double span = 4, height = 3, width = 0.25, depth = 2.4;
    Example e;
    e.key = "channel-slice";
    e.title = "Three plates: a slice of a channel under liquid";
    e.words =
        "Floor 4 m, walls 3 m, 30 cm thick, water 2.4 m above the floor's underside, 0.25 m wide, the lower corners "
        "held. Every moment follows from statics.";
    const double foot = std::pow(depth, 3) / 6;
    e.quantities = {
        {"moment at the foot of a wall", "t.m/m", foot, "statics: γ d³/6",
         "the moment is a cubic of the height and the mesh's own moment linear"},
        {"moment in the middle of the floor", "t.m/m", std::fabs(foot - (depth - .3) * span * span / 8),
         "statics: γ d³/6 − γ (d − t) L²/8",
         "the moment in the middle is the small difference of two great ones, and its mesh takes it linear"},
        {"reaction of both sides", "t", (depth - .3) * span * width, "weight of the water"}};
    e.meshes = {"0.5 m", "0.25 m", "0.125 m"};
    const auto tank = [=](std::size_t mesh) {
        HandTank t(kE, kPoisson);
        const int wall = t.panel(1, 0.3), other = t.panel(1, 0.3), floor = t.panel(0, 0.3);
        const int up = 6 << mesh, along = 8 << mesh, columns = 1;
        // upper edge first, as the panels of a project have it; feet of the walls and ends of the floor share nodes
        const int left = t.grid(wall, columns, up, [=](double s, double v) {
            return Vector3{0, width * s, height * (1 - v)};
        });
        const int right = t.grid(other, columns, up, [=](double s, double v) {
            return Vector3{span, width * (1 - s), height * (1 - v)};
        });
        std::vector<std::array<int, 2>> line = {{left + 2 * up, left + 2 * up + 1}};
        for (int i = 1; i < along; ++i)
            line.push_back({t.node({span * i / along, 0, 0}), t.node({span * i / along, width, 0})});
        line.push_back({right + 2 * up + 1, right + 2 * up});
        for (std::size_t i = 0; i + 1 < line.size(); ++i)
            t.mesh(floor, line[i][0], line[i + 1][0], line[i + 1][1], line[i][1]);
        t.hold(4, [=](const Vector3 &at) { return Near(at.z, 0) && (Near(at.x, 0) || Near(at.x, span)); });
        t.tank.liquidLevel = depth;
        t.tank.liquidDensity = 1;
        return t;
    };
    const auto measure = [=](const HandTank &t, const CaseResult &r) {
        double reaction = 0;
        for (const NodeResult &n : r.nodes)
            reaction += n.reaction;
        double foot = 0; // of the wall alone
        for (std::size_t i = 0; i < t.tank.meshes.size(); ++i)
            for (std::size_t k = 0; k < 4; ++k)
                if (t.tank.meshes[i].panel == 1 && Length(t.tank.corner(t.tank.meshes[i], k)) < 1e-6)
                    foot = r.meshes[i][k + 1].M22;
        return std::vector<double>{std::fabs(foot), std::fabs(MeanAt(t, r, {span / 2, 0, 0}, &ShellResult::M11)),
                                   reaction};
    };
    TakeModel(e, {tank, kLiquid, measure, true});
    NoLiteralOf(e, {2}); // a run tells no reactions
    return e;
}

// Three plates of 2 by 2 m that meet in a corner, their far edges clamped, pushed outward along the diagonal.
Example ThreePlates() {
    Example e;
    e.key = "three-plates";
    e.title = "Three plates at right angles: a corner";
    e.words = "2 by 2 m each, 20 cm thick, edges away from the corner clamped, 3 t along each axis at the corner.";
    e.quantities = {{"reactions along Z", "t", 3.0, "statics: they carry the force"},
                    {"greatest of the six sums", "t, t.m", 0.0, "statics: nothing is left", "", "", 3.0},
                    {"the corner moves along Y as along X", "", 1.0, "symmetry"},
                    {"the corner moves along Z as along X", "", 1.0, "symmetry"}};
    e.meshes = {"1 m", "0.5 m", "0.25 m"};
    const auto tank = [](std::size_t mesh) {
        HandTank t(kE, kPoisson);
        const int p = t.panel(kPlain, 0.2), n = 2 << mesh;
        t.grid(p, n, n, [](double s, double v) { return Vector3{2 * s, 2 * v, 0}; });
        t.grid(p, n, n, [](double s, double v) { return Vector3{0, 2 * s, 2 * v}; });
        t.grid(p, n, n, [](double s, double v) { return Vector3{2 * v, 0, 2 * s}; });
        for (TankMesh &m : t.tank.meshes) // edges of two plates are one line of nodes
            for (int &node : m.node)
                node = t.nodeAt(t.tank.nodes[static_cast<std::size_t>(node)].at);
        for (TankNode &node : t.tank.nodes)
            node.used = false;
        for (const TankMesh &m : t.tank.meshes)
            for (const int node : m.node)
                t.tank.nodes[static_cast<std::size_t>(node)].used = true;
        t.hold(kClamped, [](const Vector3 &at) { return Near(at.x, 2) || Near(at.y, 2) || Near(at.z, 2); });
        t.load(t.nodeAt({0, 0, 0}), {-3, -3, -3});
        return t;
    };
    const auto measure = [](const HandTank &t, const CaseResult &r) {
        double left = 0;
        for (const double sum : r.proof.sum)
            left = std::max(left, std::fabs(sum));
        const double x = Moved(t, r, {}, 0);
        return std::vector<double>{r.proof.reaction[2], left, Moved(t, r, {}, 1) / x, Moved(t, r, {}, 2) / x};
    };
    TakeModel(e, {tank, kPoint, measure, true});
    NoLiteralOf(e, {0, 1}); // a run tells no reactions
    return e;
}

} // namespace

std::vector<Example> BedExamples() { return {HetenyiStrip(), GreatPlate(), EvenSettlement()}; }

std::vector<Example> FoldedExamples() { return {TwoPlates(), Channel(), ThreePlates()}; }

std::vector<Example> AllExamples() {
    std::vector<Example> all;
    for (const auto &chapter :
         {PatchExamples(), BeamExamples(), PlateExamples(), BedExamples(), ShellExamples(), FoldedExamples()})
        all.insert(all.end(), chapter.begin(), chapter.end());
    return all;
}

Example ExampleOf(const std::string &key) {
    for (const Example &e : AllExamples())
        if (e.key == key)
            return e;
    throw std::logic_error("no example " + key);
}

} // namespace havuz::verification
