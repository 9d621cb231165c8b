#include "consistent/causes.h"

#include "consistent/run_model.h"
#include "consistent/stress_axes.h"
#include "consistent/system.h"
#include "fea/equations.h"
#include "fea/record_file.h"

#include <cmath>
#include <map>

namespace havuz::consistent {

const CauseName &NameOf(Cause cause) {
    static constexpr std::array<CauseName, kCauses> names = {{
        {"cells", "32-bit cells", "32 bitlik hücreler"},
        {"carried-over", "pressure taken over from another", "başka basınçtan devralınan yük"},
        {"level-on-edge", "level on or between mesh edges", "mesh kenarına veya arasına düşen kot"},
        {"uplift-short", "uplift from the top of the slab", "döşeme üstünden kaldırma"},
        {"no-weight", "polygon walls without weight", "ağırlıksız poligon duvarlar"},
        {"element-shape", "element and node shares", "eleman ve nokta payları"},
        {"joining", "joints that the mesh lacks", "meshte olmayan birleşimler"},
    }};
    return names.at(static_cast<std::size_t>(cause));
}

namespace {

struct Column {
    int code = 0;
    std::string cases;
    LoadFactors factor{};
};

void Take(Column &column, Case c) {
    column.factor[static_cast<std::size_t>(c)] = 1.0;
    column.cases += (column.cases.empty() ? "" : "+") + std::string(NameOf(c).key);
}

std::vector<Column> ColumnsOfRun() {
    std::vector<Column> columns;
    for (const int code : ColumnCodes()) {
        Column column;
        column.code = code;
        const std::vector<Case> cases = code == 0   ? std::vector<Case>{kDead, kLive, kPoint}
                                        : code == 1 ? std::vector<Case>{kLiquid, kSoil}
                                        : code == 3 ? std::vector<Case>{kSoil}
                                        : code == 4 ? std::vector<Case>{kGroundwater, kUplift}
                                                    : std::vector<Case>{kLiquid};
        for (const Case c : cases)
            Take(column, c);
        columns.push_back(column);
    }
    return columns;
}

// A place at which the values of one column are followed.
struct Followed {
    std::size_t column = 0, index = 0; // of Tank::meshes
    std::size_t corner = 0;            // 1..4
    std::size_t quantity = 0;          // 0 M11, 1 M22
};

std::array<double, 2> MomentsOf(const ShellResult &r) { return {r.M11, r.M22}; }

// The greatest consistent value of each panel, column and quantity.
std::vector<Followed> GreatestPlaces(const Tank &tank, const std::vector<CaseResult> &results) {
    std::vector<Followed> places;
    for (std::size_t c = 0; c < results.size(); ++c)
        for (std::size_t q = 0; q < 2; ++q) {
            std::map<int, Followed> best;
            const auto value = [&](const Followed &f) {
                return std::fabs(MomentsOf(results[c].meshes[f.index][f.corner])[q]);
            };
            for (std::size_t i = 0; i < tank.meshes.size(); ++i)
                for (std::size_t k = 1; k <= 4; ++k) {
                    const Followed here{c, i, k, q};
                    const auto [found, isNew] = best.try_emplace(tank.meshes[i].panel, here);
                    if (!isNew && value(here) > value(found->second) * (1 + 1e-9))
                        found->second = here;
                }
            for (const auto &[panel, place] : best)
                places.push_back(place);
        }
    return places;
}

std::vector<CaseResult> Solved(const System &system, const std::vector<Column> &columns) {
    std::vector<CaseResult> results;
    for (const Column &column : columns)
        results.push_back(
            ResultsOf(system, column.cases, Solve(system, column.factor, *system.factor, system.bedAreas)));
    return results;
}

// The values of each step at each place, from the run's file to the consistent analysis.
class Ladder {
public:
    Ladder(const System &system, const std::vector<Followed> &places) : system_(system), places_(places) {}

    void addFile(const std::string &project) {
        const RecordFile son(project + ".SON", sizeof(SonRecord), RecordFile::ReadOnly);
        std::vector<double> values;
        for (const Followed &f : places_) {
            SonRecord record{};
            son.GetRecord(record, system_.tank.meshes[f.index].mesh);
            const std::size_t at = 24 * f.column + 6 * (f.corner - 1);
            values.push_back(RunMoments(system_.tank, f.index, record[at + 3], record[at + 4], record[at + 5],
                                        axesAt(f))[f.quantity]);
        }
        steps.push_back(values);
    }
    void addRun(const RunModel &run, LoadStep step) {
        std::vector<Vector> u;
        for (const std::vector<Vector3> &loads : RunLoads(system_.tank, step))
            u.push_back(run.solve(loads));
        std::vector<double> values;
        for (const Followed &f : places_)
            values.push_back(run.momentsAt(f.index, static_cast<int>(f.corner), u[f.column], axesAt(f))[f.quantity]);
        steps.push_back(values);
    }
    void addResults(const std::vector<CaseResult> &results) {
        std::vector<double> values;
        for (const Followed &f : places_)
            values.push_back(MomentsOf(results[f.column].meshes[f.index][f.corner])[f.quantity]);
        steps.push_back(values);
    }
    std::vector<std::vector<double>> steps;

private:
    const Eigen::Matrix3d &axesAt(const Followed &f) const { return system_.axes[f.index][f.corner]; }
    const System &system_;
    const std::vector<Followed> &places_;
};

// The steps between the file and the consistent values; false where one of them has no solution.
bool Climb(const System &system, const std::vector<Column> &columns, Ladder &ladder) {
    const RunModel run(system.tank);
    if (!run.stands())
        return false;
    for (const LoadStep step : kLoadSteps)
        ladder.addRun(run, step);
    if (system.freedoms.joints().list.empty())
        return true;
    Options apart = system.options;
    apart.joins = false;
    try {
        const System unjoined(system.tank, apart);
        ladder.addResults(Solved(unjoined, columns));
    } catch (const AnalysisFailure &) { // loose without its joints
        return false;
    }
    return true;
}

} // namespace

std::vector<RunComparison> CompareWithRun(const Analysis &analysis, const std::string &project) {
    const System &system = analysis.system();
    const std::vector<Column> columns = ColumnsOfRun();
    const std::vector<CaseResult> results = Solved(system, columns);
    const std::vector<Followed> places = GreatestPlaces(system.tank, results);
    Ladder ladder(system, places);
    ladder.addFile(project);
    const bool split = Climb(system, columns, ladder);
    ladder.addResults(results);
    if (split && ladder.steps.size() == kCauses) // nothing was joined: the last cause moves nothing
        ladder.steps.push_back(ladder.steps.back());
    std::vector<RunComparison> comparisons;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Followed &f = places[i];
        const TankMesh &m = system.tank.meshes[f.index];
        RunComparison c;
        c.column = static_cast<int>(f.column) + 1;
        c.code = columns[f.column].code;
        c.cases = columns[f.column].cases;
        c.panel = m.panel;
        c.quantity = f.quantity == 0 ? "M11" : "M22";
        c.mesh = m.mesh;
        c.corner = static_cast<int>(f.corner);
        c.node = m.node[f.corner - 1];
        c.run = ladder.steps.front()[i];
        c.consistent = ladder.steps.back()[i];
        c.split = split;
        for (std::size_t k = 0; split && k < kCauses; ++k)
            c.cause[k] = ladder.steps[k + 1][i] - ladder.steps[k][i];
        comparisons.push_back(c);
    }
    return comparisons;
}

} // namespace havuz::consistent
