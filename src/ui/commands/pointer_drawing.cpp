// The pointer in the drawing commands: vertical plates along a line, polygon pools, the cut of polygon plates.
#include "mesh/plak_edit.h"
#include "model/arithmetic.h"
#include "model/number_text.h"
#include "ui/commands/pointer_commands.h"
#include "ui/forms/dialogs.h"
#include "ui/window/command_state.h"
#include "view/polygons.h"

namespace havuz {

static constexpr const char *kDrawPicture = "##0.00";
static constexpr double kNear = 0.1; // m

static void Anchor(ScreenPoint p) {
    AnchorX = p.x;
    AnchorY = p.y;
}

static void StartLine(Workbench &bench, int number, ScreenPoint at) {
    bench.window.SetLine(RubberLine(number), {at.x, at.y, at.x, at.y});
    bench.window.SetLineStyle(RubberLine(number), RubberStyle::Dashed);
    bench.window.Show(RubberLine(number), true);
}

static void MoveStart(Workbench &bench, int number, ScreenPoint to) {
    LineEnds ends = bench.window.Line(RubberLine(number));
    ends.x1 = to.x;
    ends.y1 = to.y;
    bench.window.SetLine(RubberLine(number), ends);
}

static void MoveEnd(Workbench &bench, int number, ScreenPoint to) {
    LineEnds ends = bench.window.Line(RubberLine(number));
    ends.x2 = to.x;
    ends.y2 = to.y;
    bench.window.SetLine(RubberLine(number), ends);
}

// Each panel in turn can take the point to one of its upper corners, a later one from where an earlier one took it.
static std::optional<PlanPoint> UpperCornerNear(PlanPoint p) {
    std::optional<PlanPoint> taken;
    for (int i = 1; SnapsToCorners == 1 && i <= PanelCount; ++i)
        for (const int k : {1, 2})
            if (Distance2(p.x - PanelTable[i].X[k], p.y - PanelTable[i].Y[k]) < kNear)
                taken = p = {PanelTable[i].X[k], PanelTable[i].Y[k]};
    return taken;
}

// Where a press would be taken. The first end of a vertical plate stays where it is.
static std::optional<PlanPoint> TakenPlace(PlanPoint m) {
    if (CommandState != kVerticalPlate)
        return PanelCornerNear(m);
    return PickStage > 0 ? UpperCornerNear(m) : std::nullopt;
}

void MoveLine(Workbench &bench, Pointer at) {
    const PlanPoint m = ToModel({at.x, at.y});
    bench.ShowLabel("X=" + PictureText(m.x, kDrawPicture) + "  Y=" + PictureText(m.y, kDrawPicture), at.x, at.y + 25.0);
    ShowSnapNote(bench, TakenPlace(m));
    if (PickStage <= 0)
        return;
    MoveEnd(bench, 1, {at.x, at.y});
    if (CommandState == kPolygon)
        MoveEnd(bench, 2, {at.x, at.y});
}

// Vertical plates

void PressFirstEnd(Workbench &bench, Pointer at) {
    PickStage = 1;
    Anchor({at.x, at.y});
    StartLine(bench, 1, {at.x, at.y});
}

static double AsWritten(double v) { return ParseNumber(PictureText(v, kDrawPicture)); }

static double PaletteNumber(Workbench &bench, int index) { return ParseNumber(bench.window.Text(Tool1Text(index))); }

// The record keeps what it held in the fields not named here, Tip among them: wanted.
static void AddVerticalPlate(Workbench &bench, PlanPoint p1, PlanPoint p2) {
    PanelRecord &panel = PanelTable[PanelCount + 1];
    ++PanelCount;
    panel.No = PanelCount;
    panel.D = PaletteNumber(bench, 0);
    const double upper = PaletteNumber(bench, 1), lower = PaletteNumber(bench, 2);
    for (int k = 1; k <= 4; ++k) {
        const PlanPoint p = k == 1 || k == 4 ? p1 : p2;
        panel.X[k] = AsWritten(p.x);
        panel.Y[k] = AsWritten(p.y);
        panel.Z[k] = k <= 2 ? upper : lower;
    }
    double L = Distance2(panel.X[2] - panel.X[1], panel.Y[2] - panel.Y[1]);
    if (L < 1.0)
        L = 1.0;
    panel.Nx = L;
    panel.Ny = 3;
}

void PressNextEnd(Workbench &bench, Pointer at) {
    MoveStart(bench, 1, {at.x, at.y});
    const PlanPoint pointed = ToModel({at.x, at.y});
    AddVerticalPlate(bench, ToModel({AnchorX, AnchorY}), UpperCornerNear(pointed).value_or(pointed));
    bench.DrawPlateView();
    Anchor({at.x, at.y});
}

void HideLine(Workbench &bench) {
    bench.window.SetLineStyle(RubberLine(1), RubberStyle::Solid);
    bench.window.Show(RubberLine(1), false);
}

// Polygons

static void AddPolyPoint(PlanPoint m) {
    PolyX[PolyCount + 1] = m.x;
    PolyY[PolyCount + 1] = m.y;
    ++PolyCount;
}

static PlanPoint Snapped(Pointer at) {
    PlanPoint m = ToModel({at.x, at.y});
    SnapToPanelCorner(m.x, m.y);
    return m;
}

void PressFirstPoint(Workbench &bench, Pointer at) {
    const PlanPoint m = Snapped(at);
    PolyCount = 0;
    AddPolyPoint(m);
    PickStage = 1;
    const ScreenPoint p = ToScreen(m);
    Anchor(p);
    StartLine(bench, 1, p);
    MoveStart(bench, 2, p);
}

void FillPolygonSoFar(Workbench &bench) {
    if (CommandState != kPolygon || PickStage <= 0 || PolyCount < 2)
        return;
    for (int k = 1; k <= PolyCount; ++k)
        PutPoint(k, ToScreen({PolyX[k], PolyY[k]}));
    FillPolygonHatched(bench.scr(), PolyCount, 15, 1, 1);
}

void PressNextPoint(Workbench &bench, Pointer at) {
    const double scale = PlateScale;
    const PlanPoint m = Snapped(at);
    bench.DrawPlateView();
    const ScreenPoint p = ToScreen(m);
    AddPolyPoint(m);
    bench.window.SetLine(RubberLine(1), {p.x, p.y, p.x, p.y});
    MoveEnd(bench, 2, p);
    if (PlateScale != scale)
        MoveStart(bench, 2, ToScreen({PolyX[1], PolyY[1]}));
    bench.window.SetLineStyle(RubberLine(2), RubberStyle::Dashed);
    bench.window.Show(RubberLine(2), true);
    FillPolygonSoFar(bench);
    Anchor(p);
}

// Also with a single point: wanted.
void EndPolygon(Workbench &bench) {
    HideBand(bench);
    PickStage = 0;
    ShowPolygonConfirm(bench);
}

// Cuts

static void PutCutPoint(int k, PlanPoint m) {
    CutLineX[k] = m.x;
    CutLineY[k] = m.y;
}

void PressCutStart(Workbench &bench, Pointer at) {
    const PlanPoint m = Snapped(at);
    PutCutPoint(1, m);
    PickStage = 1;
    const ScreenPoint p = ToScreen(m);
    Anchor(p);
    StartLine(bench, 1, p);
}

// Without success the first point stays, and the next press tries another second one.
void PressCutEnd(Workbench &bench, Pointer at) {
    PutCutPoint(2, Snapped(at));
    int degisti = 0;
    PlakKes({{CutLineX[1], CutLineY[1]}, {CutLineX[2], CutLineY[2]}}, degisti, bench.meshing);
    if (degisti != 1) {
        Anchor({at.x, at.y});
        return;
    }
    PickStage = 0;
    CommandState = kIdle;
    bench.window.Show(RubberLine(1), false);
    bench.HideLabel1();
    bench.window.SetChecked(kCutTool, false);
}

} // namespace havuz
