// Contours and steel of one panel laid flat.
#include "report/pictures.h"
#include "report/steel_drawing.h"

#include <algorithm>

namespace havuz::report {

namespace {

// The sides of what the faces cover, m.
struct Extent {
    double left = 0.0, right = 0.0, low = 0.0, high = 0.0;
    double width() const { return std::max(right - left, 1e-6); }
    double height() const { return std::max(high - low, 1e-6); }
};

Extent ExtentOf(const ResultScene &scene) {
    Extent e;
    bool first = true;
    for (const ResultFace &face : scene.faces)
        for (const SpacePoint &p : face.at) {
            e = first ? Extent{p.x, p.x, p.y, p.y}
                      : Extent{std::min(e.left, p.x), std::max(e.right, p.x), std::min(e.low, p.y),
                               std::max(e.high, p.y)};
            first = false;
        }
    return e;
}

} // namespace

SvgCanvas ContourPicture(const consistent::Analysis &analysis, const consistent::CaseResult &result,
                         const Quantity &quantity, int panel) {
    // What the scene keeps free: title and margins, the legend; its least height.
    constexpr double kAbove = 78.0, kBeside = 190.0, kGreatest = 215.0, kLegend = 270.0;
    const ResultScene scene = SceneOf(analysis, result, quantity, {SceneLook::Flat, panel});
    const Extent extent = ExtentOf(scene);
    const double drawn = std::min((kPageWidth - kBeside) / extent.width() * extent.height(), kGreatest);
    SvgCanvas svg(kPageWidth, std::max(drawn + kAbove, kLegend), true);
    DrawScene(svg, scene, {}, FitScene(scene, svg.width(), svg.height()));
    return svg;
}

SvgCanvas SteelPicture(const consistent::Tank &tank, int panel, const std::vector<design::SteelRow> &rows) {
    constexpr double kWide = 900.0, kHigh = 600.0, kWords = 50.0; // room for words beside a bar at the right edge
    SvgCanvas svg(kWide, kHigh);
    SteelDrawing(tank, rows, panel, svg.width() - kWords, svg.height()).draw(svg, -1);
    return svg;
}

} // namespace havuz::report
