// The rectangular shell element against its own polynomials: stiffness integrated by Gauss quadrature (exact for the
// degrees that occur), stresses by the derivatives of the interpolated polynomial.
#include "element_support.h"
#include "fea/rect_shell.h"
#include "model/points.h"
#include "support.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace havuz {

namespace {

struct Section {
    double a, b, E, v, t;
};
const Section kSections[] = {{1, 1, 3e6, 0.25, 0.1}, {2.5, 0.7, 2.85e6, 0.25, 0.3}, {0.4, 3.0, 1.0, 0.0, 1.0}};

using Matrix6 = Eigen::Matrix<double, 6, 6>;
using Matrix24 = Eigen::Matrix<double, 24, 24>;
constexpr std::array<std::array<int, 2>, 12> kPlate = {
    {{0, 0}, {1, 0}, {0, 1}, {2, 0}, {1, 1}, {0, 2}, {3, 0}, {2, 1}, {1, 2}, {0, 3}, {3, 1}, {1, 3}}};
constexpr std::array<std::array<int, 2>, 4> kMembrane = {{{0, 0}, {1, 0}, {0, 1}, {1, 1}}};

// Terms x^p * y^q of a polynomial, differentiated dx times by x and dy times by y.
template <std::size_t N>
Eigen::Matrix<double, 1, static_cast<int>(N)> Terms(const std::array<std::array<int, 2>, N> &powers, PlanPoint at,
                                                    int dx, int dy) {
    const auto power = [](double x, int e, int d) {
        double value = 1.0;
        for (int k = 0; k < d; ++k)
            value *= e - k;
        return e < d ? 0.0 : value * std::pow(x, e - d);
    };
    Eigen::Matrix<double, 1, static_cast<int>(N)> row;
    for (std::size_t i = 0; i < N; ++i)
        row(static_cast<Eigen::Index>(i)) = power(at.x, powers[i][0], dx) * power(at.y, powers[i][1], dy);
    return row;
}

std::array<PlanPoint, 4> CornersOf(const Section &s) { return {{{0, 0}, {s.a, 0}, {s.a, s.b}, {0, s.b}}}; }

// From local displacements (u, v, w, -dw/dy, dw/dx, drilling of each corner) to ex, ey, gxy, w,xx, w,yy, 2*w,xy at a
// point.
Eigen::Matrix<double, 6, 24> Strains(const Section &s, PlanPoint at) {
    Eigen::Matrix<double, 12, 12> plate;
    Eigen::Matrix4d membrane;
    for (Eigen::Index n = 0; n < 4; ++n) {
        const PlanPoint corner = CornersOf(s)[static_cast<std::size_t>(n)];
        membrane.row(n) = Terms(kMembrane, corner, 0, 0);
        plate.middleRows<3>(3 * n) << Terms(kPlate, corner, 0, 0), -Terms(kPlate, corner, 0, 1),
            Terms(kPlate, corner, 1, 0);
    }
    Eigen::Matrix<double, 2, 4> slope;
    Eigen::Matrix<double, 3, 12> curvature;
    slope << Terms(kMembrane, at, 1, 0), Terms(kMembrane, at, 0, 1);
    curvature << Terms(kPlate, at, 2, 0), Terms(kPlate, at, 0, 2), 2 * Terms(kPlate, at, 1, 1);
    slope = slope * membrane.inverse();
    curvature = curvature * plate.inverse();
    Eigen::Matrix<double, 6, 24> B = decltype(B)::Zero();
    for (Eigen::Index n = 0; n < 4; ++n) {
        B(0, 6 * n) = B(2, 6 * n + 1) = slope(0, n);
        B(1, 6 * n + 1) = B(2, 6 * n) = slope(1, n);
        B.block<3, 3>(3, 6 * n + 2) = curvature.middleCols<3>(3 * n);
    }
    return B;
}

Matrix6 Elasticity(const Section &s) {
    const Eigen::Matrix3d plane{{1, s.v, 0}, {s.v, 1, 0}, {0, 0, (1 - s.v) / 2}};
    Matrix6 D = Matrix6::Zero();
    D.topLeftCorner<3, 3>() = s.E * s.t / (1 - s.v * s.v) * plane;
    D.bottomRightCorner<3, 3>() = s.E * s.t * s.t * s.t / (12 * (1 - s.v * s.v)) * plane;
    return D;
}

// Integral of B^T*D*B by 4 by 4 Gauss points, exact to degree 7.
Matrix24 GaussStiffness(const Section &s) {
    const std::pair<double, double> points[] = {{-0.861136311594052575, 0.347854845137453857},
                                                {-0.339981043584856265, 0.652145154862546143},
                                                {0.339981043584856265, 0.652145154862546143},
                                                {0.861136311594052575, 0.347854845137453857}};
    Matrix24 K = Matrix24::Zero();
    for (const auto &[x, wx] : points)
        for (const auto &[y, wy] : points) {
            const Eigen::Matrix<double, 6, 24> B = Strains(s, {s.a / 2 * (1 + x), s.b / 2 * (1 + y)});
            K += wx * wy * s.a * s.b / 4 * B.transpose() * Elasticity(s) * B;
        }
    return K;
}

} // namespace

TEST(RectShell, StiffnessIsTheIntegralOfItsPolynomials) {
    for (const Section &s : kSections) {
        Matrix<24, 24> K;
        RectShellStiffness(K, s.a, s.b, s.E, s.v, s.t);
        Matrix24 exact = GaussStiffness(s);
        const double greatest = Largest(exact);
        for (Eigen::Index n = 5; n < 24; n += 6)
            exact(n, n) += 0.000001; // the token drilling stiffness
        EXPECT_LT(Largest(Cells(K) - exact), 1e-12 * greatest) << s.a << " by " << s.b;
        EXPECT_EQ(Cells(K), Cells(K).transpose());
    }
}

TEST(RectShell, StressesAreThoseOfTheInterpolatedPolynomials) {
    for (const Section &s : kSections) {
        Matrix<24, 24> S;
        RectShellStress(S, s.a, s.b, s.E, s.v, s.t);
        const double scale = s.E / std::min(1.0, std::min(s.a, s.b)) / std::min(s.a, s.b) * 10;
        Eigen::Matrix<double, 6, 1> sign; // stresses, not forces; Mxy without the turned sign
        sign << 1 / s.t, 1 / s.t, 1 / s.t, -1, -1, 1;
        for (Eigen::Index n = 0; n < 4; ++n) {
            const Eigen::MatrixXd want =
                sign.asDiagonal() * Elasticity(s) * Strains(s, CornersOf(s)[static_cast<std::size_t>(n)]);
            EXPECT_LT(Largest(Cells(S).middleRows<6>(6 * n) - want), 1e-13 * scale)
                << s.a << " by " << s.b << ", " << n;
        }
    }
}

TEST(RectShell, ASideWithoutLengthFails) {
    Matrix<24, 24> K;
    EXPECT_EQ(FailureOf([&] { RectShellStiffness(K, 0, 1, 1, 0.25, 1); }).kind, DivisionByZero);
    EXPECT_EQ(FailureOf([&] { RectShellStress(K, 1, 0, 1, 0.25, 1); }).kind, DivisionByZero);
}

} // namespace havuz
