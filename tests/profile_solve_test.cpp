// The solver against the plain procedure as the method is written down, bit for bit, and its rules at the edges.
#include "fea/profile_solve.h"
#include "fea/system.h"
#include "model/store.h"
#include "plain_solve.h"
#include "support.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace havuz {

namespace {

// A closed envelope of random row lengths; the last rows reach behind column N, as those of a real profile do.
void PutSystem(int N, int columns, unsigned seed, double zeros) {
    ResetAll();
    ResetSystem();
    std::mt19937 random(seed);
    EquationCount = N;
    YukSayisi = columns;
    RhsSize = N * columns;
    int first = 1;
    int length = 1;
    for (int i = 1; i <= N; ++i) {
        length = std::max(length - 1, 1 + static_cast<int>(random() % 9));
        ProfileDiag[i] = first;
        first += i == N ? 1 : length;
    }
    ProfileDiag[N + 1] = ProfileSize = first;
    std::uniform_real_distribution<double> value(-1.0, 1.0);
    for (int i = 1; i <= N; ++i)
        for (int cell = ProfileDiag[i]; cell < ProfileDiag[i + 1]; ++cell)
            S[cell] =
                static_cast<float>(cell == ProfileDiag[i]          ? 20.0 + value(random)
                                   : value(random) < zeros * 2 - 1 ? 0.0
                                                                   : value(random) * std::pow(10.0, value(random)));
    for (int cell = 1; cell <= RhsSize; ++cell)
        Rhs[cell] = static_cast<float>(value(random) * 100.0);
}

void Solve() {
    AnalysisWindow window;
    ProfileSolve(window);
}

} // namespace

TEST(ProfileSolve, StoresTheBitsOfThePlainProcedure) {
    unsigned seed = 1;
    for (const int N : {1, 2, 3, 7, 8, 9, 40, 101})
        for (const int columns : {1, 3, 8})
            for (const double zeros : {0.0, 0.5, 0.9}) {
                PutSystem(N, columns, ++seed, zeros);
                if (seed % 3 == 0 && N > 2)
                    S[ProfileDiag[N / 2]] = 0.0F; // may be a zero pivot at its turn
                std::vector<float> s(S, S + ProfileSize + 1);
                std::vector<float> rhs(Rhs, Rhs + columns * (N + 1) + 1);
                SolveLiteral(N, columns, s, rhs);
                Solve();
                EXPECT_EQ(std::memcmp(s.data() + 1, S + 1, sizeof(float) * s.size() - sizeof(float)), 0) << seed;
                EXPECT_EQ(std::memcmp(rhs.data() + 1, Rhs + 1, sizeof(float) * static_cast<std::size_t>(RhsSize)), 0)
                    << seed;
            }
}

TEST(ProfileSolve, OneEquationAndNone) {
    PutSystem(1, 2, 1, 0.0);
    S[1] = 4.0F;
    Rhs[1] = 8.0F;
    Rhs[2] = -2.0F;
    Solve();
    EXPECT_EQ(Rhs[1], -2.0F); // K*x = -Rhs
    EXPECT_EQ(Rhs[2], 0.5F);
    EquationCount = 0;
    Solve();
    EXPECT_EQ(Rhs[1], -2.0F);
}

TEST(ProfileSolve, ZeroPivotsGiveZeroAndTinyValuesVanishButInTheLastRow) {
    PutSystem(3, 1, 1, 1.0);
    for (int i = 1; i <= 3; ++i)
        S[ProfileDiag[i]] = i == 2 ? 0.0F : 1.0F;
    Rhs[1] = 1e-31F;
    Rhs[2] = 5.0F;
    Rhs[3] = 1e-31F;
    Solve();
    EXPECT_EQ(Rhs[1], 0.0F);
    EXPECT_EQ(Rhs[2], 0.0F);
    EXPECT_EQ(Rhs[3], -1e-31F);
}

TEST(ProfileSolve, ASolutionBeyondThe32BitRangeFails) {
    PutSystem(2, 1, 1, 1.0);
    S[ProfileDiag[1]] = 1e-30F;
    Rhs[1] = 1e20F;
    EXPECT_EQ(FailureOf(Solve).words, "equation 1: the solution leaves the 32-bit range");
}

TEST(System, SizesPastTheArraysFail) {
    ResetAll();
    ResetSystem();
    YukSayisi = 1;
    const std::tuple<int, int, int, bool> cases[] = {{19999, 10000000, 1, true},
                                                     {20000, 1, 1, false},
                                                     {100, 10000001, 1, false},
                                                     {18749, 1, 8, true},
                                                     {18750, 1, 8, false}};
    for (const auto &[n, profile, columns, fits] : cases) {
        EquationCount = n;
        ProfileSize = profile;
        YukSayisi = columns;
        EXPECT_EQ(SystemFits(), fits) << n;
        EXPECT_EQ(FailureOf(CheckSystemSizes).failed, !fits) << n;
    }
    EquationCount = ProfileSize = 0;
}

} // namespace havuz
