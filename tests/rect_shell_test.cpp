// The rectangular shell element against its own polynomials: stiffness integrated by Gauss quadrature (exact for the
// degrees that occur), stresses by the derivatives of the interpolated polynomial, rigid modes, constant states.
#include "fea/rect_shell.h"
#include "support.h"

#include <array>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace havuz {

namespace {

using Vector = std::vector<double>;
using Dense = std::vector<Vector>;

// Solves A*X = B by Gauss elimination with row exchange.
Dense Solve(Dense a, Dense b) {
    const std::size_t n = a.size();
    for (std::size_t i = 0; i < n; ++i) {
        std::size_t pivot = i;
        for (std::size_t r = i; r < n; ++r)
            if (std::fabs(a[r][i]) > std::fabs(a[pivot][i]))
                pivot = r;
        std::swap(a[i], a[pivot]);
        std::swap(b[i], b[pivot]);
        for (std::size_t r = 0; r < n; ++r) {
            if (r == i)
                continue;
            const double f = a[r][i] / a[i][i];
            for (std::size_t c = 0; c < n; ++c)
                a[r][c] -= f * a[i][c];
            for (double &cell : b[r])
                cell -= f * b[i][static_cast<std::size_t>(&cell - b[r].data())];
        }
    }
    for (std::size_t i = 0; i < n; ++i)
        for (double &cell : b[i])
            cell /= a[i][i];
    return b;
}

// The polynomial terms and their derivatives, x to the power p and y to the power q.
constexpr std::array<std::array<int, 2>, 12> kPlate = {
    {{0, 0}, {1, 0}, {0, 1}, {2, 0}, {1, 1}, {0, 2}, {3, 0}, {2, 1}, {1, 2}, {0, 3}, {3, 1}, {1, 3}}};
constexpr std::array<std::array<int, 2>, 4> kMembrane = {{{0, 0}, {1, 0}, {0, 1}, {1, 1}}};

double Term(const std::array<int, 2> &pq, double x, double y, int dx, int dy) {
    const auto power = [](double v, int p, int d) {
        double f = 1.0;
        for (int k = 0; k < d; ++k)
            f *= p - k;
        return p < d ? 0.0 : f * std::pow(v, p - d);
    };
    return power(x, pq[0], dx) * power(y, pq[1], dy);
}

struct Section {
    double a, b, E, v, t;
};

constexpr double kCorner[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};

// Coefficients of the interpolating polynomials, a column for each nodal value.
Dense PlateCoefficients(const Section &s) {
    Dense rows;
    for (const auto &c : kCorner) {
        Vector w, rx, ry;
        for (const auto &pq : kPlate) {
            w.push_back(Term(pq, c[0] * s.a, c[1] * s.b, 0, 0));
            rx.push_back(-Term(pq, c[0] * s.a, c[1] * s.b, 0, 1));
            ry.push_back(Term(pq, c[0] * s.a, c[1] * s.b, 1, 0));
        }
        rows.insert(rows.end(), {w, rx, ry});
    }
    Dense unit(12, Vector(12, 0.0));
    for (std::size_t i = 0; i < 12; ++i)
        unit[i][i] = 1.0;
    return Solve(rows, unit);
}

Dense MembraneCoefficients(const Section &s) {
    Dense rows, unit(4, Vector(4, 0.0));
    for (const auto &c : kCorner) {
        Vector n;
        for (const auto &pq : kMembrane)
            n.push_back(Term(pq, c[0] * s.a, c[1] * s.b, 0, 0));
        rows.push_back(n);
    }
    for (std::size_t i = 0; i < 4; ++i)
        unit[i][i] = 1.0;
    return Solve(rows, unit);
}

// The 6 by 24 matrix from local displacements to ex, ey, gxy, w,xx, w,yy, 2*w,xy at a point.
Dense Strains(const Section &s, double x, double y) {
    static Section known{};
    static Dense plate, membrane;
    if (plate.empty() || known.a != s.a || known.b != s.b) {
        known = s;
        plate = PlateCoefficients(s);
        membrane = MembraneCoefficients(s);
    }
    Dense B(6, Vector(24, 0.0));
    for (std::size_t node = 0; node < 4; ++node) {
        for (std::size_t term = 0; term < 4; ++term) {
            const double c = membrane[term][node];
            B[0][6 * node] += c * Term(kMembrane[term], x, y, 1, 0);
            B[1][6 * node + 1] += c * Term(kMembrane[term], x, y, 0, 1);
            B[2][6 * node] += c * Term(kMembrane[term], x, y, 0, 1);
            B[2][6 * node + 1] += c * Term(kMembrane[term], x, y, 1, 0);
        }
        for (std::size_t dof = 0; dof < 3; ++dof)
            for (std::size_t term = 0; term < 12; ++term) {
                const double c = plate[term][3 * node + dof];
                B[3][6 * node + 2 + dof] += c * Term(kPlate[term], x, y, 2, 0);
                B[4][6 * node + 2 + dof] += c * Term(kPlate[term], x, y, 0, 2);
                B[5][6 * node + 2 + dof] += 2.0 * c * Term(kPlate[term], x, y, 1, 1);
            }
    }
    return B;
}

Dense Elasticity(const Section &s) {
    const double c = s.E * s.t / (1 - s.v * s.v);
    const double d = s.E * s.t * s.t * s.t / (12 * (1 - s.v * s.v));
    const double shear = (1 - s.v) / 2;
    return {{c, s.v * c, 0, 0, 0, 0}, {s.v * c, c, 0, 0, 0, 0}, {0, 0, shear * c, 0, 0, 0},
            {0, 0, 0, d, s.v * d, 0}, {0, 0, 0, s.v * d, d, 0}, {0, 0, 0, 0, 0, shear * d}};
}

// Integral of B^T*D*B by 4 by 4 Gauss points, exact to degree 7.
Dense GaussStiffness(const Section &s) {
    const double place[] = {0.861136311594052575, 0.339981043584856265};
    const double weight[] = {0.347854845137453857, 0.652145154862546143};
    Dense K(24, Vector(24, 0.0));
    const Dense D = Elasticity(s);
    for (int gx = 0; gx < 4; ++gx)
        for (int gy = 0; gy < 4; ++gy) {
            const double x = s.a / 2 * (1 + (gx < 2 ? -1 : 1) * place[gx % 2]);
            const double y = s.b / 2 * (1 + (gy < 2 ? -1 : 1) * place[gy % 2]);
            const double w = weight[gx % 2] * weight[gy % 2] * s.a * s.b / 4;
            const Dense B = Strains(s, x, y);
            for (std::size_t i = 0; i < 24; ++i)
                for (std::size_t j = 0; j < 24; ++j)
                    for (std::size_t p = 0; p < 6; ++p)
                        for (std::size_t q = 0; q < 6; ++q)
                            K[i][j] += w * B[p][i] * D[p][q] * B[q][j];
        }
    return K;
}

const Section kSections[] = {{1, 1, 3e6, 0.25, 0.1}, {2.5, 0.7, 2.85e6, 0.25, 0.3}, {0.4, 3.0, 1.0, 0.0, 1.0}};

// Nodal values of a displacement field: u, v, w, -dw/dy, dw/dx, drilling.
using Field = std::function<std::array<double, 6>(double x, double y)>;

Vector Nodal(const Section &s, const Field &field) {
    Vector values;
    for (const auto &c : kCorner)
        for (const double value : field(c[0] * s.a, c[1] * s.b))
            values.push_back(value);
    return values;
}

Vector Apply(const Matrix<24, 24> &M, const Vector &v) {
    Vector product(24, 0.0);
    for (int i = 1; i <= 24; ++i)
        for (int j = 1; j <= 24; ++j)
            product[static_cast<std::size_t>(i - 1)] += M(i, j) * v[static_cast<std::size_t>(j - 1)];
    return product;
}

} // namespace

