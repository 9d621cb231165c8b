#include "view/overview.h"

#include "model/arithmetic.h"
#include "model/store.h"
#include "view/fit.h"
#include "view/redraw.h"
#include "view/view_state.h"

#include <algorithm>

namespace havuz {

static void RedrawZoomed(Surface &scr, ViewWindow &window) {
    KeepZoom = 1;
    Redraw(scr, window);
    KeepZoom = 0;
}

void ZoomWindow(double left, double top, double width, double height, Surface &scr, ViewWindow &window) {
    ZoomMeshView(left, top, width, height, MeshScale, MeshOffsetX, MeshOffsetY);
    RedrawZoomed(scr, window);
}

void RefreshOverview(ViewWindow &window) {
    if (DynStage != 0)
        OnOverviewDeactivate(window);
    window.ShowOverview(false);
    window.CopySurfaceToOverview();
}

void OpenOverview(ViewWindow &window) {
    if (GorunusModu != 2)
        return;
    window.ShowOverviewButton(false);
    window.PlaceOverview(DynLeft, DynTop);
    window.ShowOverview(true);
    DynStage = 1;
}

void OnOverviewDeactivate(ViewWindow &window) {
    window.ShowOverview(false);
    window.ShowOverviewButton(true);
    DynStage = 0;
}

// The end of a side that is centred on the pointer and shifted where needed to stay within 1 and size - 1.
static void PlaceSide(double pointer, double length, double size, double &low, double &high) {
    low = pointer - length / 2.0;
    if (low + length > size - 1.0)
        low = size - 1.0 - length;
    if (low < 1.0)
        low = 1.0;
    high = low + length;
}

static void CentreRectangle(double x, double y, ViewWindow &window) {
    const double width = window.OverviewWidth();
    const double height = window.OverviewHeight();
    PlaceSide(x, DynWidthRatio * width, width, DynRectLeft, DynRectRight);
    PlaceSide(y, DynHeightRatio * height, height, DynRectTop, DynRectBottom);
}

static void ShowRectangle(ViewWindow &window) {
    window.PlaceOverviewRectangle(DynRectLeft, DynRectTop, DynRectRight, DynRectBottom);
}

static void SizeRectangle(ViewWindow &window) {
    if (DynRectLeft > DynRectRight)
        SwapValues(DynRectLeft, DynRectRight);
    if (DynRectTop > DynRectBottom)
        SwapValues(DynRectTop, DynRectBottom);
    DynWidthRatio = Divide(DynRectRight - DynRectLeft, window.OverviewWidth(), Thing::Overview);
    DynHeightRatio = Divide(DynRectBottom - DynRectTop, window.OverviewHeight(), Thing::Overview);
    DynStage = 1;
}

// Zooms from the home transform, so the zoom is relative to the full model whatever zoom stood before.
static void ZoomToRectangle(Surface &scr, ViewWindow &window) {
    const double overviewWidth = window.OverviewWidth();
    const double overviewHeight = window.OverviewHeight();
    const double r = std::min(Divide(scr.width(), overviewWidth, Thing::Overview),
                              Divide(scr.height(), overviewHeight, Thing::Overview));
    const double left = DynRectLeft * r;
    const double top = DynRectTop * r;
    double w = DynRectRight * r - left;
    double h = DynRectBottom * r - top;
    if (w == 0.0)
        w = 1.0;
    if (h == 0.0)
        h = 1.0;
    if (w > h)
        h = w * overviewHeight / overviewWidth;
    else
        w = h * overviewWidth / overviewHeight;
    ZoomMeshView(left, top, w, h, HomeScale, HomeOffsetX, HomeOffsetY);
    RedrawZoomed(scr, window);
}

void OnOverviewPress(int button, double x, double y, Surface &scr, ViewWindow &window) {
    if (button != kLeftButton)
        return;
    if (DynStage == 2) {
        SizeRectangle(window);
    } else if (DynStage == 1) {
        CentreRectangle(x, y, window);
        ZoomToRectangle(scr, window);
        DynLeft = window.OverviewLeft();
        DynTop = window.OverviewTop();
        OnOverviewDeactivate(window); // hidden, the window is active no more
    }
}

void OnOverviewMove(double x, double y, ViewWindow &window) {
    if (DynStage == 1) {
        CentreRectangle(x, y, window);
    } else if (DynStage == 2) {
        DynRectRight = x;
        DynRectBottom = y;
    } else {
        return;
    }
    ShowRectangle(window);
}

void OnOverviewRelease(int button) {
    if (button != kRightButton || DynStage == 0)
        return;
    DynStage = 3 - DynStage;
}

} // namespace havuz
