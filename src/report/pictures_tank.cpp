// Plan, section and mesh of the tank as drawings.
#include "design/number_words.h"
#include "report/pictures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>

namespace havuz::report {

using consistent::Tank;
using consistent::TankMesh;
using design::Turkish;

namespace {

constexpr Colour kConcrete = {0xc9c9c9}, kInk = {0x222222};
constexpr double kText = 11.0;
constexpr double kFar = std::numeric_limits<double>::infinity();

struct Box {
    Vector3 low{kFar, kFar, kFar}, high{-kFar, -kFar, -kFar};
    void take(const Vector3 &p) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
    }
};

Box BoxOf(const Tank &tank) {
    Box box;
    for (const TankMesh &m : tank.meshes)
        for (std::size_t k = 0; k < 4; ++k)
            box.take(tank.corner(m, k));
    return box;
}

// A drawing of metres a across and b up in a frame of pixels.
struct Frame {
    double scale, left, bottom, a0, b0;
    ScreenPoint at(double a, double b) const { return {left + (a - a0) * scale, bottom - (b - b0) * scale}; }
};

Frame FitFrame(double a0, double a1, double b0, double b1, double width, double height, double left, double top) {
    const double scale = std::min(width / std::max(a1 - a0, 1e-6), height / std::max(b1 - b0, 1e-6));
    return {scale, left + (width - scale * (a1 - a0)) / 2.0, top + scale * (b1 - b0), a0, b0};
}

struct Segment {
    double a0, b0, a1, b1, thickness;
};

// Where a plane cuts the meshes: side says how far a point stands in front of it, across and up are its coordinates.
template <class Side, class Across, class Up>
std::vector<Segment> CutMeshes(const Tank &tank, const Side &side, const Across &across, const Up &up) {
    std::vector<Segment> cuts;
    for (const TankMesh &m : tank.meshes) {
        std::vector<Vector3> points;
        for (std::size_t k = 0; k < 4; ++k) {
            const Vector3 &p = tank.corner(m, k), &q = tank.corner(m, (k + 1) % 4);
            const double sp = side(p), sq = side(q);
            if ((sp < 0.0) != (sq < 0.0))
                points.push_back(p + (sp / (sp - sq)) * (q - p));
        }
        if (points.size() == 2)
            cuts.push_back(
                {across(points[0]), up(points[0]), across(points[1]), up(points[1]), tank.panelOf(m).thickness});
    }
    return cuts;
}

// A cut wall or slab with its thickness, drawn about its mean line.
void DrawCut(SvgCanvas &svg, const Frame &frame, const Segment &s) {
    const double length = std::hypot(s.a1 - s.a0, s.b1 - s.b0);
    if (!(length > 0.0))
        return;
    const double half = std::max(s.thickness * frame.scale, 2.7) / 2.0 / frame.scale;
    const double na = -(s.b1 - s.b0) / length * half, nb = (s.a1 - s.a0) / length * half;
    svg.Rings({{frame.at(s.a0 + na, s.b0 + nb), frame.at(s.a1 + na, s.b1 + nb), frame.at(s.a1 - na, s.b1 - nb),
                frame.at(s.a0 - na, s.b0 - nb)}},
              kConcrete, kConcrete, .4);
    svg.Line(frame.at(s.a0 + na, s.b0 + nb), frame.at(s.a1 + na, s.b1 + nb), kInk, .9);
    svg.Line(frame.at(s.a0 - na, s.b0 - nb), frame.at(s.a1 - na, s.b1 - nb), kInk, .9);
}

// Edges of floor meshes that no second floor mesh has.
std::vector<Segment> FloorOutline(const Tank &tank) {
    std::map<std::pair<int, int>, int> count;
    for (const TankMesh &m : tank.meshes)
        for (std::size_t k = 0; tank.panelOf(m).kind == 0 && k < 4; ++k) {
            const int a = m.node[k], b = m.node[(k + 1) % 4];
            if (a != b)
                ++count[{std::min(a, b), std::max(a, b)}];
        }
    std::vector<Segment> outline;
    for (const auto &[edge, meshes] : count)
        if (meshes == 1) {
            const Vector3 &a = tank.nodes[static_cast<std::size_t>(edge.first)].at;
            const Vector3 &b = tank.nodes[static_cast<std::size_t>(edge.second)].at;
            outline.push_back({a.x, a.y, b.x, b.y, 0.0});
        }
    return outline;
}

void DrawLevel(SvgCanvas &svg, const Frame &frame, double from, double to, double level, Colour colour,
               const std::string &words, double textY) {
    const ScreenPoint a = frame.at(from, level), b = frame.at(to, level);
    svg.DashedLine(a, b, colour, 1.3, "7,4");
    svg.Line(b, {kPageWidth - 163.0, textY - 4.0}, colour, .5);
    svg.Text({kPageWidth - 160.0, textY}, words + " " + Turkish(level, 2) + " m", TextAlign::Left, kText, colour);
}

struct Level {
    double at;
    Colour colour;
    const char *words;
    bool inside;
};

} // namespace

