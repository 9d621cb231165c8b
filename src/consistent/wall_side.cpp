#include "consistent/wall_side.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace havuz::consistent {

Corners CornersOf(const Tank &tank, const TankMesh &mesh) {
    return {tank.corner(mesh, 0), tank.corner(mesh, 1), tank.corner(mesh, 2), tank.corner(mesh, 3)};
}

namespace {

constexpr double kLevelTolerance = 0.1; // between a wall's foot and its floor, m

Vector3 Middle(const Corners &p) { return 0.25 * (p[0] + p[1] + p[2] + p[3]); }

// A floor mesh in plan.
struct Floor {
    Corners p;
    int panel = 0;
    double level = 0.0, left = 0.0, right = 0.0, front = 0.0, back = 0.0;

    bool covers(const Vector3 &at) const {
        if (at.x < left || at.x > right || at.y < front || at.y > back || std::fabs(at.z - level) > kLevelTolerance)
            return false;
        bool above = false;
        bool below = false;
        for (std::size_t k = 0; k < 4; ++k) {
            const Vector3 side = p[(k + 1) % 4] - p[k];
            const Vector3 to = at - p[k];
            const double turn = side.x * to.y - side.y * to.x;
            above = above || turn > 0.0;
            below = below || turn < 0.0;
        }
        return !(above && below);
    }
};

std::vector<Floor> FloorsOf(const Tank &tank) {
    std::vector<Floor> floors;
    for (const TankMesh &mesh : tank.meshes) {
        if (tank.panelOf(mesh).kind > 0)
            continue;
        Floor f;
        f.p = CornersOf(tank, mesh);
        f.panel = mesh.panel;
        f.level = Middle(f.p).z;
        const auto [left, right] = std::minmax({f.p[0].x, f.p[1].x, f.p[2].x, f.p[3].x});
        const auto [front, back] = std::minmax({f.p[0].y, f.p[1].y, f.p[2].y, f.p[3].y});
        f.left = left;
        f.right = right;
        f.front = front;
        f.back = back;
        floors.push_back(f);
    }
    return floors;
}

// Floor on the left of the edge less floor on its right, at three points of it; panel 0: any floor.
int FloorOnLeft(const std::vector<Floor> &floors, const FootEdge &edge, const Vector3 &left, double away, int panel) {
    int balance = 0;
    for (const double t : {0.25, 0.5, 0.75}) {
        const Vector3 on = edge.a + t * (edge.b - edge.a);
        const Vector3 leftOf = on + away * left;
        const Vector3 rightOf = on - away * left;
        for (const Floor &f : floors) {
            if (panel != 0 && f.panel != panel)
                continue;
            balance += (f.covers(leftOf) ? 1 : 0) - (f.covers(rightOf) ? 1 : 0);
        }
    }
    return balance;
}

void FindWetSide(const std::vector<Floor> &floors, const TankPanel &wall, FootEdge &edge) {
    const Vector3 along = edge.b - edge.a;
    const double length = Distance2(along.x, along.y);
    if (length == 0.0)
        return;
    const Vector3 left{-along.y / length, along.x / length, 0.0};
    std::vector<int> owners = {0};
    if (wall.onPlate != 0)
        owners.insert(owners.begin(), 1000 + wall.onPlate);
    for (const int owner : owners)
        for (const double part : {0.1, 0.01, 0.5})
            if (const int balance = FloorOnLeft(floors, edge, left, part * length, owner); balance != 0) {
                edge.inward = (balance > 0 ? 1.0 : -1.0) * left;
                return;
            }
}

// Distance of a point from an edge in plan.
double PlanDistance(const Vector3 &at, const FootEdge &edge) {
    const Vector3 along = edge.b - edge.a;
    const double square = along.x * along.x + along.y * along.y;
    const Vector3 to = at - edge.a;
    const double t = square > 0.0 ? std::clamp((to.x * along.x + to.y * along.y) / square, 0.0, 1.0) : 0.0;
    return Distance2(to.x - t * along.x, to.y - t * along.y);
}

// Lower sides of the panel's meshes that no other of its meshes has, lowest first.
std::vector<FootEdge> LowerSides(const Tank &tank, int panel) {
    std::map<std::pair<int, int>, int> uses;
    std::map<std::pair<int, int>, FootEdge> lower;
    for (const TankMesh &mesh : tank.meshes) {
        if (mesh.panel != panel)
            continue;
        const Corners p = CornersOf(tank, mesh);
        const double level = Middle(p).z;
        for (std::size_t k = 0; k < 4; ++k) {
            const std::size_t l = (k + 1) % 4;
            const std::pair<int, int> ends = std::minmax(mesh.node[k], mesh.node[l]);
            ++uses[ends];
            if (p[k].z < level && p[l].z < level)
                lower[ends] = {p[k], p[l], {}};
        }
    }
    std::vector<FootEdge> sides;
    for (const auto &[ends, edge] : lower)
        if (uses[ends] == 1 && edge.length() > 0.0)
            sides.push_back(edge);
    std::stable_sort(sides.begin(), sides.end(),
                     [](const FootEdge &s, const FootEdge &t) { return s.a.z + s.b.z < t.a.z + t.b.z; });
    return sides;
}

// Over an opening hangs a side that is no foot: it lies above one in plan.
std::vector<FootEdge> FeetOf(const Tank &tank, int panel) {
    std::vector<FootEdge> feet;
    for (const FootEdge &side : LowerSides(tank, panel)) {
        const Vector3 middle = 0.5 * (side.a + side.b);
        const auto isAbove = [&](const FootEdge &foot) { return PlanDistance(middle, foot) < 0.01 * foot.length(); };
        if (std::none_of(feet.begin(), feet.end(), isAbove))
            feet.push_back(side);
    }
    return feet;
}

const FootEdge *Nearest(const std::vector<FootEdge> &feet, const Vector3 &at, bool decided) {
    const FootEdge *best = nullptr;
    double least = 0.0;
    for (const FootEdge &foot : feet) {
        if (decided && Dot(foot.inward, foot.inward) == 0.0)
            continue;
        const double distance = PlanDistance(at, foot);
        if (best == nullptr || distance < least) {
            best = &foot;
            least = distance;
        }
    }
    return best;
}

// Of all floors in plan; the middle of the model when there is none.
Vector3 FloorCentre(const Tank &tank, const std::vector<Floor> &floors) {
    Vector3 sum;
    double area = 0.0;
    for (const Floor &f : floors) {
        const Shares shares = AreaShares(f.p, {0.0, 0.0, 1.0});
        for (std::size_t k = 0; k < 4; ++k) {
            sum = sum + std::fabs(shares[k]) * f.p[k];
            area += std::fabs(shares[k]);
        }
    }
    if (area > 0.0)
        return (1.0 / area) * sum;
    for (const TankMesh &mesh : tank.meshes)
        sum = sum + Middle(CornersOf(tank, mesh));
    return (1.0 / static_cast<double>(tank.meshes.size())) * sum;
}

Vector3 Outward(const Corners &p, const Vector3 &inward) {
    const Vector3 normal = UnitOf(AreaVector(p));
    const double side = Dot(normal, inward);
    if (side != 0.0)
        return side > 0.0 ? -1.0 * normal : normal;
    return normal.z > 0.0 ? -1.0 * normal : normal; // lies flat: the liquid is above
}

WallSide SideOf(const Corners &p, const std::vector<FootEdge> &feet, const Vector3 &centre) {
    WallSide side;
    const Vector3 middle = Middle(p);
    if (const FootEdge *below = Nearest(feet, middle, false); below != nullptr)
        side.foot = *below;
    const FootEdge *decided = Nearest(feet, middle, true);
    const Vector3 toCentre{centre.x - middle.x, centre.y - middle.y, 0.0};
    side.outward = Outward(p, decided != nullptr ? decided->inward : toCentre);
    return side;
}

} // namespace

WallSides FindWallSides(const Tank &tank) {
    const std::vector<Floor> floors = FloorsOf(tank);
    WallSides walls;
    for (const auto &[number, panel] : tank.panels) {
        if (panel.kind != 1)
            continue;
        walls.feet[number] = FeetOf(tank, number);
        for (FootEdge &edge : walls.feet[number])
            FindWetSide(floors, panel, edge);
    }
    const Vector3 centre = FloorCentre(tank, floors);
    for (const TankMesh &mesh : tank.meshes)
        walls.side.push_back(tank.panelOf(mesh).kind == 1
                                 ? SideOf(CornersOf(tank, mesh), walls.feet.at(mesh.panel), centre)
                                 : WallSide{});
    return walls;
}

} // namespace havuz::consistent
