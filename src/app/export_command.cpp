// havuz-cli export: the meshed model as input text of an outside analysis program.
#include "app/cli.h"
#include "app/project.h"
#include "export/export_file.h"
#include "export/sap90.h"
#include "export/staad.h"
#include "model/failure.h"
#include "model/store.h"

#include <memory>

namespace havuz {

static void ExportProject(const std::string &file, const std::string &out, const std::string &name, ExportText text) {
    OpenProject(file);
    if (!name.empty())
        ProjeAdi = name;
    if (NothingToExport())
        throw RuntimeFailure({.fault = Fault::NothingToExport});
    WriteExport(out, text);
}

void AddExportCommand(CLI::App &parser, Job &job) {
    struct Options {
        std::string format, file, out, name;
    };
    const auto o = std::make_shared<Options>();
    CLI::App *command = parser.add_subcommand("export", "write the meshed model for another analysis program");
    command->add_option("format", o->format, "staad or sap90")->required()->check(CLI::IsMember({"staad", "sap90"}));
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("-o", o->out, "file to write")->required()->type_name("OUT");
    command->add_option("--name", o->name, "project name in the title; else that of the file")->type_name("ProjeAdi");
    command->callback([o, &job] {
        job = {o->file, [o] { ExportProject(o->file, o->out, o->name, o->format == "staad" ? StaadText : SapText); }};
    });
}

} // namespace havuz