SvgCanvas PlanPicture(const Tank &tank) {
    const Box box = BoxOf(tank);
    double low = kFar, high = -kFar;
    for (const TankMesh &m : tank.meshes)
        for (std::size_t k = 0; tank.panelOf(m).kind == 1 && k < 4; ++k) {
            low = std::min(low, tank.corner(m, k).z);
            high = std::max(high, tank.corner(m, k).z);
        }
    const double wide = box.high.x - box.low.x, deep = box.high.y - box.low.y;
    constexpr double kWidth = kPageWidth - 173.0, kHeight = 306.0;
    const double drawn = std::min(kWidth / std::max(wide, 1e-6) * deep, kHeight);
    SvgCanvas svg(kPageWidth, drawn + 88.0);
    const Frame frame = FitFrame(box.low.x, box.high.x, box.low.y, box.high.y, kWidth, kHeight, 40.0, 27.0);
    for (const Segment &s : FloorOutline(tank))
        svg.DashedLine(frame.at(s.a0, s.b0), frame.at(s.a1, s.b1), {0x777777}, .8, "4,3");
    const double z = low + .517 * (high - low); // no usual row of nodes
    const auto cuts = CutMeshes(
        tank, [z](const Vector3 &p) { return p.z - z; }, [](const Vector3 &p) { return p.x; },
        [](const Vector3 &p) { return p.y; });
    for (const Segment &s : cuts)
        DrawCut(svg, frame, s);
    const ScreenPoint corner = frame.at(box.low.x, box.low.y), far = frame.at(box.high.x, box.high.y);
    svg.Dimension({corner.x, corner.y + 29.0}, {far.x, corner.y + 29.0}, Turkish(box.high.x - box.low.x, 2) + " m");
    svg.Dimension({far.x + 29.0, corner.y}, {far.x + 29.0, far.y}, Turkish(box.high.y - box.low.y, 2) + " m");
    svg.Text({40.0, drawn + 80.0}, "X →, Y ↑; duvarlar kesik, taban kenarı kesikli çizgi", TextAlign::Left, kText - 1,
             kInk);
    return svg;
}

