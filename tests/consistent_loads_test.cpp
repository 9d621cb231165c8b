// Loads against exact statics: random pools of every kind, levels anywhere and on mesh edges.
#include "consistent/loads.h"
#include "consistent_support.h"
#include "mesh/mesh_report.h"
#include "model/store.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace havuz::consistent {

namespace {

struct Pressure {
    double force, moment;
};

// Per metre of a vertical wall from bottom to top, by integration of w * (level - z) by hand.
Pressure OnWall(double w, double level, double bottom, double top) {
    const double depth = level - bottom;
    if (depth <= 0)
        return {0, 0};
    const double h = std::min(top - bottom, depth);
    return {w * (depth * h - h * h / 2), w * (depth * h * h / 2 - h * h * h / 3)};
}

void ExpectNear(double value, double exact, double size) { EXPECT_NEAR(value, exact, 1e-9 * std::max(size, 1e-3)); }

// Wall forces, their nodal forces, and the vertical loads of floors against statics.
void ExpectExactStatics(const Tank &tank, double top, double bottom, double floorArea) {
    const double soil = -tank.soilKa * tank.soilDensity;
    const std::vector<std::tuple<Case, double, double>> cases = {{kLiquid, tank.liquidDensity, tank.liquidLevel},
                                                                 {kSoil, soil, tank.soilLevel},
                                                                 {kGroundwater, -1.0, tank.groundwaterLevel}};
    for (const auto &[c, w, level] : cases) {
        SCOPED_TRACE(NameOf(c).key);
        const Pressure one = OnWall(w, level, bottom, top);
        for (const WallForce &wall : WallForces(tank, c)) {
            ExpectNear(wall.force, one.force * wall.length, std::fabs(w) * wall.length * 10);
            ExpectNear(wall.moment, one.moment * wall.length, std::fabs(w) * wall.length * 10);
        }
        Vector3 sum; // closed walls push on themselves
        Vector3 turn;
        const std::vector<Vector3> loads = NodalLoads(tank, c);
        for (std::size_t n = 1; n < loads.size(); ++n) {
            sum = sum + loads[n];
            turn = turn + Cross(tank.nodes[n].at, loads[n]);
        }
        const double size = 100 * tank.liquidDensity;
        ExpectNear(sum.x, 0, size);
        ExpectNear(sum.y, 0, size);
        ExpectNear(turn.z, 0, size);
        const double thickness = tank.panels.at(tank.meshes.front().panel).thickness;
        const double depth = std::max(0.0, tank.liquidLevel - bottom - thickness);
        if (c == kLiquid)
            ExpectNear(sum.z, -tank.liquidDensity * depth * floorArea, size);
    }
    double uplift = 0;
    for (const Vector3 &f : NodalLoads(tank, kUplift))
        uplift += f.z;
    ExpectNear(uplift, std::max(0.0, tank.groundwaterLevel - bottom) * floorArea, 100);
}

void TurnAboutZ(Tank &tank, double angle) {
    for (TankNode &n : tank.nodes)
        n.at = {std::cos(angle) * n.at.x - std::sin(angle) * n.at.y,
                std::sin(angle) * n.at.x + std::cos(angle) * n.at.y, n.at.z};
}

double PlanArea(const Tank &tank) {
    double area = 0;
    for (const double a : BedAreas(tank))
        area += a;
    return area;
}

} // namespace

