// The pointer in the commands on whole panels (copy, move, delete) and on edges (move, support).
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/number_text.h"
#include "ui/commands/edge_drag.h"
#include "ui/commands/edge_hover.h"
#include "ui/commands/pointer_commands.h"
#include "ui/commands/tools.h"
#include "ui/window/command_state.h"

#include <cmath>

namespace havuz {

static constexpr const char *kNotePicture = "###0.##", *kSnapPicture = "##0.###";
static constexpr double kSnap = 0.1;     // m
static constexpr double kAtMarker = 5.0; // pixels

PlanPoint ToModel(ScreenPoint p) {
    return {Divide(p.x - PlateOffsetX, PlateScale, Thing::PlateView),
            Divide(p.y - PlateOffsetY, PlateScale, Thing::PlateView)};
}

ScreenPoint ToScreen(PlanPoint m) { return {PlateOffsetX + PlateScale * m.x, PlateOffsetY + PlateScale * m.y}; }

std::optional<PlanPoint> PanelCornerNear(PlanPoint m) {
    for (int i = 1; SnapsToCorners == 1 && i <= PanelCount; ++i)
        for (int k = 1; k <= 4; ++k) {
            const double X = PanelTable[i].X[k], Y = PanelTable[i].Y[k];
            if (std::fabs(m.x - X) < kSnap && std::fabs(m.y - Y) < kSnap)
                return PlanPoint{X, Y};
        }
    return {};
}

void SnapToPanelCorner(double &mx, double &my) {
    const PlanPoint taken = PanelCornerNear({mx, my}).value_or(PlanPoint{mx, my});
    mx = taken.x;
    my = taken.y;
}

void ShowSnapNote(Workbench &bench, std::optional<PlanPoint> at) {
    if (at) {
        const ScreenPoint p = ToScreen(*at);
        bench.window.SetText(kSnapNote,
                             "X=" + PictureText(at->x, kSnapPicture) + "  Y=" + PictureText(at->y, kSnapPicture));
        bench.window.Move(kSnapNote, p.x + 10.0, p.y - 25.0);
    }
    if (at || bench.window.Shown(kSnapNote))
        bench.window.Show(kSnapNote, at.has_value());
}

// Rubber band

// Line1 the side at the start's height, Line2 the one at the end's, Line3 and Line4 the sides left and right of them.
static void PlaceBand(Workbench &bench, ScreenPoint from, ScreenPoint to) {
    bench.window.SetLine(RubberLine(1), {from.x, from.y, to.x, from.y});
    bench.window.SetLine(RubberLine(2), {from.x, to.y, to.x, to.y});
    bench.window.SetLine(RubberLine(3), {from.x, from.y, from.x, to.y});
    bench.window.SetLine(RubberLine(4), {to.x, from.y, to.x, to.y});
}

void ShowBand(Workbench &bench, ScreenPoint from, ScreenPoint to) {
    PlaceBand(bench, from, to);
    for (int i = 1; i <= 4; ++i)
        bench.window.Show(RubberLine(i), true);
}

void HideBand(Workbench &bench) {
    for (int i = 1; i <= 4; ++i)
        bench.window.Show(RubberLine(i), false);
}

// Panels

void PlakAraAt(Workbench &bench, Pointer at) { PlakAra(bench, at.x, at.y); }

// The second number carries the view's offset, in the text only: wanted.
void PressTakePanel(Workbench &bench, Pointer at) {
    if (SelectedPanel <= 0)
        return;
    PickStage = 1;
    bench.DrawPlateView();
    const PlanPoint m = ToModel({at.x, at.y});
    bench.ShowLabel("X=" + PictureText(m.x, kNotePicture) + "Y=" + PictureText(m.y + PlateOffsetY, kNotePicture),
                    at.x + 10.0, at.y + 20.0);
}

// The record that takes the corners: a new one behind the last for a copy. A plate names none: Subscript.
static PanelRecord &TargetPanel() {
    return CommandState == kPanelCopy ? PanelTable[PanelCount + 1] : PanelTable[SelectedPanel];
}

void PressFirstCorner(Workbench &bench, Pointer at) {
    if (SelectedPanel <= 0)
        return;
    PanelRecord &target = TargetPanel();
    PickStage = 2;
    PlanPoint m = ToModel({at.x, at.y});
    SnapToPanelCorner(m.x, m.y);
    target.X[1] = m.x;
    target.Y[1] = m.y;
    const ScreenPoint corner = ToScreen(m);
    ShowBand(bench, corner, corner);
}

// The three snaps work on the same variables, so that a later one can move what an earlier one set: wanted. The levels
// stay those of the source.
static void PutCorners(PanelRecord &target, double mx1, double my1, double mx2, double my2) {
    SnapToPanelCorner(mx2, my2);
    SnapToPanelCorner(mx2, my1);
    SnapToPanelCorner(mx1, my2);
    const PlanPoint corners[] = {{mx1, my1}, {mx2, my1}, {mx2, my2}, {mx1, my2}};
    for (int k = 1; k <= 4; ++k) {
        target.X[k] = corners[k - 1].x;
        target.Y[k] = corners[k - 1].y;
    }
}

void PressSecondCorner(Workbench &bench, Pointer at) {
    if (SelectedPanel <= 0)
        return;
    const PlanPoint m = ToModel({at.x, at.y});
    PanelRecord &target = TargetPanel();
    const double mx1 = target.X[1], my1 = target.Y[1];
    if (CommandState == kPanelCopy) {
        target = PanelTable[SelectedPanel];
        ++PanelCount;
    }
    PutCorners(target, mx1, my1, m.x, m.y);
    HideBand(bench);
    PickStage = 0;
    SelectedPanel = 0;
    bench.RefreshBounds();
    bench.DrawPlateView();
}

// Only the ends that follow the pointer move.
void MoveBand(Workbench &bench, Pointer at) {
    const LineEnds first = bench.window.Line(RubberLine(1));
    PlaceBand(bench, {first.x1, first.y1}, {at.x, at.y});
    const PlanPoint m = ToModel({at.x, at.y});
    bench.ShowLabel("X=" + PictureText(m.x, kNotePicture) + " Y=" + PictureText(m.y, kNotePicture), at.x + 10.0,
                    at.y + 20.0);
    ShowSnapNote(bench, PanelCornerNear(m));
}

// On a plate nothing is shifted, and the last panel goes: wanted. Without any panel there is none to go.
void PressDeletePanel(Workbench &bench, Pointer /*at*/) {
    if (SelectedPanel <= 0 || PanelCount == 0)
        return;
    for (int i = SelectedPanel; i < PanelCount; ++i)
        PanelTable[i] = PanelTable[i + 1];
    --PanelCount;
    SelectedPanel = 0;
    bench.RefreshBounds();
    bench.DrawPlateView();
}

// Edges

void KenarAraAt(Workbench &bench, Pointer at) { KenarAra(bench, at.x, at.y); }

void HoverEdges(Workbench &bench, Pointer at) {
    KenarAra(bench, at.x, at.y);
    EdgeDragActive = 0;
}

void PressFixEdge(Workbench &bench, Pointer /*at*/) {
    if (EdgeHitCount <= 0)
        return;
    SabitTuru = NoktaModu;
    PickStage = 0;
    EdgeDragFixed = 1;
    bench.Prompt(kMovePrompt);
}

void PressTakeEdge(Workbench &bench, Pointer /*at*/) {
    if (EdgeHitCount <= 0)
        return;
    SelectedPanel = 0;
    PickStage = 1;
    bench.DrawPlateView();
    bench.HideLabel1();
    EdgeDragActive = -1;
    SurukleBasladi = 0;
}

void PressEdgeSupport(Workbench &bench, Pointer /*at*/) {
    if (SelectedPanel <= 0 || ItemIsPlate(SelectedPanel))
        return;
    Int16 &held = PanelTable[SelectedPanel].KenarMesnet[SeciliKenar];
    held = held > 0 ? 0 : 1;
    SelectedPanel = 0;
    EdgeHitCount = 0;
    bench.DrawPlateView();
    ClearEdgeState();
}

// Dragging

static bool AtMarker(Pointer at) {
    return std::fabs(at.x - EdgeMarkerX) < kAtMarker && std::fabs(at.y - EdgeMarkerY) < kAtMarker;
}

static PointerShape DragShape() {
    if (IsoView == 1)
        return PointerShape::NorthSouth;
    if (NoktaModu == 1)
        return PointerShape::FourWay;
    return KenarYonu == 1 ? PointerShape::NorthSouth : PointerShape::WestEast;
}

static void WaitAtMarker(Workbench &bench, Pointer at) {
    if (!AtMarker(at)) {
        bench.window.SetPointerShape(PointerShape::Default);
        EdgeDragActive = 0;
        bench.HideLabel1();
        return;
    }
    if (at.left) {
        KenarSurukle(bench, at.x, at.y);
        EdgeDragActive = 1;
    }
    bench.window.Show(kLabel1, true);
    bench.window.SetPointerShape(DragShape());
}

static void EndDrag(Workbench &bench) {
    bench.window.SetPointerShape(PointerShape::Default);
    bench.HideLabel1();
    HidePol(bench);
    SelectedPanel = 0;
    EdgeHitCount = 0;
    PickStage = 0;
    bench.DrawPlateView();
    ClearEdgeState();
    SurukleBasladi = 0;
}

void MoveTakenEdge(Workbench &bench, Pointer at) {
    if (EdgeHitCount <= 0)
        return;
    if (EdgeDragActive == -1)
        EdgeDragActive = 0;
    else if (EdgeDragActive == 0)
        WaitAtMarker(bench, at);
    else if (at.left)
        KenarSurukle(bench, at.x, at.y);
    else
        EndDrag(bench);
}

void ForgetEdges(Workbench &bench) {
    EdgeHitCount = 0;
    bench.DrawPlateView();
    HidePol(bench);
}

} // namespace havuz
