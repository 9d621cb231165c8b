// Sections, twist, cracks and shear against calculations by hand. Every expected number is worked out in the comment
// above it with fcd = fck/1.5, fyd = fyk/1.15 and 1 N/mm2 = 10 kg/cm2.
#include "design/bar_choice.h"
#include "design/crack.h"
#include "design/failure.h"
#include "design/section.h"
#include "design/shear.h"
#include "design/wood.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace havuz;
using namespace havuz::design;

namespace {

const Section kThirty{30.0, 25.4}; // h 30, cover 4, bars of 12 mm: d = 30 - 4 - .6

Materials Strength(double fck, double fyk) { return MakeMaterials(fck, fyk, DesignMethod::Strength); }
Materials Elastic(double fck, double fyk) { return MakeMaterials(fck, fyk, DesignMethod::Elastic); }

} // namespace

// fck 200, fyk 2200: fcd 133.333, fyd 1913.043. M 5, N 3: half the arm (d - d')/2 = d - h/2 = 10.4 cm, N times it .312
// < 5. Ms = 5 - .312 = 4.688 t.m = 468800 kg.cm; .85 fcd b = 11333.33 kg/cm. a = 25.4 - sqrt(25.4^2 - 2 *
// 468800/11333.33) = 25.4 - sqrt(645.160 - 82.729) = 25.4 - 23.7156 = 1.6844 cm, c = 1.9816. As = (11333.33 * 1.6844 +
// 3000)/1913.043 = 22089.6/1913.043 = 11.547 cm2/m. Without N: Ms 500000, a = 25.4 - sqrt(645.160 - 88.235) = 1.8009,
// As = 20410/1913.043 = 10.669; pressed by 40 t/m, M .5: Ms = .5 + 4.16 = 4.66, a = 1.6740, As = (18972 - 40000)/fyd <
// 0: none.
TEST(DesignSection, StrengthUnderMomentAndNormalForce) {
    const SteelNeed pulled = RequiredSteel(Strength(200, 2200), kThirty, 5.0, 3.0);
    EXPECT_NEAR(pulled.ms, 4.688, 1e-9);
    EXPECT_NEAR(pulled.depth, 1.9816, 1e-3);
    EXPECT_NEAR(pulled.area, 11.547, 1e-3);
    EXPECT_TRUE(pulled.met);
    EXPECT_NEAR(RequiredSteel(Strength(200, 2200), kThirty, 5.0, 0.0).area, 10.669, 1e-3);
    EXPECT_EQ(RequiredSteel(Strength(200, 2200), kThirty, .5, -40.0).area, 0.0);
}

// M .2, N 10: N times half the arm is 1.04 > .2. As = 10000/(2 * 1913.043) + 20000/(1913.043 * 20.8) = 2.6136 + .5026 =
// 3.1163; elastic with 2200/1.75 = 1257.143: 3.9773 + .7649 = 4.7422. Turned to the other face (M -.2): 2.6136 - .5026.
TEST(DesignSection, BothLayersPulledTakeAPairOfForces) {
    const SteelNeed need = RequiredSteel(Strength(200, 2200), kThirty, .2, 10.0);
    EXPECT_TRUE(need.allTension);
    EXPECT_NEAR(need.area, 3.1163, 1e-4);
    EXPECT_NEAR(RequiredSteel(Elastic(200, 2200), kThirty, .2, 10.0).area, 4.7422, 1e-4);
    EXPECT_NEAR(RequiredSteel(Strength(200, 2200), kThirty, -.2, 10.0).area, 2.1110, 1e-4);
    EXPECT_EQ(RequiredSteel(Strength(200, 2200), kThirty, -5.0, 10.0).area, 0.0);
    // The two rules meet where the far layer is just not pulled: no step in the area.
    const double atLimit = RequiredSteel(Strength(200, 2200), kThirty, 1.04, 10.0).area;
    EXPECT_NEAR(RequiredSteel(Strength(200, 2200), kThirty, 1.04 + 1e-7, 10.0).area, atLimit, 1e-4);
}

