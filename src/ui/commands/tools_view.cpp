// View commands, and what the mesh and plate tools do besides arming a command.
#include "model/analysed_project.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialogs.h"
#include "ui/window/view_habits.h"
#include "view/displacements.h"
#include "view/overview.h"

#include <cstdlib>

namespace havuz {

static constexpr double kTurn = 0.2; // radians a click

static void RedrawAll(Workbench &bench) {
    bench.RedrawView();
    RefreshOverview(bench.view);
}

// View commands

void ZoomAll(Workbench &bench) {
    FitMovedViews(bench);
    RedrawAll(bench);
}

void ZoomWin(Workbench & /*bench*/) {
    ZoomPending = 1;
    PickStage = 0;
}

void TurnIsometric(Workbench &bench) {
    SelectedPanel = 0;
    if (IsoView == 1)
        bench.TakePlan();
    else
        bench.TakeRotated();
    RedrawAll(bench);
}

static void Rotate(Workbench &bench, double by) {
    if (IsoView != 1)
        return;
    ViewAngleB = ViewAngleB + by;
    RedrawAll(bench);
}

void RotateLeft(Workbench &bench) { Rotate(bench, -kTurn); }
void RotateRight(Workbench &bench) { Rotate(bench, kTurn); }

// The drawing sets GorunusModu, so that without meshes the plate view stays the current one.
void SwitchView(Workbench &bench) {
    if (!(HavuzTip < 6))
        return;
    bench.HideLabel1();
    bench.Prompt("");
    SelectedPanel = 0;
    CommandState = kIdle;
    UncheckMeshTools(bench);
    UncheckPlateTools(bench, kEdgeSupportTool);
    if (GorunusModu == 1 && MeshCount > 0)
        bench.DrawMeshView();
    else
        bench.DrawPlateView();
}

// Mesh tools

void ShowResultOptions(Workbench &bench) { bench.view.ShowFrame(3, true); }

static void TellGreatest(Workbench &bench, int column) {
    switch (ResultsBeside(ProjeYolu)) {
    case ResultState::None:
        return bench.Prompt("SONUC YOK: ONCE FEA ANALIZI");
    case ResultState::Older:
        return bench.view.TellOlderResults();
    case ResultState::Current:
        return bench.Prompt(GreatestDisplacements(column));
    }
}

void OnResultOption(Workbench &bench, Element option) {
    if (ShownResult == option.index) {
        bench.window.SetChecked(option, false);
        ShownResult = -1;
    } else {
        ShownResult = option.index;
        TellGreatest(bench, option.index + 1);
    }
    bench.RedrawView();
}

void HideNodes(Workbench &bench) {
    NodesHidden = std::abs(NodesHidden - 1);
    bench.RedrawView();
}

// Plate tools

static void WaitForFixedItem(Workbench &bench) {
    PickStage = -1;
    bench.Prompt(kFixedPrompt);
}

void StartEdgeMove(Workbench &bench) {
    ClearEdgeState();
    if (IsoView != 1) {
        ShowPalette(bench, kTool3);
        return;
    }
    ShowPalette(bench, kTool2);
    if (bench.window.Checked(Tool2Option(0)))
        WaitForFixedItem(bench);
}

// Option 2 needs no fixed item, as option 1.
void OnTool2Option(Workbench &bench, int index) {
    if (index == 0) {
        WaitForFixedItem(bench);
    } else {
        PickStage = 0;
        bench.Prompt(kMovePrompt);
    }
    const bool marked = EdgeHitCount > 0;
    ClearEdgeState();
    if (marked)
        bench.DrawPlateView();
}

// The note waits beyond the left edge until the pointer moves.
static void PrepareLabel(Workbench &bench) { bench.ShowLabel("", -50, 0); }

void StartVerticalPlate(Workbench &bench) {
    PrepareLabel(bench);
    ShowPalette(bench, kTool1);
}

void StartPolygon(Workbench &bench) {
    StartVerticalPlate(bench);
    PolyCount = 0;
}

void StartPolygonCut(Workbench &bench) { PrepareLabel(bench); }

} // namespace havuz
