// Draws a result scene: faces from far to near, each with its contours, its lines and its hatching, then the marks and
// the legend. Pixels.
#include "view/result_scene.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace havuz {

namespace {

constexpr Colour kInk = {0x202020}, kMeshLine = {0x707070}, kNoValue = {0xE4E4E4}, kBadMesh = {0xC000C0};
constexpr double kTextSize = 12.0, kTitleSize = 14.0;

// The faces on the canvas.
struct Placed {
    std::array<ScreenPoint, 4> at;
    double depth = 0.0;
};

std::vector<Placed> PlaceFaces(const ResultScene &scene, double deformation, const SceneTransform &to) {
    std::vector<Placed> placed;
    placed.reserve(scene.faces.size());
    for (const ResultFace &face : scene.faces) {
        Placed p;
        for (std::size_t k = 0; k < 4; ++k) {
            const SpacePoint &a = face.at[k], &m = face.moved[k];
            const ScenePlace at =
                ProjectScene(scene.look, {a.x + deformation * m.x, a.y + deformation * m.y, a.z + deformation * m.z});
            p.at[k] = {to.x + to.scale * at.x, to.y + to.scale * at.y};
            p.depth += at.depth / 4.0;
        }
        placed.push_back(p);
    }
    return placed;
}

// Far to near; faces at one distance in their order.
std::vector<std::size_t> DrawingOrder(const std::vector<Placed> &placed) {
    std::vector<std::size_t> order(placed.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return placed[a].depth > placed[b].depth; });
    return order;
}

ScreenPoint Middle(const std::array<ScreenPoint, 4> &p) {
    return {(p[0].x + p[1].x + p[2].x + p[3].x) / 4.0, (p[0].y + p[1].y + p[2].y + p[3].y) / 4.0};
}

// Four triangles around the middle, which has the mean: the picture does not depend on a diagonal.
void DrawContours(ResultCanvas &canvas, const ResultFace &face, const Placed &p, const ColourMap &map) {
    const ValuePoint middle = {Middle(p.at), (face.value[0] + face.value[1] + face.value[2] + face.value[3]) / 4.0};
    for (std::size_t k = 0; k < 4; ++k) {
        const std::size_t next = (k + 1) % 4;
        canvas.Triangle({ValuePoint{p.at[k], face.value[k]}, ValuePoint{p.at[next], face.value[next]}, middle}, map);
    }
}

void DrawOutline(ResultCanvas &canvas, const Placed &p, Colour colour, double lineWidth) {
    for (std::size_t k = 0; k < 4; ++k)
        canvas.Line(p.at[k], p.at[(k + 1) % 4], colour, lineWidth);
}

ScreenPoint Between(ScreenPoint a, ScreenPoint b, double t) { return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}; }

// Lines across the quarter of a corner, which is what its node carries.
void DrawHatching(ResultCanvas &canvas, const Placed &p, std::size_t corner) {
    const ScreenPoint at = p.at[corner], middle = Middle(p.at);
    const ScreenPoint next = Between(at, p.at[(corner + 1) % 4], .5), before = Between(at, p.at[(corner + 3) % 4], .5);
    for (const double t : {0.5, 1.0})
        canvas.Line(Between(at, next, t), Between(at, before, t), kInk, 1.0);
    canvas.Line(Between(middle, next, .5), Between(middle, before, .5), kInk, 1.0);
}

void DrawFace(ResultCanvas &canvas, const ResultFace &face, const Placed &p, const ColourMap &map,
              const SceneStyle &style) {
    if (face.hasValue)
        DrawContours(canvas, face, p, map);
    else
        canvas.Fill(p.at, kNoValue);
    for (std::size_t k = 0; k < 4; ++k)
        if (face.lifted[k])
            DrawHatching(canvas, p, k);
    if (style.meshLines)
        DrawOutline(canvas, p, kMeshLine, 1.0);
    if (face.marked)
        DrawOutline(canvas, p, kBadMesh, 3.0);
}

