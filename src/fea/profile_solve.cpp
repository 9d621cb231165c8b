// The solver: forward elimination (elimination.h), then back substitution, from the last equation up,
//   x(N) = -Rhs(N) / S(N,N),   x(i) = (-Rhs(i) - sum over k > i of S(i,k)*x(k)) / S(i,i),
// S the eliminated matrix, Rhs the reduced negative loads. The sum runs in rising k in double precision, with the x
// already cut to 32 bits; magnitudes below 1e-30 become 0. A pivot of exactly 0 gives its row 0 and is passed over
// without a word: a mechanism shows in the results, not as a failure. Columns are solved eight at a time, since each
// row of S then serves eight sums.
// Work: N*w products a column with rows of mean length w, against N*w^2/2 of the elimination; of eight columns and w of
// 300 a twentieth.
// Cells of S have about seven digits; what an elimination of N rows loses of them shows as the residual of the run
// (run_residual.h), not here: nothing is scaled, exchanged or refined.
#include "fea/profile_solve.h"

#include "fea/elimination.h"
#include "fea/progress_bar.h"
#include "fea/system.h"
#include "model/platform.h"
#include "model/store.h"

#include <algorithm>
#include <cfloat>
#include <chrono>
#include <cmath>
#include <string>
#include <thread>
#include <vector>

namespace havuz {

namespace {

void StoreSolution(int i, int c, double x) {
    if (!(std::fabs(x) <= FLT_MAX))
        FailOutOfRange(i);
    Rhs[RhsIndex(i, c)] = static_cast<float>(x);
}

// Of the last equation nothing stands behind its diagonal, and its result is not cut off below 1e-30: wanted.
void SolveLastRow(int N) {
    const double p = static_cast<double>(S[ProfileIndex(N, N)]);
    for (int c = 1; c <= YukSayisi; ++c)
        StoreSolution(N, c, p == 0.0 ? 0.0 : -SolutionValue(N, c) / p);
}

// The solution of up to eight load columns as doubles, and the cells of Rhs behind it: equation e at 8*e. Rhs itself
// has all columns of an equation side by side, YukSayisi of them; here they are padded to eight, so that one register
// serves whole, and a column that is not there is a sum of zeros. Values are taken from Rhs after they were cut to 32
// bits, since later rows use what is stored.
class SolvedColumns {
public:
    SolvedColumns(int firstColumn, int N)
        : first_(firstColumn), count_(std::min(kStripColumns, YukSayisi - firstColumn + 1)),
          value_(kStripColumns * (static_cast<std::size_t>(N) + 2), 0.0) {
        take(N);
        take(N + 1);
    }
    int first() const { return first_; }
    int last() const { return first_ + count_ - 1; }
    const double *of(int e) const { return value_.data() + kStripColumns * e; }
    void take(int e) {
        for (int c = 0; c < count_; ++c)
            value_[static_cast<std::size_t>(kStripColumns * e + c)] = SolutionValue(e, first_ + c);
    }

private:
    int first_, count_;
    std::vector<double> value_;
};

// The products of row i with the columns of the solution. Where the row ends before column N, the cell behind it times
// Rhs(N+1,c) is still added once: wanted. That cell of Rhs is 0 in a run.
void RowSums(int i, int N, const SolvedColumns &solved, const SolveKernels &kernels, double *sum) {
    const int end = std::min(N, i + ProfileDiag[i + 1] - ProfileDiag[i] - 1);
    std::fill_n(sum, kStripColumns, 0.0);
    kernels.addProducts({sum, S + ProfileIndex(i, i + 1), solved.of(i + 1), end - i});
    if (end < N)
        kernels.addProducts({sum, S + ProfileDiag[i + 1], solved.of(N + 1), 1});
}

// One equation in up to eight columns.
void SolveRow(int i, int N, SolvedColumns &solved, const SolveKernels &kernels) {
    const double p = static_cast<double>(S[ProfileIndex(i, i)]);
    double sum[kStripColumns];
    if (p != 0.0)
        RowSums(i, N, solved, kernels, sum);
    for (int c = solved.first(); c <= solved.last(); ++c) {
        const double x = p == 0.0 ? 0.0 : (-SolutionValue(i, c) - sum[c - solved.first()]) / p;
        StoreSolution(i, c, std::fabs(x) < 1e-30 ? 0.0 : x);
    }
    solved.take(i);
}

void BackSubstitute(const SolveKernels &kernels, AnalysisWindow &window) {
    const int N = EquationCount;
    SolveLastRow(N);
    std::vector<SolvedColumns> columns;
    for (int c = 1; c <= YukSayisi; c += kStripColumns)
        columns.emplace_back(c, N);
    for (int i = N - 1; i >= 1; --i) {
        for (SolvedColumns &solved : columns)
            SolveRow(i, N, solved, kernels);
        ProgressBar(0.5 + 0.5 * (N - i) / N, window);
    }
}

// A team pays from some thousands of cells to a thread on, and not on a machine that is busy: its threads wait for each
// other at every panel, and one that is kept waiting for a core holds up all.
int ThreadsThatPay() {
    const int threads = std::clamp(ProfileSize / 50000, 1, AllowedThreads());
    const bool busy = platform::WaitingThreads() > 2.0 * std::thread::hardware_concurrency();
    return busy ? 1 : threads;
}

} // namespace

void ProfileSolve(AnalysisWindow &window, const SolveMeans &means) {
    const int N = EquationCount;
    if (N == 0)
        return;
    const auto start = std::chrono::steady_clock::now();
    const SolveKernels &kernels = means.kernels != nullptr ? *means.kernels : *UsableSolveKernels().back();
    ProgressBar(0.0, window);
    Elimination(kernels, means.threads > 0 ? means.threads : ThreadsThatPay()).run([N, &window](int i) {
        ProgressBar(0.5 * (i + 1) / N, window);
    });
    BackSubstitute(kernels, window);
    const auto seconds =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start).count();
    window.TextLine(120, "Time          : " + std::to_string(seconds) + " sn.");
}

} // namespace havuz
