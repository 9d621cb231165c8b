// Contours and steel of one panel laid flat.
#include "design/number_words.h"
#include "design/worked.h"
#include "report/colours.h"
#include "report/pictures.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace havuz::report {

using design::Turkish;
using design::Zone;

namespace {

constexpr std::array<ShellField, 8> kFields = {{
    {"N11", "t/m", &consistent::ShellResult::N11},
    {"N22", "t/m", &consistent::ShellResult::N22},
    {"N12", "t/m", &consistent::ShellResult::N12},
    {"M11", "t·m/m", &consistent::ShellResult::M11},
    {"M22", "t·m/m", &consistent::ShellResult::M22},
    {"M12", "t·m/m", &consistent::ShellResult::M12},
    {"Q1", "t/m", &consistent::ShellResult::Q1},
    {"Q2", "t/m", &consistent::ShellResult::Q2},
}};

struct Frame {
    double scale, left, bottom;
    FlatPoint low;
    SvgPoint at(const FlatPoint &p) const { return {left + (p.u - low.u) * scale, bottom - (p.v - low.v) * scale}; }
};

Frame FitFrame(const FlatPanel &flat, double width, double height, double left, double top) {
    const double du = std::max(flat.high.u - flat.low.u, 1e-6), dv = std::max(flat.high.v - flat.low.v, 1e-6);
    const double scale = std::min(width / du, height / dv);
    return {scale, left + (width - scale * du) / 2.0, top + scale * dv, flat.low};
}

double DrawnHeight(const FlatPanel &flat, double width, double height) {
    const double du = std::max(flat.high.u - flat.low.u, 1e-6), dv = std::max(flat.high.v - flat.low.v, 1e-6);
    return std::min(width / du, height / dv) * dv;
}

struct Valued {
    FlatPoint at;
    double value;
};

// The part of a convex ring on one side of a limit; values run linear between the points.
std::vector<Valued> Clip(const std::vector<Valued> &ring, double limit, double side) {
    std::vector<Valued> kept;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Valued &a = ring[i], &b = ring[(i + 1) % ring.size()];
        const double fa = side * (a.value - limit), fb = side * (b.value - limit);
        if (fa >= 0.0)
            kept.push_back(a);
        if ((fa < 0.0) != (fb < 0.0)) {
            const double t = fa / (fa - fb);
            kept.push_back({{a.at.u + t * (b.at.u - a.at.u), a.at.v + t * (b.at.v - a.at.v)}, limit});
        }
    }
    return kept;
}

using Rings = std::vector<std::vector<SvgPoint>>;

// A triangle falls into the bands it reaches.
void AddTriangle(const Frame &frame, const Bands &bands, const std::array<Valued, 3> &triangle,
                 std::vector<Rings> &rings) {
    const auto [least, greatest] = std::minmax({triangle[0].value, triangle[1].value, triangle[2].value});
    for (std::size_t band = bands.bandOf(least); band <= bands.bandOf(greatest); ++band) {
        std::vector<Valued> part(triangle.begin(), triangle.end());
        if (band > 0)
            part = Clip(part, bands.limits[band], 1.0);
        if (band + 1 < bands.colours.size())
            part = Clip(part, bands.limits[band + 1], -1.0);
        if (part.size() < 3)
            continue;
        std::vector<SvgPoint> ring;
        for (const Valued &v : part)
            ring.push_back(frame.at(v.at));
        rings[band].push_back(ring);
    }
}

std::vector<Rings> BandRings(const FlatPanel &flat, const CornerValues &values, const Frame &frame,
                             const Bands &bands) {
    std::vector<Rings> rings(bands.colours.size());
    for (std::size_t i = 0; i < flat.meshes.size(); ++i) {
        const auto &c = flat.meshes[i].corner;
        const auto &v = values[i];
        const Valued middle{{(c[0].u + c[1].u + c[2].u + c[3].u) / 4.0, (c[0].v + c[1].v + c[2].v + c[3].v) / 4.0},
                            (v[0] + v[1] + v[2] + v[3]) / 4.0};
        for (std::size_t k = 0; k < 4; ++k) {
            const std::size_t next = (k + 1) % 4;
            AddTriangle(frame, bands, {{{c[k], v[k]}, {c[next], v[next]}, middle}}, rings);
        }
    }
    return rings;
}