constexpr double kArm = 5.0; // of a cross

// A value on a white plate beside its cross, kept inside the canvas.
struct MarkLabel {
    std::string text;
    ScreenPoint cross, base; // base: the middle of the baseline
    double wide = 0.0;

    double left() const { return base.x - wide / 2.0 - 3.0; }
    double right() const { return base.x + wide / 2.0 + 3.0; }
    double top() const { return base.y - kTextSize; }
    double bottom() const { return base.y + 3.0; }
    bool covers(const MarkLabel &other) const {
        return left() < other.right() && other.left() < right() && top() < other.bottom() && other.top() < bottom();
    }
};

MarkLabel LabelOf(const ResultCanvas &canvas, const ResultScene &scene, const std::vector<Placed> &placed,
                  const SceneExtreme &e, bool above) {
    MarkLabel label;
    label.text = DecimalCommaText(e.value, scene.decimals);
    label.cross = placed[e.face].at[e.corner];
    label.wide = 0.62 * kTextSize * static_cast<double>(label.text.size());
    label.base = {
        std::clamp(label.cross.x, label.wide / 2.0, std::max(canvas.width() - label.wide / 2.0, label.wide / 2.0)),
        above ? label.cross.y - 9.0 : label.cross.y + 9.0 + kTextSize};
    return label;
}

void DrawMark(ResultCanvas &canvas, const MarkLabel &label) {
    const ScreenPoint at = label.cross;
    for (const auto &[colour, width] : {std::pair{Colour{0xFFFFFF}, 4.0}, std::pair{kInk, 1.5}}) {
        canvas.Line({at.x - kArm, at.y - kArm}, {at.x + kArm, at.y + kArm}, colour, width);
        canvas.Line({at.x - kArm, at.y + kArm}, {at.x + kArm, at.y - kArm}, colour, width);
    }
    const std::array<ScreenPoint, 4> plate = {
        ScreenPoint{label.left(), label.top()}, ScreenPoint{label.right(), label.top()},
        ScreenPoint{label.right(), label.bottom()}, ScreenPoint{label.left(), label.bottom()}};
    canvas.Fill(plate, {0xFFFFFF});
    canvas.Text({label.base.x, label.base.y - 1.0}, label.text, TextAlign::Centre, kTextSize, kInk);
}

// The greatest above its cross, the least below; where they would cover each other the lower one goes further down.
void DrawMarks(ResultCanvas &canvas, const ResultScene &scene, const std::vector<Placed> &placed,
               const SceneExtremes &e) {
    MarkLabel least = LabelOf(canvas, scene, placed, e.least, false);
    MarkLabel greatest = LabelOf(canvas, scene, placed, e.greatest, true);
    if (least.covers(greatest)) {
        MarkLabel &lower = least.cross.y >= greatest.cross.y ? least : greatest;
        MarkLabel &upper = least.cross.y >= greatest.cross.y ? greatest : least;
        upper.base.y = upper.cross.y - 9.0;
        lower.base.y = lower.cross.y + 9.0 + kTextSize;
    }
    DrawMark(canvas, least);
    DrawMark(canvas, greatest);
}

