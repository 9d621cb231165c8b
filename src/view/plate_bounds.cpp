// Bounds and depth order of the plate view.
#include "model/arithmetic.h"
#include "model/link_code.h"
#include "model/store.h"
#include "view/far_to_near.h"
#include "view/fit.h"
#include "view/marks.h"
#include "view/plate_drawing.h"
#include "view/projection.h"
#include "view/view_state.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace havuz {

static constexpr double kFarAway = 1000.0;
static constexpr double kFarthestKey = 10000.0;
static constexpr double kPlateNearer = 0.1; // a plate lies just nearer than what it touches
static constexpr double kEmptyModel = 20.0; // m

// A model beyond these is fitted right only when it reaches back inside: wanted.
static void ClearBounds() {
    Xmin = Ymin = Zmin = kFarAway;
    Xmax = Ymax = Zmax = -kFarAway;
    ClearProjected();
}

// Widens all bounds by a point; the distance of the point from the eye.
static double TakePoint(double x, double y, double z) {
    Xmin = std::min(Xmin, x);
    Xmax = std::max(Xmax, x);
    Ymin = std::min(Ymin, y);
    Ymax = std::max(Ymax, y);
    Zmin = std::min(Zmin, z);
    Zmax = std::max(Zmax, z);
    WidenProjected(x, y, z);
    return Distance3(x - ViewerX, y - ViewerY, z - ViewerZ);
}

static double TakePanels() {
    double key = kFarthestKey;
    for (int i = 1; i <= PanelCount; ++i) {
        const PanelRecord &panel = PanelTable[i];
        key = kFarthestKey;
        for (int k = 1; k <= 4; ++k)
            key = std::min(key, TakePoint(panel.X[k], panel.Y[k], panel.Z[k]));
        DepthKey[i] = key;
        DepthOrder[i] = i;
    }
    return key;
}

// The running minimum goes on from the last panel, through all plates, with no reset: wanted.
static void TakePlates(double key) {
    for (int i = 1; i <= PlakCount; ++i) {
        const PlakRecord &plate = PlakTable[i];
        const int entry = PanelCount + i;
        for (int k = 1; k <= plate.NoktaSayisi; ++k)
            key = std::min(key, TakePoint(plate.X[k], plate.Y[k], plate.Z[k]));
        DepthKey[entry] = key - kPlateNearer;
        DepthOrder[entry] = PlateOwner(i);
    }
}

static void SortEntries() {
    const int count = PanelCount + PlakCount;
    std::vector<std::pair<double, int>> entries;
    for (int i = 1; i <= count; ++i)
        entries.emplace_back(DepthKey[i], DepthOrder[i]);
    SortFarToNear(entries);
    for (int i = 1; i <= count; ++i) {
        DepthKey[i] = entries[static_cast<std::size_t>(i - 1)].first;
        DepthOrder[i] = entries[static_cast<std::size_t>(i - 1)].second;
    }
}

void PlateBoundsAndDepth(Surface &scr) {
    if (RotatedView())
        DrawAxisMark(scr);
    ClearBounds();
    const double key = TakePanels();
    TakePlates(key);
    if (PanelCount == 0 && PlakCount == 0) {
        Xmin = Ymin = 0.0;
        Xmax = Ymax = kEmptyModel;
    }
    if (FitPlateView() && RotatedView())
        SortEntries();
}

} // namespace havuz
