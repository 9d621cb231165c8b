// Crossing of segments, foot of a perpendicular, height on a sloped plane: worked by hand.
#include "mesh/plane_geometry.h"
#include "support.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz {

TEST(PlaneGeometry, CrossingsAreFoundAndToldApart) {
    const struct {
        PlanPoint p1, p2, p3, p4;
        int kod;
        double xi, yi, mesafe;
    } cases[] = {
        {{0, 0}, {4, 0}, {1, -1}, {1, 1}, 2, 1, 0, 1},              // level probe, upright edge
        {{1, -1}, {1, 5}, {0, 0}, {4, 4}, 2, 1, 1, 2},              // upright probe, slanted edge
        {{0, 1}, {8, 1}, {0, 0}, {4, 2}, 2, 2, 1, 2},               // level probe, slanted edge
        {{0, 0}, {4, 4}, {0, 3}, {9, 3}, 2, 3, 3, std::sqrt(18.0)}, // slanted probe, level edge
        {{0, 0}, {4, 4}, {0, 4}, {4, 0}, 2, 2, 2, std::sqrt(8.0)},  // both slanted
        {{0, 0}, {1, 0}, {3, -1}, {3, 1}, 1, 3, 0, 3},              // on the edge only
        {{0, 0}, {4, 0}, {1, 1}, {1, 3}, 0, 1, 0, 0},               // on neither
        {{0, 0}, {4, 0}, {0, 1}, {4, 1}, 0, 0, 0, 0},               // both level
        {{0, 0}, {4, 0}, {4.0005, 0}, {9, 0}, 2, 4, 0, 4},          // both level, ends at one place
        {{2, 0.0049}, {2, 5}, {0, 0}, {4, 0}, 2, 2, 0, 0.0049},     // past the end by less than the slack
        {{2, 0.0051}, {2, 5}, {0, 0}, {4, 0}, 1, 2, 0, 0.0051},     // and by more
    };
    for (const auto &c : cases) {
        Kesisim k;
        DogruKesisimi(c.p1, c.p2, c.p3, c.p4, k);
        SCOPED_TRACE(&c - cases);
        EXPECT_EQ(k.kod, c.kod);
        EXPECT_DOUBLE_EQ(k.xi, c.xi);
        EXPECT_DOUBLE_EQ(k.yi, c.yi);
        EXPECT_DOUBLE_EQ(k.mesafe, c.mesafe);
    }
}

// Wanted: of parallel slanted lines the crossing of the call before is looked at again.
TEST(PlaneGeometry, ParallelSlantedLinesKeepTheCrossingBefore) {
    Kesisim k;
    DogruKesisimi({0, 0}, {4, 4}, {0, 4}, {4, 0}, k);
    DogruKesisimi({0, 0}, {4, 4}, {1, 1}, {3, 3}, k);
    EXPECT_EQ(k.kod, 2);
    EXPECT_DOUBLE_EQ(k.xi, 2.0);
    DogruKesisimi({0, 0}, {4, 4}, {5, 6}, {7, 8}, k);
    EXPECT_EQ(k.kod, 0);
    EXPECT_DOUBLE_EQ(k.xi, 2.0);
}

TEST(PlaneGeometry, TheNearerEndsAreNamed) {
    Kesisim k;
    DogruKesisimi({0, 0}, {4, 0}, {3, -3}, {3, 1}, k);
    EXPECT_EQ(k.uc, 2);
    EXPECT_EQ(k.KesisimUcu, 2);
    DogruKesisimi({0, 0}, {4, 0}, {2, -1}, {2, 1}, k); // in the middle of both
    EXPECT_EQ(k.uc, 1);
    EXPECT_EQ(k.KesisimUcu, 1);
}

TEST(PlaneGeometry, FootAndDistance) {
    const struct {
        PlanPoint p, a, b, foot;
        double d;
        int ustunde;
    } cases[] = {
        {{3, 4}, {1, 0}, {1, 9}, {1, 4}, 2, 1},               // upright
        {{3, 4}, {0, 1}, {2, 1}, {3, 1}, 3, 0},               // level, behind b
        {{0, 5}, {0, 0}, {4, 2}, {2, 1}, std::sqrt(20.0), 1}, // flat slope
        {{5, 0}, {0, 0}, {2, 4}, {1, 2}, std::sqrt(20.0), 1}, // steep slope
        {{3, 4}, {1, 1}, {1, 1}, {1, 4}, 2, 0},               // no line: counts as upright
    };
    for (const auto &c : cases) {
        Izdusum i;
        DikIzdusum(c.p, c.a, c.b, i);
        SCOPED_TRACE(&c - cases);
        EXPECT_DOUBLE_EQ(i.fx, c.foot.x);
        EXPECT_DOUBLE_EQ(i.fy, c.foot.y);
        EXPECT_DOUBLE_EQ(i.d, c.d);
        EXPECT_EQ(i.ustunde, c.ustunde);
        double d = 0.0;
        NoktaDogruUzaklik(c.p, c.a, c.b, d);
        EXPECT_DOUBLE_EQ(d, c.d);
    }
    Izdusum kept;
    kept.ustunde = 1;
    DikIzdusum({3, 4}, {0, 1}, {2, 1}, kept);
    EXPECT_EQ(kept.ustunde, 1); // never set back
}

TEST(PlaneGeometry, HeightFollowsTheLineOfSteepestSlope) {
    // z = 1 + 0.25 x + 0.5 y over a plate whose lowest and highest points are no neighbours on the fall line
    const auto z = [](PlanPoint p) { return 1 + 0.25 * p.x + 0.5 * p.y; };
    const PlanPoint a{0, 0}, b{4, 3}, c{5, 0};
    const EgikDuzlem plane = EgikDuzlemKur({a, b, z(a), z(b)}, c, z(c));
    for (const PlanPoint p : {PlanPoint{1, 1}, {4, 0}, {0, 3}, {4, 3}})
        EXPECT_NEAR(EgikKot(plane, p.x, p.y), z(p), 1e-12);
    EXPECT_NEAR(EgikKot(plane, -2, -1), 2.0, 1e-12); // beyond the lowest line it rises again: wanted
    const Failed failed = FailureOf([] { EgikKot({{1, 1}, {1, 1}, 0, 1}, 3, 3); });
    EXPECT_EQ(failed.kind, DivisionByZero);
    EXPECT_TRUE(failed.failed);
}

} // namespace havuz
