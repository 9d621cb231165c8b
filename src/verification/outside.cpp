// Pools beside CalculiX: what bench/cross-check computes of the same projects at the finest width here. mm, t.m/m.
#include "model/store.h"
#include "verification/examples.h"
#include "verification/outcome.h"

#include <cmath>

namespace havuz::verification {

namespace {

const std::array<std::pair<Case, int>, 3> kCompared = {
    {{kDead, kColumnDead}, {kLiquid, kColumnLiquid}, {kSoil, kColumnSoil}}};

// Greatest displacement of a node.
double Farthest(const CaseResult &r) {
    double most = 0;
    for (const NodeResult &n : r.nodes)
        most = std::max(most, 1000 * std::sqrt(n.u[0] * n.u[0] + n.u[1] * n.u[1] + n.u[2] * n.u[2]));
    return most;
}

// Root mean square of M11 and M22 in the middle of all meshes; of a run the means of a mesh's corners.
double MeanMoment(const CaseResult &r, bool corners) {
    double sum = 0;
    for (const MeshResult &m : r.meshes)
        for (double ShellResult::*moment : {&ShellResult::M11, &ShellResult::M22}) {
            const double v = corners ? (m[1].*moment + m[2].*moment + m[3].*moment + m[4].*moment) / 4 : m[0].*moment;
            sum += v * v;
        }
    return std::sqrt(sum / (2.0 * static_cast<double>(r.meshes.size())));
}

// Of CalculiX in G, L and S.
struct OfCalculix {
    std::array<double, 3> displacement, moment;
};

std::vector<Quantity> QuantitiesOf(const OfCalculix &targets) {
    const std::string source = "CalculiX 2.20, S8R shells on the same mesh of 0.25 m, the L by `mesh --sound`: "
                               "`bench/cross-check build/release/havuz-cli 0.25` computes both",
                      solids = "CalculiX bends by shear, joins walls and floor as solids and takes rows as quadratic: "
                               "[export](export.md) tells their parts";
    const std::array<std::string, 3> names = {"dead load", "liquid", "soil"};
    const std::string run = "the run's element, its shares of nodes and its 32-bit cells";
    const std::array<std::string, 3> literally = {run, run,
                                                  "above the soil the walls keep the pressure of the liquid, inward"};
    std::vector<Quantity> quantities;
    for (std::size_t i = 0; i < 3; ++i)
        quantities.push_back(
            {names[i] + ", greatest displacement", "mm", targets.displacement[i], source, solids, literally[i]});
    for (std::size_t i = 0; i < 3; ++i)
        quantities.push_back({names[i] + ", moments", "t.m/m", targets.moment[i], source, solids, literally[i]});
    return quantities;
}

Example BesideCalculix(const std::string &key, const std::string &title, MakeTank tank, const OfCalculix &targets) {
    Outcome o;
    o.key = key;
    o.title = title;
    o.words = "Greatest displacement of a node, and the root mean square of M11 and M22 in the middle of all meshes.";
    o.tank = std::move(tank);
    o.widths = {1, 0.5, 0.25};
    o.literalMesh = 1;
    o.quantities = QuantitiesOf(targets);
    o.consistent = [](const Tank &t) {
        const Analysis a(t);
        std::vector<double> values(6);
        for (std::size_t i = 0; i < 3; ++i) {
            const CaseResult r = a.solve(kCompared[i].first);
            values[i] = Farthest(r);
            values[3 + i] = MeanMoment(r, false);
        }
        return values;
    };
    o.literal = [](const Tank &t) {
        std::vector<double> values(6);
        for (std::size_t i = 0; i < 3; ++i) {
            const CaseResult r = ColumnOfRun(t, kCompared[i].second);
            values[i] = Farthest(r);
            values[3 + i] = MeanMoment(r, true);
        }
        return values;
    };
    return AsExample(o);
}

} // namespace

std::vector<Example> OutsideExamples() {
    return {
        BesideCalculix("outside-rectangular", "12 x 6 x 4 m",
                       Rectangular(TwelveBySix({{&SiviKotu, 3.7}, {&ToprakKotu, 2.5}, {&YeraltiSuKotu, 1}})),
                       {{1.749806, 4.156419, 0.710397}, {0.858293, 1.408330, 0.339848}}),
        BesideCalculix("outside-l", "L-shaped, 8 x 8 x 3 m",
                       Polygon(LShape(), {{&SiviKotu, 2.8}, {&ToprakKotu, 2}, {&YeraltiSuKotu, 0.5}}, Mesher::Sound),
                       {{1.707318, 1.522567, 0.175096}, {0.578786, 0.578250, 0.165324}}),
        BesideCalculix("outside-circular", "Circular, 10 m",
                       Circular({{&Lx, 10},
                                 {&UstKot, 4},
                                 {&SiviKotu, 3.5},
                                 {&ToprakKotu, 2},
                                 {&KenarKalinlik, 25},
                                 {&AltKalinlik, 35},
                                 {&Bk, 0.5}}),
                       {{1.476831, 1.647737, 0.025288}, {0.855010, 0.135880, 0.041661}})};
}

} // namespace havuz::verification