TEST(RectShell, StiffnessIsTheIntegralOfItsPolynomials) {
    for (const Section &s : kSections) {
        Matrix<24, 24> K;
        RectShellStiffness(K, s.a, s.b, s.E, s.v, s.t);
        const Dense exact = GaussStiffness(s);
        double greatest = 0.0;
        for (const Vector &row : exact)
            for (const double cell : row)
                greatest = std::max(greatest, std::fabs(cell));
        for (int i = 1; i <= 24; ++i)
            for (int j = 1; j <= 24; ++j) {
                const double token = i == j && i % 6 == 0 ? 0.000001 : 0.0;
                EXPECT_NEAR(K(i, j), exact[static_cast<std::size_t>(i - 1)][static_cast<std::size_t>(j - 1)] + token,
                            1e-12 * greatest)
                    << i << "," << j;
                EXPECT_EQ(K(i, j), K(j, i));
            }
    }
}

TEST(RectShell, StressesAreThoseOfTheInterpolatedPolynomials) {
    for (const Section &s : kSections) {
        Matrix<24, 24> S;
        RectShellStress(S, s.a, s.b, s.E, s.v, s.t);
        const Dense D = Elasticity(s);
        for (std::size_t corner = 0; corner < 4; ++corner) {
            const Dense B = Strains(s, kCorner[corner][0] * s.a, kCorner[corner][1] * s.b);
            for (std::size_t r = 0; r < 6; ++r)
                for (std::size_t j = 0; j < 24; ++j) {
                    double value = 0.0;
                    for (std::size_t q = 0; q < 6; ++q)
                        value += D[r][q] * B[q][j];
                    value *= r < 3 ? 1.0 / s.t : r == 5 ? 1.0 : -1.0; // stress; Mxy without the turned sign
                    const double scale = s.E / std::min(1.0, std::min(s.a, s.b)) / std::min(s.a, s.b) * 10;
                    EXPECT_NEAR(S(static_cast<int>(6 * corner + r + 1), static_cast<int>(j + 1)), value, 1e-13 * scale);
                }
        }
    }
}

