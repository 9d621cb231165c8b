// havuz-cli check: the tank computed a second time by the consistent analysis, with its proof, beside the run.
#include "app/check_report.h"
#include "app/cli.h"
#include "app/project.h"
#include "app/result_tables.h"
#include "consistent/tables.h"
#include "design/checks.h"
#include "design/failure.h"
#include "design/settings.h"
#include "design/superpose.h"
#include "model/store.h"

#include <algorithm>
#include <iostream>
#include <memory>

namespace havuz {

namespace {

using consistent::Analysis;
using consistent::CaseResult;

struct CheckOptions {
    std::string file, csv, combination;
    bool json = false, full = false, noTension = false;
};

// In the order of kAllCases.
std::vector<CaseResult> SolveCases(const Analysis &analysis) {
    std::vector<CaseResult> cases;
    for (const consistent::Case c : consistent::kAllCases)
        cases.push_back(analysis.solve(c));
    return cases;
}

// All combinations with tension; without it those in service and the one that is named. A failure of that one is the
// command's, of another a note.
void SolveCombinations(const CheckOptions &o, const design::Basis &basis, CheckReport &report) {
    const std::vector<CaseResult> cases = report.cases;
    if (!report.analysis->active(consistent::kSurcharge))
        report.cases.pop_back(); // the last
    const auto isNamed = [&](const design::DesignCombination &c) { return c.sum.key == o.combination; };
    const auto &all = basis.combinations;
    if (!o.combination.empty() && std::none_of(all.begin(), all.end(), isNamed))
        throw UsageError("combination " + o.combination + ": there is none of that name");
    for (const design::DesignCombination &c : all) {
        if (o.noTension && c.factored && !isNamed(c))
            continue;
        try {
            report.combinations.push_back(o.noTension ? report.analysis->solve(c.sum, false)
                                                      : design::Superpose(*report.analysis, cases, c.sum));
        } catch (const consistent::AnalysisFailure &failure) {
            if (isNamed(c))
                throw;
            report.notes.push_back(c.sum.key + ": " + failure.what());
            continue;
        }
        if (isNamed(c))
            report.cases.push_back(report.combinations.back());
    }
}

void NoteAssumptions(CheckReport &report) {
    const consistent::Tank &tank = report.analysis->tank();
    for (const auto &[number, panel] : tank.panels)
        if (panel.ownWeightAssumed)
            report.notes.push_back("panel " + std::to_string(number) + ": G is 0, its weight counts 2.5 * D/100 = " +
                                   consistent::ShortNumber(panel.dead) + " t/m2");
    if (tank.soilLevel > tank.groundwaterLevel && report.analysis->active(consistent::kGroundwater))
        report.notes.push_back(report.analysis->options().loads.saturatedDensity > 0.0
                                   ? "soil under water counts its saturated density less 1"
                                   : "soil under water keeps its full density: no saturated density is given");
}

void CompareRun(CheckReport &report) {
    report.run = ResultsBeside(ProjeYolu);
    const bool current = report.run == ResultState::Current;
    report.warnings = current ? RunWarnings(ProjeYolu) : ModelWarnings();
    if (current)
        report.comparisons = consistent::CompareWithRun(*report.analysis, ProjeYolu);
}

// Tables of the analysis and of the checks. What cannot be checked is a note, and its tables stay away.
void WriteCsv(CheckReport &report, const design::Basis &basis, const std::string &directory) {
    const consistent::Tank &tank = report.analysis->tank();
    constexpr auto style = design::TableStyle::International;
    const consistent::CaseList shown = report.shown();
    std::vector<design::NamedTable> tables = {
        design::FileOf("nodes.csv", NodesTable(tank, shown), style),
        design::FileOf("corners.csv", CornersTable(tank, shown), style),
        design::FileOf("walls.csv", consistent::WallsTable(shown), style),
        design::FileOf("proof.csv", consistent::ProofTable(report.proved()), style)};
    try {
        for (design::NamedTable &table : design::DesignTables(design::DesignTank(*report.analysis, basis), style))
            tables.push_back(std::move(table));
    } catch (const design::DesignFailure &failure) {
        report.notes.push_back(std::string("no checks: ") + failure.what());
    }
    WriteTables(directory, tables);
}

void Check(const CheckOptions &o) {
    OpenProject(o.file);
    const design::SettingsFile settings = design::ReadSettings(ProjectStem(o.file) + ".RAP");
    if (!settings.english.empty())
        std::cerr << settings.english << "\n";
    const design::Basis basis = design::MakeBasis(settings.settings);
    const Analysis analysis(consistent::ReadTank(), design::AnalysisOptions(basis));
    CheckReport report;
    report.file = o.file;
    report.analysis = &analysis;
    NoteAssumptions(report);
    report.cases = SolveCases(analysis);
    SolveCombinations(o, basis, report);
    CompareRun(report);
    if (!o.csv.empty())
        WriteCsv(report, basis, o.csv);
    if (o.json)
        PrintCheckAsJson(report, o.full, std::cout);
    else
        PrintCheck(report, std::cout);
}

} // namespace

void AddCheckCommand(CLI::App &parser, Job &job) {
    const auto o = std::make_shared<CheckOptions>();
    CLI::App *command = parser.add_subcommand("check", "a second, consistent analysis with its proof, beside the run");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_flag("--json", o->json, "the same for programs");
    command->add_flag("--full", o->full, "with --json: also nodes, corners and walls");
    command->add_option("--csv", o->csv, "directory for the tables of the analysis and the checks")->type_name("DIR");
    command->add_flag("--no-tension", o->noTension, "combinations on a bed that does not pull");
    command->add_option("--combination", o->combination, "also this combination, by its name")->type_name("NAME");
    command->callback([o, &job] { job = {o->file, [o] { Check(*o); }}; });
}

} // namespace havuz
