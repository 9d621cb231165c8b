#include "view/plate_drawing.h"

#include "model/link_code.h"
#include "model/store.h"
#include "view/fit.h"
#include "view/marks.h"
#include "view/polygons.h"
#include "view/projection.h"
#include "view/view_frames.h"
#include "view/view_state.h"

#include <array>

namespace havuz {

static constexpr int kDrawingLine = 10; // CommandState: the picture stands still

static void FillPlate(Surface &scr, int plate, int fill) {
    const PlakRecord &record = PlakTable[plate];
    for (int k = 1; k <= record.NoktaSayisi; ++k)
        PutPoint(k, PlateScreen(record.X[k], record.Y[k], record.Z[k]));
    FillPolygon(scr, record.NoktaSayisi, kQbWhite, fill);
}

static void DrawPanel(Surface &scr, int panel, int fill) {
    const PanelRecord &record = PanelTable[panel];
    std::array<ScreenPoint, 5> corner; // the first again at the end
    ScreenPoint sum;
    for (int k = 1; k <= 4; ++k) {
        const ScreenPoint p = PlateScreen(record.X[k], record.Y[k], record.Z[k]);
        corner[static_cast<std::size_t>(k - 1)] = p;
        sum = {sum.x + p.x, sum.y + p.y};
        PutPoint(k, p);
    }
    corner[4] = corner[0];
    FillPolygon(scr, 4, kQbWhite, fill);
    for (int k = 1; k <= 4; ++k)
        DrawSide(scr, corner[static_cast<std::size_t>(k - 1)], corner[static_cast<std::size_t>(k)],
                 record.KenarMesnet[k] > 0 ? kQbLightRed : kQbWhite);
    DrawLabel(scr, std::to_string(panel), sum.x / 4.0 - 10.0, sum.y / 4.0, kQbBrightWhite);
}

static void DrawEdgeMarker(Surface &scr) {
    if (EdgeHitCount > 0)
        scr.Box(ToPixel(EdgeMarkerX - 1.0), ToPixel(EdgeMarkerY - 2.0), ToPixel(EdgeMarkerX + 2.0),
                ToPixel(EdgeMarkerY + 2.0), QbColour(kQbBrightWhite));
}

// All plates are light green here, whatever is selected: wanted.
static void DrawRotated(Surface &scr, ViewWindow &window) {
    window.EnablePlanTools(false);
    scr.pen.mode = DrawMode::Merge;
    for (int i = 1; i <= PanelCount + PlakCount; ++i) {
        const int item = DepthOrder[i];
        if (ItemIsPlate(item)) {
            FillPlate(scr, OwnerPlate(item), kQbLightGreen);
            continue;
        }
        const int kind = PanelTable[item].Tip == 0 ? kQbBlue : kQbLightBlue;
        DrawPanel(scr, item, item == SelectedPanel ? kQbGrey : kind);
        DrawEdgeMarker(scr);
    }
    scr.pen.mode = DrawMode::Copy;
}

// Plates first and panels over them, in the order of their numbers.
static void DrawPlan(Surface &scr, ViewWindow &window) {
    window.EnablePlanTools(true);
    for (int i = 1; i <= PlakCount; ++i)
        FillPlate(scr, i, SelectedPanel == PlateOwner(i) ? kQbGrey : kQbLightBlue);
    for (int i = 1; i <= PanelCount; ++i)
        DrawPanel(scr, i, SelectedPanel == i ? kQbGrey : kQbLightBlue);
    DrawEdgeMarker(scr);
}

void DrawPlateView(Surface &scr, ViewWindow &window) {
    scr.Clear();
    TakeView(1, window);
    const bool standsStill = CommandState == kDrawingLine;
    if (!standsStill) {
        PlateBoundsAndDepth(scr);
        if (KeepPlateFit == 0)
            FitMeshView();
    }
    if (RotatedView() && !standsStill)
        DrawRotated(scr, window);
    else
        DrawPlan(scr, window);
    DrawAxisMark(scr);
}

} // namespace havuz
