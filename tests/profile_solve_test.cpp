// The solver against the plain procedure as the method is written down, bit for bit, and its rules at the edges.
#include "fea/profile_solve.h"
#include "fea/progress_bar.h"
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

enum Numbers { Ordinary, ManyMagnitudes, ZerosOfBothSigns, NearlyCancelling };
constexpr Numbers kNumbers[] = {Ordinary, ManyMagnitudes, ZerosOfBothSigns, NearlyCancelling};

// A closed envelope of random row lengths; the last rows reach behind column N, as those of a real profile do.
void PutEnvelope(int N, int columns, int longest, std::mt19937 &random) {
    ResetAll();
    ResetSystem();
    EquationCount = N;
    YukSayisi = columns;
    RhsSize = N * columns;
    int first = 1;
    int length = 1;
    for (int i = 1; i <= N; ++i) {
        length = std::max(length - 1, 1 + static_cast<int>(random() % static_cast<unsigned>(longest)));
        ProfileDiag[i] = first;
        first += i == N ? 1 : length;
    }
    ProfileDiag[N + 1] = ProfileSize = first;
}

// A number of the kind that is asked for.
double Cell(Numbers numbers, bool diagonal, std::mt19937 &random) {
    std::uniform_real_distribution<double> value(-1.0, 1.0);
    const double v = value(random);
    switch (numbers) {
    case Ordinary:
        return diagonal ? 20.0 + v : random() % 2 == 0 ? 0.0 : v * std::pow(10.0, value(random));
    case ManyMagnitudes: // down to the smallest there are, so that products round to zeros of either sign
        return diagonal ? 1.0 + v * v : v * std::pow(10.0, -22.0 * (1.0 + value(random)));
    case ZerosOfBothSigns:
        return diagonal ? (random() % 9 == 0 ? -0.0 : 20.0 + v) : random() % 4 < 3 ? std::copysign(0.0, v) : v;
    case NearlyCancelling: // few different values: differences are often 0 or one unit in the last place
        return diagonal ? 1.0 + static_cast<double>(random() % 2) : 0.5 * static_cast<double>(random() % 3) + v * 1e-7;
    }
    return 0.0;
}

void PutSystem(int N, int columns, unsigned seed, Numbers numbers, int longest = 9) {
    std::mt19937 random(seed);
    PutEnvelope(N, columns, longest, random);
    for (int i = 1; i <= N; ++i)
        for (int cell = ProfileDiag[i]; cell < ProfileDiag[i + 1]; ++cell)
            S[cell] = static_cast<float>(Cell(numbers, cell == ProfileDiag[i], random));
    for (int cell = 1; cell <= columns * (N + 1); ++cell) // with the cells behind equation N, which are read
        Rhs[cell] = static_cast<float>(100.0 * Cell(numbers, false, random));
}

void Solve() {
    AnalysisWindow window;
    ProfileSolve(window);
}

// The system that was put, solved by each kernel and compared with the plain procedure: the same bits, or a failure at
// the same equation. Returns whether it could be solved.
bool EveryKernelStoresThePlainBits(int threads) {
    const std::vector<float> s(S, S + ProfileSize + 1);
    const std::vector<float> rhs(Rhs, Rhs + YukSayisi * (EquationCount + 1) + 1);
    std::vector<float> plainS = s;
    std::vector<float> plainRhs = rhs;
    const int wrong = EquationCount == 0 ? 0 : SolveLiteral(EquationCount, YukSayisi, plainS, plainRhs);
    for (const SolveKernels *kernels : UsableSolveKernels()) {
        SCOPED_TRACE(kernels->name);
        std::copy(s.begin(), s.end(), S);
        std::copy(rhs.begin(), rhs.end(), Rhs);
        const Failed failed = FailureOf([&] {
            AnalysisWindow window;
            ProfileSolve(window, {kernels, threads});
        });
        EXPECT_EQ(failed.words,
                  wrong == 0 ? "" : "equation " + std::to_string(wrong) + ": the solution leaves the 32-bit range");
        if (wrong == 0) {
            EXPECT_EQ(std::memcmp(plainS.data(), S, sizeof(float) * s.size()), 0);
            EXPECT_EQ(std::memcmp(plainRhs.data(), Rhs, sizeof(float) * rhs.size()), 0);
        }
    }
    return wrong == 0;
}

} // namespace