// Words for what is drawn besides the colours, under the title.
void DrawKeys(ResultCanvas &canvas, const ResultScene &scene) {
    constexpr double kBox = 12.0, kTop = 34.0;
    double x = 14.0;
    const auto key = [&](bool lifted, const char *words) {
        const auto count = std::count_if(scene.faces.begin(), scene.faces.end(),
                                         [&](const ResultFace &f) { return lifted ? f.anyLifted() : f.marked; });
        if (count == 0)
            return;
        Placed box;
        box.at = {ScreenPoint{x, kTop}, ScreenPoint{x + kBox, kTop}, ScreenPoint{x + kBox, kTop + kBox},
                  ScreenPoint{x, kTop + kBox}};
        for (std::size_t k = 0; k < 4 && lifted; ++k)
            DrawHatching(canvas, box, k);
        DrawOutline(canvas, box, lifted ? kMeshLine : kBadMesh, lifted ? 1.0 : 3.0);
        const std::string text = std::string(words) + ": " + std::to_string(count) + " mesh";
        canvas.Text({x + kBox + 6.0, kTop + kBox - 1.0}, text, TextAlign::Left, kTextSize, kInk);
        x += kBox + 30.0 + 0.6 * kTextSize * static_cast<double>(text.size());
    };
    key(true, "kalkan taban");
    key(false, "mesh raporunda");
}

int LimitDecimals(const ColourMap &map) {
    const double step = (map.high() - map.low()) / std::max(map.bands(), 4);
    int decimals = 0;
    for (double s = step; decimals < 8 && s > 0.0 && std::fabs(s - std::round(s)) > 1e-6 * s; s *= 10.0)
        ++decimals;
    return decimals;
}

// The scale from the greatest value down, its limits beside it, the unit above.
void DrawLegend(ResultCanvas &canvas, const ResultScene &scene, const ColourMap &map) {
    constexpr double kFromRight = 110.0, kBar = 22.0, kTop = 70.0;
    const double x = canvas.width() - kFromRight;
    const double height = std::max(std::min(canvas.height() - kTop - 40.0, 360.0), 20.0);
    const double each = height / map.steps();
    const std::array<ScreenPoint, 4> plate = {
        ScreenPoint{x - 8.0, kTop - 30.0}, ScreenPoint{canvas.width(), kTop - 30.0},
        ScreenPoint{canvas.width(), kTop + height + 14.0}, ScreenPoint{x - 8.0, kTop + height + 14.0}};
    canvas.Fill(plate, {0xFFFFFF});
    for (int step = 0; step < map.steps(); ++step) {
        const double bottom = kTop + height - each * step, top = bottom - each;
        const std::array<ScreenPoint, 4> box = {ScreenPoint{x, top}, ScreenPoint{x + kBar, top},
                                                ScreenPoint{x + kBar, bottom}, ScreenPoint{x, bottom}};
        canvas.Fill(box, map.colour(step));
    }
    const int labels = map.bands() > 0 && map.bands() <= 24 ? map.bands() : 8;
    const int decimals = map.bands() > 0 ? LimitDecimals(map) : scene.decimals;
    for (int i = 0; i <= labels; ++i) {
        const double y = kTop + height - height * i / labels;
        const double value = map.low() + (map.high() - map.low()) * i / labels;
        canvas.Line({x + kBar, y}, {x + kBar + 4.0, y}, kInk, 1.0);
        canvas.Text({x + kBar + 8.0, y + 4.0}, DecimalCommaText(value, decimals), TextAlign::Left, kTextSize, kInk);
    }
    canvas.Text({x, kTop - 12.0}, scene.unit, TextAlign::Left, kTextSize, kInk);
}

} // namespace

void DrawScene(ResultCanvas &canvas, const ResultScene &scene, const SceneStyle &style, const SceneTransform &to) {
    const ColourMap map = MapOf(scene, style);
    const std::vector<Placed> placed = PlaceFaces(scene, style.deformation, to);
    for (const std::size_t f : DrawingOrder(placed))
        DrawFace(canvas, scene.faces[f], placed[f], map, style);
    const std::optional<SceneExtremes> e = ExtremesOf(scene);
    if (style.marks && e && e->least.value < e->greatest.value)
        DrawMarks(canvas, scene, placed, *e);
    if (style.legend && e)
        DrawLegend(canvas, scene, map);
    canvas.Text({14.0, 24.0}, scene.title, TextAlign::Left, kTitleSize, kInk);
    if (style.legend)
        DrawKeys(canvas, scene);
}

} // namespace havuz
