// havuz-cli export: the meshed model as input text of an outside analysis program, and the steel as a drawing.
#include "app/cli.h"
#include "app/designed_project.h"
#include "app/project.h"
#include "app/shell_export.h"
#include "export/calculix.h"
#include "export/export_file.h"
#include "export/sap2000.h"
#include "export/sap90.h"
#include "export/staad.h"
#include "export/staad_pro.h"
#include "model/failure.h"
#include "model/store.h"
#include "model/write_file.h"
#include "report/dxf.h"

#include <array>
#include <iostream>
#include <memory>

namespace havuz {

namespace {

struct ExportOptions {
    std::string format, file, out, name;
    bool literal = false;
};

// Programs of today take the whole tank as a model of shells.
struct ShellFormat {
    const char *word;
    std::string (*text)(const ShellModel &);
};
constexpr std::array kShellFormats = {
    ShellFormat{"calculix", CalculixText},
    ShellFormat{"staadpro", StaadProText},
    ShellFormat{"s2k", Sap2000Text},
};

const ShellFormat *ShellFormatOf(const std::string &word) {
    for (const ShellFormat &format : kShellFormats)
        if (word == format.word)
            return &format;
    return nullptr;
}

void WriteShellExport(const ExportOptions &o, const ShellFormat &format) {
    const ShellModel model = ModelForExport(o.literal);
    if (model.cases.empty())
        std::cerr << "nothing loads the tank: the file has no load case\n";
    if (!model.hanging.empty() && format.text == StaadProText)
        std::cerr << model.hanging.size() << " nodes hang on an edge of a mesh; the file does not join them to it\n";
    WriteWholeFile(o.out, format.text(model));
}

void WriteDrawing(const ExportOptions &o) {
    const TankAnswer project = DesignModel(ProjectStem(o.file));
    WriteWholeFile(o.out, report::SteelDxf(project.tank, project.design.steel));
}

void ExportProject(const ExportOptions &o) {
    const ShellFormat *shells = ShellFormatOf(o.format);
    if (o.literal && shells == nullptr)
        throw UsageError("--literal is for calculix, staadpro and s2k; " + o.format +
                         (o.format == "dxf" ? " shows the consistent analysis" : " has the run's model always"));
    OpenProject(o.file);
    RefuseProjectAsTarget(o.file, o.out);
    if (!o.name.empty())
        ProjeAdi = o.name;
    if (NothingToExport())
        throw RuntimeFailure({.fault = Fault::NothingToExport});
    if (shells != nullptr)
        WriteShellExport(o, *shells);
    else if (o.format == "dxf")
        WriteDrawing(o);
    else
        WriteExport(o.out, o.format == "staad" ? StaadText : SapText);
}

} // namespace

void AddExportCommand(CLI::App &parser, Job &job) {
    const auto o = std::make_shared<ExportOptions>();
    CLI::App *command = parser.add_subcommand(
        "export", "write the meshed model for another analysis program, or the steel as a drawing");
    command->add_option("format", o->format, "staad, sap90, calculix, staadpro, s2k or dxf")
        ->required()
        ->check(CLI::IsMember({"staad", "sap90", "calculix", "staadpro", "s2k", "dxf"}));
    command->add_option("file", o->file, "project file")->required()->type_name("FILE.POL");
    command->add_option("-o", o->out, "file to write")->required()->type_name("OUT");
    command->add_option("--name", o->name, "project name in the title; else that of the file")->type_name("ProjeAdi");
    command->add_flag("--literal", o->literal, "loads and springs of the program's own run");
    command->callback([o, &job] { job = {o->file, [o] { ExportProject(*o); }}; });
}

} // namespace havuz
