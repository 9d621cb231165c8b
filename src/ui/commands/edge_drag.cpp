#include "ui/commands/edge_drag.h"

#include "mesh/plak_edit.h"
#include "mesh/plane_geometry.h"
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/number_text.h"
#include "model/options.h"
#include "ui/commands/edge_hover.h"
#include "ui/window/command_state.h"
#include "view/projection.h"

#include <algorithm>
#include <cmath>

namespace havuz {

namespace {

constexpr const char *kNotePicture = "###0.##";

// What one step asks for.
struct Step {
    double x = 0.0, y = 0.0; // pointer
    double R = 0.0;          // distance from the marker, m
    double direction = 0.0;  // of the pointer from the marker
    double dZ = 0.0;         // upward movement, m
};

Step StepTo(double x, double y) {
    const double dx = x - EdgeMarkerX, dy = y - EdgeMarkerY;
    return {x, y, Divide(Distance2(dx, dy), PlateScale, Thing::PlateView), ScreenDirection(dx, dy),
            Divide(-dy, PlateScale, Thing::PlateView)};
}

std::size_t ItemCount() { return std::min<std::size_t>(EdgeItems.size(), kDraggedItems); }
int SavedPlate(std::size_t item) { return PlakCount + static_cast<int>(item) + 6; }
int NextCorner(int corner) { return corner % 4 + 1; }
int CornerBefore(int corner) { return (corner + 2) % 4 + 1; }

// The four outline points around edge k: the one before, both ends, the one after.
struct Around {
    int kp, k, kn, kk;
};

Around AroundEdge(int k, int n) {
    const int kn = k % n + 1;
    return {k == 1 ? n : k - 1, k, kn, kn % n + 1};
}

PlanPoint PointOf(const PlakRecord &plate, int k) { return {plate.X[k], plate.Y[k]}; }

// The first step: keep where the drag began

// An edge of a plate of more than four points takes the two points beside it along as a plate of its own, of which it
// is edge 2. At the ends of the outline, where these are no range, and for the plate of the fixed item the plate stays
// whole.
void SplitOff(EdgeItem &item) {
    const int plate = OwnerPlate(item.code), n = PlakTable[plate].NoktaSayisi;
    if (NoktaModu != 0 || n <= 4 || (EdgeDragFixed == 1 && FixedItem.code == item.code))
        return;
    const Around at = AroundEdge(item.no, n);
    if (at.kp < at.kk)
        PlakKoseKes(plate, at.kp, at.kk, item.no);
}

void CopyPoint(PlakRecord &plate, int to, int from) {
    plate.X[to] = plate.X[from];
    plate.Y[to] = plate.Y[from];
    plate.Z[to] = plate.Z[from];
}

void SavePlate(std::size_t index) {
    const EdgeItem item = EdgeItems[index];
    PlakRecord &plate = PlakTable[OwnerPlate(item.code)];
    const int n = plate.NoktaSayisi, next = item.no % n + 1;
    CopyPoint(plate, n + 1, 1);
    CopyPoint(plate, n + 2, item.no);
    CopyPoint(plate, n + 3, next);
    plate.X[0] = ScreenDirection(plate.X[next] - plate.X[item.no], plate.Y[next] - plate.Y[item.no]);
    PlakTable[SavedPlate(index)] = plate;
}

void SavePanel(std::size_t index) {
    const EdgeItem item = EdgeItems[index];
    DraggedPanel[index] = PanelTable[item.code];
}

void BeginDrag() {
    for (std::size_t i = 0; i < ItemCount(); ++i)
        if (ItemIsPlate(EdgeItems[i].code))
            SplitOff(EdgeItems[i]);
    for (std::size_t i = 0; i < ItemCount(); ++i)
        ItemIsPlate(EdgeItems[i].code) ? SavePlate(i) : SavePanel(i);
}

// Rubber lines

void ShowRubber(Workbench &bench, std::size_t item, int line, ScreenPoint from, ScreenPoint to) {
    bench.view.ShowPol(3 * static_cast<int>(item) + line, from.x, from.y, to.x, to.y);
}

void ShowPlateRubber(Workbench &bench, std::size_t index) {
    const int plate = OwnerPlate(EdgeItems[index].code);
    const Around at = AroundEdge(EdgeItems[index].no, PlakTable[plate].NoktaSayisi);
    ShowRubber(bench, index, 1, PlatePointPixels(plate, at.kp), PlatePointPixels(plate, at.k));
    ShowRubber(bench, index, 2, PlatePointPixels(plate, at.k), PlatePointPixels(plate, at.kn));
    if (NoktaModu == 0)
        ShowRubber(bench, index, 3, PlatePointPixels(plate, at.kn), PlatePointPixels(plate, at.kk));
}

void ShowPanelRubber(Workbench &bench, std::size_t index, int e) {
    const int panel = EdgeItems[index].code, next = NextCorner(e);
    ShowRubber(bench, index, 1, PanelCornerPixels(panel, CornerBefore(e)), PanelCornerPixels(panel, e));
    ShowRubber(bench, index, 2, PanelCornerPixels(panel, e), PanelCornerPixels(panel, next));
    if (NoktaModu == 0)
        ShowRubber(bench, index, 3, PanelCornerPixels(panel, next), PanelCornerPixels(panel, NextCorner(next)));
}

// Plan

double Wrap(double angle) {
    const double turn = 2.0 * kPi;
    return angle < 0.0 ? angle + turn : angle >= turn ? angle - turn : angle;
}

double AngleBetween(double a, double b) {
    const double d = std::fabs(a - b);
    return std::min(d, 2.0 * kPi - d);
}

// The edge's direction turned by a quarter circle to the side of the pointer.
double MoveDirection(double edge, double pointer) {
    const double left = Wrap(edge + kPi / 2.0), right = Wrap(edge - kPi / 2.0);
    return AngleBetween(right, pointer) < AngleBetween(left, pointer) ? right : left;
}

PlanPoint PointerInPlan(const Step &step) {
    return {Divide(step.x - PlateOffsetX, PlateScale, Thing::PlateView),
            Divide(step.y - PlateOffsetY, PlateScale, Thing::PlateView)};
}

// Record: a plate or a panel. The end at slot saved of the record that kept it goes to slot k.
template <class Record>
void MoveEnd(Record &record, int k, const Record &kept, int saved, double R, double direction) {
    record.X[k] = kept.X[saved] + R * std::cos(direction);
    record.Y[k] = kept.Y[saved] - R * std::sin(direction);
}

void PutWallUnder(const PlakRecord &plate, int k) {
    const int code = plate.KenarKodu[k];
    if (code <= 0)
        return;
    PanelRecord &wall = PanelTable[LinkPanel(code)];
    const PlanPoint from = PointOf(plate, k), to = PointOf(plate, k % plate.NoktaSayisi + 1);
    for (const int corner : {1, 4}) {
        wall.X[corner] = from.x;
        wall.Y[corner] = from.y;
    }
    for (const int corner : {2, 3}) {
        wall.X[corner] = to.x;
        wall.Y[corner] = to.y;
    }
}

void MovePlate(Workbench &bench, std::size_t index, const Step &step) {
    PlakRecord &plate = PlakTable[OwnerPlate(EdgeItems[index].code)];
    const int n = plate.NoktaSayisi;
    const Around at = AroundEdge(EdgeItems[index].no, n);
    if (NoktaModu == 1) {
        const PlanPoint to = PointerInPlan(step);
        plate.X[at.k] = to.x;
        plate.Y[at.k] = to.y;
    } else {
        const double direction = MoveDirection(plate.X[0], step.direction);
        MoveEnd(plate, at.k, plate, n + 2, step.R, direction);
        MoveEnd(plate, at.kn, plate, n + 3, step.R, direction);
    }
    ShowPlateRubber(bench, index);
    if (!bench.window.Checked(kTool3KeepWalls))
        for (const int k : {at.kp, at.k, at.kn})
            PutWallUnder(plate, k);
}

// Of a wall seen on end the palette says which of the two edges, one above the other, is meant.
int MeantEdge(Workbench &bench, const PanelRecord &panel, int edge) {
    if ((edge != 1 && edge != 3) || !SeenOnEnd(panel))
        return edge;
    return bench.window.Checked(Tool3Option(1)) ? 3 : 1;
}

void MovePanel(Workbench &bench, std::size_t index, const Step &step) {
    const PanelRecord &kept = DraggedPanel[index];
    PanelRecord &panel = PanelTable[EdgeItems[index].code];
    const int e = MeantEdge(bench, kept, EdgeItems[index].no), next = NextCorner(e);
    if (NoktaModu == 1) {
        const PlanPoint to = PointerInPlan(step);
        panel.X[e] = to.x;
        panel.Y[e] = to.y;
    } else {
        const Float32 edge(ScreenDirection(kept.X[next] - kept.X[e], kept.Y[next] - kept.Y[e]));
        const double direction = MoveDirection(edge, step.direction);
        MoveEnd(panel, e, kept, e, step.R, direction);
        MoveEnd(panel, next, kept, next, step.R, direction);
    }
    ShowPanelRubber(bench, index, e);
}

std::string PlanNote(const Step &step) {
    if (NoktaModu == 0)
        return "R=" + PictureText(step.R, kNotePicture) + " m";
    const PlanPoint to = PointerInPlan(step);
    return "X=" + PictureText(to.x, kNotePicture) + " Y=" + PictureText(to.y, kNotePicture);
}

// Levels

PlanPoint MiddleOf(const PlakRecord &plate, int k) {
    const PlanPoint a = PointOf(plate, k), b = PointOf(plate, k % plate.NoktaSayisi + 1);
    return {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0};
}

PlanPoint FootOn(PlanPoint p, PlanPoint a, PlanPoint b) {
    Izdusum foot;
    DikIzdusum(p, a, b, foot);
    return {foot.fx, foot.fy};
}

// The foot of p on the line through c square to edge k.
PlanPoint FootSquareTo(const PlakRecord &plate, int k, PlanPoint c, PlanPoint p) {
    constexpr double kFar = 100.0;
    const PlanPoint a = PointOf(plate, k), b = PointOf(plate, k % plate.NoktaSayisi + 1);
    const double ux = -(b.y - a.y), uy = b.x - a.x;
    return FootOn(p, {c.x + kFar * ux, c.y + kFar * uy}, {c.x - kFar * ux, c.y - kFar * uy});
}

// What a plate turns about: a point, or an edge that is linked to another plate or fixed.
struct Hinge {
    int no = 0;
    bool edge = false;
};

// The last linked edge, else the point farthest from C.
Hinge FindHinge(const PlakRecord &plate, PlanPoint C) {
    Hinge hinge;
    double farthest = 0.0;
    for (int k = 1; k <= plate.NoktaSayisi; ++k) {
        const double d = PlanDistance(PointOf(plate, k), C);
        if (plate.KenarKodu[k] < 0) {
            farthest = 1000.0;
            hinge = {k, true};
        } else if (d > farthest) {
            farthest = d;
            hinge = {k, false};
        }
    }
    return hinge;
}

Hinge HingeOf(const PlakRecord &plate, int code, PlanPoint C) {
    const Hinge found = FindHinge(plate, C);
    if (EdgeDragFixed != 1 || FixedItem.code != code)
        return found;
    if (SabitTuru == 0)
        return {FixedItem.no, true};
    return found.edge ? found : Hinge{FixedItem.no, false};
}

PlanPoint HingePoint(const PlakRecord &plate, EdgeItem item, PlanPoint C) {
    const Hinge hinge = HingeOf(plate, item.code, C);
    if (hinge.edge)
        return FootSquareTo(plate, hinge.no, C, MiddleOf(plate, hinge.no));
    const PlanPoint H = PointOf(plate, hinge.no);
    return NoktaModu == 1 ? H : FootSquareTo(plate, item.no, C, H);
}

// Each edge's wall keeps its foot on the plate.
void LiftWalls(const PlakRecord &plate) {
    for (int k = 1; k <= plate.NoktaSayisi; ++k) {
        const int code = plate.KenarKodu[k];
        if (code <= 0)
            continue;
        PanelRecord &wall = PanelTable[LinkPanel(code)];
        const int e = LinkEdge(code);
        wall.Z[NextCorner(e)] = plate.Z[k];
        wall.Z[e] = plate.Z[k + 1]; // slot n + 1 closes the outline
    }
}

// Points beyond the hinge rise as well, since distances have no sign: wanted.
void LiftPlate(Workbench &bench, std::size_t index, double dZ) {
    const EdgeItem item = EdgeItems[index];
    PlakRecord &plate = PlakTable[OwnerPlate(item.code)];
    const PlakRecord &kept = PlakTable[SavedPlate(index)];
    const int n = plate.NoktaSayisi;
    if (bench.window.Checked(Tool2Option(2))) {
        for (int k = 1; k <= n + 1; ++k)
            plate.Z[k] = kept.Z[k] + dZ;
    } else {
        const PlanPoint C = NoktaModu == 1 ? PointOf(kept, item.no) : MiddleOf(kept, item.no);
        const PlanPoint H = HingePoint(kept, item, C);
        const double L = PlanDistance(C, H);
        if (L == 0.0)
            return;
        for (int k = 1; k <= n + 1; ++k)
            plate.Z[k] = kept.Z[k] + dZ * PlanDistance(FootOn(PointOf(kept, k), C, H), H) / L;
    }
    LiftWalls(plate);
    ShowPlateRubber(bench, index);
}

void LiftPanel(Workbench &bench, std::size_t index, double dZ) {
    PanelRecord &panel = PanelTable[EdgeItems[index].code];
    const int e = EdgeItems[index].no;
    for (const int corner : {e, NextCorner(e)})
        panel.Z[corner] = DraggedPanel[index].Z[corner] + dZ;
    ShowPanelRubber(bench, index, e);
}

// The level of the caught point, or of the middle of the caught edge, of the first item.
template <class Record>
double LevelAt(const Record &record, int no, int next) {
    return NoktaModu == 1 ? record.Z[no] : (record.Z[no] + record.Z[next]) / 2.0;
}

std::string LevelNote(double dZ) {
    const EdgeItem item = EdgeItems.front();
    const double level = ItemIsPlate(item.code) ? LevelAt(PlakTable[OwnerPlate(item.code)], item.no,
                                                          item.no % PlakTable[OwnerPlate(item.code)].NoktaSayisi + 1)
                                                : LevelAt(PanelTable[item.code], item.no, NextCorner(item.no));
    return "Kot=" + PictureText(level, kNotePicture) + " m  dZ=" + PictureText(dZ, kNotePicture);
}

void DragItem(Workbench &bench, std::size_t index, const Step &step) {
    const bool plate = ItemIsPlate(EdgeItems[index].code);
    if (RotatedView())
        plate ? LiftPlate(bench, index, step.dZ) : LiftPanel(bench, index, step.dZ);
    else
        plate ? MovePlate(bench, index, step) : MovePanel(bench, index, step);
}

} // namespace

void KenarSurukle(Workbench &bench, double x, double y) {
    if (EdgeItems.empty())
        return;
    if (SurukleBasladi == 0)
        BeginDrag();
    SurukleBasladi = 1;
    const Step step = StepTo(x, y);
    for (std::size_t i = 0; i < ItemCount(); ++i)
        DragItem(bench, i, step);
    ShowNote(bench, RotatedView() ? LevelNote(step.dZ) : PlanNote(step), x, y);
}

} // namespace havuz
