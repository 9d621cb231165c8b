// The general quadrilateral by itself: its bending triangle, rigid motions and exact energies of its stiffness, what is
// dropped, the constant states and the axes of its stress matrix, the inverse that it takes.
#include "element_support.h"
#include "fea/matrix_invert.h"
#include "fea/plane_stress.h"
#include "fea/quad_stiffness.h"
#include "fea/quad_stress.h"
#include "fea/quad_work.h"
#include "fea/triangle_bending.h"
#include "support.h"

#include <functional>
#include <gtest/gtest.h>

namespace havuz {

namespace {

using Six = Eigen::Matrix<double, 6, 1>; // u, v, w and the rotations, or three strains and three curvatures
using Vector24 = Eigen::Matrix<double, 24, 1>;
using Shape = std::array<PlanPoint, 4>;
using Field = std::function<Six(PlanPoint)>;

const Shape kRectangle{{{0, 0}, {1.5, 0}, {1.5, 1}, {0, 1}}};
const Shape kTrapezoid{{{0, 0}, {2, 0}, {1.4, 1}, {0.3, 1}}};
const Shape kGeneral{{{0, 0}, {2, 0.2}, {1.7, 1.3}, {-0.3, 1}}};
const Shape kSharp{{{0, 0}, {1, 3}, {0.2, 3.1}, {-2.5, 0.4}}}; // and long
const Shape kInYZ{{{0, 0}, {0, 2}, {-1, 2}, {-1, 0}}};
const Shape kLine{{{0, 0}, {1, 0}, {2, 0}, {3, 0}}};

using Plane = Eigen::Affine3d; // from the plane's own coordinates to space
const Plane kLevel = Plane::Identity();
const Plane kWall(Eigen::Matrix3d{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}});
const Plane kSeenInXZ(Eigen::Matrix3d{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}});
const Plane kSeenInYZ(Eigen::Matrix3d{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}});
const Plane kTilted = Eigen::Translation3d(3, -2, 1) * Eigen::AngleAxisd(2.1, Eigen::Vector3d(2, -1, 0.5).normalized());

Vector3 Place(const Plane &plane, PlanPoint p, double above = 0.0) {
    const Eigen::Vector3d at = plane * Eigen::Vector3d(p.x, p.y, above);
    return {at.x(), at.y(), at.z()};
}

void PutQuad(const Shape &shape, const Plane &plane, double t) {
    for (int n = 1; n <= 4; ++n)
        QuadCorner[n] = Place(plane, shape[static_cast<std::size_t>(n - 1)]);
    for (int i = 1; i <= 3; ++i)
        TriThickness[i] = t * (0.75 + 0.125 * i); // t is their mean
    FillPlaneD(3000000.0, 0.25);
}

// A field of the plane's own coordinates at the corners, in global axes.
Vector24 AtCorners(const Shape &shape, const Plane &plane, const Field &field) {
    Vector24 u;
    for (Eigen::Index n = 0; n < 4; ++n) {
        const Six own = field(shape[static_cast<std::size_t>(n)]);
        u.segment<6>(6 * n) << plane.linear() * own.head<3>(), plane.linear() * own.tail<3>();
    }
    return u;
}

// The field of a unit of the strains ex, ey, exy (k = 0, 1, 2) or the curvatures w,xx, w,yy, 2*w,xy (3, 4, 5); its
// rotations are right-handed: rx = dw/dy, ry = -dw/dx.
Field ConstantField(int k) {
    return [s = Six(Six::Unit(k))](PlanPoint p) {
        return Six{s(0) * p.x + s(2) * p.y,
                   s(1) * p.y,
                   (s(3) * p.x * p.x + s(4) * p.y * p.y + s(5) * p.x * p.y) / 2,
                   s(4) * p.y + s(5) * p.x / 2,
                   -s(3) * p.x - s(5) * p.y / 2,
                   0};
    };
}