// x 9 chosen: sc = 1257.143 * 9/(15 * 16.4) = 45.993; Ms = 45.993 * 100 * 9 * (25.4 - 3)/2 = 463609 kg.cm;
// As = 45.993 * 100 * 9/2/1257.143 = 16.4635. With N 4 as well M = 4.63609 + 4 * .104 = 5.05209 and As + 4000/1257.143
// = 19.6453. x 13: sc = 87.865 > .40 fck = 80, Ms = 87.865 * 650 * (25.4 - 4.3333) = 1203166: the concrete does not
// hold.
TEST(DesignSection, CrackedElasticSection) {
    const SteelNeed need = RequiredSteel(Elastic(200, 2200), kThirty, 4.63609, 0.0);
    EXPECT_NEAR(need.depth, 9.0, 1e-4);
    EXPECT_NEAR(need.concrete, 45.993, 1e-3);
    EXPECT_NEAR(need.area, 16.4635, 1e-3);
    EXPECT_TRUE(need.met);
    EXPECT_NEAR(RequiredSteel(Elastic(200, 2200), kThirty, 5.05209, 4.0).area, 19.6453, 1e-3);
    const SteelNeed heavy = RequiredSteel(Elastic(200, 2200), kThirty, 12.03166, 0.0);
    EXPECT_NEAR(heavy.depth, 13.0, 1e-3);
    EXPECT_FALSE(heavy.met);
}

// fyk 4200: fyd 3652.174, yields at 3652.174/2.0e6 = .0018261: c up to .003/.0048261 d = .62162 * 25.4 = 15.789 cm,
// a = .85 c = 13.421, Ms = 11333.33 * 13.421 * (25.4 - 6.7105) = 2842739 kg.cm. At a = d the block gives its most:
// 11333.33 * 25.4^2/2 = 36.559 t.m.
TEST(DesignSection, SteelThatWouldNotYieldIsNotMet) {
    const Materials m = Strength(200, 4200);
    EXPECT_TRUE(RequiredSteel(m, kThirty, 28.42, 0.0).met);
    EXPECT_FALSE(RequiredSteel(m, kThirty, 28.44, 0.0).met);
    const SteelNeed none = RequiredSteel(m, kThirty, 36.57, 0.0);
    EXPECT_TRUE(std::isinf(none.area));
    EXPECT_FALSE(none.met);
    EXPECT_FALSE(RequiredSteel(m, {8.0, 3.5}, .1, 5.0).met); // the layers lie in one another
    EXPECT_FALSE(RequiredSteel(m, {5.0, -.5}, .1, 0.0).met); // no depth at all
}

// k1 = .85 - .006 * 5 = .82 at 300, not below .70. fctm = .30 * 20^(2/3) = 2.2104 N/mm2.
TEST(DesignSection, MaterialsFollowTheirStrengths) {
    EXPECT_DOUBLE_EQ(Strength(250, 2200).k1(), .85);
    EXPECT_DOUBLE_EQ(Strength(160, 2200).k1(), .85);
    EXPECT_NEAR(Strength(300, 2200).k1(), .82, 1e-12);
    EXPECT_DOUBLE_EQ(Strength(600, 2200).k1(), .70);
    EXPECT_NEAR(Strength(200, 2200).fctm(), 22.104, 1e-3);
    EXPECT_THROW(Strength(0, 2200), DesignFailure);
    EXPECT_THROW(Strength(200, std::nan("")), DesignFailure);
}

// .26 * 22.104/2200 = .0026123, times 100 * 25.4 = 6.6352; fyk 5000: .0011494 < .0013: 3.302.
TEST(DesignSection, LeastSteel) {
    EXPECT_NEAR(LeastSteel(Strength(200, 2200), 25.4), 6.6352, 1e-3);
    EXPECT_NEAR(LeastSteel(Strength(200, 5000), 25.4), 3.302, 1e-9);
}