// Coordinates that 32-bit fields hold exactly, so that the statics of the nominal pool are those of the model.
TEST(ConsistentLoads, RandomPoolsHaveExactStatics) {
    std::mt19937 random(14);
    const auto eighth = [&](double from, double to) {
        return std::uniform_int_distribution<int>(static_cast<int>(8 * from), static_cast<int>(8 * to))(random) / 8.0;
    };
    for (int i = 0; i < 200; ++i) {
        SCOPED_TRACE(i);
        const double height = eighth(1, 5), bottom = i % 3 == 1 ? 0.0 : eighth(-4, 2), top = bottom + height;
        const auto level = [&] { return i % 4 == 0 ? bottom + height / 2 : eighth(bottom - 1, top + 1); };
        const double x = eighth(3, 9), y = eighth(3, 7);
        const Parameters levels = {{&SiviKotu, level()},
                                   {&ToprakKotu, level()},
                                   {&YeraltiSuKotu, level()},
                                   {&UstKot, top},
                                   {&AltKot, bottom},
                                   {&Lx, x},
                                   {&Ly, y},
                                   {&MeshGenisligi, i % 2 == 0 ? 1.0 : 0.5},
                                   {&Bk, i % 5 == 0 ? 1.0 : 0.0}};
        Tank tank;
        double area = x * y;
        if (i % 3 == 0)
            tank = LibraryPool(1, levels);
        else if (i % 3 == 1) {
            tank = LibraryPool(2, levels);
            area = PlanArea(tank);
        } else {
            const double a = std::floor(x / 2), b = std::floor(y / 2);
            tank = PolygonTank({{0, 0}, {2 * a, 0}, {2 * a, 2 * b}, {0, 2 * b}}, top, bottom, 1.0);
            ASSERT_TRUE(MeshReport().empty());
            TurnAboutZ(tank, 0.1 * i);
            area = PlanArea(tank);
            tank.liquidLevel = level();
            tank.soilLevel = level();
            tank.groundwaterLevel = level();
        }
        // the round wall has whole rows of meshes up to a 32-bit level
        double highest = -1e9;
        for (const TankMesh &m : tank.meshes)
            if (tank.panelOf(m).kind == 1)
                for (std::size_t k = 0; k < 4; ++k)
                    highest = std::max(highest, tank.corner(m, k).z);
        ExpectExactStatics(tank, highest, bottom, area);
    }
}

// The formulas for a wall mesh with horizontal edges, worked by hand.
TEST(ConsistentLoads, SharesOfAWallMeshAreThoseOfTheEdges) {
    ResetStore();
    Tank tank;
    tank.nodes.resize(5);
    tank.nodes[1].at = {0, 0, 2};
    tank.nodes[2].at = {2, 0, 2};
    tank.nodes[3].at = {2, 0, 1};
    tank.nodes[4].at = {0, 0, 1};
    for (TankNode &n : tank.nodes)
        n.used = true;
    tank.panels[1] = {1, 1, 0.2, 0, 0, false, 0};
    tank.meshes = {{1, {1, 2, 3, 4}, 1, true}};
    tank.liquidDensity = 1.5;
    const double w = 1.5, L = 2, h = 1;
    for (const double level : {0.5, 1.0, 1.25, 1.75, 2.0, 2.5}) {
        tank.liquidLevel = level;
        const double dt = level - 2, db = level - 1;
        double above = 0, below = 0;
        if (db > 0 && dt >= 0) {
            above = w * L * h * (2 * dt + db) / 6;
            below = w * L * h * (dt + 2 * db) / 6;
        } else if (db > 0) {
            above = w * L * db * db * db / (6 * h);
            below = w * L * db * db / 2 - above;
        }
        const std::vector<Vector3> f = NodalLoads(tank, kLiquid);
        EXPECT_NEAR(std::fabs(f[1].y), above / 2, 1e-12);
        EXPECT_NEAR(std::fabs(f[2].y), above / 2, 1e-12);
        EXPECT_NEAR(std::fabs(f[3].y), below / 2, 1e-12);
        EXPECT_NEAR(std::fabs(f[4].y), below / 2, 1e-12);
    }
}

