#include "ui/commands/pointer.h"

#include "model/arithmetic.h"
#include "ui/commands/edge_hover.h"
#include "ui/commands/pointer_commands.h"
#include "ui/commands/tools.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"
#include "view/mesh_drawing.h"
#include "view/overview.h"

#include <cmath>

namespace havuz {

static void NoPress(Workbench & /*bench*/, Pointer /*at*/) {}
static void NoRelease(Workbench & /*bench*/) {}

// clang-format off
static constexpr ArmedRow kArmed[] = {
    {kPointLoad,     kAnyStage, "NOKTA YUKU",          false, PressPointLoad,    MoveOverNodes,   NoRelease},
    {kSupport,       kAnyStage, "MESNET",              false, PressSupport,      MoveOverNodes,   NoRelease},
    {kMeshOnOff,     kAnyStage, "MESH ON/OFF",         false, PressMeshOnOff,    MoveOverMeshes,  NoRelease},
    {kNodeMove,      0,         "NOKTA KAYDIRMA",      false, PressTakeNode,     MoveOverTakable, HidePol},
    {kNodeMove,      1,         "NOKTA KAYDIRMA",      false, PressPlaceNode,    MoveTakenNode,   HidePol},
    {kPanelCopy,     0,         "PLAK KOPYALAMA",      false, PressTakePanel,    PlakAraAt,       HideBand},
    {kPanelCopy,     1,         "PLAK KOPYALAMA",      false, PressFirstCorner,  MoveBand,        HideBand},
    {kPanelCopy,     2,         "PLAK KOPYALAMA",      false, PressSecondCorner, MoveBand,        HideBand},
    {kPanelMove,     0,         "PLAK KAYDIRMA",       false, PressTakePanel,    PlakAraAt,       HideBand},
    {kPanelMove,     1,         "PLAK KAYDIRMA",       false, PressFirstCorner,  MoveBand,        HideBand},
    {kPanelMove,     2,         "PLAK KAYDIRMA",       false, PressSecondCorner, MoveBand,        HideBand},
    {kPanelDelete,   kAnyStage, "PLAK SILME",          false, PressDeletePanel,  PlakAraAt,       NoRelease},
    {kEdgeMove,      -1,        "KENAR KAYDIRMA",      false, PressFixEdge,      HoverEdges,      ForgetEdges},
    {kEdgeMove,      0,         "KENAR KAYDIRMA",      false, PressTakeEdge,     HoverEdges,      ForgetEdges},
    {kEdgeMove,      1,         "KENAR KAYDIRMA",      true,  NoPress,           MoveTakenEdge,   ForgetEdges},
    {kEdgeSupport,   kAnyStage, "PLAK MESNETI",        false, PressEdgeSupport,  KenarAraAt,      NoRelease},
    {kVerticalPlate, 0,         "DUSEY PLAK CIZIMI",   false, PressFirstEnd,     MoveLine,        HideLine},
    {kVerticalPlate, 1,         "DUSEY PLAK CIZIMI",   false, PressNextEnd,      MoveLine,        HideLine},
    {kPolygon,       0,         "POLYGON PLAK CIZIMI", false, PressFirstPoint,   MoveLine,        EndPolygon},
    {kPolygon,       1,         "POLYGON PLAK CIZIMI", false, PressNextPoint,    MoveLine,        EndPolygon},
    {kPolygonCut,    0,         "POLYGON PLAK KESME",  false, PressCutStart,     MoveLine,        NoRelease},
    {kPolygonCut,    1,         "POLYGON PLAK KESME",  false, PressCutEnd,       MoveLine,        NoRelease},
};
// clang-format on

std::span<const ArmedRow> ArmedCommands() { return kArmed; }

// The row of what is armed now; a stage that the command does not know has none.
static const ArmedRow *ArmedNow() {
    for (const ArmedRow &row : kArmed)
        if (row.state == CommandState && (row.stage == kAnyStage || row.stage == PickStage))
            return &row;
    return nullptr;
}

std::string ArmedName() {
    const ArmedRow *row = ArmedNow();
    return ZoomPending > 0 ? "ZOOM" : row != nullptr ? row->name : "GORUNUS";
}

bool MovesEdit(int buttonsHeld) {
    const ArmedRow *row = ArmedNow();
    return ZoomPending == 0 && row != nullptr && row->dragEdits && (buttonsHeld & kLeftButton) != 0;
}

// Window zoom

// Both corners come from earlier events, the second from the last move and not from this press: wanted. So is
// PickStage, left at 1 when the zoom is cancelled for want of a width or a height.
static void FinishZoom(Workbench &bench) {
    HideBand(bench);
    if (AnchorX > RubberX)
        SwapValues(AnchorX, RubberX);
    if (AnchorY > RubberY)
        SwapValues(AnchorY, RubberY);
    const double width = RubberX - AnchorX, height = RubberY - AnchorY;
    if (width == 0.0 || height == 0.0) {
        ZoomPending = 0;
        return;
    }
    ZoomWindow(AnchorX, AnchorY, width, height, bench.scr(), bench.view);
    bench.Prompt("");
    PickStage = 0;
    ZoomPending = 0;
}

static void PressZoom(Workbench &bench, Pointer at) {
    if (PickStage == 0) {
        PickStage = 1;
        AnchorX = at.x;
        AnchorY = at.y;
        bench.Prompt("ZOOM WINDOW ICIN 2. NOKTAYI SECIN");
    } else if (PickStage == 1) {
        FinishZoom(bench);
    }
}

static bool MovesZoomBand(Pointer at) {
    return ZoomPending > 0 && PickStage == 1 && (at.x != RubberX || at.y != RubberY);
}

static void MoveZoomBand(Workbench &bench, Pointer at) {
    ShowBand(bench, {AnchorX, AnchorY}, {at.x, at.y});
    RubberX = at.x;
    RubberY = at.y;
    bench.window.ConfinePointer(false);
}

// Idle: a drag turns the view

static void TurnView(Workbench &bench, Pointer at) {
    ViewAngleB = ViewAngleB - 0.01 * (at.x - AnchorX);
    ViewAngleA = ViewAngleA - 0.01 * (at.y - AnchorY);
    DragRotated = 1;
    if (GorunusModu == 1)
        bench.DrawPlateView();
    else
        QuickMeshOutline(bench.scr());
    bench.RefreshSurface();
}

static void MoveIdle(Workbench &bench, Pointer at) {
    if (PanelCount <= 0)
        return;
    if (at.left) {
        TurnView(bench, at);
    } else if (GorunusModu == 2 && DragRotated == 1) {
        DragRotated = 0;
        bench.DrawMeshView();
    }
    AnchorX = at.x;
    AnchorY = at.y;
}

// Events

// A command that ended at a press leaves the button down: a drag that follows turns the view from here.
static void AnchorWhenIdle(Pointer at) {
    if (ZoomPending + CommandState != 0)
        return;
    AnchorX = at.x;
    AnchorY = at.y;
}

void OnSurfacePress(Workbench &bench, int button, int /*shift*/, double x, double y) {
    if (button != kLeftButton)
        return;
    const Pointer at{true, x, y};
    if (ZoomPending > 0)
        PressZoom(bench, at);
    else if (const ArmedRow *row = ArmedNow())
        row->press(bench, at);
    AnchorWhenIdle(at);
}

void OnSurfaceMove(Workbench &bench, int button, int /*shift*/, double x, double y) {
    const Pointer at{(button & kLeftButton) != 0, x, y};
    if (MovesZoomBand(at))
        MoveZoomBand(bench, at);
    else if (ZoomPending + CommandState == 0)
        MoveIdle(bench, at);
    else if (const ArmedRow *row = ArmedNow())
        row->move(bench, at);
}

void OnSurfaceRelease(Workbench &bench, int button, int /*shift*/, double x, double y) {
    if (button != kRightButton)
        return;
    if (ZoomPending > 0)
        HideBand(bench);
    for (const ArmedRow &row : kArmed)
        if (row.state == CommandState) {
            row.release(bench);
            break;
        }
    DisarmCommand(bench);
    AnchorWhenIdle({false, x, y});
}

void AbandonCommand(Workbench &bench) {
    HideBand(bench);
    HidePol(bench);
    SelectedPanel = 0;
    ClearEdgeState();
    DisarmCommand(bench);
}

void DisarmCommand(Workbench &bench) {
    ZoomPending = 0;
    CommandState = kIdle;
    UncheckMeshTools(bench);
    UncheckPlateTools(bench, kCutTool);
    bench.window.SetPointerShape(PointerShape::Default);
    CancelPending(bench);
}

} // namespace havuz
