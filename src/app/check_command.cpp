// havuz-cli check: the tank computed a second time by the consistent analysis, with its proof, beside the run.
#include "app/check_report.h"
#include "app/cli.h"
#include "app/project.h"
#include "consistent/tables.h"
#include "model/files.h"
#include "model/store.h"
#include "model/write_file.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>

namespace havuz {

namespace {

using consistent::Analysis;
using consistent::CaseResult;
using consistent::Combination;

struct CheckOptions {
    std::string file, csv, combination;
    bool json = false, full = false, noTension = false;
};

// The situations of a tank in service. Factors in the order G P N L S W U Q.
std::vector<Combination> ServiceCombinations() {
    return {{"test", {1, 0, 1, 1, 0, 0, 0, 0}},
            {"full", {1, 1, 1, 1, 1, 1, 1, 1}},
            {"empty", {1, 0, 1, 0, 1, 0, 0, 1}},
            {"empty-water", {1, 0, 1, 0, 1, 1, 1, 1}}};
}

std::vector<CaseResult> SolveCases(const Analysis &analysis) {
    std::vector<CaseResult> cases;
    for (const consistent::Case c : consistent::kAllCases)
        if (c != consistent::kSurcharge || analysis.active(c))
            cases.push_back(analysis.solve(c));
    return cases;
}

// Those in service, and the one that is named: a failure of that one is the command's, of another a note.
void SolveCombinations(const CheckOptions &o, CheckReport &report) {
    const std::vector<Combination> all = ServiceCombinations();
    if (!o.combination.empty() &&
        std::none_of(all.begin(), all.end(), [&](const Combination &c) { return c.key == o.combination; }))
        throw UsageError("combination " + o.combination + ": there is none of that name");
    for (const Combination &c : all) {
        try {
            report.combinations.push_back(report.analysis->solve(c, !o.noTension));
        } catch (const consistent::AnalysisFailure &failure) {
            if (c.key == o.combination)
                throw;
            report.notes.push_back(c.key + ": " + failure.what());
            continue;
        }
        if (c.key == o.combination)
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

void WriteCsv(const CheckReport &report, const std::string &directory) {
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (!DirectoryExists(directory))
        throw RuntimeFailure({.fault = Fault::CannotCreate, .text = directory, .reason = error.value()});
    const consistent::Tank &tank = report.analysis->tank();
    for (const consistent::ResultTable &table :
         {NodesTable(tank, report.cases), CornersTable(tank, report.cases), consistent::WallsTable(report.cases),
          consistent::ProofTable(report.proved())})
        WriteWholeFile(directory + "/" + table.name + ".csv", CsvText(table));
}

void Check(const CheckOptions &o) {
    OpenProject(o.file);
    consistent::Options options;
    options.threads = AllowedThreads();
    const Analysis analysis(consistent::ReadTank(), options);
    CheckReport report;
    report.file = o.file;
    report.analysis = &analysis;
    NoteAssumptions(report);
    report.cases = SolveCases(analysis);
    SolveCombinations(o, report);
    CompareRun(report);
    if (!o.csv.empty())
        WriteCsv(report, o.csv);
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
    command->add_option("--csv", o->csv, "directory for nodes.csv, corners.csv, walls.csv, proof.csv")
        ->type_name("DIR");
    command->add_flag("--no-tension", o->noTension, "combinations on a bed that does not pull");
    command->add_option("--combination", o->combination, "also this combination, by its name")->type_name("NAME");
    command->callback([o, &job] { job = {o->file, [o] { Check(*o); }}; });
}

} // namespace havuz
