// Equilibrium of every sample project: of each load case in the consistent analysis, of each load column in the run. t.
#include "consistent/loads.h"
#include "fea/equations.h"
#include "fea/result_summary.h"
#include "model/store.h"
#include "verification/examples.h"
#include "verification/halved.h"
#include "verification/literal_run.h"
#include "verification/outcome.h"

#include <cmath>
#include <memory>

namespace havuz::verification {

namespace {

double SumOfSizes(const std::vector<Vector3> &forces) {
    double sum = 0.0;
    for (const Vector3 &f : forces)
        sum += Length(f);
    return sum;
}

// A project whose rows are being made.
struct Sample {
    std::string path;
    Tank tank;
    std::vector<Case> cases;  // those that load something
    std::vector<int> columns; // of the run, those that load something
    Example example;
};

// Straight sides are halved straight: the loads stay those of the project's own meshes.
Tank MeshedAs(Tank tank, std::size_t halvings) {
    tank.circular = false;
    for (std::size_t k = 0; k < halvings; ++k)
        tank = Halved(tank);
    return tank;
}

void AskForCases(Sample &s) {
    for (const Case c : kAllCases) {
        const std::vector<Vector3> loads = NodalLoads(s.tank, c);
        if (!HasLoads(loads))
            continue;
        s.cases.push_back(c);
        const std::string key{NameOf(c).key};
        s.example.quantities.push_back({key + ", vertical", "t", -SumOfZ(loads),
                                        "statics: springs and reactions carry it", "", "", SumOfSizes(loads)});
        s.example.quantities.push_back({key + ", greatest sum", "", 0.0, "statics: nothing is left", "", "", 1.0});
    }
}

void AskForColumns(Sample &s) {
    for (const int code : ColumnCodes()) {
        const std::vector<Vector3> loads = ForcesOfRun(s.tank, code);
        if (!HasLoads(loads))
            continue;
        s.columns.push_back(code);
        s.example.quantities.push_back({"run, " + LoadCodeWords(code) + ", vertical", "t", -SumOfZ(loads),
                                        "statics: springs carry the run's own loads", "",
                                        "32-bit cells; the run tells it by its residual", SumOfSizes(loads)});
    }
}

// Springs and reactions, and the greatest of the six sums as a part of all forces; of the run's columns nothing.
std::vector<double> Balance(const Sample &s, std::size_t halvings) {
    const Analysis analysis(MeshedAs(s.tank, halvings));
    std::vector<double> values;
    for (const Case c : s.cases) {
        const Proof proof = analysis.solve(c).proof;
        double left = 0.0;
        for (const double sum : proof.sum)
            left = std::max(left, std::fabs(sum));
        values.push_back(proof.spring[2] + proof.reaction[2]);
        values.push_back(left / SumOfSizes(analysis.loads(c)));
    }
    values.resize(s.example.quantities.size(), std::nan(""));
    return values;
}

std::vector<std::optional<double>> BalanceOfRun(const Sample &s) {
    OpenProject(s.path);
    const std::vector<CaseResult> columns = RunStore(s.tank);
    std::vector<std::optional<double>> values(2 * s.cases.size());
    for (const int code : s.columns) {
        const CaseResult &column = columns[PlaceOfColumn(ColumnCodes(), code)];
        double springs = 0.0;
        for (int n = 1; n <= NoktaCount; ++n)
            springs -= NoktaTable[n].Yay * column.nodes[static_cast<std::size_t>(n)].u[2];
        values.push_back(springs);
    }
    return values;
}

Example BalanceOf(const std::string &path, const std::string &name) {
    const auto s = std::make_shared<Sample>();
    OpenProject(path);
    s->path = path;
    s->tank = ReadTank();
    AskForCases(*s);
    AskForColumns(*s);
    Example &e = s->example;
    e.key = "equilibrium-" + name.substr(0, name.find('.'));
    e.title = name;
    e.words =
        "Every load case: the vertical load beside springs and reactions, and the greatest of the six sums of "
        "forces and moments as a part of the sum of all forces. Every column of the run: its vertical load beside "
        "its springs. Differences are told in parts of the sum of all forces.";
    e.meshes = {"its meshes", "each as 4", "each as 16"};
    Example made = e;
    made.values = [s](std::size_t mesh) { return Balance(*s, mesh); };
    made.literal = [s] { return BalanceOfRun(*s); };
    made.sketch = SketchOf([s] { return s->tank; }, kLiquid);
    return made;
}

} // namespace

std::vector<Example> EquilibriumExamples(const std::string &projects) {
    std::vector<Example> all;
    for (const std::string &name : ProjectsOf(projects))
        all.push_back(BalanceOf(projects + "/" + name, name));
    return all;
}

} // namespace havuz::verification