// Direction 1 turns when m11 + |m12| < 0: it asks for nothing and direction 2 for m22 + m12^2/|m11|.
TEST(DesignSection, TwistIsAddedByWoodsRule) {
    const auto expect = [](std::array<double, 2> got, double m1, double m2) {
        EXPECT_NEAR(got[0], m1, 1e-12);
        EXPECT_NEAR(got[1], m2, 1e-12);
    };
    expect(WoodMoments(2.0, 1.0, -.5), 2.5, 1.5);
    expect(WoodMoments(-3.0, 1.0, 1.0), 0.0, 1.0 + 1.0 / 3.0);
    expect(WoodMoments(1.0, -3.0, 1.0), 1.0 + 1.0 / 3.0, 0.0);
    expect(WoodMoments(-3.0, -.2, .5), 0.0, 0.0); // -.2 + .25/3 is still below 0
    expect(WoodMoments(-3.0, -3.0, 1.0), 0.0, 0.0);
    expect(WoodMoments(0.0, 0.0, 0.0), 0.0, 0.0);
}

// fck 300: fctm = .30 * 30^(2/3) = 2.8965, Ecm = 22000 * 3.8^.3 = 32836.6 N/mm2, ratio 6.0908. Bars 12 at 15 cm:
// As 7.5398. M 4, N 0: 50 x^2 = 45.9234 (25.4 - x): x = 4.3926; steel 400000/(7.5398 * (25.4 - 1.4642)) = 2216.4
// kg/cm2. hc,ef = min(11.5, (30 - 4.3926)/3 = 8.5358, 15); rho = 7.5398/853.58 = .0088332. 221.64 - .4
// * 2.8965/.0088332 * (1 + 6.0908 * .0088332) = 83.4 < .6 * 221.64 = 132.98: strain 6.6492e-4. sr,max = 3.4 * 40 + .8 *
// .5 * .425 * 12/.0088332 = 136 + 230.95 = 366.95 mm; wk = .24399 mm. At 25 cm > 5 * (4 + .6) = 23 cm sr,max is 1.3 (h
// - x) instead.
TEST(DesignSection, CrackWidthInBending) {
    const Materials m = Strength(300, 4200);
    const CrackWidth w = CrackWidthOf(m, kThirty, {12.0, 15.0}, 4.0, 4.0, 0.0);
    EXPECT_NEAR(w.x, 4.3926, 1e-3);
    EXPECT_NEAR(w.steel, 2216.4, .2);
    EXPECT_NEAR(w.rho, .0088332, 1e-6);
    EXPECT_NEAR(w.strain, 6.6492e-4, 1e-7);
    EXPECT_NEAR(w.srMax, 366.95, .05);
    EXPECT_NEAR(w.wk, .24399, 1e-4);
    EXPECT_NEAR(CrackWidthOf(m, kThirty, {12.0, 15.0}, 4.0, 8.0, 0.0).strain, 1.5253e-3, 2e-7);
    const CrackWidth wide = CrackWidthOf(m, kThirty, {12.0, 25.0}, 4.0, 4.0, 0.0);
    EXPECT_NEAR(wide.srMax, 13.0 * (30.0 - wide.x), 1e-9);
}

// h 20, bars 10 at 10 cm on both faces (7.854), N 20 t/m: each layer 10 t, 1273.24 kg/cm2; hc,ef = min(2.5 * 4.5, 10) =
// 10, rho .007854, k2 1; .6 * 127.324/2e5 = 3.8197e-4; sr,max = 136 + .8 * .425 * 10/.007854 = 568.90; wk .21730. With
// M .55 the near layer has 10 + .55/.11 = 15 t, the far 5: ratio 1/3, k2 = 2/3, 1909.86 kg/cm2; .6 * 190.986/2e5
// = 5.7296e-4 (190.99 - 154.58 is less); sr,max = 136 + 2/3 * 432.90 = 424.60; wk .24328.
TEST(DesignSection, CrackWidthInTension) {
    const Materials m = Strength(300, 4200);
    const Section s{20.0, 15.5};
    const CrackWidth pulled = CrackWidthOf(m, s, {10.0, 10.0}, 4.0, 0.0, 20.0);
    EXPECT_NEAR(pulled.steel, 1273.24, .01);
    EXPECT_NEAR(pulled.srMax, 568.90, .01);
    EXPECT_NEAR(pulled.wk, .21730, 1e-5);
    const CrackWidth eccentric = CrackWidthOf(m, s, {10.0, 10.0}, 4.0, .55, 20.0);
    EXPECT_NEAR(eccentric.k2, 2.0 / 3.0, 1e-9);
    EXPECT_NEAR(eccentric.wk, .24328, 1e-5);
    EXPECT_EQ(CrackWidthOf(m, s, {10.0, 10.0}, 4.0, .1, -50.0).wk, 0.0); // pressed all over
}

