// Main tools that run a job at once, the top bar and the hot colour of the buttons.
#include "export/sap90.h"
#include "export/staad.h"
#include "fea/analysis.h"
#include "mesh/oto_mesh.h"
#include "model/analysed_project.h"
#include "model/files.h"
#include "model/options.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialogs.h"

#include <filesystem>

namespace havuz {

static std::string OutputProgram() { return ProgramDizini + "/RAPORCU.EXE"; }

// Jobs

void AutoMeshTool(MainWindow &main) {
    main.window.SetItems(kDyukList, {});
    main.RunEdit("AUTO MESH", [&main] { AutoMesh(main); });
}

// No other command can start while it runs, though it lets pending events through.
void RunAnalysis(MainWindow &main) {
    main.ShowFrame(3, false);
    main.window.EnableForm(kMain, false);
    AnalysisRun({ProjeYolu, CalismaDizini + "/WORKPOOL", OutputProgram()}, main);
}

void ShowResults(MainWindow &main) {
    if (ResultsBeside(ProjeYolu) == ResultState::Older)
        main.window.ReportError("havuz: " + ProjeYolu + ".SON: of an older model");
    main.window.StartProgram(OutputProgram(), ProjeYolu);
    main.window.EndProgram(0);
}

// The window is then as at the start: plan, plate view, nothing hidden.
void NewProject(MainWindow &main) {
    ClearModel();
    if (IsoView == 1)
        main.TakePlan();
    ZoomPending = 0;
    NodesHidden = 0;
    main.DrawPlateView();
}

void SaveProjectAs(MainWindow &main) {
    if (ProjeAdi.empty())
        ProjeAdi = "HAVUZ";
    ShowSaveName(main);
}

void ExportSapTool(MainWindow &main) {
    ExportSap(main);
    main.ClearTool(12);
}

void ExportStaadTool(MainWindow &main) {
    ExportStaad(main);
    main.ClearTool(13);
}

// Top bar

// A program whose file name holds a "$" has a help of its own where there is one.
static std::string HelpFile(const std::string &executable) {
    const std::string own = ProgramDizini + "/vek9$.chm";
    const bool dollar = std::filesystem::path(executable).filename().string().find('$') != std::string::npos;
    return dollar && FileExists(own) ? own : ProgramDizini + "/vek9.chm";
}

void OnTopBar(MainWindow &main, int index) {
    if (index == 0) {
        ShowEndConfirm(main);
    } else if (index == 1) {
        main.window.Minimise(kMain);
    } else if (index == 2) {
        const std::string help = HelpFile(main.executable());
        if (FileExists(help))
            main.window.OpenHelp(FindFile(help));
    }
}

// Hover

static constexpr Colour kHotColour = Rgb(255, 200, 150);

static int &Hot(ToolGroup group) { return HotTool[static_cast<std::size_t>(group)]; }

static void Cool(MainWindow &main, ToolGroup group) {
    if (Hot(group) >= 0)
        main.window.SetColour(ToolButton(group, Hot(group)), kButtonColour);
    Hot(group) = -1;
}

void OnToolHover(MainWindow &main, ToolGroup group, int index) {
    Cool(main, group);
    main.window.SetColour(ToolButton(group, index), kHotColour);
    Hot(group) = index;
}

void OnHoverTimer(MainWindow &main) {
    const Element under = main.window.ElementAt(main.window.PointerPosition());
    for (const ToolGroup group : {ToolGroup::View, ToolGroup::Mesh, ToolGroup::Plate, ToolGroup::Main})
        if (Hot(group) >= 0 && ToolButton(group, Hot(group)) != under)
            Cool(main, group);
}

} // namespace havuz
