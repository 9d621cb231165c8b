// Main tools that run a job at once, the top bar and the hot colour of the buttons.
#include "export/export_file.h"
#include "export/sap90.h"
#include "export/staad.h"
#include "fea/analysis.h"
#include "mesh/mesh_report.h"
#include "mesh/oto_mesh.h"
#include "mesh/sound_mesh.h"
#include "model/analysed_project.h"
#include "model/files.h"
#include "model/options.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialogs.h"
#include "ui/window/sound_switch.h"

#include <algorithm>
#include <filesystem>

namespace havuz {

static std::string OutputProgram() { return ProgramDizini + "/RAPORCU.EXE"; }

// Jobs

// Which mesher worked, nodes, meshes, what found no place in the new mesh, and how many places the report of the mesh
// names; a click on the prompt lists them.
static void TellMesh(Workbench &bench, const char *mesher, const SoundLosses &losses) {
    const std::vector<std::string> report = MeshReport();
    bench.window.SetItems(kMeshWarnings, report);
    bench.Prompt(std::string("MESH TAMAM (") + mesher + "): " + std::to_string(NoktaCount) + " NOKTA, " +
                 std::to_string(MeshCount) + " MESH, " +
                 (losses.empty() ? "" : "TASINAMAYAN " + std::to_string(losses.size()) + ", ") +
                 (report.empty() ? "UYARI YOK" : std::to_string(report.size()) + " UYARI (LISTE ICIN TIKLAYIN)") +
                 (GorunusModu == 1 && MeshCount > 0 ? " - GORMEK ICIN plak/mesh" : ""));
}

void AutoMeshTool(Workbench &bench) {
    bench.window.SetItems(kDyukList, {});
    // The mesher that the switch in the top bar asks for. What is lost goes to standard error, a line each.
    if (bench.window.Checked(kSoundSwitch)) {
        const SoundLosses losses = SoundMesh(bench.meshing, {});
        for (const std::string &loss : losses)
            bench.window.ReportError("havuz: not carried over: " + loss);
        TellMesh(bench, "TUTARLI", losses);
        return;
    }
    AutoMesh(bench.meshing);
    TellMesh(bench, "ALISILMIS", {});
}

// No other command can start while it runs, though it lets pending events through.
void RunAnalysis(Workbench &bench) {
    bench.view.ShowFrame(3, false);
    bench.window.EnableForm(kMain, false);
    AnalysisRun({ProjeYolu, CalismaDizini + "/WORKPOOL", OutputProgram()}, bench.analysis);
}

void ShowResults(Workbench &bench) {
    if (ResultsBeside(ProjeYolu) == ResultState::Older)
        bench.window.ReportError("havuz: " + ProjeYolu + ".SON: of an older model");
    bench.window.StartProgram(OutputProgram(), ProjeYolu);
    bench.window.EndProgram(0);
}

// The window is then as at the start: plan, plate view, nothing hidden.
void NewProject(Workbench &bench) {
    ClearModel();
    if (IsoView == 1)
        bench.TakePlan();
    ZoomPending = 0;
    NodesHidden = 0;
    bench.DrawPlateView();
}

void SaveProjectAs(Workbench &bench) {
    if (ProjeAdi.empty())
        ProjeAdi = "HAVUZ";
    ShowSaveName(bench);
}

static void TellExport(Workbench &bench) {
    if (!ExportPath.empty())
        bench.Prompt("YAZILDI: " + ExportPath);
}

void ExportSapTool(Workbench &bench) {
    ExportSap(bench.files);
    bench.ClearTool(kSapTool);
    TellExport(bench);
}

void ExportStaadTool(Workbench &bench) {
    ExportStaad(bench.files);
    bench.ClearTool(kStaadTool);
    TellExport(bench);
}

// Top bar

// A program whose file name holds a "$" has a help of its own where there is one.
static std::string HelpFile(const std::string &executable) {
    const std::string own = ProgramDizini + "/vek9$.chm";
    const bool dollar = std::filesystem::path(executable).filename().generic_string().find('$') != std::string::npos;
    return dollar && FileExists(own) ? own : ProgramDizini + "/vek9.chm";
}

void OnTopBar(Workbench &bench, Element button) {
    if (button == kEndButton) {
        ShowEndConfirm(bench);
    } else if (button == kMinimiseButton) {
        bench.window.Minimise(kMain);
    } else if (button == kHelpButton) {
        const std::string help = HelpFile(bench.executable());
        if (FileExists(help))
            bench.window.OpenHelp(FindFile(help));
    }
}

// Hover

static constexpr Colour kHotColour = Rgb(255, 200, 150);

static int &Hot(ToolGroup group) { return HotTool[static_cast<std::size_t>(group)]; }

static void Cool(Workbench &bench, ToolGroup group) {
    for (const ToolRow &tool : Tools())
        if (tool.group == group && tool.button.index == Hot(group))
            bench.window.SetColour(tool.button, kButtonColour);
    Hot(group) = -1;
}

void OnToolHover(Workbench &bench, const ToolRow &tool) {
    Cool(bench, tool.group);
    bench.window.SetColour(tool.button, kHotColour);
    Hot(tool.group) = tool.button.index;
}

void OnHoverTimer(Workbench &bench) {
    if (std::all_of(HotTool.begin(), HotTool.end(), [](int hot) { return hot < 0; }))
        return;
    const Element under = bench.window.ElementAt(bench.window.PointerPosition());
    for (const ToolRow &tool : Tools())
        if (tool.button.index == Hot(tool.group) && tool.button != under)
            Cool(bench, tool.group);
}

} // namespace havuz
