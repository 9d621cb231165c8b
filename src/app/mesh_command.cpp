// havuz-cli mesh: what "auto mesh" does for the model.
#include "app/cli.h"
#include "app/project.h"
#include "mesh/mesh_report.h"
#include "mesh/oto_mesh.h"
#include "model/store.h"

#include <iostream>
#include <memory>

namespace havuz {

static void PrintMeshReport() {
    const std::vector<std::string> report = MeshReport();
    std::cerr << "mesh report: " << NoktaCount << " nodes, " << MeshCount << " meshes, "
              << (report.empty() ? "no warnings" : "WARNINGS:") << "\n";
    for (const std::string &warning : report)
        std::cerr << "  " << warning << "\n";
}

double CheckedMeshWidth(double width) {
    constexpr double kLeastMeshWidth = 0.001, kLargestMeshWidth = 1000.0;
    if (!(width >= kLeastMeshWidth && width <= kLargestMeshWidth))
        throw UsageError("--mesh-width: a mesh is 0.001 to 1000 m wide");
    return width;
}

static void MeshProject(const std::string &file, const std::string &out, const double *width) {
    OpenProject(file);
    if (width != nullptr)
        MeshGenisligi = CheckedMeshWidth(*width);
    MeshWindow none;
    AutoMesh(none);
    StoreProject(SaveTarget(file, out));
    PrintMeshReport();
}

void AddMeshCommand(CLI::App &parser, Job &job) {
    struct Options {
        std::string file, out;
        double width = 0.0;
    };
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("mesh", "mesh and number the model");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("-o", o->out, "project file to write instead")->type_name("OUT.POL");
    CLI::Option *width = command->add_option("--mesh-width", o->width, "unit mesh width, m")->type_name("M");
    command->callback([o, width, &job] {
        job = {o->file, [o, width] { MeshProject(o->file, o->out, width->count() > 0 ? &o->width : nullptr); }};
    });
}

} // namespace havuz
