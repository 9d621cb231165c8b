// havuz-cli set: values of a project by their model names.
#include "app/cli.h"
#include "app/model_names.h"
#include "app/project.h"

#include <iostream>
#include <memory>

namespace havuz {

static void SetValues(const std::string &file, const std::string &out, const std::vector<std::string> &settings) {
    std::vector<Assignment> assignments;
    for (const std::string &text : settings)
        assignments.push_back(ParseAssignment(text));
    OpenProject(file);
    for (const Assignment &a : assignments) {
        SetModelValue(a);
        if (a.name == "MeshGenisligi")
            std::cerr << "MeshGenisligi is not kept in a project file; give it to mesh as --mesh-width\n";
    }
    StoreProject(SaveTarget(file, out));
}

void AddSetCommand(CLI::App &parser, Job &job) {
    struct Options {
        std::string file, out;
        std::vector<std::string> settings;
    };
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("set", "set parameters, supports, loads, panel data by name");
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("-o", o->out, "project file to write instead")->type_name("OUT.POL");
    command->add_option("settings", o->settings, "ZeminKo=1500, Mesnet(7)=4, FZ(7)=2.5, Sil(3)=1, KenarMesnet(1,2)=1")
        ->required()
        ->type_name("NAME=VALUE");
    command->callback([o, &job] { job = {o->file, [o] { SetValues(o->file, o->out, o->settings); }}; });
}

} // namespace havuz
