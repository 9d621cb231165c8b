// havuz-cli cut: plates cut along a line, with the walls on the cut edges.
#include "app/cli.h"
#include "app/plan_points.h"
#include "app/project.h"
#include "mesh/plak_edit.h"
#include "model/store.h"

#include <iostream>
#include <memory>

namespace havuz {

static void CutProject(const std::string &file, const std::string &out, const CutLine &line, const double *width) {
    OpenProject(file);
    if (width != nullptr)
        MeshGenisligi = CheckedMeshWidth(*width);
    MeshWindow none;
    int degisti = 0;
    PlakKes(line, degisti, none);
    StoreProject(SaveTarget(file, out));
    if (degisti == 0)
        std::cerr << "the line cuts no plate\n";
}

void AddCutCommand(CLI::App &parser, Job &job) {
    struct Options {
        std::string file, out, line;
        double width = 0.0;
    };
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("cut", "cut plates along a line");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("-o", o->out, "project file to write instead")->type_name("OUT.POL");
    command->add_option("--line", o->line, "both ends of the cut, m")->required()->type_name("\"x,y x,y\"");
    CLI::Option *width = command->add_option("--mesh-width", o->width, "unit mesh width, m")->type_name("M");
    command->callback([o, width, &job] {
        job = {o->file, [o, width] {
                   const std::vector<PlanPoint> points = ParsePlanPoints(o->line);
                   if (points.size() != 2)
                       throw UsageError("--line: a cut line has two points");
                   CutProject(o->file, o->out, {points[0], points[1]}, width->count() > 0 ? &o->width : nullptr);
               }};
    });
}

} // namespace havuz
