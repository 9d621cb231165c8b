#include "report/dxf.h"

#include "design/worked.h"
#include "model/code_page.h"
#include "report/result_picture.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <set>

namespace havuz::report {

namespace {

struct FlatPoint {
    double u = 0, v = 0; // m
};

constexpr double kGap = 2.0, kText = 0.2; // between panels, height of the text, m

std::string Number(double value) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 4);
    return {text.data(), end.ptr};
}

// Group codes and values, two lines each.
class Drawing {
public:
    void put(int code, const std::string &value) { text_ += std::to_string(code) + "\r\n" + value + "\r\n"; }
    void put(int code, double value) { put(code, Number(value)); }
    void line(const std::string &layer, FlatPoint a, FlatPoint b) {
        entity("LINE", layer);
        point(10, a);
        point(11, b);
    }
    void words(const std::string &layer, FlatPoint at, std::string words) {
        for (std::size_t found = words.find("Ø"); found != std::string::npos; found = words.find("Ø"))
            words.replace(found, std::string("Ø").size(), "%%c"); // the sign of a diameter in every font
        entity("TEXT", layer);
        point(10, at);
        put(40, kText);
        put(1, words);
    }
    const std::set<std::string> &layers() const { return layers_; }
    const std::string &text() const { return text_; }

private:
    void entity(const char *kind, const std::string &layer) {
        put(0, kind);
        put(8, layer);
        layers_.insert(layer);
    }
    void point(int code, FlatPoint p) {
        put(code, p.u);
        put(code + 10, p.v);
        put(code + 20, 0.0);
    }
    std::string text_;
    std::set<std::string> layers_;
};

using Place = std::pair<long, long>; // in tenths of a millimetre
Place PlaceOf(FlatPoint p) { return {std::lround(p.u * 1e4), std::lround(p.v * 1e4)}; }

using Ring = std::array<FlatPoint, 4>;

// Anti-clockwise.
Ring Turned(Ring r) {
    double area = 0.0;
    for (std::size_t k = 0; k < 4; ++k)
        area += r[k].u * r[(k + 1) % 4].v - r[(k + 1) % 4].u * r[k].v;
    if (area < 0.0)
        std::reverse(r.begin(), r.end());
    return r;
}

// The sides that only one of the rings has.
void DrawBorder(Drawing &drawing, const std::string &layer, const std::vector<Ring> &rings) {
    std::set<std::pair<Place, Place>> sides;
    for (const Ring &r : rings)
        for (std::size_t k = 0; k < 4; ++k)
            sides.insert({PlaceOf(r[k]), PlaceOf(r[(k + 1) % 4])});
    for (const Ring &r : rings)
        for (std::size_t k = 0; k < 4; ++k) {
            const Place a = PlaceOf(r[k]), b = PlaceOf(r[(k + 1) % 4]);
            if (a != b && sides.count({b, a}) == 0)
                drawing.line(layer, r[k], r[(k + 1) % 4]);
        }
}

FlatPoint Middle(const Ring &r) {
    FlatPoint middle;
    for (const FlatPoint &p : r)
        middle = {middle.u + p.u / 4, middle.v + p.v / 4};
    return middle;
}

// The middle of the mesh that lies nearest to the middle of them all.
FlatPoint WordsPlace(const std::vector<Ring> &rings) {
    FlatPoint all;
    for (const Ring &r : rings)
        all = {all.u + Middle(r).u / static_cast<double>(rings.size()),
               all.v + Middle(r).v / static_cast<double>(rings.size())};
    const auto far = [&](const Ring &r) { return std::hypot(Middle(r).u - all.u, Middle(r).v - all.v); };
    return Middle(*std::min_element(rings.begin(), rings.end(),
                                    [&](const Ring &a, const Ring &b) { return far(a) < far(b) - 1e-9; }));
}

std::string Upper(std::string word) {
    for (char &c : word)
        c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    return word;
}

// A panel laid flat, its lower left corner at 0, 0; the meshes by their places in Tank::meshes.
struct Sheet {
    int panel = 0, kind = 0;
    std::vector<std::pair<std::size_t, Ring>> meshes;
    double width = 0, height = 0;
};

// Of a round wall the mesh at the cut stays in one piece.
Ring LaidFlat(const consistent::Tank &tank, const consistent::TankMesh &mesh, const havuz::FlatPanel &flat) {
    Ring ring;
    double low = 1e30;
    for (std::size_t k = 0; k < 4; ++k) {
        const Vector3 &p = tank.corner(mesh, k);
        const SpacePoint q = flat({p.x, p.y, p.z});
        ring[k] = {q.x, q.y};
        low = std::min(low, q.x);
    }
    const double way = flat.wayAround();
    bool cut = false;
    for (const FlatPoint &p : ring)
        cut = cut || (way > 0 && p.u > low + way / 2);
    for (FlatPoint &p : ring)
        if (cut && p.u < low + way / 2)
            p.u += way;
    return Turned(ring);
}

