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

// Points are in the axes of a panel laid flat, m.
struct FlatMesh {
    std::size_t place = 0; // in Tank::meshes
    std::array<PlanPoint, 4> corner{};
};

struct FlatMeshes {
    int panel = 0, kind = 0;
    std::vector<FlatMesh> meshes;
    PlanPoint low, high; // box around them
};

// The faces of a panel by themselves.
FlatMeshes LayFlat(const consistent::Tank &tank, int panel) {
    FlatMeshes flat{panel, tank.panels.at(panel).kind, {}, {1e30, 1e30}, {-1e30, -1e30}};
    const ResultScene scene = BareScene(tank, {SceneLook::Flat, panel});
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        if (tank.meshes[i].panel != panel)
            continue;
        FlatMesh mesh{i, {}};
        for (std::size_t k = 0; k < 4; ++k) {
            const SpacePoint &p = scene.faces[flat.meshes.size()].at[k];
            mesh.corner[k] = {p.x, p.y};
            flat.low = {std::min(flat.low.x, p.x), std::min(flat.low.y, p.y)};
            flat.high = {std::max(flat.high.x, p.x), std::max(flat.high.y, p.y)};
        }
        flat.meshes.push_back(mesh);
    }
    return flat;
}

std::string DirectionWords(int kind, int direction) {
    if (kind == 1)
        return direction == 1 ? "yatay donatı (1)" : "düşey donatı (2)";
    return direction == 1 ? "1 doğrultusunda donatı" : "2 doğrultusunda donatı";
}

// "iç Ø12/15, dış Ø10/20": the bars of a zone, "!" behind those that do not meet their checks.
std::string ZoneWords(const std::vector<design::SteelRow> &rows, int panel, design::Zone zone, int direction) {
    std::string words;
    for (const design::SteelRow &row : rows)
        if (row.panel == panel && row.zone == zone && row.direction == direction)
            words += std::string(words.empty() ? "" : ", ") + TurkishFaceName(row) + " " +
                     design::BarsText(row.layer.bars) + (row.met() ? "" : " !");
    return words;
}

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
    void line(const std::string &layer, PlanPoint a, PlanPoint b) {
        entity("LINE", layer);
        point(10, a);
        point(11, b);
    }
    void words(const std::string &layer, PlanPoint at, std::string words) {
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
    void point(int code, PlanPoint p) {
        put(code, p.x);
        put(code + 10, p.y);
        put(code + 20, 0.0);
    }
    std::string text_;
    std::set<std::string> layers_;
};

using Place = std::pair<long, long>; // in tenths of a millimetre
Place PlaceOf(PlanPoint p) { return {std::lround(p.x * 1e4), std::lround(p.y * 1e4)}; }

using Ring = std::array<PlanPoint, 4>;

// Anti-clockwise.
Ring Turned(Ring r) {
    double area = 0.0;
    for (std::size_t k = 0; k < 4; ++k)
        area += r[k].x * r[(k + 1) % 4].y - r[(k + 1) % 4].x * r[k].y;
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

PlanPoint Middle(const Ring &r) {
    PlanPoint middle;
    for (const PlanPoint &p : r)
        middle = {middle.x + p.x / 4, middle.y + p.y / 4};
    return middle;
}

// The middle of the mesh that lies nearest to the middle of them all.
PlanPoint WordsPlace(const std::vector<Ring> &rings) {
    PlanPoint all;
    for (const Ring &r : rings)
        all = {all.x + Middle(r).x / static_cast<double>(rings.size()),
               all.y + Middle(r).y / static_cast<double>(rings.size())};
    const auto far = [&](const Ring &r) { return std::hypot(Middle(r).x - all.x, Middle(r).y - all.y); };
    return Middle(*std::min_element(rings.begin(), rings.end(),
                                    [&](const Ring &a, const Ring &b) { return far(a) < far(b) - 1e-9; }));
}

std::string Upper(std::string word) {
    for (char &c : word)
        c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    return word;
}

// One direction of a panel, its lower left corner at a place.
void DrawDirection(Drawing &drawing, const FlatMeshes &flat, const std::vector<design::MeshPlace> &places,
                   const std::vector<design::SteelRow> &rows, int direction, PlanPoint at) {
    const std::string panel = "PANEL_" + std::to_string(flat.panel);
    std::vector<Ring> all;
    std::map<design::Zone, std::vector<Ring>> zones;
    for (const FlatMesh &m : flat.meshes) {
        Ring ring;
        for (std::size_t k = 0; k < 4; ++k)
            ring[k] = {m.corner[k].x - flat.low.x + at.x, m.corner[k].y - flat.low.y + at.y};
        all.push_back(Turned(ring));
        zones[places[m.place].zone[static_cast<std::size_t>(direction - 1)]].push_back(all.back());
    }
    for (const Ring &r : all)
        for (std::size_t k = 0; k < 4; ++k)
            if (PlaceOf(r[k]) < PlaceOf(r[(k + 1) % 4]))
                drawing.line(panel + "_MESH", r[k], r[(k + 1) % 4]);
    DrawBorder(drawing, panel, all);
    drawing.words(panel, {at.x, at.y - 2 * kText}, panel + ": " + DirectionWords(flat.kind, direction));
    for (const auto &[zone, rings] : zones) {
        const std::string layer = panel + "_" + std::to_string(direction) + "_" + Upper(NameOf(zone));
        DrawBorder(drawing, layer, rings);
        drawing.words(layer, WordsPlace(rings),
                      std::string(TurkishNameOf(zone)) + ": " + ZoneWords(rows, flat.panel, zone, direction));
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
    std::vector<FlatMeshes> panels;
    double tallest = 0.0;
    for (const auto &[number, panel] : tank.panels) {
        panels.push_back(LayFlat(tank, number));
        tallest = std::max(tallest, panels.back().high.y - panels.back().low.y);
    }
    Drawing drawing;
    PlanPoint at;
    for (const FlatMeshes &flat : panels) {
        DrawDirection(drawing, flat, places, rows, 1, at);
        DrawDirection(drawing, flat, places, rows, 2, {at.x, at.y + tallest + kGap});
        at.x += flat.high.x - flat.low.x + kGap;
    }
    Drawing tail;
    tail.put(0, "ENDSEC");
    tail.put(0, "EOF");
    return ToCodePage(Head(drawing.layers()) + drawing.text() + tail.text());
}

} // namespace havuz::report
