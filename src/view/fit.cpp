#include "view/fit.h"

#include "model/arithmetic.h"
#include "model/store.h"
#include "view/projection.h"
#include "view/view_state.h"

#include <algorithm>
#include <cmath>

namespace havuz {

static constexpr double kLeftMargin = 30.0, kTopMargin = 30.0;
static constexpr double kWidthMargin = 100.0, kHeightMargin = 50.0;
static constexpr double kAnyScale = 100000.0; // of a side without length: the other side decides
static constexpr double kFarAway = 1000.0;
static constexpr int kSmallModel = 30; // nodes

static double RoomX() { return ViewWidth - kWidthMargin; }
static double RoomY() { return ViewHeight - kHeightMargin; }

// Puts the model point (left, top) at the margins.
static void PlaceAt(double left, double top, double fitted, double &scale, double &offsetX, double &offsetY) {
    scale = fitted;
    offsetX = kLeftMargin - left * scale;
    offsetY = kTopMargin - top * scale;
}

static bool FitPlan(double &scale, double &offsetX, double &offsetY) {
    const double width = Xmax - Xmin;
    const double height = Ymax - Ymin;
    const double a = width == 0.0 ? kAnyScale : RoomX() / width;
    const double b = height == 0.0 ? kAnyScale : RoomY() / height;
    PlaceAt(Xmin, Ymin, std::min(a, b), scale, offsetX, offsetY);
    return true;
}

// False when the projection has no width or no height: the scale is 1 then and the offsets stay.
static bool FitProjected(double &scale, double &offsetX, double &offsetY) {
    const double width = std::fabs(Pxmax - Pxmin);
    const double height = std::fabs(Pymax - Pymin);
    if (width == 0.0 || height == 0.0) {
        scale = 1.0;
        return false;
    }
    PlaceAt(Pxmin, Pymin, std::min(RoomX() / width, RoomY() / height), scale, offsetX, offsetY);
    return true;
}

bool FitPlateView() {
    if (KeepPlateFit == 1)
        return true;
    return RotatedView() ? FitProjected(PlateScale, PlateOffsetX, PlateOffsetY)
                         : FitPlan(PlateScale, PlateOffsetX, PlateOffsetY);
}

void ClearProjected() {
    Pxmax = Pymax = -kFarAway;
    Pxmin = Pymin = kFarAway;
}

void WidenProjected(double x, double y, double z) {
    double sx = 0.0;
    double sy = 0.0;
    ProjectToView(x, y, z, sx, sy);
    Pxmin = std::min(Pxmin, sx);
    Pxmax = std::max(Pxmax, sx);
    Pymin = std::min(Pymin, sy);
    Pymax = std::max(Pymax, sy);
}

static bool FitNodes() {
    if (NoktaCount > kSmallModel)
        ClearProjected();
    for (int i = 1; i <= NoktaCount; ++i)
        WidenProjected(NoktaTable[i].X, NoktaTable[i].Y, NoktaTable[i].Z);
    return FitProjected(MeshScale, MeshOffsetX, MeshOffsetY);
}

void FitMeshView() {
    if (!(RotatedView() ? FitNodes() : FitPlan(MeshScale, MeshOffsetX, MeshOffsetY)))
        return;
    HomeScale = MeshScale;
    HomeOffsetX = MeshOffsetX;
    HomeOffsetY = MeshOffsetY;
}

void ZoomMeshView(double left, double top, double width, double height, double scale, double offsetX, double offsetY) {
    const double a = Divide(left - offsetX, scale, Thing::Zoom);
    const double b = Divide(top - offsetY, scale, Thing::Zoom);
    const double across = Divide(RoomX() * scale, width, Thing::Zoom);
    const double down = Divide(RoomY() * scale, height, Thing::Zoom);
    PlaceAt(a, b, std::min(across, down), MeshScale, MeshOffsetX, MeshOffsetY);
}

} // namespace havuz