// Forces t * PlaneD * strains, then moments t^3/12 * PlaneD * curvatures.
Six Section(const Six &strain, double t) {
    Six s;
    s << t * Cells(PlaneD) * strain.head<3>(), t * t * t / 12 * Cells(PlaneD) * strain.tail<3>();
    return s;
}

} // namespace

// The energy of u(k) = sin(k), k = 1..9. The figures are those of the cubic plate triangle of three sub-triangles with
// continuous slopes and linear normal slopes on its sides, from the thirty conditions of docs/quad-element.md, solved
// as equations.
TEST(TriangleBending, HasTheEnergyOfTheCompatibleTriangle) {
    for (const auto &[shape, energy] : {std::pair{Shape{{{0, 0}, {2, 0.3}, {0.7, 1.9}, {}}}, 23220.08979168138},
                                        {Shape{{{0, 0}, {1, 0}, {0, 1}, {}}}, 184150.79396761756},
                                        {Shape{{{-1, 4}, {0, 0.5}, {0.1, 3}, {}}}, 27740.7509378166}}) {
        PutQuad(shape, kTilted, 0.2);
        QuadBasisBuild(1);
        TriangleBasis(1, 2, 3);
        TriangleBending();
        const Eigen::VectorXd u = Eigen::VectorXd::LinSpaced(9, 1, 9).array().sin();
        EXPECT_NEAR(u.dot(Cells(TriK).topLeftCorner<9, 9>() * u) / energy, 1.0, 1e-12) << energy;
    }
}

namespace {

// The largest force of a rigid motion, along an axis (k = 0, 1, 2) or about it (3, 4, 5), in units of the rounding of
// the product.
double RigidForce(int k, Eigen::Index size) {
    Vector24 u;
    const Eigen::Vector3d axis = Eigen::Vector3d::Unit(k % 3), none = Eigen::Vector3d::Zero();
    for (int n = 1; n <= 4; ++n) {
        const Eigen::Vector3d place(QuadCorner[n].x, QuadCorner[n].y, QuadCorner[n].z);
        u.segment<6>(6 * n - 6) << (k < 3 ? axis : axis.cross(place)), (k < 3 ? none : axis);
    }
    const auto K = Cells(QuadK).topLeftCorner(size, size);
    return Largest(K * u.head(size)) / (static_cast<double>(size) * kEps * Largest(K) * Largest(u.head(size)));
}

bool EmptyRow(Eigen::Index freedom) {
    return Cells(QuadK).row(freedom - 1).isZero(0) && Cells(QuadK).col(freedom - 1).isZero(0);
}

} // namespace

TEST(QuadShellStiffness, ConstantStatesHaveTheirEnergyAndRigidMotionsNoForce) {
    const struct {
        Shape shape;
        double triangle, whole; // areas of the corners 1, 2, 3 and of all four
    } shapes[] = {{kRectangle, 0.75, 1.5}, {kTrapezoid, 1.0, 1.55}, {kGeneral, 1.13, 2.175}, {kSharp, 1.25, 5.165}};
    const double t = 0.2;
    for (const auto &[shape, triangle, whole] : shapes)
        for (const Plane &plane : {kLevel, kWall, kTilted})
            for (const int triangles : {1, 2, 3, 4}) {
                PutQuad(shape, plane, t);
                QuadShellStiffness(triangles);
                const Eigen::Index size = triangles % 2 == 1 ? 18 : 24; // three corners, or four
                const auto K = Cells(QuadK).topLeftCorner(size, size);
                for (int k = 0; k < 6; ++k) {
                    const Eigen::VectorXd u = AtCorners(shape, plane, ConstantField(k)).head(size);
                    const double want = (size == 18 ? triangle : whole) * Section(Six::Unit(k), t)(k);
                    const double unit = static_cast<double>(size * size) * kEps * Largest(K);
                    EXPECT_NEAR(u.dot(K * u), want, unit * Largest(u) * Largest(u)) << triangles << " state " << k;
                    EXPECT_LT(RigidForce(k, size), 10.0) << triangles << " motion " << k;
                }
            }
    PutQuad(kGeneral, kLevel, t); // a warped element of flat triangles
    QuadCorner[3].z += 0.3;
    QuadShellStiffness(4);
    for (int k = 0; k < 6; ++k)
        EXPECT_LT(RigidForce(k, 24), 10.0) << k;
}

