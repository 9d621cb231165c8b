// havuz-cli mesh: what "auto mesh" does for the model.
#include "app/cli.h"
#include "app/project.h"
#include "mesh/mesh_report.h"
#include "mesh/oto_mesh.h"
#include "mesh/sound_mesh.h"
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

namespace {

struct Options {
    std::string file, out;
    double width = 0.0, foot = 0.0;
    bool sound = false, ownWidth = false; // own: the width was given

    void mesh() const {
        MeshWindow none;
        if (!sound) {
            AutoMesh(none);
            return;
        }
        SoundOptions options;
        options.width = ownWidth ? width : 0.0;
        options.foot = foot;
        for (const std::string &loss : SoundMesh(none, options))
            std::cerr << "not carried over: " << loss << "\n";
    }
};

void MeshProject(const Options &o) {
    OpenProject(o.file);
    if (o.ownWidth)
        MeshGenisligi = CheckedMeshWidth(o.width);
    o.mesh();
    StoreProject(SaveTarget(o.file, o.out));
    PrintMeshReport();
}

} // namespace

void AddMeshCommand(CLI::App &parser, Job &job) {
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("mesh", "mesh and number the model");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("-o", o->out, "project file to write instead")->type_name("OUT.POL");
    CLI::Option *width = command->add_option("--mesh-width", o->width, "unit mesh width, m")->type_name("M");
    CLI::Option *sound = command->add_flag("--sound", o->sound, "quadrilaterals that fit for any outline");
    CLI::Option *foot = command->add_option("--foot", o->foot, "first row at wall feet and corners, m")->type_name("M");
    foot->needs(sound);
    command->callback([o, width, foot, &job] {
        o->ownWidth = width->count() > 0;
        const bool footGiven = foot->count() > 0;
        job = {o->file, [o, footGiven] {
                   if (footGiven && !(o->foot > 0.0))
                       throw UsageError("--foot: the height of a row is above 0");
                   MeshProject(*o);
               }};
    });
}

} // namespace havuz