Sheet SheetOf(const consistent::Tank &tank, int panel) {
    Sheet sheet{panel, tank.panels.at(panel).kind, {}, 0, 0};
    const havuz::FlatPanel flat(tank, panel);
    FlatPoint low{1e30, 1e30}, high{-1e30, -1e30};
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        if (tank.meshes[i].panel == panel) {
            sheet.meshes.emplace_back(i, LaidFlat(tank, tank.meshes[i], flat));
            for (const FlatPoint &p : sheet.meshes.back().second) {
                low = {std::min(low.u, p.u), std::min(low.v, p.v)};
                high = {std::max(high.u, p.u), std::max(high.v, p.v)};
            }
        }
    for (auto &[place, ring] : sheet.meshes)
        for (FlatPoint &p : ring)
            p = {p.u - low.u, p.v - low.v};
    sheet.width = high.u - low.u;
    sheet.height = high.v - low.v;
    return sheet;
}

// "dip: iç Ø12/15, dış Ø10/20", "!" behind bars that do not meet their checks.
std::string BarsOfZone(const std::vector<design::SteelRow> &rows, int panel, design::Zone zone, int direction) {
    std::string words;
    for (const design::SteelRow &row : rows)
        if (row.panel == panel && row.zone == zone && row.direction == direction)
            words += std::string(words.empty() ? "" : ", ") + TurkishFaceName(row) + " " +
                     design::BarsText(row.layer.bars) + (row.met() ? "" : " !");
    return std::string(TurkishNameOf(zone)) + ": " + words;
}

// One direction of a panel, its lower left corner at a place.
void DrawDirection(Drawing &drawing, const Sheet &sheet, const std::vector<design::MeshPlace> &places,
                   const std::vector<design::SteelRow> &rows, int direction, FlatPoint at) {
    const std::string panel = "PANEL_" + std::to_string(sheet.panel);
    std::vector<Ring> all;
    std::map<design::Zone, std::vector<Ring>> zones;
    for (auto [place, ring] : sheet.meshes) {
        for (FlatPoint &p : ring)
            p = {p.u + at.u, p.v + at.v};
        all.push_back(ring);
        zones[places[place].zone[static_cast<std::size_t>(direction - 1)]].push_back(ring);
    }
    for (const Ring &r : all)
        for (std::size_t k = 0; k < 4; ++k)
            if (PlaceOf(r[k]) < PlaceOf(r[(k + 1) % 4]))
                drawing.line(panel + "_MESH", r[k], r[(k + 1) % 4]);
    DrawBorder(drawing, panel, all);
    const char *way = sheet.kind == 1 ? (direction == 1 ? "yatay donatı" : "düşey donatı") : "donatı";
    drawing.words(panel, {at.u, at.v - 2 * kText}, panel + ": " + way + " (" + std::to_string(direction) + ")");
    for (const auto &[zone, rings] : zones) {
        const std::string layer = panel + "_" + std::to_string(direction) + "_" + Upper(NameOf(zone));
        DrawBorder(drawing, layer, rings);
        drawing.words(layer, WordsPlace(rings), BarsOfZone(rows, sheet.panel, zone, direction));
    }
}

std::string Head(const std::set<std::string> &layers) {
    Drawing head;
    for (const auto &[code, value] :
         {std::pair(0, "SECTION"), std::pair(2, "HEADER"), std::pair(9, "$ACADVER"), std::pair(1, "AC1009"),
          std::pair(9, "$DWGCODEPAGE"), std::pair(3, "ANSI_1254"), std::pair(0, "ENDSEC"), std::pair(0, "SECTION"),
          std::pair(2, "TABLES"), std::pair(0, "TABLE"), std::pair(2, "LAYER")})
        head.put(code, value);
    head.put(70, std::to_string(layers.size()));
    int colour = 0;
    for (const std::string &layer : layers) {
        head.put(0, "LAYER");
        head.put(2, layer);
        head.put(70, "0");
        head.put(62, layer.find("_MESH") != std::string::npos ? "8" : std::to_string(1 + colour++ % 6));
        head.put(6, "CONTINUOUS");
    }
    for (const auto &[code, value] :
         {std::pair(0, "ENDTAB"), std::pair(0, "ENDSEC"), std::pair(0, "SECTION"), std::pair(2, "ENTITIES")})
        head.put(code, value);
    return head.text();
}

} // namespace

std::string SteelDxf(const consistent::Tank &tank, const std::vector<design::SteelRow> &rows) {
    const std::vector<design::MeshPlace> places = design::FindPlaces(tank);
    std::vector<Sheet> sheets;
    double tallest = 0.0;
    for (const auto &[number, panel] : tank.panels) {
        sheets.push_back(SheetOf(tank, number));
        tallest = std::max(tallest, sheets.back().height);
    }
    Drawing drawing;
    FlatPoint at;
    for (const Sheet &sheet : sheets) {
        DrawDirection(drawing, sheet, places, rows, 1, at);
        DrawDirection(drawing, sheet, places, rows, 2, {at.u, at.v + tallest + kGap});
        at.u += sheet.width + kGap;
    }
    Drawing tail;
    tail.put(0, "ENDSEC");
    tail.put(0, "EOF");
    return ToCodePage(Head(drawing.layers()) + drawing.text() + tail.text());
}

} // namespace havuz::report