TEST(QuadShellStiffness, WeakFreedomsAreDroppedByTheirOwnDiagonal) {
    // uz of node 3 alone is dropped, wanted, once a level plate is thinner than a 2118th of its side; in a wall uz is
    // stiff.
    for (const auto &[t, plane, dropped] :
         {std::tuple{0.2, kLevel, false}, {0.00048, kLevel, false}, {0.00046, kLevel, true}, {0.00046, kWall, false}}) {
        PutQuad({{{0, 0}, {1, 0}, {1, 1}, {0, 1}}}, plane, t);
        QuadShellStiffness(4);
        EXPECT_EQ(EmptyRow(15), dropped) << t;
        EXPECT_FALSE(EmptyRow(3) || EmptyRow(9) || EmptyRow(21)) << t;
    }
    // The centre's rotation about the normal goes once the element is all but flat: turning it then meets a small
    // force.
    for (const Plane &plane : {kLevel, kTilted})
        for (const auto &[warp, dropped] : {std::pair{0.01, false}, {0.001, true}}) {
            PutQuad(kGeneral, plane, 0.2);
            QuadCorner[3] = Place(plane, kGeneral[2], warp);
            QuadShellStiffness(4);
            EXPECT_EQ(RigidForce(5, 24) > 1e6, dropped) << warp << " " << RigidForce(5, 24);
        }
}

namespace {

Matrix<24, 24> StressOf(const Shape &shape, const Plane &plane, double t, int points = 4) {
    PutQuad(shape, plane, t);
    Matrix<24, 24> S;
    QuadShellStress(S, 4, points);
    return S;
}

} // namespace

// A level element turned by f is seen in axes turned by -f: wanted. A wall in the plane of X and Z is seen in the axes
// X, -Z, Y; one in the plane of Y and Z has no area in the axes taken from its corners in order and is seen with
// corners 2 and 4 exchanged, in the axes -Z, Y, X.
TEST(QuadShellStress, ConstantStatesInTheAxesItUses) {
    const double t = 0.2;
    const struct {
        Shape shape;
        Plane seen;
        double turn;
    } cases[] = {{kRectangle, kLevel, 0},
                 {kTrapezoid, kLevel, 0},
                 {kGeneral, kLevel, std::atan2(0.5, 4.0)}, // axis 1 lies along P2 + P3 - P4 - P1
                 {{{{0, 0}, {2, 0}, {2, -1}, {0, -1}}}, kSeenInXZ, 0},
                 {kInYZ, kSeenInYZ, 0},
                 {{{{0, 0}, {1.5, 2}, {-0.5, 1}, {1, 1}}}, kSeenInYZ, 0}}; // side 1-2 cuts side 3-4
    for (const auto &[shape, seen, turn] : cases)
        for (int k = 0; k < 6; ++k) {
            const Matrix<24, 24> S = StressOf(shape, seen, t);
            for (const int n : {2, 4}) // exchanged corners are back in their places
                EXPECT_EQ(QuadCorner[n].y, Place(seen, shape[static_cast<std::size_t>(n - 1)]).y) << n;
            const Vector24 got = Cells(S) * AtCorners(shape, seen, ConstantField(k));
            const Six own = Section(Six::Unit(k), t);
            const Eigen::Matrix2d axes = Eigen::Rotation2Dd(-turn).matrix();
            for (const Eigen::Index g : {0, 3}) { // 10 times the forces, minus the moments
                const Eigen::Matrix2d tensor{{own(g), own(g + 2)}, {own(g + 2), own(g + 1)}};
                const Eigen::Matrix2d local = (g == 0 ? 10 : -1) * axes.transpose() * tensor * axes;
                for (Eigen::Index n = 0; n < 4; ++n)
                    EXPECT_LT(
                        Largest(got.segment<3>(6 * n + g) - Eigen::Vector3d(local(0, 0), local(1, 1), local(0, 1))),
                        24 * 24 * kEps * Largest(Cells(S)))
                        << "shape " << &shape - &cases[0].shape << " state " << k;
            }
        }
}