int DecimalsFor(double step) { return std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 6); }

void DrawLegend(Svg &svg, const Bands &bands, const std::string &unit, double x, double y) {
    const int decimals = DecimalsFor(bands.limits[1] - bands.limits[0]);
    constexpr double step = 14.0;
    svg.text({x, y - 6.0}, unit, 8.0, Anchor::Start, "#000000", true);
    for (std::size_t i = 0; i < bands.colours.size(); ++i) { // the greatest on top
        const double top = y + step * static_cast<double>(bands.colours.size() - 1 - i);
        svg.polygon({{x, top}, {x + 14.0, top}, {x + 14.0, top + step}, {x, top + step}}, bands.colours[i], "#555555",
                    .3);
    }
    for (std::size_t i = 0; i < bands.limits.size() && bands.colours.size() > 1; ++i)
        svg.text({x + 18.0, y + step * static_cast<double>(bands.limits.size() - 1 - i) + 3.0},
                 Turkish(bands.limits[i], decimals), 7.5);
}

void DrawMark(Svg &svg, const Frame &frame, const FlatPoint &place, const std::string &words, double right) {
    const SvgPoint p = frame.at(place);
    svg.line({p.x - 3.0, p.y - 3.0}, {p.x + 3.0, p.y + 3.0}, "#000000", .8);
    svg.line({p.x - 3.0, p.y + 3.0}, {p.x + 3.0, p.y - 3.0}, "#000000", .8);
    const bool flip = p.x > right - 70.0;
    const double y = p.y < frame.bottom - 8.0 ? p.y + 10.0 : p.y - 5.0;
    svg.text({flip ? p.x - 4.0 : p.x + 4.0, y}, words, 7.5, flip ? Anchor::End : Anchor::Start, "#000000", true);
}

void DrawGrid(Svg &svg, const FlatPanel &flat, const Frame &frame, const std::string &colour, double thickness) {
    Rings rings;
    for (const FlatMesh &m : flat.meshes) {
        rings.emplace_back();
        for (const FlatPoint &p : m.corner)
            rings.back().push_back(frame.at(p));
    }
    svg.rings(rings, "none", colour, thickness);
}

const char *ZoneColour(Zone zone) {
    constexpr std::array colours = {"#f3d9c9", "#f4f4ee", "#d6e3f0", "#dcebd5"};
    return colours.at(static_cast<std::size_t>(zone));
}

std::string DirectionWords(const FlatPanel &flat, int direction) {
    if (flat.kind == 1)
        return direction == 1 ? "yatay donatı (1)" : "düşey donatı (2)";
    return direction == 1 ? "1 doğrultusunda donatı" : "2 doğrultusunda donatı";
}

// "iç Ø12/15, dış Ø10/20" of a zone.
std::string ZoneWords(const FlatPanel &flat, const std::vector<design::SteelRow> &rows, Zone zone, int direction) {
    std::string words;
    for (const design::SteelRow &row : rows)
        if (row.panel == flat.panel && row.zone == zone && row.direction == direction)
            words += std::string(words.empty() ? "" : ", ") + TurkishFaceName(row) + " " +
                     design::BarsText(row.layer.bars) + (row.met() ? "" : " !");
    return words;
}

