#include "consistent/mesh_loads.h"

#include <algorithm>
#include <cmath>

namespace havuz::consistent {

namespace {

constexpr Vector3 kUp{0.0, 0.0, 1.0};
constexpr double kWaterDensity = 1.0; // t/m3

CornerForces Along(const Vector3 &direction, const Shares &share) {
    return {share[0] * direction, share[1] * direction, share[2] * direction, share[3] * direction};
}

Shares Times(double factor, Shares s) {
    for (double &v : s)
        v *= factor;
    return s;
}

Shares Plus(Shares a, const Shares &b) {
    for (std::size_t k = 0; k < 4; ++k)
        a[k] += b[k];
    return a;
}

// How far each corner lies below a level; below 0 above it.
Shares DepthBelow(const Corners &p, double level) {
    return {level - p[0].z, level - p[1].z, level - p[2].z, level - p[3].z};
}

// Plan shares of density * (level - z) where that is above 0.
Shares FloorPressure(const Corners &p, double level, double density) {
    const double side = AreaVector(p).z < 0.0 ? -density : density;
    return Times(side, PressureShares(p, kUp, DepthBelow(p, level)));
}

// Shares of density * (level - z) on a wall, where that is above 0.
Shares WallRamp(const Corners &p, const Vector3 &normal, double level, double density) {
    return Times(density, PressureShares(p, normal, DepthBelow(p, level)));
}

// Below the water a saturated density counts with its buoyancy, where one is given.
Shares SoilPressure(const Tank &tank, const Corners &p, const Vector3 &normal, const LoadOptions &options) {
    const Shares dry = WallRamp(p, normal, tank.soilLevel, tank.soilKa * tank.soilDensity);
    if (options.saturatedDensity <= 0.0)
        return dry;
    const double change = options.saturatedDensity - kWaterDensity - tank.soilDensity;
    const double wetLevel = std::min(tank.soilLevel, tank.groundwaterLevel);
    return Plus(dry, WallRamp(p, normal, wetLevel, tank.soilKa * change));
}

CornerForces AreaLoad(const Corners &p, double load) {
    if (load == 0.0)
        return {};
    const Vector3 normal = UnitOf(AreaVector(p));
    return Along(kUp, Times(-load, AreaShares(p, normal)));
}

CornerForces FloorLoad(const Tank &tank, const TankPanel &panel, const Corners &p, Case c) {
    if (c == kLiquid)
        return Along(kUp, Times(-1.0, FloorPressure(p, tank.liquidLevel - panel.thickness, tank.liquidDensity)));
    return c == kUplift ? Along(kUp, FloorPressure(p, tank.groundwaterLevel, kWaterDensity)) : CornerForces{};
}

} // namespace

Shares WallPressure(const Tank &tank, const Corners &p, Case c, const LoadOptions &options) {
    const Vector3 normal = UnitOf(AreaVector(p));
    switch (c) {
    case kLiquid:
        return WallRamp(p, normal, tank.liquidLevel, tank.liquidDensity);
    case kSoil:
        return Times(-1.0, SoilPressure(tank, p, normal, options));
    case kGroundwater:
        return WallRamp(p, normal, tank.groundwaterLevel, -kWaterDensity);
    case kSurcharge:
        return Times(-tank.soilKa * options.surcharge, WettedShares(p, normal, DepthBelow(p, tank.soilLevel)));
    default:
        return {};
    }
}

std::vector<CornerForces> MeshLoads(const Tank &tank, const WallSides &walls, Case c, const LoadOptions &options) {
    std::vector<CornerForces> loads(tank.meshes.size());
    for (std::size_t i = 0; i < loads.size(); ++i) {
        const TankMesh &mesh = tank.meshes[i];
        const TankPanel &panel = tank.panelOf(mesh);
        const Corners p = CornersOf(tank, mesh);
        if (c == kDead || c == kLive)
            loads[i] = AreaLoad(p, c == kDead ? panel.dead : panel.live);
        else if (mesh.loaded && panel.kind == 0)
            loads[i] = FloorLoad(tank, panel, p, c);
        else if (mesh.loaded && panel.kind == 1)
            loads[i] = Along(walls.side[i].outward, WallPressure(tank, p, c, options));
    }
    return loads;
}

std::vector<Shares> MeshBedAreas(const Tank &tank) {
    std::vector<Shares> areas(tank.meshes.size());
    for (std::size_t i = 0; i < areas.size(); ++i) {
        const TankMesh &mesh = tank.meshes[i];
        if (tank.panelOf(mesh).kind > 0 || !mesh.loaded)
            continue;
        const Corners p = CornersOf(tank, mesh);
        areas[i] = Times(AreaVector(p).z < 0.0 ? -1.0 : 1.0, AreaShares(p, kUp));
    }
    return areas;
}

} // namespace havuz::consistent