TEST(QuadShellStress, CubicDeflectionsAtEveryPoint) {
    const Field cubic = [](PlanPoint p) { // w = x^3 + x*y^3
        const double y3 = p.y * p.y * p.y;
        return Six{0, 0, p.x * p.x * p.x + p.x * y3, 3 * p.x * p.y * p.y, -(3 * p.x * p.x + y3), 0};
    };
    for (const auto &[shape, plane, points] :
         {std::tuple{kTrapezoid, kLevel, 1}, {kTrapezoid, kLevel, 4}, {kInYZ, kSeenInYZ, 4}}) {
        const Matrix<24, 24> S = StressOf(shape, plane, 0.3, points);
        const Vector24 got = Cells(S) * AtCorners(shape, plane, cubic);
        for (std::size_t n = 0; n < 4; ++n) {
            const PlanPoint p = points == 4 ? shape[n] : PlanPoint{(2 + 1.4 + 0.3) / 4, (1 + 1.0) / 4};
            Six want = Section(Six{0, 0, 0, 6 * p.x, 6 * p.x * p.y, 2 * 3 * p.y * p.y}, -0.3);
            if (n > 0 && points == 1)
                want.setZero();
            const auto moments = got.segment<3>(static_cast<Eigen::Index>(6 * n + 3));
            EXPECT_LT(Largest(moments - want.tail<3>()), 1e-11 * Largest(Cells(S))) << n;
        }
    }
}

TEST(QuadShell, ElementsWithoutAreaAreDivisionByZero) {
    const double h = std::sqrt(2.0);
    const Plane upright(Eigen::Matrix3d{{1, 0, 1}, {1, 0, -1}, {0, 1, 0}});
    const auto stress = [](const Shape &shape, const Plane &plane) {
        return FailureOf([&] { StressOf(shape, plane, 0.2); });
    };
    const auto stiffness = [](const Shape &shape) {
        PutQuad(shape, kLevel, 0.2);
        return FailureOf([] { QuadShellStiffness(4); });
    };
    Eigen::Matrix3d singular{{1, 2, 3}, {2, 4, 6}, {1, 0, 0}};
    const struct {
        Failed failed;
        std::string words;
    } cases[] = {
        {stiffness({{{0, 0}, {1, 0}, {1, 0}, {0, 0}}}),
         "QuadBasis: division by zero"}, // two corners at one point, twice
        {stiffness(kLine), "QuadBasis: division by zero"},
        {stiffness({{{0, 0}, {2, 0}, {1, 1}, {1, -1.0 / 3}}}), "TriAxes: division by zero"}, // the centre on side 1-2
        {stress(kLine, kLevel), "QuadBasis: division by zero"},
        {stress({{{0, 0}, {1, h}, {0, 2 * h}, {-1, h}}}, upright), // a square on its corner in the plane x = y
         "QuadShellStress: the corners span no local area in either order"},
        {FailureOf([&] { MatrixInvert(singular.data(), 3); }), "MatrixInvert: division by zero"},
    };
    for (const auto &[failed, words] : cases) {
        EXPECT_TRUE(failed.failed && failed.kind == DivisionByZero) << words;
        EXPECT_EQ(failed.words, words);
    }
}

TEST(MatrixInvert, AmongEqualsTheLastOneFoundIsThePivot) {
    const double d = 3.0, p = 0.1, q = 0.7;
    Eigen::Matrix2d a{{d, p}, {q, d}};
    MatrixInvert(a.data(), 2);
    const double last = 1.0 / (d - p * (q / d));                             // pivot (2, 2) first
    const double first = 1.0 / d - (p / d) * ((-q / d) / (d - q * (p / d))); // pivot (1, 1) first
    ASSERT_NE(last, first);
    EXPECT_EQ(a(0, 0), last);
}

} // namespace havuz
