#include "consistent/loads.h"

#include "consistent/mesh_loads.h"

#include <algorithm>

namespace havuz::consistent {

// Distance of each corner from the line of the foot, in the plane of the mesh, upward.
static Shares HeightsAboveFoot(const Corners &p, const WallSide &side) {
    const Vector3 across = Cross(side.outward, side.foot.b - side.foot.a);
    const double length = Length(across);
    if (length == 0.0)
        return {};
    const Vector3 up = ((across.z < 0.0 ? -1.0 : 1.0) / length) * across;
    Shares heights{};
    for (std::size_t k = 0; k < 4; ++k)
        heights[k] = Dot(p[k] - side.foot.a, up);
    return heights;
}

std::vector<Vector3> NodalLoads(const Tank &tank, const std::vector<CornerForces> &meshes, Case c) {
    std::vector<Vector3> loads(tank.nodes.size());
    for (std::size_t i = 0; i < meshes.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k) {
            Vector3 &f = loads[static_cast<std::size_t>(tank.meshes[i].node[k])];
            f = f + meshes[i][k];
        }
    for (std::size_t n = 1; c == kPoint && n < loads.size(); ++n)
        if (tank.nodes[n].used)
            loads[n] = tank.nodes[n].load;
    return loads;
}

std::vector<Vector3> NodalLoads(const Tank &tank, Case c, const LoadOptions &options) {
    return NodalLoads(tank, MeshLoads(tank, FindWallSides(tank), c, options), c);
}

bool HasLoads(const std::vector<Vector3> &loads) {
    return std::any_of(loads.begin(), loads.end(), [](const Vector3 &f) { return Dot(f, f) != 0.0; });
}

std::vector<double> BedAreas(const Tank &tank) {
    std::vector<double> areas(tank.nodes.size(), 0.0);
    const std::vector<Shares> meshes = MeshBedAreas(tank);
    for (std::size_t i = 0; i < meshes.size(); ++i)
        for (std::size_t k = 0; k < 4; ++k)
            areas[static_cast<std::size_t>(tank.meshes[i].node[k])] += meshes[i][k];
    return areas;
}

std::vector<WallForce> WallForces(const Tank &tank, const WallSides &walls, Case c, const LoadOptions &options) {
    std::map<int, WallForce> forces;
    for (const auto &[number, feet] : walls.feet) {
        forces[number].panel = number;
        for (const FootEdge &foot : feet)
            forces[number].length += foot.length();
    }
    for (std::size_t i = 0; i < tank.meshes.size(); ++i) {
        const TankMesh &mesh = tank.meshes[i];
        if (tank.panelOf(mesh).kind != 1)
            continue;
        WallForce &wall = forces[mesh.panel];
        const Corners p = CornersOf(tank, mesh);
        const Shares heights = HeightsAboveFoot(p, walls.side[i]);
        const Shares force = mesh.loaded ? WallPressure(tank, p, c, options) : Shares{};
        for (std::size_t k = 0; k < 4; ++k) {
            wall.height = std::max(wall.height, heights[k]);
            wall.force += force[k];
            wall.moment += force[k] * heights[k];
        }
    }
    std::vector<WallForce> list;
    for (const auto &[number, wall] : forces)
        list.push_back(wall);
    return list;
}

std::vector<WallForce> WallForces(const Tank &tank, Case c, const LoadOptions &options) {
    return WallForces(tank, FindWallSides(tank), c, options);
}

std::vector<Vector3> OutwardNormals(const Tank &tank) {
    std::vector<Vector3> normals;
    for (const WallSide &side : FindWallSides(tank).side)
        normals.push_back(side.outward);
    return normals;
}

} // namespace havuz::consistent
