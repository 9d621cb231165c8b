#include "view/polygons.h"

#include "view/view_state.h"

namespace havuz {

static constexpr int kDottedEdge = 11;
static constexpr Colour kHatchColour = Rgb(0, 0, 160);

void PutPoint(int k, ScreenPoint p) { PointBuffer[k] = ToPixel(p); }

static void DrawBuffer(Surface &scr, int count) {
    if (count <= 0)
        return;
    const Pixel *last = &PointBuffer[count]; // fails when there are not so many
    scr.Polygon({&PointBuffer[1], static_cast<std::size_t>(last - &PointBuffer[1]) + 1});
}

void FillPolygon(Surface &scr, int count, int edge, int fill) { FillPolygonHatched(scr, count, edge, fill, 0); }

void FillPolygonHatched(Surface &scr, int count, int edge, int fill, int hatch) {
    scr.pen.fillStyle = FillStyle::Solid;
    scr.pen.colour = QbColour(edge);
    scr.pen.fillColour = QbColour(fill);
    if (edge == kDottedEdge)
        scr.pen.lineStyle = LineStyle::Dot;
    DrawBuffer(scr, count);
    if (hatch > 0) {
        scr.pen.fillColour = kHatchColour;
        scr.pen.fillStyle = static_cast<FillStyle>(hatch);
        DrawBuffer(scr, count);
    }
    scr.pen.fillStyle = FillStyle::None;
    scr.pen.fillColour = QbColour(0);
    scr.pen.colour = QbColour(0);
    scr.pen.lineStyle = LineStyle::Solid;
}

void DrawSide(Surface &scr, ScreenPoint from, ScreenPoint to, int colour) {
    const Pixel a = ToPixel(from);
    const Pixel b = ToPixel(to);
    scr.Line(a.x, a.y, b.x, b.y, QbColour(colour));
}

} // namespace havuz
