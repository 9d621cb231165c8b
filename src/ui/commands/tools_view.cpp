// View commands, and what the mesh and plate tools do besides arming a command.
#include "ui/commands/tools.h"
#include "ui/forms/dialogs.h"
#include "view/overview.h"

#include <cstdlib>

namespace havuz {

static constexpr double kTurn = 0.2; // radians a click

static void RedrawAll(MainWindow &main) {
    main.RedrawView();
    RefreshOverview(main);
}

// View commands

void ZoomAll(MainWindow &main) { RedrawAll(main); }

void ZoomWin(MainWindow & /*main*/) {
    ZoomPending = 1;
    PickStage = 0;
}

void TurnIsometric(MainWindow &main) {
    SelectedPanel = 0;
    if (IsoView == 1)
        main.TakePlan();
    else
        main.TakeRotated();
    RedrawAll(main);
}

static void Rotate(MainWindow &main, double by) {
    if (IsoView != 1)
        return;
    ViewAngleB = ViewAngleB + by;
    RedrawAll(main);
}

void RotateLeft(MainWindow &main) { Rotate(main, -kTurn); }
void RotateRight(MainWindow &main) { Rotate(main, kTurn); }

// The drawing sets GorunusModu, so that without meshes the plate view stays the current one.
void SwitchView(MainWindow &main) {
    if (!(HavuzTip < 6))
        return;
    main.HideLabel1();
    main.Prompt("");
    SelectedPanel = 0;
    CommandState = kIdle;
    UncheckMeshTools(main);
    UncheckPlateTools(main, 4);
    if (GorunusModu == 1 && MeshCount > 0)
        main.DrawMeshView();
    else
        main.DrawPlateView();
}

// Mesh tools

void ShowResultOptions(MainWindow &main) { main.ShowFrame(3, true); }

void HideNodes(MainWindow &main) {
    NodesHidden = std::abs(NodesHidden - 1);
    main.RedrawView();
}

// Plate tools

static void WaitForFixedItem(MainWindow &main) {
    PickStage = -1;
    main.Prompt(kFixedPrompt);
}

void StartEdgeMove(MainWindow &main) {
    ClearEdgeState();
    if (IsoView != 1) {
        ShowPalette(main, kTool3);
        return;
    }
    ShowPalette(main, kTool2);
    if (main.window.Checked(Tool2Option(0)))
        WaitForFixedItem(main);
}

// Option 2 needs no fixed item, as option 1.
void OnTool2Option(MainWindow &main, int index) {
    if (index == 0) {
        WaitForFixedItem(main);
    } else {
        PickStage = 0;
        main.Prompt(kMovePrompt);
    }
    const bool marked = EdgeHitCount > 0;
    ClearEdgeState();
    if (marked)
        main.DrawPlateView();
}

// The note waits beyond the left edge until the pointer moves.
static void PrepareLabel(MainWindow &main) { main.ShowLabel("", -50, 0); }

void StartVerticalPlate(MainWindow &main) {
    PrepareLabel(main);
    ShowPalette(main, kTool1);
}

void StartPolygon(MainWindow &main) {
    StartVerticalPlate(main);
    PolyCount = 0;
}

void StartPolygonCut(MainWindow &main) { PrepareLabel(main); }

} // namespace havuz
