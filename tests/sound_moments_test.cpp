// What the sound mesh is for: moments that converge, near their limit at an ordinary width. Limits: the same tanks at
// 0.125 m, where they move by less than half a percent.
#include "consistent/analysis.h"
#include "mesh/polygon_pool.h"
#include "mesh/sound_mesh.h"
#include "model/store.h"
#include "support.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace havuz {

namespace {

using consistent::CaseResult;
using consistent::ShellResult;
using consistent::Tank;

// A tank 3 m high, full, walls 25 cm, floor 40 cm.
struct Solved {
    Tank tank;
    CaseResult liquid;
};
Solved SolveTank(const std::vector<PlanPoint> &points, double width) {
    ResetAll();
    PolygonPool pool;
    pool.points = points;
    pool.dp = 25;
    pool.ds = 40;
    pool.UstKot = 3;
    BuildPolygonPool(pool);
    MeshWindow none;
    SoundMesh(none, {width, 0.0});
    const Tank tank = consistent::ReadTank();
    return {tank, consistent::Analysis(tank).solve(consistent::kLiquid)};
}

// Mean over the wall meshes that meet in places of a vertical line: by level.
std::map<double, double> AlongLine(const Solved &s, PlanPoint at, double ShellResult::*value) {
    std::map<double, std::pair<double, int>> sums;
    for (std::size_t i = 0; i < s.tank.meshes.size(); ++i)
        for (std::size_t k = 0; s.tank.panelOf(s.tank.meshes[i]).kind == 1 && k < 4; ++k) {
            const Vector3 &p = s.tank.corner(s.tank.meshes[i], k);
            if (std::hypot(p.x - at.x, p.y - at.y) > 1e-4)
                continue;
            auto &[sum, count] = sums[std::round(p.z * 1e3) / 1e3];
            sum += s.liquid.meshes[i][k + 1].*value;
            ++count;
        }
    std::map<double, double> means;
    for (const auto &[z, sum] : sums)
        means[z] = sum.first / sum.second;
    return means;
}

} // namespace

TEST(SoundMoments, FeetOfHexagonsAreWithinThreePercent) {
    const std::vector<std::pair<double, double>> limits = {{3.0, 0.602}, {3.5, 0.7515}, {4.0, 0.911}}; // side, t.m/m
    for (const auto &[side, limit] : limits) {
        std::vector<PlanPoint> hexagon;
        for (int k = 0; k < 6; ++k)
            hexagon.push_back({side * std::cos(k * M_PI / 3), side * std::sin(k * M_PI / 3)});
        const PlanPoint foot{0.0, -side * std::sqrt(3.0) / 2.0};
        for (const double width : {0.5, 0.6})
            EXPECT_NEAR(AlongLine(SolveTank(hexagon, width), foot, &ShellResult::M22).at(0.0), limit, 0.03 * limit)
                << side << " " << width;
    }
}

TEST(SoundMoments, AnLIsWithinThreePercentAtItsFootAndItsInnerCorner) {
    const Solved s = SolveTank({{0, 0}, {6, 0}, {6, 3}, {3, 3}, {3, 6}, {0, 6}}, 0.5);
    EXPECT_NEAR(AlongLine(s, {3, 0}, &ShellResult::M22).at(0.0), 1.626, 0.03 * 1.626);
    double greatest = 0.0;
    for (const auto &[z, m] : AlongLine(s, {3, 3}, &ShellResult::M11))
        greatest = std::max(greatest, m);
    EXPECT_NEAR(greatest, 0.3585, 0.03 * 0.3585);
}

} // namespace havuz