// Soil under water: full density as in the run, or buoyant where a saturated density is given.
TEST(ConsistentLoads, SaturatedSoilAndSurcharge) {
    const Tank tank = LibraryPool(1, {{&ToprakKotu, 2.5}, {&YeraltiSuKotu, 1.5}, {&MeshGenisligi, 1}});
    LoadOptions options;
    options.saturatedDensity = 2.0;
    options.surcharge = 1.2;
    const WallForce wet = WallForces(tank, kSoil, options).front();
    const double dry = tank.soilKa * tank.soilDensity, buoyant = tank.soilKa * (2.0 - 1.0);
    // from the water up a triangle of 1 m; below a rectangle of what that gives and a triangle of 1.5 m
    EXPECT_NEAR(-wet.force / wet.length, dry * 1.0 / 2 + dry * 1.0 * 1.5 + buoyant * 1.5 * 1.5 / 2, 1e-9);
    const WallForce live = WallForces(tank, kSurcharge, options).front();
    EXPECT_NEAR(-live.force / live.length, tank.soilKa * 1.2 * 2.5, 1e-9);
    EXPECT_NEAR(-live.moment / live.length, tank.soilKa * 1.2 * 2.5 * 2.5 / 2, 1e-9);
    EXPECT_FALSE(HasLoads(NodalLoads(tank, kSurcharge)));
}

// What one case loads does not depend on the level of another.
TEST(ConsistentLoads, CasesAreIndependent) {
    const auto all = [](double liquid, double soil, double water) {
        const Tank tank = LibraryPool(1, {{&SiviKotu, liquid}, {&ToprakKotu, soil}, {&YeraltiSuKotu, water}});
        return std::array<std::vector<Vector3>, 4>{NodalLoads(tank, kLiquid), NodalLoads(tank, kSoil),
                                                   NodalLoads(tank, kGroundwater), NodalLoads(tank, kUplift)};
    };
    const auto same = [](const std::vector<Vector3> &a, const std::vector<Vector3> &b) {
        for (std::size_t n = 0; n < a.size(); ++n)
            if (a[n].x != b[n].x || a[n].y != b[n].y || a[n].z != b[n].z)
                return false;
        return true;
    };
    const auto base = all(2.2, 1.3, 0.7), liquid = all(1.1, 1.3, 0.7), soil = all(2.2, 2.9, 0.7),
               water = all(2.2, 1.3, 2.0);
    EXPECT_TRUE(same(base[0], soil[0]) && same(base[0], water[0]) && !same(base[0], liquid[0]));
    EXPECT_TRUE(same(base[1], liquid[1]) && same(base[1], water[1]) && !same(base[1], soil[1]));
    for (const std::size_t c : {2U, 3U})
        EXPECT_TRUE(same(base[c], liquid[c]) && same(base[c], soil[c]) && !same(base[c], water[c]));
}

// Dead load of polygon walls, a mesh above Sil 1, the run's sign of point loads.
TEST(ConsistentLoads, WhatTheModelSaysAndWhatIsAssumed) {
    Tank tank = PolygonTank({{0, 0}, {4, 0}, {4, 4}, {0, 4}}, 2, 0, 1);
    for (const auto &[number, panel] : tank.panels) {
        EXPECT_EQ(panel.ownWeightAssumed, panel.kind == 1) << number;
        EXPECT_NEAR(panel.dead, 2.5 * panel.thickness, 1e-7);
    }
    NokYukTable[1].FZ = 3;
    NokYukTable[1].FX = 1;
    for (int i = 1; i <= MeshCount; ++i)
        MeshTable[i].Sil = 2;
    tank = ReadTank();
    EXPECT_EQ(NodalLoads(tank, kPoint)[1].z, -3.0);
    EXPECT_EQ(NodalLoads(tank, kPoint)[1].x, -1.0);
    EXPECT_FALSE(HasLoads(NodalLoads(tank, kLiquid)));
    EXPECT_TRUE(HasLoads(NodalLoads(tank, kDead)));
    for (const double area : BedAreas(tank))
        EXPECT_EQ(area, 0.0);
}

} // namespace havuz::consistent
