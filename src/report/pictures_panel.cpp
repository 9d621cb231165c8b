// Contours and steel of one panel laid flat.
#include "design/number_words.h"
#include "design/worked.h"
#include "report/pictures.h"

#include <algorithm>
#include <array>
#include <map>

namespace havuz::report {

using design::Zone;

namespace {

constexpr Colour kInk = {0x202020}, kBox = {0x555555};

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

Colour ZoneColour(Zone zone) {
    constexpr std::array<Colour, 4> colours = {{{0xf3d9c9}, {0xf4f4ee}, {0xd6e3f0}, {0xdcebd5}}};
    return colours.at(static_cast<std::size_t>(zone));
}

std::string DirectionWords(bool wall, int direction) {
    if (wall)
        return direction == 1 ? "yatay donatı (1)" : "düşey donatı (2)";
    return direction == 1 ? "1 doğrultusunda donatı" : "2 doğrultusunda donatı";
}

// "iç Ø12/15, dış Ø10/20" of a zone; "!" where a check is not met.
std::string ZoneWords(const std::vector<design::SteelRow> &rows, int panel, Zone zone, int direction) {
    std::string words;
    for (const design::SteelRow &row : rows)
        if (row.panel == panel && row.zone == zone && row.direction == direction)
            words += std::string(words.empty() ? "" : ", ") + TurkishFaceName(row) + " " +
                     design::BarsText(row.layer.bars) + (row.met() ? "" : " !");
    return words;
}

// One direction: zones filled, the mesh over them, and a list of what they mean under it.
class ZonePicture {
public:
    ZonePicture(const consistent::Tank &tank, int panel, const std::vector<design::SteelRow> &rows)
        : tank_(tank), panel_(panel), rows_(rows), places_(design::FindPlaces(tank)),
          scene_(BareScene(tank, {SceneLook::Flat, panel})), extent_(ExtentOf(scene_)),
          scale_(std::min(kWidth / extent_.width(), kHeight / extent_.height())) {}

    double drawnHeight() const { return scale_ * extent_.height(); }
    void draw(SvgCanvas &svg, int direction, double left) const {
        const bool wall = tank_.panels.at(panel_).kind == 1;
        std::map<Zone, std::vector<ScreenRing>> zones;
        std::vector<ScreenRing> grid;
        std::size_t face = 0;
        for (std::size_t i = 0; i < tank_.meshes.size(); ++i) {
            if (tank_.meshes[i].panel != panel_)
                continue;
            grid.push_back(ring(scene_.faces[face++], left));
            zones[places_[i].zone[static_cast<std::size_t>(direction - 1)]].push_back(grid.back());
        }
        for (const auto &[zone, rings] : zones)
            svg.Rings(rings, ZoneColour(zone), ZoneColour(zone), .7);
        svg.Rings(grid, std::nullopt, Colour{0xbbbbbb}, .35);
        double y = kTop + drawnHeight() + 24.0;
        svg.Text({left, y}, DirectionWords(wall, direction), TextAlign::Left, 12.0, kInk);
        for (const auto &[zone, rings] : zones) {
            y += 18.0;
            svg.Rings({{{left, y - 11.0}, {left + 13.0, y - 11.0}, {left + 13.0, y}, {left, y}}}, ZoneColour(zone),
                      kBox, .4);
            svg.Text({left + 18.0, y},
                     std::string(TurkishNameOf(zone)) + ": " + ZoneWords(rows_, panel_, zone, direction),
                     TextAlign::Left, 11.0, kInk);
        }
    }

    static constexpr double kWidth = 293.0, kHeight = 267.0, kTop = 10.0;

private:
    ScreenRing ring(const ResultFace &face, double left) const {
        ScreenRing ring;
        for (const SpacePoint &p : face.at)
            ring.push_back({left + (kWidth - scale_ * extent_.width()) / 2.0 + scale_ * (p.x - extent_.left),
                            kTop + scale_ * (extent_.high - p.y)});
        return ring;
    }

    const consistent::Tank &tank_;
    int panel_;
    const std::vector<design::SteelRow> &rows_;
    std::vector<design::MeshPlace> places_;
    ResultScene scene_;
    Extent extent_;
    double scale_;
};

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
    const ZonePicture picture(tank, panel, rows);
    SvgCanvas svg(kPageWidth, picture.drawnHeight() + 96.0);
    picture.draw(svg, 1, 13.0);
    picture.draw(svg, 2, 333.0);
    return svg;
}

} // namespace havuz::report
