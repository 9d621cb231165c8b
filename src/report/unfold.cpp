#include "report/unfold.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace havuz::report {

using consistent::Tank;
using consistent::TankMesh;

namespace {

Vector3 NormalOf(const Tank &tank, const TankMesh &m) {
    const Vector3 n = Cross(tank.corner(m, 2) - tank.corner(m, 0), tank.corner(m, 3) - tank.corner(m, 1));
    const double length = std::sqrt(Dot(n, n));
    return length > 0.0 ? (1.0 / length) * n : Vector3{};
}

// How the panel is laid flat.
struct Laying {
    bool wall = false, round = false;
    Vector3 along;  // of a flat wall
    Vector3 centre; // of a round one, in plan
    double radius = 0;
};

Laying FindLaying(const Tank &tank, int panel) {
    Laying laying;
    laying.wall = tank.panels.at(panel).kind == 1;
    bool first = true;
    Vector3 normal;
    double count = 0;
    for (const TankMesh &m : tank.meshes) {
        if (m.panel != panel)
            continue;
        const Vector3 n = NormalOf(tank, m);
        if (first)
            normal = n;
        first = false;
        laying.round = laying.round || (laying.wall && std::fabs(Dot(n, normal)) < .999);
        for (std::size_t k = 0; k < 4; ++k, count += 1.0)
            laying.centre = laying.centre + tank.corner(m, k);
    }
    laying.centre = (1.0 / std::max(count, 1.0)) * laying.centre;
    const double flat = std::hypot(normal.x, normal.y);
    laying.along = flat > 1e-6 ? Vector3{-normal.y / flat, normal.x / flat, 0.0} : Vector3{1.0, 0.0, 0.0};
    // As seen from a fixed side: to the right, or away where it runs straight back.
    if (laying.along.x < -1e-9 || (std::fabs(laying.along.x) <= 1e-9 && laying.along.y < 0.0))
        laying.along = -1.0 * laying.along;
    return laying;
}

double Turn(const Laying &laying, const Vector3 &p) { return std::atan2(p.y - laying.centre.y, p.x - laying.centre.x); }

FlatMesh Lay(const Tank &tank, const Laying &laying, std::size_t place) {
    FlatMesh flat;
    flat.place = place;
    const TankMesh &m = tank.meshes[place];
    Vector3 middle;
    for (std::size_t k = 0; k < 4; ++k)
        middle = middle + .25 * tank.corner(m, k);
    const double turn = Turn(laying, middle), whole = 2.0 * std::numbers::pi;
    for (std::size_t k = 0; k < 4; ++k) {
        const Vector3 &p = tank.corner(m, k);
        if (!laying.wall)
            flat.corner[k] = {p.x, p.y};
        else if (!laying.round)
            flat.corner[k] = {Dot(p, laying.along), p.z};
        else { // corners next to the middle of their mesh, not a whole turn away
            double gap = Turn(laying, p) - turn;
            gap -= whole * std::round(gap / whole);
            flat.corner[k] = {laying.radius * ((turn < 0.0 ? turn + whole : turn) + gap), p.z};
        }
    }
    return flat;
}

} // namespace

FlatPanel Unfold(const Tank &tank, int panel) {
    Laying laying = FindLaying(tank, panel);
    FlatPanel flat;
    flat.panel = panel;
    flat.kind = tank.panels.at(panel).kind;
    for (const TankMesh &m : tank.meshes)
        for (std::size_t k = 0; m.panel == panel && k < 4; ++k)
            laying.radius = std::max(laying.radius, std::hypot(tank.corner(m, k).x - laying.centre.x,
                                                               tank.corner(m, k).y - laying.centre.y));
    constexpr double far = std::numeric_limits<double>::infinity();
    flat.low = {far, far};
    flat.high = {-far, -far};
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        if (tank.meshes[i].panel != panel)
            continue;
        flat.meshes.push_back(Lay(tank, laying, i));
        for (const FlatPoint &p : flat.meshes.back().corner) {
            flat.low = {std::min(flat.low.u, p.u), std::min(flat.low.v, p.v)};
            flat.high = {std::max(flat.high.u, p.u), std::max(flat.high.v, p.v)};
        }
    }
    return flat;
}

} // namespace havuz::report
