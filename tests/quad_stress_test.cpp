// The general quadrilateral's stress matrix: constant states, cubic deflections, the axes it uses, exchanged corners.
#include "fea/quad_stress.h"
#include "quad_support.h"
#include "support.h"

#include <gtest/gtest.h>

namespace havuz {

static const Shape kRectangle{{{0, 0}, {1.5, 0}, {1.5, 1}, {0, 1}}};
static const Shape kTrapezoid{{{0, 0}, {2, 0}, {1.4, 1}, {0.3, 1}}};
static const Shape kGeneral{{{0, 0}, {2, 0.2}, {1.7, 1.3}, {-0.3, 1}}};

static Matrix<24, 24> StressOf(const Shape &shape, const Plane &plane, double t, int points = 4) {
    PutQuad(shape, plane, t);
    Matrix<24, 24> S;
    QuadShellStress(S, 4, points);
    return S;
}

// What a state of constant strain and curvature gives in local axes x', y' of the element: 10*t times the stress, minus
// t^3/12 times the curvature's share. The axes are turned by the angle from the state's own axes.
static Six Want(const Six &strain, double t, double angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    const Six own = TimesMaterial(strain);
    Six want{};
    for (std::size_t g : {std::size_t{0}, std::size_t{3}}) {
        const double x = own[g], y = own[g + 1], xy = own[g + 2], f = g == 0 ? 10 * t : -t * t * t / 12;
        want[g] = f * (c * c * x + s * s * y + 2 * s * c * xy);
        want[g + 1] = f * (s * s * x + c * c * y - 2 * s * c * xy);
        want[g + 2] = f * (s * c * (y - x) + (c * c - s * s) * xy);
    }
    return want;
}

// All four corners of S show the constant states of the coordinates of `axes`; local axes turned from them by angle.
static void ExpectConstantStates(const Shape &shape, const Plane &axes, const Matrix<24, 24> &S, double t,
                                 double angle) {
    for (const ConstantState &state : kConstantStates) {
        SCOPED_TRACE(state.name);
        const Corners24 got = Times(S, AtCorners(shape, axes, state.field));
        const Six want = Want(state.strain, t, angle);
        for (std::size_t i = 0; i < 24; ++i)
            EXPECT_NEAR(got[i], want[i % 6], 24 * 24 * kEps * Largest(S)) << i;
    }
}

TEST(QuadShellStress, ConstantStatesInAxesTurnedTheOtherWay) {
    ResetAll();
    for (const Shape &shape : {kRectangle, kTrapezoid, kGeneral}) {
        const Matrix<24, 24> S = StressOf(shape, kFlat, 0.2);
        const double turn = std::atan2(QuadBasis(2, 1), QuadBasis(1, 1)); // of the element in its plane
        EXPECT_EQ(turn != 0.0, &shape != &kRectangle && shape[1].y != 0.0);
        ExpectConstantStates(shape, kFlat, S, 0.2, -turn); // wanted: not +turn
    }
}

TEST(QuadShellStress, CubicDeflectionsAtEveryPoint) {
    ResetAll();
    const double t = 0.3, f = -t * t * t / 12;
    const auto cubic = [](Point p) { // w = x^3 + x*y^3
        return Six{
            0, 0, p.x * p.x * p.x + p.x * p.y * p.y * p.y, 3 * p.x * p.y * p.y, -(3 * p.x * p.x + p.y * p.y * p.y), 0};
    };
    for (int points : {1, 4}) {
        const Matrix<24, 24> S = StressOf(kTrapezoid, kFlat, t, points);
        const Corners24 got = Times(S, AtCorners(kTrapezoid, kFlat, cubic));
        for (std::size_t n = 0; n < 4; ++n) {
            const Point p = points == 4 ? kTrapezoid[n] : Point{(2 + 1.4 + 0.3) / 4, (0 + 1 + 1.0) / 4};
            const Six moment = TimesMaterial({0, 0, 0, 6 * p.x, 6 * p.x * p.y, 2 * 3 * p.y * p.y});
            for (std::size_t r = 3; r < 6; ++r)
                EXPECT_NEAR(got[6 * n + r], n == 0 || points == 4 ? f * moment[r] : 0.0, 1e-11 * Largest(S)) << n;
        }
    }
}

// A wall in the plane of X and Z is seen in the axes X, -Z, Y; one in the plane of Y and Z has no area in the axes
// taken from its corners in order and is seen with corners 2 and 4 exchanged, in the axes -Z, Y, X.
TEST(QuadShellStress, WallsAlongTheAxes) {
    ResetAll();
    const Plane seenInXZ{{0, 0, 0}, {1, 0, 0}, {0, 0, -1}, {0, 1, 0}};
    const Shape inXZ{{{0, 0}, {2, 0}, {2, -1}, {0, -1}}}; // up is -y'
    ExpectConstantStates(inXZ, seenInXZ, StressOf(inXZ, seenInXZ, 0.2), 0.2, 0.0);

    const Plane seenInYZ{{0, 0, 0}, {0, 0, -1}, {0, 1, 0}, {1, 0, 0}};
    const Shape inYZ{{{0, 0}, {0, 2}, {-1, 2}, {-1, 0}}};
    const Shape crossed{{{0, 0}, {1.5, 2}, {-0.5, 1}, {1, 1}}}; // side 1-2 cuts side 3-4
    for (const Shape &shape : {inYZ, crossed}) {
        const Matrix<24, 24> S = StressOf(shape, seenInYZ, 0.2);
        ExpectConstantStates(shape, seenInYZ, S, 0.2, 0.0);
        for (int n : {2, 4}) // the corners are back in their places
            EXPECT_EQ(QuadCorner[n].y, shape[static_cast<std::size_t>(n - 1)].y) << n;
    }
}

TEST(QuadShellStress, ElementsWithoutLocalAreaFailInWords) {
    ResetAll();
    const double h = std::sqrt(2.0); // a square on its corner in the plane x = y
    const Plane upright{{0, 0, 0}, {1, 1, 0}, {0, 0, 1}, {1, -1, 0}};
    const Failed failed = FailureOf([&] { StressOf({{{0, 0}, {1, h}, {0, 2 * h}, {-1, h}}}, upright, 0.2); });
    EXPECT_EQ(failed.kind, DivisionByZero);
    EXPECT_EQ(failed.words, "QuadShellStress: the corners span no local area in either order");
    const Failed line = FailureOf([] { StressOf({{{0, 0}, {1, 0}, {2, 0}, {3, 0}}}, kFlat, 0.2); });
    EXPECT_EQ(line.words, "QuadBasis: division by zero");
}

} // namespace havuz
