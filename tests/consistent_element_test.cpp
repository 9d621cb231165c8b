// The shell element by itself: motions that cost nothing, states that it must have exactly, drilling without influence.
#include "consistent/failure.h"
#include "consistent/shell_element.h"
#include "verification/hand_tank.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace havuz::consistent {

namespace {

constexpr ShellSection kSection{2.0e6, 0.25, 0.2, 1.0, InnerModes::All};

// Convex quadrilaterals in any plane, some with corners off it, some with two corners at one place.
std::vector<Corners> Shapes(bool warped) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    std::vector<Corners> shapes;
    for (int i = 0; i < 60; ++i) {
        const Vector3 x = UnitOf({any(random), any(random), any(random)});
        const Vector3 z = UnitOf(Cross(x, {any(random), any(random), any(random)}));
        const Vector3 y = Cross(z, x);
        Corners p;
        const std::array<std::array<double, 2>, 4> square = {{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};
        for (std::size_t k = 0; k < 4; ++k)
            p[k] = (square[k][0] + 0.4 * any(random)) * x + (square[k][1] + 0.4 * any(random)) * y +
                   (warped ? 0.3 * any(random) : 0.0) * z + Vector3{3, -2, 5};
        if (i % 5 == 0 && !warped)
            p[static_cast<std::size_t>(i / 5 % 4)] = p[static_cast<std::size_t>((i / 5 + 1) % 4)];
        shapes.push_back(p);
    }
    return shapes;
}

Vector24 RigidMotion(const Corners &p, const Vector3 &shift, const Vector3 &turn) {
    Vector24 u;
    for (std::size_t k = 0; k < 4; ++k) {
        const Vector3 d = shift + Cross(turn, p[k]);
        u.segment<6>(6 * static_cast<Eigen::Index>(k)) << d.x, d.y, d.z, turn.x, turn.y, turn.z;
    }
    return u;
}

} // namespace

TEST(ConsistentElement, RigidMotionsCostNothing) {
    for (const bool warped : {false, true})
        for (const Corners &p : Shapes(warped)) {
            const ShellElement element(p, kSection, "mesh");
            const double stiff = element.stiffness().cwiseAbs().maxCoeff();
            for (int d = 0; d < 6; ++d) {
                const Vector3 one{d % 3 == 0 ? 1.0 : 0.0, d % 3 == 1 ? 1.0 : 0.0, d % 3 == 2 ? 1.0 : 0.0};
                const Vector24 u = d < 3 ? RigidMotion(p, one, {}) : RigidMotion(p, {}, one);
                EXPECT_LT((element.stiffness() * u).cwiseAbs().maxCoeff(), 1e-13 * stiff * u.cwiseAbs().maxCoeff());
                for (const LocalStress &s : element.stresses(u))
                    EXPECT_LT(s.cwiseAbs().maxCoeff(), 1e-12 * stiff);
            }
        }
}

TEST(ConsistentElement, StiffnessIsSymmetricWithSixFreeMotions) {
    for (const Corners &p : Shapes(false)) {
        const ShellElement element(p, kSection, "mesh");
        const Matrix24 &k = element.stiffness();
        EXPECT_LT((k - k.transpose()).cwiseAbs().maxCoeff(), 1e-12 * k.cwiseAbs().maxCoeff());
        const Eigen::Matrix<double, 24, 1> values = Eigen::SelfAdjointEigenSolver<Matrix24>(k).eigenvalues();
        const int zeros = element.shape().corners() == 4 ? 6 : 12; // a corner that fell away adds six
        EXPECT_LT(values(zeros - 1), 1e-9 * values(23));
        EXPECT_GT(values(zeros), 1e-9 * values(23)); // drilling is the softest
    }
}