TEST(RectShell, ConstantStatesAreExact) {
    const Section s = kSections[1];
    Matrix<24, 24> S;
    RectShellStress(S, s.a, s.b, s.E, s.v, s.t);
    const Vector stretch = Apply(S, Nodal(s, [](double x, double) { return std::array<double, 6>{x, 0, 0, 0, 0, 0}; }));
    const Vector bend =
        Apply(S, Nodal(s, [](double x, double) { return std::array<double, 6>{0, 0, x * x / 2, 0, x, 0}; }));
    const Vector twist =
        Apply(S, Nodal(s, [](double x, double y) { return std::array<double, 6>{0, 0, x * y, -x, y, 0}; }));
    const double sx = s.E / (1 - s.v * s.v);
    const double D = s.E * s.t * s.t * s.t / (12 * (1 - s.v * s.v));
    for (std::size_t k = 0; k < 24; k += 6) {
        EXPECT_NEAR(stretch[k], sx, 1e-9 * sx);
        EXPECT_NEAR(stretch[k + 1], s.v * sx, 1e-9 * sx);
        EXPECT_NEAR(stretch[k + 2], 0, 1e-9 * sx);
        EXPECT_NEAR(bend[k + 3], -D, 1e-9 * D);
        EXPECT_NEAR(bend[k + 4], -s.v * D, 1e-9 * D);
        EXPECT_NEAR(twist[k + 5], (1 - s.v) * D, 1e-9 * D); // +2*Dk
    }
}

TEST(RectShell, ASideWithoutLengthFails) {
    Matrix<24, 24> K;
    EXPECT_EQ(FailureOf([&] { RectShellStiffness(K, 0, 1, 1, 0.25, 1); }).kind, DivisionByZero);
    EXPECT_EQ(FailureOf([&] { RectShellStress(K, 1, 0, 1, 0.25, 1); }).kind, DivisionByZero);
}

} // namespace havuz
