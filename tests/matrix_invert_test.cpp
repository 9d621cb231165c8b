// The inverse of a full matrix: residuals, the choice of the pivot, singular matrices.
#include "fea/matrix.h"
#include "fea/matrix_invert.h"
#include "support.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace havuz {

using Flat = std::vector<double>; // n by n, column after column

static double LargestRowSum(const Flat &a, std::size_t n) {
    double largest = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        double sum = 0.0;
        for (std::size_t j = 0; j < n; ++j)
            sum += std::fabs(a[j * n + i]);
        largest = std::max(largest, sum);
    }
    return largest;
}

// |A * B - 1| / (n * |A| * |B| * eps)
static double Residual(const Flat &a, const Flat &b, std::size_t n) {
    Flat r(n * n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j) {
            r[j * n + i] = i == j ? -1.0 : 0.0;
            for (std::size_t k = 0; k < n; ++k)
                r[j * n + i] += a[k * n + i] * b[j * n + k];
        }
    const double unit = static_cast<double>(n) * LargestRowSum(a, n) * LargestRowSum(b, n) * 2.220446049250313e-16;
    return LargestRowSum(r, n) / unit;
}

TEST(MatrixInvert, TheProductIsOneForEveryOrder) {
    ResetAll();
    std::mt19937 random(7);
    for (std::size_t n = 1; n <= 24; ++n) {
        Flat a(n * n);
        for (double &v : a)
            v = std::ldexp(static_cast<double>(random()) / 4294967296.0 - 0.5, static_cast<int>(random() % 20U));
        Flat b = a;
        MatrixInvert(b.data(), static_cast<int>(n));
        EXPECT_LT(Residual(a, b, n), 30.0) << n;
    }
}

TEST(MatrixInvert, AmongEqualsTheLastOneFoundIsThePivot) {
    ResetAll();
    const double d = 3.0, p = 0.1, q = 0.7;
    Matrix<2, 2> a;
    a(1, 1) = a(2, 2) = d;
    a(1, 2) = p;
    a(2, 1) = q;
    MatrixInvert(a.data(), 2);
    const double last = 1.0 / (d - p * (q / d));                             // pivot (2, 2) first
    const double first = 1.0 / d - (p / d) * ((-q / d) / (d - q * (p / d))); // pivot (1, 1) first
    ASSERT_NE(last, first);
    EXPECT_EQ(a(1, 1), last);
}

TEST(MatrixInvert, ASingularMatrixIsDivisionByZero) {
    ResetAll();
    Matrix<3, 3> a;
    for (int j = 1; j <= 3; ++j) {
        a(1, j) = j;
        a(2, j) = 2.0 * j;
        a(3, j) = j == 1 ? 1.0 : 0.0;
    }
    const Failed failed = FailureOf([&a] { MatrixInvert(a.data(), 3); });
    EXPECT_EQ(failed.kind, DivisionByZero);
    EXPECT_EQ(failed.words, "MatrixInvert: division by zero");
}

} // namespace havuz
