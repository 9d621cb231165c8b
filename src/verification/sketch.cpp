#include "verification/sketch.h"

#include "consistent/quad.h"
#include "model/supports.h"
#include "report/plot_axis.h"
#include "view/svg_canvas.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace havuz::verification {

using consistent::Length;
using consistent::Tank;
using consistent::TankMesh;

namespace {

constexpr Colour kWall{0xdbe7f3}, kFloor{0xeeeeea}, kEdge{0x666666}, kSupport{0x7a5c00}, kRed{0xb2182b}, kBlack{0};
constexpr double kWidth = 360, kHeight = 260, kMargin = 30;

// Seen from the front right and above: to the right, down the picture, towards the reader.
Vector3 Seen(const Vector3 &p) {
    constexpr double a = 0.55, b = 0.5; // turn about Z, tilt, rad
    const double x = p.x * std::cos(a) + p.y * std::sin(a), y = p.y * std::cos(a) - p.x * std::sin(a);
    return {x, -(p.z * std::cos(b) + y * std::sin(b)), p.z * std::sin(b) - y * std::cos(b)};
}

// Fits what is seen of the used nodes into the picture.
class Frame {
public:
    explicit Frame(const Tank &tank) {
        low_ = {1e30, 1e30, 0};
        Vector3 high{-1e30, -1e30, 0};
        for (const consistent::TankNode &n : tank.nodes)
            if (n.used) {
                const Vector3 s = Seen(n.at);
                low_ = {std::min(low_.x, s.x), std::min(low_.y, s.y), 0};
                high = {std::max(high.x, s.x), std::max(high.y, s.y), 0};
            }
        scale_ = std::min((kWidth - 2 * kMargin) / std::max(high.x - low_.x, 1e-9),
                          (kHeight - 2 * kMargin) / std::max(high.y - low_.y, 1e-9));
        shift_ = {(kWidth - scale_ * (high.x - low_.x)) / 2, (kHeight - scale_ * (high.y - low_.y)) / 2};
    }
    ScreenPoint at(const Vector3 &p) const {
        const Vector3 s = Seen(p);
        return {shift_.x + scale_ * (s.x - low_.x), shift_.y + scale_ * (s.y - low_.y)};
    }

private:
    Vector3 low_;
    double scale_ = 1.0;
    ScreenPoint shift_;
};

void DrawMeshes(const Tank &tank, const Frame &frame, SvgCanvas &svg) {
    std::vector<std::pair<double, const TankMesh *>> order;
    for (const TankMesh &m : tank.meshes) {
        double nearness = 0.0;
        for (std::size_t k = 0; k < 4; ++k)
            nearness += Seen(tank.corner(m, k)).z;
        order.emplace_back(nearness, &m);
    }
    std::stable_sort(order.begin(), order.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    for (const auto &[nearness, m] : order) {
        ScreenRing ring;
        for (std::size_t k = 0; k < 4; ++k)
            ring.push_back(frame.at(tank.corner(*m, k)));
        svg.Rings({ring}, tank.panelOf(*m).kind == 1 ? kWall : kFloor, kEdge, .5);
    }
}

using Rings = std::vector<ScreenRing>;

void DrawSupports(const Tank &tank, const Frame &frame, SvgCanvas &svg) {
    Rings all, some;
    for (const consistent::TankNode &n : tank.nodes) {
        if (!n.used || n.held == 0)
            continue;
        const ScreenPoint p = frame.at(n.at);
        (HoldsTranslation(n.held) ? all : some).push_back({p, {p.x - 3, p.y + 5}, {p.x + 3, p.y + 5}});
    }
    svg.Rings(all, kSupport, kSupport, .6);
    svg.Rings(some, Colour{0xffffff}, kSupport, .6);
}

// Of many forces about a hundred.
void DrawForces(const Tank &tank, const std::vector<Vector3> &forces, const Frame &frame, SvgCanvas &svg) {
    double longest = 0.0, size = 0.0;
    for (const Vector3 &f : forces)
        longest = std::max(longest, Length(f));
    for (const consistent::TankNode &n : tank.nodes)
        if (n.used)
            size = std::max(size, Length(n.at - tank.nodes[1].at));
    std::vector<std::size_t> drawn;
    for (std::size_t n = 1; n < forces.size(); ++n)
        if (longest > 0.0 && Length(forces[n]) >= longest / 20)
            drawn.push_back(n);
    Rings shafts, heads;
    const std::size_t step = drawn.size() / 100 + 1;
    for (std::size_t i = 0; i < drawn.size(); i += step) {
        const std::size_t n = drawn[i];
        const ScreenPoint tip = frame.at(tank.nodes[n].at);
        const ScreenPoint tail = frame.at(tank.nodes[n].at - (size / 8 / longest) * forces[n]);
        const double length = std::max(std::hypot(tip.x - tail.x, tip.y - tail.y), 1e-9);
        const ScreenPoint along{(tip.x - tail.x) / length, (tip.y - tail.y) / length};
        shafts.push_back({tail, tip});
        heads.push_back({tip,
                         {tip.x - 5 * along.x - 2 * along.y, tip.y - 5 * along.y + 2 * along.x},
                         {tip.x - 5 * along.x + 2 * along.y, tip.y - 5 * along.y - 2 * along.x}});
    }
    svg.Rings(shafts, std::nullopt, kRed, .8);
    svg.Rings(heads, kRed, std::nullopt, 0);
}

} // namespace

std::string Sketch(const Tank &tank, const std::vector<Vector3> &forces) {
    SvgCanvas svg(kWidth, kHeight);
    const Frame frame(tank);
    DrawMeshes(tank, frame, svg);
    DrawSupports(tank, frame, svg);
    DrawForces(tank, forces, frame, svg);
    return svg.document("Tank");
}

std::string SectionSketch(double h, double d, const std::string &words) {
    SvgCanvas svg(kWidth, kHeight / 2);
    const double left = 40, width = 240, top = 15, tall = 90, bars = top + tall * d / h;
    svg.Rings({{{left, top}, {left + width, top}, {left + width, top + tall}, {left, top + tall}}}, kFloor, kEdge, .8);
    for (int k = 0; k < 6; ++k) {
        const double x = left + width * (k + .5) / 6;
        svg.Rings({{{x - 3, bars}, {x, bars - 3}, {x + 3, bars}, {x, bars + 3}}}, kRed, std::nullopt, 0);
    }
    svg.Dimension({left + width + 15, top}, {left + width + 15, top + tall}, words);
    svg.Dimension({left - 12, top}, {left - 12, bars}, "d", TextAlign::Right);
    return svg.document(words);
}

std::string ConvergencePlot(const std::vector<std::string> &meshes, const std::vector<PlotLine> &lines) {
    constexpr std::array<Colour, 8> colours = {
        {{0x08306b}, {0xd95f02}, {0x1b7837}, {0x762a83}, {0xb2182b}, {0x666666}, {0x2b8cbe}, {0x8c510a}}};
    std::vector<double> all = {1.0};
    for (const PlotLine &line : lines)
        all.insert(all.end(), line.ratio.begin(), line.ratio.end());
    const PlotAxis up = PlotAxis::OfNumbers(all, 5), right = PlotAxis::OfWords(meshes);
    constexpr double left = 46, end = kWidth - 8, top = 10, foot = kHeight - 60;
    const auto at = [&](double x, double y) {
        return ScreenPoint{left + (end - left) * right.place(x), foot - (foot - top) * up.place(y)};
    };
    SvgCanvas svg(kWidth, kHeight - 40 + 11.0 * static_cast<double>(lines.size()));
    for (const AxisMark &mark : up.marks()) {
        const double y = foot - (foot - top) * mark.place;
        svg.Line({left, y}, {end, y}, {0xdddddd}, .5);
        svg.Text({left - 4, y + 3}, mark.text, TextAlign::Right, 8, kBlack);
    }
    svg.DashedLine({left, at(0, 1).y}, {end, at(0, 1).y}, kBlack, .8, "4 3");
    for (const AxisMark &mark : right.marks())
        svg.Text({left + (end - left) * mark.place, foot + 12}, mark.text, TextAlign::Centre, 8, kBlack);
    for (std::size_t k = 0; k < lines.size(); ++k) {
        const Colour colour = colours[k % colours.size()];
        for (std::size_t i = 0; i < lines[k].ratio.size(); ++i) {
            const ScreenPoint p = at(static_cast<double>(i), lines[k].ratio[i]);
            svg.Rings({{{p.x - 3, p.y}, {p.x, p.y - 3}, {p.x + 3, p.y}, {p.x, p.y + 3}}}, colour, std::nullopt, 0);
            if (i > 0)
                svg.Line(at(static_cast<double>(i - 1), lines[k].ratio[i - 1]), p, colour, 1.2);
        }
        const double y = foot + 28 + 11.0 * static_cast<double>(k);
        svg.Line({left, y - 3}, {left + 14, y - 3}, colour, 1.5);
        svg.Text({left + 18, y}, lines[k].name, TextAlign::Left, 8, kBlack);
    }
    return svg.document("Convergence");
}

} // namespace havuz::verification
