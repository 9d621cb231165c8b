#include "ui/window/view_habits.h"

#include "ui/commands/pointer_commands.h"
#include "ui/window/command_state.h"

#include <algorithm>
#include <cmath>

namespace havuz {

namespace {

// pixel = offset + scale * value
struct Transform {
    double scale = 0.0, offsetX = 0.0, offsetY = 0.0;
};

bool PlateViewNow() { return GorunusModu == 1; }

Transform CurrentTransform() {
    return PlateViewNow() ? Transform{PlateScale, PlateOffsetX, PlateOffsetY}
                          : Transform{MeshScale, MeshOffsetX, MeshOffsetY};
}

void SetTransform(Transform to) {
    (PlateViewNow() ? PlateScale : MeshScale) = to.scale;
    (PlateViewNow() ? PlateOffsetX : MeshOffsetX) = to.offsetX;
    (PlateViewNow() ? PlateOffsetY : MeshOffsetY) = to.offsetY;
}

struct Change {
    Transform from, to;

    void carry(double &x, double &y) const {
        x = to.offsetX + (x - from.offsetX) / from.scale * to.scale;
        y = to.offsetY + (y - from.offsetY) / from.scale * to.scale;
    }
};

void CarryLine(Workbench &bench, Element line, const Change &change) {
    if (!bench.window.Shown(line))
        return;
    LineEnds ends = bench.window.Line(line);
    change.carry(ends.x1, ends.y1);
    change.carry(ends.x2, ends.y2);
    bench.window.SetLine(line, ends);
}

// What an armed command keeps in pixels goes along with the view: picks, rubber lines, the caught edge's marker. The
// pointer itself stands still in a zoom and goes along in a pan, so that the ends of the lines stay at it, and a
// command can be gone on with at any stage.
void CarryMarks(Workbench &bench, const Change &change) {
    change.carry(AnchorX, AnchorY);
    change.carry(RubberX, RubberY);
    change.carry(EdgeMarkerX, EdgeMarkerY);
    for (int i = 1; i <= 4; ++i)
        CarryLine(bench, RubberLine(i), change);
    for (int i = 0; i <= kPolLast; ++i)
        CarryLine(bench, Pol(i), change);
}

// The current view under another transform. Unless it is kept, the one before comes back.
class MovedView {
public:
    MovedView(Workbench &bench, Transform to) : bench_(bench), from_(CurrentTransform()), to_(to) {
        SetTransform(to);
        CarryMarks(bench, {from_, to_});
        KeepZoom = KeepPlateFit = 1;
    }
    ~MovedView() {
        KeepZoom = KeepPlateFit = 0;
        if (kept_)
            return;
        SetTransform(from_);
        CarryMarks(bench_, {to_, from_});
    }
    MovedView(const MovedView &) = delete;
    MovedView &operator=(const MovedView &) = delete;
    void keep() { kept_ = true; }

private:
    Workbench &bench_;
    Transform from_, to_;
    bool kept_ = false;
};

void DrawMoved(Workbench &bench) {
    if (PlateViewNow()) {
        bench.DrawPlateView();
        FillPolygonSoFar(bench);
        PlateViewMoved = 1;
    } else {
        bench.DrawMeshView();
        DragRotated = 0; // it is the full drawing that a turn still owes
        MeshViewMoved = 1;
    }
    bench.RefreshSurface();
}

// A place that no pixel number can hold is a failure, as of any look at the model: the view is then fitted.
void MoveView(Workbench &bench, Transform to) {
    MovedView moved(bench, to);
    DrawMoved(bench);
    moved.keep();
}

} // namespace

void ZoomAbout(Workbench &bench, int steps, double x, double y) {
    const Transform now = CurrentTransform();
    if (!(now.scale > 0.0)) // never drawn
        return;
    const double wanted = now.scale * std::pow(kZoomStep, steps);
    // a fit beyond the bounds can be left inward only
    const double scale = std::clamp(wanted, std::min(kSmallestScale, now.scale), std::max(kLargestScale, now.scale));
    if (scale == now.scale)
        return;
    const double ratio = scale / now.scale;
    MoveView(bench, {scale, x - (x - now.offsetX) * ratio, y - (y - now.offsetY) * ratio});
}

void PanView(Workbench &bench, double dx, double dy) {
    const Transform now = CurrentTransform();
    if (now.scale > 0.0 && (dx != 0.0 || dy != 0.0))
        MoveView(bench, {now.scale, now.offsetX + dx, now.offsetY + dy});
}

StandingView::StandingView() : plate_(KeepPlateFit), mesh_(KeepZoom) {
    if (CommandState != kIdle && PlateViewMoved == 1)
        KeepPlateFit = 1;
    if (CommandState != kIdle && MeshViewMoved == 1)
        KeepZoom = 1;
    if (KeepZoom == 0 && GorunusModu == 2)
        MeshViewMoved = 0; // this drawing fits it
}

StandingView::~StandingView() {
    KeepPlateFit = plate_;
    KeepZoom = mesh_;
}

void SettlePlateView(Workbench &bench) {
    if (PlateViewMoved == 1 && KeepPlateFit == 0 && CommandState == kIdle)
        FitMovedViews(bench);
}

void FitMovedViews(Workbench &bench) {
    MeshViewMoved = 0;
    if (PlateViewMoved == 0)
        return;
    const Transform from{PlateScale, PlateOffsetX, PlateOffsetY};
    bench.RefreshBounds();
    CarryMarks(bench, {from, {PlateScale, PlateOffsetX, PlateOffsetY}});
    PlateViewMoved = 0;
}

} // namespace havuz
