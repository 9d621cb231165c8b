// havuz-cli results: the consistent results and the checks of a project as tables, or as a file for a viewer.
#include "app/cli.h"
#include "app/designed_project.h"
#include "app/project.h"
#include "app/result_tables.h"
#include "design/vtk_file.h"
#include "model/files.h"
#include "model/write_file.h"

#include <memory>

namespace havuz {

namespace {

struct Options {
    std::string file, csv, style = "int", combination, out;
};

void WriteResults(const Options &o) {
    if (o.csv.empty() && o.out.empty())
        throw UsageError("results: --csv DIR or -o OUT.vtu says what to write");
    OpenProject(o.file);
    RefuseProjectAsTarget(o.file, o.out);
    const TankAnswer project = DesignModel(ProjectStem(o.file));
    if (!o.csv.empty())
        WriteTables(o.csv, design::ResultTables(*project.analysis, project.design,
                                                o.style == "tr" ? design::TableStyle::Turkish
                                                                : design::TableStyle::International,
                                                o.combination));
    if (!o.out.empty())
        WriteWholeFile(o.out, design::VtkText(project.analysis->tank(), project.design, o.combination));
}

} // namespace

void AddResultsCommand(CLI::App &parser, Job &job) {
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("results", "consistent results and checks as tables, or for a viewer");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("--csv", o->csv, "directory for the tables")->type_name("DIR");
    command->add_option("--style", o->style, "int: comma and point; tr: semicolon and comma")
        ->check(CLI::IsMember({"int", "tr"}))
        ->capture_default_str();
    command->add_option("--combination", o->combination, "also this combination, by its key")->type_name("KEY");
    command->add_option("-o", o->out, "VTK file to write")->type_name("OUT.vtu");
    command->callback([o, &job] { job = {o->file, [o] { WriteResults(*o); }}; });
}

} // namespace havuz