namespace {

// A square of side 2 with a distorted inner mesh, its rim moved by a given field; inner nodes must follow the field.
struct PatchState {
    InnerModes modes;
    std::function<std::array<double, 6>(double x, double y)> field; // u v w rx ry rz
    ShellResult stress;
};

// Five meshes around an inner quadrilateral, one of them split into triangles.
HandTank Patch() {
    HandTank t(2.0e6, 0.25);
    const int p = t.panel(2, 0.2);
    const int a = t.node({0, 0, 0}), b = t.node({2, 0, 0}), c = t.node({2, 2, 0}), d = t.node({0, 2, 0});
    const int e = t.node({0.4, 0.4, 0}), f = t.node({1.5, 0.6, 0}), g = t.node({1.3, 1.4, 0}),
              h = t.node({0.5, 1.6, 0});
    t.mesh(p, a, b, f, e);
    t.mesh(p, b, c, g, f);
    t.mesh(p, c, d, h, g);
    t.mesh(p, d, a, e, e);
    t.mesh(p, d, e, h, h);
    t.mesh(p, e, f, g, h);
    return t;
}

} // namespace

// Displacements of the rim are given, those inside follow from equilibrium: solved here with the elements alone.
TEST(ConsistentElement, DistortedPatchHasConstantStatesExactly) {
    const double E = 2.0e6, v = 0.25, t = 0.2;
    const double c = E * t / (1 - v * v), rigid = E * t * t * t / 12 / (1 - v * v);
    const std::vector<PatchState> states = {
        {InnerModes::Stretch,
         [](double x, double y) { return std::array<double, 6>{1e-3 * (x + y), 1e-3 * x, 0, 0, 0, 0}; },
         {1e-3 * c, 1e-3 * c * v, 2e-3 * c * (1 - v) / 2, 0, 0, 0, 0, 0}},
        {InnerModes::All,
         [](double x, double) { return std::array<double, 6>{1e-3 * x, 0, 0, 0, 0, 0}; },
         {1e-3 * c, 1e-3 * c * v, 0, 0, 0, 0, 0, 0}},
        {InnerModes::All,
         [](double x, double y) { return std::array<double, 6>{1e-3 * y, 1e-3 * x, 0, 0, 0, 0}; },
         {0, 0, 2e-3 * c * (1 - v) / 2, 0, 0, 0, 0, 0}},
        {InnerModes::All,
         [](double x, double) { return std::array<double, 6>{0, 0, -1e-3 * x * x / 2, 0, 1e-3 * x, 0}; },
         {0, 0, 0, 1e-3 * rigid, 1e-3 * rigid * v, 0, 0, 0}},
        {InnerModes::All,
         [](double x, double y) { return std::array<double, 6>{0, 0, -1e-3 * x * y, -1e-3 * x, 1e-3 * y, 0}; },
         {0, 0, 0, 0, 0, 1e-3 * rigid * (1 - v), 0, 0}}};
    const HandTank patch = Patch();
    const Tank &tank = patch.tank;
    for (const PatchState &state : states) {
        Eigen::MatrixXd k = Eigen::MatrixXd::Zero(48, 48);
        std::vector<ShellElement> elements;
        ShellSection section = kSection;
        section.innerModes = state.modes;
        for (const TankMesh &m : tank.meshes) {
            elements.emplace_back(Corners{tank.corner(m, 0), tank.corner(m, 1), tank.corner(m, 2), tank.corner(m, 3)},
                                  section, "mesh");
            for (Eigen::Index a = 0; a < 4; ++a)
                for (Eigen::Index b = 0; b < 4; ++b)
                    k.block<6, 6>(6 * (m.node[static_cast<std::size_t>(a)] - 1),
                                  6 * (m.node[static_cast<std::size_t>(b)] - 1)) +=
                        elements.back().stiffness().block<6, 6>(6 * a, 6 * b);
        }
        Eigen::VectorXd exact(48);
        for (std::size_t n = 1; n <= 8; ++n) {
            const std::array<double, 6> at = state.field(tank.nodes[n].at.x, tank.nodes[n].at.y);
            for (std::size_t d = 0; d < 6; ++d)
                exact(static_cast<Eigen::Index>(6 * (n - 1) + d)) = at[d];
        }
        Eigen::VectorXd u = exact;
        u.tail(24) = k.block(24, 24, 24, 24).ldlt().solve(-k.block(24, 0, 24, 24) * exact.head(24));
        EXPECT_LT((u - exact).cwiseAbs().maxCoeff(), 1e-9 * exact.cwiseAbs().maxCoeff());
        for (std::size_t i = 0; i < elements.size(); ++i) {
            Vector24 at;
            for (std::size_t a = 0; a < 4; ++a)
                at.segment<6>(6 * static_cast<Eigen::Index>(a)) = u.segment<6>(6 * (tank.meshes[i].node[a] - 1));
            for (const LocalStress &s : elements[i].stresses(at)) { // told along global X, Y
                Eigen::Matrix3d tensor = Eigen::Matrix3d::Zero();
                const Eigen::Matrix3d &r = elements[i].shape().axes();
                tensor.topLeftCorner<2, 2>() << s(0) + s(3), s(2) + s(5), s(2) + s(5), s(1) + s(4);
                const Eigen::Matrix3d g = r.transpose() * tensor * r;
                const ShellResult &w = state.stress;
                const double size = std::max(1e-3 * rigid, std::fabs(w.N11) + std::fabs(w.N12));
                EXPECT_NEAR(g(0, 0), w.N11 + w.M11, 1e-7 * size);
                EXPECT_NEAR(g(1, 1), w.N22 + w.M22, 1e-7 * size);
                EXPECT_NEAR(g(0, 1), w.N12 + w.M12, 1e-7 * size);
            }
        }
    }
}

