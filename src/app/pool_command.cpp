// havuz-cli pool: a pool of the library from its parameters.
#include "app/cli.h"
#include "app/model_names.h"
#include "app/project.h"
#include "model/store.h"
#include "pool/pool_library.h"

#include <memory>

namespace havuz {

static void MakePool(bool circular, const std::string &out, const std::vector<std::string> &settings) {
    BeginProgram();
    for (const std::string &text : settings) {
        const Assignment a = ParseAssignment(text);
        if (!SetParameter(a))
            throw UsageError("\"" + a.name + "\" is no parameter of a pool");
    }
    ClearModel();
    PoolWindow none;
    GeneratePool(circular ? 2 : 1, none);
    StoreProject(out);
}

void AddPoolCommand(CLI::App &parser, Job &job) {
    struct Options {
        std::string kind, out;
        std::vector<std::string> settings;
    };
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("pool", "make a pool of the library");
    command->add_option("kind", o->kind, "rectangular or circular")
        ->required()
        ->check(CLI::IsMember({"rectangular", "circular"}));
    command->add_option("-o", o->out, "project file to write")->required()->type_name("FILE.POL");
    command->add_option("--set", o->settings, "a parameter by its model name: Lx, MeshGenisligi, YukDurum(2)")
        ->type_name("NAME=VALUE")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command->callback([o, &job] { job = {o->out, [o] { MakePool(o->kind == "circular", o->out, o->settings); }}; });
}

} // namespace havuz
