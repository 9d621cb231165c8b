// The general quadrilateral's stiffness: rigid motions, exact energies, what is dropped.
#include "fea/quad_stiffness.h"
#include "fea/quad_stress.h"
#include "quad_support.h"
#include "support.h"

#include <gtest/gtest.h>
#include <tuple>
#include <utility>

namespace havuz {

static const Shape kShapes[] = {
    {{{0, 0}, {1.5, 0}, {1.5, 1}, {0, 1}}},      // rectangle
    {{{0, 0}, {2, 0}, {1.4, 1}, {0.3, 1}}},      // trapezoid
    {{{0, 0}, {2, 0.2}, {1.7, 1.3}, {-0.3, 1}}}, // general
    {{{0, 0}, {1, 3}, {0.2, 3.1}, {-2.5, 0.4}}}, // long, with a sharp corner
};

static int SizeOf(int triangles) { return triangles % 2 == 1 ? 18 : 24; } // three corners, or four

static double AreaOf(const Shape &s, int corners) {
    double area = 0.0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(corners); ++i) {
        const Point p = s[i], q = s[(i + 1) % static_cast<std::size_t>(corners)];
        area += (p.x * q.y - q.x * p.y) / 2;
    }
    return area;
}

// Displacements of the corners under a rigid motion: k = 0..2 along an axis, 3..5 about it.
static Corners24 RigidMotion(int k) {
    Corners24 u{};
    for (int n = 1; n <= 4; ++n) {
        const Vector3 axis{k % 3 == 0 ? 1.0 : 0.0, k % 3 == 1 ? 1.0 : 0.0, k % 3 == 2 ? 1.0 : 0.0};
        const Vector3 move = k < 3 ? axis : Cross(axis, QuadCorner[n]);
        const Vector3 turn = k < 3 ? Vector3{} : axis;
        const Six six{move.x, move.y, move.z, turn.x, turn.y, turn.z};
        std::copy(six.begin(), six.end(), u.begin() + 6 * (n - 1));
    }
    return u;
}

// The largest force of a rigid motion in units of the rounding of the product.
static double RigidForce(int k, int size) {
    const Corners24 u = RigidMotion(k);
    return Largest(Times(QuadK, u, size)) / (size * kEps * Largest(QuadK, size) * Largest(u));
}

// The stiffness of every shape in every plane by every cut into triangles.
static void ForEveryElement(double t, const std::function<void(const Shape &, const Plane &, int size)> &check) {
    for (const Shape &shape : kShapes)
        for (const Plane &plane : {kFlat, kWallX, Tilted()})
            for (int triangles = 1; triangles <= 4; ++triangles) {
                SCOPED_TRACE(triangles);
                PutQuad(shape, plane, t);
                QuadShellStiffness(triangles);
                check(shape, plane, SizeOf(triangles));
            }
}

TEST(QuadShellStiffness, RigidMotionsAreFreeOfForce) {
    ResetAll();
    ForEveryElement(0.2, [](const Shape &, const Plane &, int size) {
        for (int k = 0; k < 6; ++k)
            EXPECT_LT(RigidForce(k, size), 10.0) << k;
    });
    PutQuad(kShapes[2], kFlat, 0.2); // a warped element of flat triangles
    QuadCorner[3].z = 0.3;
    QuadShellStiffness(4);
    for (int k = 0; k < 6; ++k)
        EXPECT_LT(RigidForce(k, 24), 10.0) << k;
}

TEST(QuadShellStiffness, EnergiesOfConstantStrainAndCurvatureAreExact) {
    ResetAll();
    const double t = 0.2;
    ForEveryElement(t, [t](const Shape &shape, const Plane &plane, int size) {
        for (const ConstantState &state : kConstantStates) {
            SCOPED_TRACE(state.name);
            const Corners24 u = AtCorners(shape, plane, state.field), f = Times(QuadK, u, size);
            const Six stress = TimesMaterial(state.strain);
            double energy = 0.0, want = 0.0;
            for (std::size_t i = 0; i < static_cast<std::size_t>(size); ++i)
                energy += u[i] * f[i];
            for (std::size_t i = 0; i < 6; ++i)
                want += (i < 3 ? t : t * t * t / 12) * stress[i] * state.strain[i] * AreaOf(shape, size / 6);
            EXPECT_NEAR(energy, want, size * size * kEps * Largest(QuadK, size) * Largest(u) * Largest(u));
        }
    });
}

TEST(QuadShellStiffness, WeakFreedomsAreDroppedByTheirOwnDiagonal) {
    ResetAll();
    const Shape square{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
    const auto emptyRow = [](int g) {
        for (int j = 1; j <= 24; ++j)
            if (QuadK(g, j) != 0.0 || QuadK(j, g) != 0.0)
                return false;
        return true;
    };
    // uz of node 3 alone is dropped, wanted, once a level plate is thinner than a 2118th of its side; in a wall uz is
    // stiff.
    for (const auto &[t, plane, dropped] :
         {std::tuple{0.2, kFlat, false}, {0.00048, kFlat, false}, {0.00046, kFlat, true}, {0.00046, kWallX, false}}) {
        PutQuad(square, plane, t);
        QuadShellStiffness(4);
        EXPECT_EQ(emptyRow(15), dropped) << t;
        EXPECT_FALSE(emptyRow(3) || emptyRow(9) || emptyRow(21)) << t;
    }
    // The centre's rotation about the normal goes once the element is all but flat: turning it then meets a small
    // force.
    for (const Plane &plane : {kFlat, Tilted()})
        for (const auto &[warp, dropped] : {std::pair{0.01, false}, {0.001, true}}) {
            PutQuad(kShapes[2], plane, 0.2);
            QuadCorner[3] = QuadCorner[3] + warp * plane.n;
            QuadShellStiffness(4);
            EXPECT_EQ(RigidForce(5, 24) > 1e6, dropped) << warp << " " << RigidForce(5, 24);
        }
}

TEST(QuadShellStiffness, ElementsWithoutAreaAreDivisionByZero) {
    ResetAll();
    for (const Shape &shape : {Shape{{{0, 0}, {1, 0}, {1, 0}, {0, 0}}},           // two corners at one point, twice
                               Shape{{{0, 0}, {1, 0}, {2, 0}, {3, 0}}},           // on one line
                               Shape{{{0, 0}, {2, 0}, {1, 1}, {1, -1.0 / 3}}}}) { // the centre on side 1-2
        PutQuad(shape, kFlat, 0.2);
        const Failed failed = FailureOf([] { QuadShellStiffness(4); });
        EXPECT_TRUE(failed.failed && failed.kind == DivisionByZero) << failed.words;
    }
}

} // namespace havuz
