#include "design/places.h"

#include "model/supports.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

namespace havuz::design {

using consistent::Tank;
using consistent::TankMesh;

namespace {

constexpr double kFar = std::numeric_limits<double>::infinity();
constexpr double kSmall = 1e-6; // m

using Edge = std::pair<int, int>;

struct Segment {
    Vector3 a, b;
};

// What the places of one panel are worked out from.
struct PanelFrame {
    int kind = 0;
    bool round = false; // its meshes face different ways
    Vector3 along;      // unit, horizontal, of a flat wall
    double low = kFar, high = -kFar, start = kFar, end = -kFar, yStart = kFar, yEnd = -kFar;
    double lowestRow = kFar, highestRow = -kFar;   // heights of mesh centres
    double firstColumn = kFar, lastColumn = -kFar; // of mesh centres along the wall
    bool startHeld = false, endHeld = false;
    std::vector<Segment> supports;
};

Vector3 Normal(const Tank &tank, const TankMesh &m) {
    const Vector3 n = Cross(tank.corner(m, 2) - tank.corner(m, 0), tank.corner(m, 3) - tank.corner(m, 1));
    const double length = std::sqrt(Dot(n, n));
    return length > 0.0 ? (1.0 / length) * n : Vector3{};
}

Vector3 Centre(const Tank &tank, const TankMesh &m) {
    Vector3 sum{};
    for (std::size_t k = 0; k < 4; ++k)
        sum = sum + tank.corner(m, k);
    return .25 * sum;
}

// Panels that meet at less than about 20 degrees hold each other no more than they do themselves.
bool Turns(const Vector3 &a, const Vector3 &b) { return std::fabs(Dot(a, b)) < .94; }

std::map<Edge, std::vector<std::size_t>> MeshesOfEdges(const Tank &tank) {
    std::map<Edge, std::vector<std::size_t>> edges;
    for (std::size_t i = 0; i < tank.meshes.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k) {
            const int a = tank.meshes[i].node[k], b = tank.meshes[i].node[(k + 1) % 4];
            if (a != b)
                edges[{std::min(a, b), std::max(a, b)}].push_back(i);
        }
    return edges;
}

void CollectSupports(const Tank &tank, std::map<int, PanelFrame> &frames) {
    for (const auto &[edge, meshes] : MeshesOfEdges(tank)) {
        const consistent::TankNode &a = tank.nodes[static_cast<std::size_t>(edge.first)];
        const consistent::TankNode &b = tank.nodes[static_cast<std::size_t>(edge.second)];
        const bool held = HoldsTranslation(a.held) && HoldsTranslation(b.held);
        for (const std::size_t i : meshes) {
            const int panel = tank.meshes[i].panel;
            const bool turned = std::any_of(meshes.begin(), meshes.end(), [&](std::size_t j) {
                return tank.meshes[j].panel != panel &&
                       Turns(Normal(tank, tank.meshes[i]), Normal(tank, tank.meshes[j]));
            });
            if (held || turned)
                frames[panel].supports.push_back({a.at, b.at});
        }
    }
}

void Stretch(const Tank &tank, const TankMesh &m, PanelFrame &f) {
    for (std::size_t k = 0; k < 4; ++k) {
        const Vector3 &p = tank.corner(m, k);
        const double u = f.kind == 1 ? Dot(p, f.along) : p.x;
        f.low = std::min(f.low, p.z);
        f.high = std::max(f.high, p.z);
        f.start = std::min(f.start, u);
        f.end = std::max(f.end, u);
        f.yStart = std::min(f.yStart, p.y);
        f.yEnd = std::max(f.yEnd, p.y);
    }
    const Vector3 c = Centre(tank, m);
    f.lowestRow = std::min(f.lowestRow, c.z);
    f.highestRow = std::max(f.highestRow, c.z);
    f.firstColumn = std::min(f.firstColumn, Dot(c, f.along));
    f.lastColumn = std::max(f.lastColumn, Dot(c, f.along));
}

// An upright support at an end of a flat wall is a wall that holds it there.
void FindHeldEnds(PanelFrame &f) {
    for (const Segment &s : f.supports) {
        const double ua = Dot(s.a, f.along), ub = Dot(s.b, f.along);
        if (std::fabs(s.a.z - s.b.z) < kSmall || std::fabs(ua - ub) > .01)
            continue;
        f.startHeld = f.startHeld || ua < f.start + .01;
        f.endHeld = f.endHeld || ua > f.end - .01;
    }
}

std::map<int, PanelFrame> MakeFrames(const Tank &tank) {
    std::map<int, PanelFrame> frames;
    std::map<int, Vector3> first;
    for (const TankMesh &m : tank.meshes) {
        PanelFrame &f = frames[m.panel];
        const Vector3 n = Normal(tank, m);
        if (first.emplace(m.panel, n).second) {
            f.kind = tank.panelOf(m).kind;
            const double flat = std::hypot(n.x, n.y);
            f.along = flat > kSmall ? Vector3{-n.y / flat, n.x / flat, 0.0} : Vector3{1.0, 0.0, 0.0};
        }
        f.round = f.round || (f.kind == 1 && std::fabs(Dot(n, first[m.panel])) < .999);
    }
    for (const TankMesh &m : tank.meshes)
        Stretch(tank, m, frames[m.panel]);
    CollectSupports(tank, frames);
    for (auto &[panel, f] : frames)
        FindHeldEnds(f);
    return frames;
}

double Distance(const Vector3 &p, const Segment &s) {
    const Vector3 along = s.b - s.a;
    const double length2 = Dot(along, along);
    const double t = length2 > 0.0 ? std::clamp(Dot(p - s.a, along) / length2, 0.0, 1.0) : 0.0;
    const Vector3 gap = p - (s.a + t * along);
    return std::sqrt(Dot(gap, gap));
}

double ToSupport(const PanelFrame &f, const Vector3 &p) {
    double least = kFar;
    for (const Segment &s : f.supports)
        least = std::min(least, Distance(p, s));
    return least;
}

// The lowest and the highest row of meshes belong to foot and top however coarse they are.
Zone ZoneByHeight(const PanelFrame &f, const Vector3 &c) {
    const double quarter = (f.high - f.low) / 4.0;
    if (c.z < f.low + quarter || c.z < f.lowestRow + kSmall)
        return Zone::Foot;
    return c.z > f.high - quarter || c.z > f.highestRow - kSmall ? Zone::Top : Zone::Span;
}

Zone ZoneAlong(const PanelFrame &f, const Vector3 &c) {
    const double u = Dot(c, f.along), strip = std::min((f.end - f.start) / 4.0, (f.high - f.low) / 2.0);
    const bool atStart = u < f.start + strip || u < f.firstColumn + kSmall;
    const bool atEnd = u > f.end - strip || u > f.lastColumn - kSmall;
    return (atStart && f.startHeld) || (atEnd && f.endHeld) ? Zone::Corner : Zone::Span;
}

std::array<Zone, 2> ZonesOf(const PanelFrame &f, const Vector3 &c, double nearest) {
    if (f.kind == 2)
        return {Zone::Top, Zone::Top};
    if (f.kind == 1)
        return {f.round ? ZoneByHeight(f, c) : ZoneAlong(f, c), ZoneByHeight(f, c)};
    const double strip = std::min(f.end - f.start, f.yEnd - f.yStart) / 4.0;
    const Zone zone = ToSupport(f, c) < strip || nearest < kSmall ? Zone::Foot : Zone::Span;
    return {zone, zone};
}

} // namespace

const char *NameOf(Zone zone) {
    constexpr std::array names = {"foot", "span", "corner", "top"};
    return names.at(static_cast<std::size_t>(zone));
}

const char *TurkishNameOf(Zone zone) {
    constexpr std::array names = {"dip", "açıklık", "köşe", "üst"};
    return names.at(static_cast<std::size_t>(zone));
}

std::vector<MeshPlace> FindPlaces(const Tank &tank) {
    const std::map<int, PanelFrame> frames = MakeFrames(tank);
    std::vector<MeshPlace> places;
    places.reserve(tank.meshes.size());
    for (const TankMesh &m : tank.meshes) {
        const PanelFrame &f = frames.at(m.panel);
        MeshPlace place;
        for (std::size_t k = 0; k < 4; ++k)
            place.toSupport[k] = ToSupport(f, tank.corner(m, k));
        place.zone = ZonesOf(f, Centre(tank, m), *std::min_element(place.toSupport.begin(), place.toSupport.end()));
        places.push_back(place);
    }
    return places;
}

// The way around a wall is the sum of its lowest row of mesh edges.
static double LengthAround(const Tank &tank, int panel, double lowest) {
    double length = 0.0;
    for (const TankMesh &m : tank.meshes)
        for (std::size_t k = 0; m.panel == panel && k < 4; ++k) {
            const Vector3 &a = tank.corner(m, k), &b = tank.corner(m, (k + 1) % 4);
            if (a.z < lowest + .001 && b.z < lowest + .001)
                length += std::hypot(b.x - a.x, b.y - a.y);
        }
    return length;
}

PanelSize SizeOf(const Tank &tank, int panel) {
    double x0 = kFar, x1 = -kFar, y0 = kFar, y1 = -kFar;
    PanelSize size;
    size.lowest = kFar;
    size.highest = -kFar;
    for (const TankMesh &m : tank.meshes)
        for (std::size_t k = 0; m.panel == panel && k < 4; ++k) {
            const Vector3 &p = tank.corner(m, k);
            x0 = std::min(x0, p.x), x1 = std::max(x1, p.x), y0 = std::min(y0, p.y), y1 = std::max(y1, p.y);
            size.lowest = std::min(size.lowest, p.z), size.highest = std::max(size.highest, p.z);
        }
    const bool wall = tank.panels.at(panel).kind == 1;
    size.length = wall ? LengthAround(tank, panel, size.lowest) : x1 - x0;
    size.width = wall ? size.highest - size.lowest : y1 - y0;
    return size;
}

} // namespace havuz::design