// One direction: zones filled, a swarm of thin bar lines, and a list of what they mean under it.
void DrawDirection(Svg &svg, const FlatPanel &flat, const std::vector<design::MeshPlace> &places,
                   const std::vector<design::SteelRow> &rows, int direction, const Frame &frame, double listX,
                   double listY) {
    std::map<Zone, Rings> zones;
    const auto way = static_cast<std::size_t>(direction - 1);
    for (const FlatMesh &m : flat.meshes) {
        Rings &rings = zones[places[m.place].zone[way]];
        rings.emplace_back();
        for (const FlatPoint &p : m.corner)
            rings.back().push_back(frame.at(p));
    }
    for (const auto &[zone, rings] : zones)
        svg.rings(rings, ZoneColour(zone), ZoneColour(zone), .5);
    DrawGrid(svg, flat, frame, "#bbbbbb", .25);
    svg.text({listX, listY}, DirectionWords(flat, direction), 8.5, Anchor::Start, "#000000", true);
    for (const auto &[zone, rings] : zones) {
        listY += 13.0;
        svg.polygon({{listX, listY - 8.0}, {listX + 10.0, listY - 8.0}, {listX + 10.0, listY}, {listX, listY}},
                    ZoneColour(zone), "#555555", .3);
        svg.text({listX + 14.0, listY},
                 std::string(TurkishNameOf(zone)) + ": " + ZoneWords(flat, rows, zone, direction), 8.0);
    }
}

} // namespace

const ShellField *FindShellField(const std::string &name) {
    const auto found =
        std::find_if(kFields.begin(), kFields.end(), [&](const ShellField &f) { return name == f.name; });
    return found == kFields.end() ? nullptr : &*found;
}

CornerValues ValuesOf(const FlatPanel &flat, const consistent::CaseResult &result, const ShellField &field) {
    CornerValues values;
    for (const FlatMesh &m : flat.meshes) {
        values.emplace_back();
        for (std::size_t k = 0; k < 4; ++k)
            values.back()[k] = result.meshes[m.place][k + 1].*field.value;
    }
    return values;
}

Svg ContourPicture(const FlatPanel &flat, const CornerValues &values, const std::string &title,
                   const std::string &unit) {
    std::pair<std::size_t, std::size_t> least{0, 0}, greatest{0, 0};
    for (std::size_t i = 0; i < values.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k) {
            if (values[i][k] < values[least.first][least.second])
                least = {i, k};
            if (values[i][k] > values[greatest.first][greatest.second])
                greatest = {i, k};
        }
    const double low = values.empty() ? 0.0 : values[least.first][least.second];
    const double high = values.empty() ? 0.0 : values[greatest.first][greatest.second];
    const Bands bands = MakeBands(low, high, 10);
    const double drawn = DrawnHeight(flat, kPageWidth - 100.0, 260.0);
    const double legend = 14.0 * static_cast<double>(bands.colours.size());
    Svg svg(kPageWidth, 36.0 + std::max(drawn + 8.0, legend + 12.0));
    svg.text({10.0, 12.0}, title, 9.0, Anchor::Start, "#000000", true);
    const Frame frame = FitFrame(flat, kPageWidth - 100.0, 260.0, 10.0, 26.0);
    const std::vector<Rings> rings = BandRings(flat, values, frame, bands);
    for (std::size_t band = 0; band < rings.size(); ++band)
        svg.rings(rings[band], bands.colours[band], bands.colours[band], .3);
    DrawGrid(svg, flat, frame, "#888888", .15);
    DrawLegend(svg, bands, unit, kPageWidth - 72.0, 32.0);
    if (high > low) {
        const auto place = [&](const auto &p) { return flat.meshes[p.first].corner[p.second]; };
        DrawMark(svg, frame, place(greatest), Turkish(high, 2) + " " + unit, kPageWidth - 100.0);
        DrawMark(svg, frame, place(least), Turkish(low, 2) + " " + unit, kPageWidth - 100.0);
    }
    return svg;
}

Svg SteelPicture(const consistent::Tank &tank, const FlatPanel &flat, const std::vector<design::SteelRow> &rows) {
    const std::vector<design::MeshPlace> places = design::FindPlaces(tank);
    const double drawn = DrawnHeight(flat, 220.0, 200.0);
    Svg svg(kPageWidth, drawn + 72.0);
    DrawDirection(svg, flat, places, rows, 1, FitFrame(flat, 220.0, 200.0, 10.0, 8.0), 10.0, drawn + 26.0);
    DrawDirection(svg, flat, places, rows, 2, FitFrame(flat, 220.0, 200.0, 250.0, 8.0), 250.0, drawn + 26.0);
    return svg;
}

} // namespace havuz::report
