#include "view/marks.h"

#include "model/arithmetic.h"
#include "model/number_text.h"
#include "model/store.h"
#include "view/polygons.h"
#include "view/view_state.h"

#include <cmath>

namespace havuz {

void DrawLabel(Surface &scr, const std::string &text, double x, double y, int colour) {
    scr.pen.font = "Small Fonts";
    scr.pen.fontSize = 5;
    scr.pen.colour = QbColour(colour);
    scr.Text(ToPixel(x), ToPixel(y - 6.0), text);
}

// Axis mark

static constexpr double kAxisLength = 30.0, kAxisInset = 35.0; // pixels

static void DrawAxis(Surface &scr, ScreenPoint corner, double dx, double dy, const char *label) {
    const ScreenPoint end = {corner.x + dx, corner.y + dy};
    DrawSide(scr, corner, end, kQbGrey);
    DrawLabel(scr, label, end.x, end.y, kQbBrightWhite);
}

// Draws one projected marker; the length that it shows.
static double DrawMarker(Surface &scr, ScreenPoint corner, double x, double y, double z, const char *label) {
    double sx = 0.0;
    double sy = 0.0;
    ProjectToView(x, y, z, sx, sy);
    DrawAxis(scr, corner, sx, sy, label);
    return Distance2(sx, sy);
}

// The eye lies far out in the octant from which the model is seen: an axis that points to the eye shows short. What
// points away from the eye is (-sin B, sin A cos B, cos A cos B), the direction that projects to a point.
static void PlaceEye(double lengthX, double lengthY, double lengthZ) {
    const auto sign = [](double v) { return v < 0.0 ? -1.0 : 1.0; };
    ViewerX = 100.0 * (kAxisLength - lengthX) * sign(std::sin(ViewAngleB));
    ViewerY = 100.0 * (kAxisLength - lengthY) * sign(-std::sin(ViewAngleA) * std::cos(ViewAngleB));
    ViewerZ = 100.0 * (kAxisLength - lengthZ) * sign(-std::cos(ViewAngleA) * std::cos(ViewAngleB));
}

void DrawAxisMark(Surface &scr) {
    const ScreenPoint corner = {ViewWidth - kAxisInset, ViewHeight - kAxisInset};
    const Pixel from = ToPixel(corner);
    scr.FillBox(from.x, from.y, ViewWidth, ViewHeight, kBackground);
    if (!RotatedView()) {
        DrawAxis(scr, corner, kAxisLength, 0.0, "X");
        DrawAxis(scr, corner, 0.0, kAxisLength, "Y");
        return;
    }
    const double lengthX = DrawMarker(scr, corner, kAxisLength, 2.0, 2.0, "X");
    const double lengthY = DrawMarker(scr, corner, 2.0, kAxisLength, 2.0, "Y");
    const double lengthZ = DrawMarker(scr, corner, 2.0, 2.0, kAxisLength, "Z");
    PlaceEye(lengthX, lengthY, lengthZ);
}

// Point loads

static ScreenPoint AtAngle(ScreenPoint from, double angle, double length) {
    return {from.x + length * std::cos(angle), from.y + length * std::sin(angle)};
}

static void DrawArrow(Surface &scr, ScreenPoint head, ScreenPoint tail, int colour) {
    static constexpr double kStroke = 7.0, kSpread = 0.15; // pixels, radians
    DrawSide(scr, tail, head, colour);
    if (!(Distance2(tail.x - head.x, tail.y - head.y) > 1.0))
        return;
    const double a = std::atan2(tail.y - head.y, tail.x - head.x);
    DrawSide(scr, head, AtAngle(head, a - kSpread, kStroke), colour);
    DrawSide(scr, head, AtAngle(head, a + kSpread, kStroke), colour);
}

void DrawPointLoadArrow(Surface &scr, int node) {
    if (!RotatedView() || !HasPointLoad(NokYukTable[node]))
        return;
    const NoktaRecord &n = NoktaTable[node];
    const ScreenPoint head = NodePixels(node);
    const ScreenPoint tail = MeshScreen(n.X, n.Y, n.Z + Divide(30.0, MeshScale, Thing::PointLoadArrow));
    // the arrow keeps away from a fill of its own colour
    const bool onLightBlue = scr.ReadPoint(ToPixel(head.x), ToPixel(head.y - 3.0)) == QbColour(kQbLightBlue);
    DrawArrow(scr, head, tail, onLightBlue ? kQbBlue : kQbLightBlue);
}

// Displacements

static constexpr int kPen = 1, kWidePen = 2;

void DrawDisplacement(Surface &scr, int node, const LoadCase &result) {
    if (MeshScale == 0.0)
        return;
    const Displacement moved = result.node[static_cast<std::size_t>(node)];
    const NoktaRecord &n = NoktaTable[node];
    const ScreenPoint at = NodePixels(node);
    scr.pen.lineWidth = kWidePen;
    const double u = 2.0 * moved.x * result.factor / MeshScale;
    const double v = 2.0 * moved.y * result.factor / MeshScale;
    if (Distance2(u, v) > 0.0) {
        DrawSide(scr, at, MeshScreen(n.X + u, n.Y + v, n.Z), kQbLightRed);
        DrawLabel(scr, MillimetreText(Distance2(moved.x, moved.y)), at.x, at.y, kQbYellow);
    }
    const double w = moved.z * result.factor / MeshScale;
    if (w != 0.0)
        DrawSide(scr, at, MeshScreen(n.X, n.Y, n.Z + w), kQbLightRed);
    scr.pen.lineWidth = kPen;
}

} // namespace havuz