TEST(ProfileSolve, StoresTheBitsOfThePlainProcedure) {
    unsigned seed = 0;
    int solved = 0;
    for (const Numbers numbers : kNumbers)
        for (int N = 0; N <= 70; ++N)
            for (const int columns : {1, 5, 9}) {
                ++seed;
                SCOPED_TRACE("seed " + std::to_string(seed) + ", order " + std::to_string(N));
                PutSystem(N, columns, seed, numbers, seed % 2 == 0 ? 9 : 60);
                solved += EveryKernelStoresThePlainBits(1 + static_cast<int>(seed % 3));
            }
    EXPECT_GT(solved, 600); // the others leave the 32-bit range
}

TEST(ProfileSolve, ThreadsChangeNoBit) {
    for (const Numbers numbers : kNumbers)
        for (int threads = 1; threads <= 8; ++threads) {
            SCOPED_TRACE(std::to_string(threads) + " threads, numbers " + std::to_string(numbers));
            PutSystem(260 + threads, threads, static_cast<unsigned>(threads), numbers, 150);
            EveryKernelStoresThePlainBits(threads);
        }
}

// As on a plane floor: freedoms in two families that know nothing of each other, cut apart by rows of either alone.
TEST(ProfileSolve, RowsOfDifferentPatternsStoreThePlainBits) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
        PutSystem(200, 3, seed, Ordinary, 90);
        for (int i = 1; i <= EquationCount; ++i)
            for (int cell = ProfileDiag[i]; cell < ProfileDiag[i + 1]; ++cell) {
                const int j = i + cell - ProfileDiag[i];
                if (i / 3 % 2 != j / 3 % 2 && (i < 90 || i % 7 == 0))
                    S[cell] = 0.0F;
            }
        EXPECT_TRUE(EveryKernelStoresThePlainBits(2));
    }
}

// A product below half the least 32-bit value takes a cell to -0, and from then on zero entries must be left out.
TEST(ProfileSolve, AZeroThatTurnsNegativeOnTheWayStays) {
    std::mt19937 random(1);
    PutEnvelope(72, 1, 1, random);
    for (int i = 1, first = 1; i <= 73; ++i) { // whole rows
        ProfileDiag[i] = first;
        first += i < 73 ? 73 - i : 0;
    }
    ProfileSize = ProfileDiag[73];
    for (int i = 1; i <= 72; ++i)
        S[ProfileDiag[i]] = 1.0F;
    S[ProfileIndex(1, 71)] = S[ProfileIndex(1, 72)] = 1e-25F; // (71,72) becomes -0 at the first pivot
    S[ProfileIndex(40, 71)] = -1.0F;                          // whose entry at 72 is +0
    EXPECT_TRUE(EveryKernelStoresThePlainBits(1));
    EXPECT_TRUE(std::signbit(S[ProfileIndex(71, 72)]));
}

// The bar of a run: each label once, in order, as if the rows were taken one by one.
TEST(ProfileSolve, ShowsTheProgressOfEveryRow) {
    struct Recorder : AnalysisWindow {
        std::vector<std::string> labels;
        void Label(const std::string &text, bool) override { labels.push_back(text); }
    };
    for (const int N : {2, 33, 150, 450}) {
        PutSystem(N, 1, 1, Ordinary);
        Recorder want, got;
        ProgressBar(0.0, want);
        for (int i = 1; i < N; ++i)
            ProgressBar(0.5 * (i + 1) / N, want);
        for (int i = N - 1; i >= 1; --i)
            ProgressBar(0.5 + 0.5 * (N - i) / N, want);
        ProfileSolve(got, {nullptr, 2});
        EXPECT_EQ(got.labels, want.labels) << N;
    }
}

TEST(ProfileSolve, AWindowThatEndsTheProgramEndsTheRun) {
    struct Closing : AnalysisWindow {
        int events = 0;
        void ServeEvents() override {
            if (++events == 20)
                throw ProgramEnd{0};
        }
    };
    PutSystem(400, 1, 1, Ordinary);
    Closing window;
    EXPECT_THROW(ProfileSolve(window, {nullptr, 4}), ProgramEnd);
    EXPECT_EQ(window.events, 20);
}

TEST(ProfileSolve, OneEquationAndNone) {
    PutSystem(1, 2, 1, Ordinary);
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
    PutSystem(3, 1, 1, Ordinary);
    std::fill_n(S + 1, ProfileSize, 0.0F);
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
    PutSystem(2, 1, 1, Ordinary);
    std::fill_n(S + 1, ProfileSize, 0.0F);
    S[ProfileDiag[2]] = 1.0F;
    S[ProfileDiag[1]] = 1e-30F;
    Rhs[1] = 1e20F;
    EXPECT_EQ(FailureOf(Solve).words, "equation 1: the solution leaves the 32-bit range");
}

TEST(System, SizesPastTheArraysFail) {
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