// Bars, concrete and N balance: n As (d - x)/x sc - b x sc/2 = N with the state that comes out.
TEST(DesignSection, CrackedStateIsInEquilibrium) {
    for (const double N : {-8.0, 0.0, 5.0, 30.0}) {
        const double n = 6.5, As = 9.0, M = 5.0;
        const CrackedState c = CrackedSection(kThirty, As, n, M, N);
        ASSERT_GT(c.x, 0.0) << N;
        const double concrete = c.steel / n * c.x / (kThirty.d - c.x);
        EXPECT_NEAR(As * c.steel - concrete * 100.0 * c.x / 2.0, N * 1000.0, 1e-6 * 30000.0) << N;
        const double about = concrete * 100.0 * c.x / 2.0 * (kThirty.d - c.x / 3.0);
        EXPECT_NEAR(about, M * 1e5 - N * 1e3 * (kThirty.d - kThirty.h / 2.0), 1.0) << N;
    }
}

// Head 3.7 m on 30 cm: 12.333 thicknesses: .20 - 7.3333/30 * .15 = .16333.
TEST(DesignSection, CrackLimitFallsWithTheHead) {
    EXPECT_NEAR(CrackLimit(3.7, 30.0), .163333, 1e-6);
    EXPECT_DOUBLE_EQ(CrackLimit(0.0, 30.0), .20);
    EXPECT_DOUBLE_EQ(CrackLimit(1.5, 30.0), .20);
    EXPECT_NEAR(CrackLimit(10.5, 30.0), .05, 1e-12);
    EXPECT_NEAR(CrackLimit(40.0, 30.0), .05, 1e-12);
}

// d 254 mm: k = 1 + sqrt(200/254) = 1.88736; As 7.54: rho .0029685; fck 20 N/mm2.
// .12 * 1.88736 * (100 * .0029685 * 20)^(1/3) = .226483 * 1.81075 = .41010, times 254 = 104.17 N/mm = 10.417 t/m;
// vmin = .035 * 1.88736^1.5 * sqrt(20) = .40585: 10.309 t/m. N 10 t/m pulls: sigma -10/30 N/mm2, .15 * it =
// -.05: 9.147.
TEST(DesignSection, ShearWithoutLinks) {
    const Materials m = Strength(200, 2200);
    EXPECT_NEAR(ShearWithoutLinks(m, kThirty, 7.54, 0.0).vrd, 10.417, 2e-3);
    EXPECT_NEAR(ShearWithoutLinks(m, kThirty, 7.54, 0.0).least, 10.309, 2e-3);
    EXPECT_NEAR(ShearWithoutLinks(m, kThirty, 7.54, 10.0).vrd, 9.147, 2e-3);
    EXPECT_NEAR(ShearWithoutLinks(m, kThirty, 1.0, 0.0).vrd, 10.309, 2e-3);
    // 1000 t/m of pressure count as .2 fcd = 2.6667 N/mm2 only: + .15 * 2.6667 * 254 = 101.6 N/mm.
    EXPECT_NEAR(ShearWithoutLinks(m, kThirty, 7.54, -1000.0).vrd, 10.417 + 10.16, 2e-3);
    EXPECT_EQ(ShearWithoutLinks(m, kThirty, 7.54, 200.0).vrd, 0.0);
    EXPECT_EQ(ThicknessForShear(m, kThirty, 7.54, 0.0, 10.4), 30.0);
    const double thick = ThicknessForShear(m, kThirty, 7.54, 0.0, 12.0);
    EXPECT_GE(ShearWithoutLinks(m, {thick, thick - 4.6}, 7.54, 0.0).vrd, 12.0);
    EXPECT_LT(ShearWithoutLinks(m, {thick - 1.0, thick - 5.6}, 7.54, 0.0).vrd, 12.0);
}