SvgCanvas SectionPicture(const Tank &tank) {
    const Box box = BoxOf(tank);
    const double pad = .12 * (box.high.x - box.low.x);
    std::vector<Level> levels = {{tank.liquidLevel, {0x1f5fa8}, "sıvı kotu", true},
                                 {tank.soilLevel, {0x8a5a1b}, "toprak kotu", false},
                                 {tank.groundwaterLevel, {0x127a7a}, "yeraltı su kotu", false}};
    double low = box.low.z, high = box.high.z;
    for (const Level &l : levels)
        low = std::min(low, l.at), high = std::max(high, l.at);
    const double wide = box.high.x - box.low.x + 2.0 * pad;
    constexpr double kWidth = kPageWidth - 267.0, kHeight = 240.0;
    const double drawn = std::min(kWidth / std::max(wide, 1e-6) * (high - low), kHeight);
    SvgCanvas svg(kPageWidth, drawn + 100.0);
    const Frame frame = FitFrame(box.low.x - pad, box.high.x + pad, low, high, kWidth, kHeight, 80.0, 33.0);
    const double y = box.low.y + .5137 * (box.high.y - box.low.y);
    std::sort(levels.begin(), levels.end(), [](const Level &a, const Level &b) { return a.at > b.at; });
    double textY = -kFar;
    for (const Level &l : levels) {
        textY = std::max(textY + 16.0, frame.at(0, l.at).y + 4.0);
        const double from = l.inside ? box.low.x : box.low.x - pad, to = l.inside ? box.high.x : box.high.x + pad;
        DrawLevel(svg, frame, from, to, l.at, l.colour, l.words, textY);
    }
    const auto cuts = CutMeshes(
        tank, [y](const Vector3 &p) { return p.y - y; }, [](const Vector3 &p) { return p.x; },
        [](const Vector3 &p) { return p.z; });
    for (const Segment &s : cuts)
        DrawCut(svg, frame, s);
    const double bottom = frame.at(0, low).y;
    const ScreenPoint left = frame.at(box.low.x, low), right = frame.at(box.high.x, low);
    svg.Dimension({left.x, bottom + 29.0}, {right.x, bottom + 29.0}, Turkish(box.high.x - box.low.x, 2) + " m");
    const ScreenPoint foot = frame.at(box.low.x - pad, box.low.z), top = frame.at(box.low.x - pad, box.high.z);
    svg.Dimension(foot, top, Turkish(box.high.z - box.low.z, 2) + " m", TextAlign::Right);
    svg.Text({40.0, drawn + 92.0}, "Y = " + Turkish(y, 2) + " m boyunca kesit; X →, Z ↑", TextAlign::Left, kText - 1,
             kInk);
    return svg;
}

// Seen along (1, -2, 1.2): right and up of the picture stand at right angles to it.
SvgCanvas MeshPicture(const Tank &tank) {
    const auto project = [](const Vector3 &p) {
        return ScreenPoint{.894 * p.x + .447 * p.y, -.212 * p.x + .424 * p.y + .881 * p.z};
    };
    const auto depth = [](const Vector3 &p) { return -.394 * p.x + .788 * p.y - .473 * p.z; };
    double x0 = kFar, x1 = -kFar, y0 = kFar, y1 = -kFar;
    std::vector<std::pair<double, std::size_t>> order;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        double sum = 0.0;
        for (std::size_t k = 0; k < 4; ++k) {
            const Vector3 &p = tank.corner(tank.meshes[i], k);
            const ScreenPoint s = project(p);
            x0 = std::min(x0, s.x), x1 = std::max(x1, s.x), y0 = std::min(y0, s.y), y1 = std::max(y1, s.y);
            sum += depth(p);
        }
        order.emplace_back(sum, i);
    }
    std::stable_sort(order.begin(), order.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
    const Frame frame = FitFrame(x0, x1, y0, y1, kPageWidth - 54.0, 333.0, 27.0, 13.0);
    SvgCanvas svg(kPageWidth, 26.0 + frame.scale * (y1 - y0));
    for (const auto &[sum, i] : order) {
        ScreenRing ring;
        for (std::size_t k = 0; k < 4; ++k) {
            const ScreenPoint s = project(tank.corner(tank.meshes[i], k));
            ring.push_back(frame.at(s.x, s.y));
        }
        const int kind = tank.panelOf(tank.meshes[i]).kind;
        svg.Rings({ring}, Colour{kind == 0 ? 0xefe6d2U : kind == 1 ? 0xdfe8f2U : 0xe4efddU}, Colour{0x555555}, .45);
    }
    return svg;
}

} // namespace havuz::report
