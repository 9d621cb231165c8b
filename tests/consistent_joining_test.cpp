// Joints beyond the mesh, mechanisms in words, the bed without tension.
#include "consistent/failure.h"
#include "consistent/joining.h"
#include "consistent_support.h"
#include "mesh/oto_mesh.h"
#include "model/store.h"
#include "verification/hand_tank.h"

#include <cmath>
#include <gtest/gtest.h>

namespace havuz::consistent {

namespace {

constexpr double kE = 2.85e6;

void OnBed(HandTank &t) {
    t.tank.bedding = 2000;
    t.tank.liquidDensity = 1;
    t.tank.liquidLevel = 1.8;
}

Vector3 Flat(double x, double y, double s, double t, double a, double b) { return {x + a * s, y + b * t, 0}; }

// A floor of 4 by 4 with a wall on its edge y = 0; divisions of the two.
HandTank FloorAndWall(int floorParts, int wallParts, bool sharedNodes) {
    HandTank t(kE, 0.25);
    const int floor = t.panel(0, 0.3, 0.75), wall = t.panel(1, 0.2, 0.5);
    const int first = t.grid(floor, floorParts, floorParts, [](double s, double v) { return Flat(0, 0, s, v, 4, 4); });
    const int rows = 4, above = static_cast<int>(t.tank.nodes.size());
    t.grid(wall, wallParts, rows, [](double s, double v) { return Vector3{4 * s, 0, 2 * (1 - v)}; });
    for (TankMesh &m : t.tank.meshes)
        for (int &n : m.node)
            if (sharedNodes && n >= above + rows * (wallParts + 1))
                n = first + n - (above + rows * (wallParts + 1));
    for (std::size_t n = 1; n < t.tank.nodes.size(); ++n)
        t.tank.nodes[n].used = !(sharedNodes && static_cast<int>(n) >= above + rows * (wallParts + 1));
    OnBed(t);
    return t;
}

double TopOf(const HandTank &t, const CaseResult &r) { return NodeResultAt(t.tank, r, {2, 0, 2}).u[1]; }

std::string RefusalOf(const Tank &tank) {
    try {
        const Analysis analysis(tank);
        return "";
    } catch (const AnalysisFailure &failure) {
        EXPECT_FALSE(failure.turkish().empty());
        return failure.what();
    }
}

bool Says(const std::string &words, const std::string &part) { return words.find(part) != std::string::npos; }

} // namespace

TEST(ConsistentJoining, NodesInOnePlaceAreOne) {
    const HandTank shared = FloorAndWall(4, 4, true), apart = FloorAndWall(4, 4, false);
    const Analysis one(shared.tank), two(apart.tank);
    EXPECT_TRUE(one.joined().empty());
    EXPECT_EQ(two.joined().size(), 5U);
    EXPECT_EQ(one.facts().equations, two.facts().equations);
    EXPECT_NEAR(TopOf(apart, two.solve(kLiquid)), TopOf(shared, one.solve(kLiquid)), 1e-12);
}

// A wall of other divisions than its floor, twice as fine, or crossing: what the joined mesh gives, within its error.
TEST(ConsistentJoining, UnequalDivisionsHoldEachOther) {
    const HandTank fine = FloorAndWall(8, 8, true);
    const double exact = TopOf(fine, Analysis(fine.tank).solve(kLiquid));
    for (const auto &[floorParts, wallParts] : {std::pair{4, 8}, std::pair{8, 4}, std::pair{6, 4}, std::pair{4, 6}}) {
        const HandTank t = FloorAndWall(floorParts, wallParts, false);
        const Analysis analysis(t.tank);
        EXPECT_GE(analysis.joined().size(), 5U);
        const CaseResult r = analysis.solve(kLiquid);
        EXPECT_LT(Imbalance(r.proof), 1e-9);
        EXPECT_NEAR(TopOf(t, r), exact, 0.05 * std::fabs(exact)) << floorParts << " " << wallParts;
    }
}

// Rigid motion of the masters moves what follows rigidly, through a chain of three.
TEST(ConsistentJoining, ChainsFollowRigidly) {
    HandTank t(kE, 0.25);
    const int p = t.panel(0, 0.3);
    t.mesh(p, t.node({0, 0, 0}), t.node({8, 0, 0}), t.node({8, 4, 0}), t.node({0, 4, 0}));
    t.mesh(p, t.node({2, 4, 0}), t.node({8, 4, 0}), t.node({8, 8, 0}), t.node({2, 8, 0}));
    t.mesh(p, t.node({0, 4, 0}), t.node({2, 4, 0}), t.node({2, 6, 0}), t.node({0, 6, 0}));
    t.mesh(p, t.node({2, 4.0004, 0}), t.node({1, 4, 0}), t.node({1, 2, 0.5}), t.node({2, 2, 0.5}));
    const Joints joints = JoinNodes(t.tank);
    const Vector3 shift{0.3, -0.2, 0.1}, turn{0.01, 0.02, -0.03};
    const auto rigid = [&](int n) {
        const Vector3 d = shift + Cross(turn, t.tank.nodes[static_cast<std::size_t>(n)].at);
        Eigen::Matrix<double, 6, 1> u;
        u << d.x, d.y, d.z, turn.x, turn.y, turn.z;
        return u;
    };
    int following = 0;
    for (int n = 1; n < static_cast<int>(t.tank.nodes.size()); ++n) {
        Eigen::Matrix<double, 6, 1> u = Eigen::Matrix<double, 6, 1>::Zero();
        for (const NodeLink &link : joints.follow[static_cast<std::size_t>(n)]) {
            EXPECT_TRUE(joints.follow[static_cast<std::size_t>(link.master)].empty());
            u += link.from * rigid(link.master);
        }
        if (joints.follow[static_cast<std::size_t>(n)].empty())
            continue;
        ++following;
        EXPECT_LT((u - rigid(n)).cwiseAbs().maxCoeff(), 1e-12) << n;
    }
    EXPECT_GE(following, 5);
}

// Supports on nodes that hang: nothing moves there, and the reactions balance the loads.
TEST(ConsistentJoining, SupportsOnHangingNodes) {
    HandTank t = FloorAndWall(2, 4, false);
    t.hold(4, [](const Vector3 &at) { return at.y == 0 && at.z == 0 && (at.x == 1 || at.x == 3); });
    const CaseResult r = Analysis(t.tank).solve(kLiquid);
    EXPECT_LT(Imbalance(r.proof), 1e-9);
    for (std::size_t n = 1; n < t.tank.nodes.size(); ++n)
        if (t.tank.nodes[n].held != 0) {
            EXPECT_NEAR(r.nodes[n].u[2], 0, 1e-15);
            EXPECT_GT(std::fabs(r.nodes[n].reaction), 0.0);
        }
}

// The library's pool with strips that no common node joins to the walls: meshed by hand of two grids.
TEST(ConsistentJoining, AnUnjoinedStripHolds) {
    const auto pool = [](double shift) {
        HandTank t = FloorAndWall(4, 4, true);
        const int strip = t.panel(2, 0.2, 0.5);
        t.grid(strip, 4, 1, [&](double s, double v) { return Vector3{4 * s, -1.0 * v + shift, 2}; });
        OnBed(t);
        return t;
    };
    const HandTank joined = pool(0.0), near = pool(0.0005);
    const double exact = TopOf(joined, Analysis(joined.tank).solve(kLiquid));
    EXPECT_NEAR(TopOf(near, Analysis(near.tank).solve(kLiquid)), exact, 1e-3 * std::fabs(exact));
    EXPECT_TRUE(Says(RefusalOf(pool(-0.01).tank), "neither bed nor support")); // 1 cm away it is loose
}

TEST(ConsistentMechanism, IsRefusedByNodeAndDirection) {
    HandTank loose = FloorAndWall(4, 4, false);
    for (TankNode &n : loose.tank.nodes)
        if (n.at.z > 0 || n.at.y == 0)
            n.at.z += n.at.z > 0 ? 0.1 : 0.0;
    for (std::size_t n = 26; n < loose.tank.nodes.size(); ++n)
        loose.tank.nodes[n].at.z += 0.1; // the wall floats above its floor
    EXPECT_TRUE(Says(RefusalOf(loose.tank), "can move along X, Y and Z")) << RefusalOf(loose.tank);
    EXPECT_TRUE(Says(RefusalOf(loose.tank), "of panel 2"));

    HandTank noBed = FloorAndWall(4, 4, true);
    noBed.tank.bedding = 0;
    EXPECT_TRUE(Says(RefusalOf(noBed.tank), "ZeminKo is 0")) << RefusalOf(noBed.tank);

    HandTank hinged(kE, 0.25); // a slab held along one edge against moving alone
    const int p = hinged.panel(2, 0.2, 0.5);
    hinged.grid(p, 4, 4, [](double s, double v) { return Flat(0, 0, s, v, 4, 4); });
    hinged.hold(4, [](const Vector3 &at) { return at.x == 0; });
    const std::string words = RefusalOf(hinged.tank);
    EXPECT_TRUE(Says(words, "can move along Z")) << words;
    EXPECT_TRUE(Says(words, "(4.000")) << words; // the far edge moves most

    HandTank corner = FloorAndWall(4, 4, true); // a mesh that touches the rest at one node turns about it
    const int at = corner.nodeAt({4, 4, 0});
    corner.mesh(1, at, corner.node({5, 4, 0}), corner.node({5, 5, 0}), corner.node({4, 5, 0}));
    corner.tank.meshes.back().loaded = false;
    EXPECT_EQ(RefusalOf(corner.tank), ""); // its corner passes moments: it stands
}

TEST(ConsistentBed, WithoutTension) {
    Tank tank = LibraryPool(1, {{&MeshGenisligi, 1}, {&YeraltiSuKotu, 0.45}, {&ToprakKotu, 0}});
    const Analysis analysis(tank);
    const Combination full{"full", {1, 0, 0, 1, 0, 0, 0, 0}}; // weight and liquid: nothing lifts
    const CaseResult with = analysis.solve(full), without = analysis.solve(full, false);
    EXPECT_EQ(without.liftedArea, 0.0);
    EXPECT_EQ(DisplacementDifference(with, without), 0.0);
    const Combination lifting{"lift", {1, 0, 0, 0, 0, 0, 3.8, 0}}; // water under an empty tank, nearly its weight
    const CaseResult pulled = analysis.solve(lifting), lifted = analysis.solve(lifting, false);
    EXPECT_LT(Imbalance(lifted.proof), 1e-9);
    EXPECT_GT(lifted.liftedArea, 1.0);
    EXPECT_GT(lifted.rounds, 1);
    double pulls = 0;
    for (std::size_t n = 1; n < lifted.nodes.size(); ++n) {
        EXPECT_GE(lifted.nodes[n].soil, 0.0);
        pulls = std::min(pulls, pulled.nodes[n].soil);
    }
    EXPECT_LT(pulls, 0.0);
    const Combination floating{"float", {1, 0, 0, 0, 0, 0, 20, 0}};
    EXPECT_THROW(analysis.solve(floating, false), AnalysisFailure);
}

} // namespace havuz::consistent
