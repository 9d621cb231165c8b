// Whole tanks: values known from elsewhere, balance, and what each load case leaves alone.
#include "consistent_support.h"
#include "model/store.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz::consistent {

namespace {

Parameters DefaultPool(double width) { return {{&MeshGenisligi, width}, {&ToprakKotu, 3}, {&YeraltiSuKotu, 0}}; }

double FootOfDefaultPool(double width, InnerModes strips) {
    Options options;
    options.stripModes = strips;
    const Tank tank = LibraryPool(1, DefaultPool(width));
    return ResultAt(tank, Analysis(tank, options).solve(kLiquid), 3, {5, 0, 0}).M22;
}

} // namespace

// Wall forces: w h2/2 and w h3/6 a metre. Foot moments: an independent computation of the same tanks.
TEST(ConsistentTank, DefaultPoolUnderLiquid) {
    const Tank tank = LibraryPool(1, DefaultPool(1));
    for (const WallForce &wall : WallForces(tank, kLiquid)) {
        EXPECT_NEAR(wall.force / wall.length, 4.5, 4.5e-9);
        EXPECT_NEAR(wall.moment / wall.length, 4.5, 4.5e-9);
        EXPECT_NEAR(wall.height, 3.0, 1e-12);
    }
    EXPECT_NEAR(FootOfDefaultPool(1, InnerModes::Stretch), 1.32, 0.0132);
    EXPECT_NEAR(FootOfDefaultPool(0.25, InnerModes::Stretch), 1.50, 0.015);
    EXPECT_NEAR(FootOfDefaultPool(1, InnerModes::All), 1.365, 0.005); // strips that bow
}

TEST(ConsistentTank, FootMomentsOfOtherTanks) {
    Parameters deep = {
        {&Lx, 12},        {&Ly, 6},         {&UstKot, 4},         {&Bk, 0}, {&KenarKalinlik, 30}, {&AltKalinlik, 40},
        {&SiviKotu, 3.7}, {&ToprakKotu, 0}, {&MeshGenisligi, 0.5}};
    const Tank liquid = LibraryPool(1, deep);
    EXPECT_NEAR(ResultAt(liquid, Analysis(liquid).solve(kLiquid), 3, {6, 0, 0}).M22, 5.31, 0.0531);
    const Tank soil = LibraryPool(1, {{&Lx, 20},
                                      {&Ly, 10},
                                      {&UstKot, 5},
                                      {&Bk, 0},
                                      {&KenarKalinlik, 40},
                                      {&AltKalinlik, 50},
                                      {&ToprakKotu, 2.5},
                                      {&MeshGenisligi, 1}});
    EXPECT_NEAR(ResultAt(soil, Analysis(soil).solve(kSoil), 3, {10, 0, 0}).M22, -1.52, 0.0152);
}

TEST(ConsistentTank, UpliftIsWaterTimesArea) {
    const Tank tank = LibraryPool(1, {{&Lx, 8},
                                      {&Ly, 8},
                                      {&UstKot, 6},
                                      {&KenarKalinlik, 40},
                                      {&AltKalinlik, 60},
                                      {&YeraltiSuKotu, 4},
                                      {&MeshGenisligi, 1}});
    EXPECT_NEAR(Analysis(tank).solve(kUplift).proof.load[2], 256.0, 256e-9);
}

TEST(ConsistentTank, EveryCaseBalancesAndHasASmallResidual) {
    Tank tank = LibraryPool(1, {{&SiviKotu, 2.6}, {&ToprakKotu, 1.5}, {&YeraltiSuKotu, 1.2}, {&MeshGenisligi, 1}});
    tank.nodes[3].load = {2.0, -1.0, -5.0};
    for (auto &[number, panel] : tank.panels)
        panel.live = 0.5;
    tank.nodes[1].held = 4;
    tank.nodes[7].held = 5;
    Options options;
    options.loads.surcharge = 1.0;
    const Analysis analysis(tank, options);
    for (const Case c : kAllCases) {
        SCOPED_TRACE(NameOf(c).key);
        EXPECT_TRUE(analysis.active(c));
        const CaseResult r = analysis.solve(c);
        EXPECT_LT(Imbalance(r.proof), 1e-9);
        EXPECT_LT(r.proof.residual, 1e-9);
        EXPECT_NEAR(r.nodes[1].reaction + r.nodes[7].reaction, r.proof.reaction[2], 1e-9);
    }
}

// A combination is the sum of its cases.
TEST(ConsistentTank, CombinationsAdd) {
    const Tank tank = LibraryPool(1, {{&MeshGenisligi, 1}});
    const Analysis analysis(tank);
    const CaseResult both = analysis.solve(Combination{"x", {1.4, 0, 0, 1.6, 0, 0, 0, 0}});
    const double sum = 1.4 * ResultAt(tank, analysis.solve(kDead), 3, {5, 0, 0}).M22 +
                       1.6 * ResultAt(tank, analysis.solve(kLiquid), 3, {5, 0, 0}).M22;
    EXPECT_NEAR(ResultAt(tank, both, 3, {5, 0, 0}).M22, sum, 1e-9);
}

} // namespace havuz::consistent