// A hundred times the drilling stiffness, or a hundredth, moves nothing by 1e-4 of the greatest value.
TEST(ConsistentElement, DrillingStiffnessDoesNotShow) {
    HandTank t(2.0e6, 0.25);
    const int floor = t.panel(0, 0.3, 0.7), wall = t.panel(1, 0.2, 0.5);
    t.grid(floor, 4, 4, [](double s, double v) { return Vector3{4 * s + 0.3 * s * v, 4 * v, 0}; });
    t.grid(wall, 4, 3, [](double s, double v) { return Vector3{4 * s, 0, 3 * (1 - v)}; });
    t.tank.bedding = 2000;
    t.tank.liquidLevel = 2.5;
    t.tank.liquidDensity = 1;
    const CaseResult one = Analysis(t.tank).solve(kLiquid);
    for (const double factor : {0.01, 100.0}) {
        Options options;
        options.drillingFactor = factor;
        const CaseResult other = Analysis(t.tank, options).solve(kLiquid);
        double moment = 0, moved = 0, forces = 0, movedForces = 0;
        for (std::size_t i = 0; i < one.meshes.size(); ++i)
            for (std::size_t k = 0; k < 5; ++k) {
                const ShellResult &a = one.meshes[i][k], &b = other.meshes[i][k];
                moment = std::max({moment, std::fabs(a.M11), std::fabs(a.M22)});
                moved = std::max({moved, std::fabs(a.M11 - b.M11), std::fabs(a.M22 - b.M22), std::fabs(a.M12 - b.M12)});
                forces = std::max({forces, std::fabs(a.N11), std::fabs(a.N22)});
                movedForces = std::max({movedForces, std::fabs(a.N11 - b.N11), std::fabs(a.N22 - b.N22)});
            }
        EXPECT_LT(moved, 1e-4 * moment);
        EXPECT_LT(movedForces, 1e-4 * forces);
    }
}

TEST(ConsistentElement, ShapesThatAreNoElementAreRefused) {
    const auto make = [](const Corners &p) { ShellElement(p, kSection, "mesh 7"); };
    EXPECT_THROW(make({{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}}}), AnalysisFailure); // a line
    EXPECT_THROW(make({{{0, 0, 0}, {1, 0, 0}, {0, 0, 0}, {1, 0, 0}}}), AnalysisFailure);
    EXPECT_THROW(make({{{0, 0, 0}, {1, 1, 0}, {1, 0, 0}, {0, 1, 0}}}), AnalysisFailure);       // crossed
    EXPECT_THROW(make({{{0, 0, 0}, {1, 0, 0}, {0.05, 0.05, 0}, {0, 1, 0}}}), AnalysisFailure); // bent in
    try {
        make({{{0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 0, 0}}});
        FAIL();
    } catch (const AnalysisFailure &failure) {
        EXPECT_NE(std::string(failure.what()).find("mesh 7"), std::string::npos);
        EXPECT_NE(failure.turkish().find("mesh 7"), std::string::npos);
    }
}

} // namespace havuz::consistent
