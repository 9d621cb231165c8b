#include "fea/profile_solve.h"

#include "fea/progress_bar.h"
#include "fea/system.h"
#include "model/store.h"

#include <algorithm>
#include <cfloat>
#include <chrono>
#include <cmath>
#include <string>
#include <vector>

namespace havuz {

namespace {

[[noreturn]] void FailRange(int equation) {
    throw RuntimeFailure({.fault = Fault::SolutionTooLarge, .where = {{Thing::Equation, equation}}});
}

// Places first..last of the pivot row, all of them non-zero.
struct Run {
    int first, last;
};

// Pivot row i: its 32-bit values as doubles in R(i..N), and the runs of non-zero entries behind the diagonal. The runs
// are the chain of non-zero places in rising order, taken together where they are neighbours.
class PivotRow {
public:
    explicit PivotRow(int equations) : N_(equations), R_(static_cast<std::size_t>(equations) + 2, 0.0) {}

    void unpack(int i) {
        const int last = std::min(N_, i + ProfileDiag[i + 1] - ProfileDiag[i] - 1);
        const float *row = S + ProfileDiag[i];
        runs_.clear();
        for (int j = i; j <= last; ++j) {
            const double value = static_cast<double>(row[j - i]);
            if (!(std::fabs(value) <= FLT_MAX))
                FailRange(i);
            R_[static_cast<std::size_t>(j)] = value;
            if (value == 0.0 || j == i)
                continue;
            if (!runs_.empty() && runs_.back().last == j - 1)
                runs_.back().last = j;
            else
                runs_.push_back({j, j});
        }
    }
    double operator()(int j) const { return R_[static_cast<std::size_t>(j)]; }
    const double *from(int j) const { return R_.data() + j; }
    const std::vector<Run> &runs() const { return runs_; }

private:
    int N_;
    std::vector<double> R_;
    std::vector<Run> runs_;
};

// cell -= factor * r over a run, each cell cut to 32 bits.
void SubtractRun(float *cell, const double *r, double factor, int count) {
    for (int k = 0; k < count; ++k)
        cell[k] = static_cast<float>(static_cast<double>(cell[k]) - factor * r[k]);
}

// Row j takes its share of the pivot row from place j on. The end of row j only cuts the last rows: the envelope holds
// every other place.
void ReduceRow(int j, double factor, const PivotRow &R, std::size_t firstRun) {
    const int end = j + ProfileDiag[j + 1] - ProfileDiag[j] - 1;
    for (std::size_t n = firstRun; n < R.runs().size(); ++n) {
        const int first = std::max(R.runs()[n].first, j);
        const int last = std::min(R.runs()[n].last, end);
        if (first <= last)
            SubtractRun(S + ProfileIndex(j, first), R.from(first), factor, last - first + 1);
    }
}

void ReduceColumns(int i, int j, double factor) {
    const float *pivot = Rhs + RhsIndex(i, 1);
    float *row = Rhs + RhsIndex(j, 1);
    for (int c = 0; c < YukSayisi; ++c)
        row[c] = static_cast<float>(static_cast<double>(row[c]) - factor * static_cast<double>(pivot[c]));
}

void Eliminate(AnalysisWindow &window) {
    const int N = EquationCount;
    PivotRow R(N);
    for (int i = 1; i <= N - 1; ++i) {
        ProgressBar(0.5 * (i + 1) / N, window);
        R.unpack(i);
        if (R(i) == 0.0)
            continue;
        for (std::size_t n = 0; n < R.runs().size(); ++n)
            for (int j = R.runs()[n].first; j <= R.runs()[n].last; ++j) {
                const double factor = R(j) / R(i);
                ReduceRow(j, factor, R, n);
                ReduceColumns(i, j, factor);
            }
    }
}

void StoreSolution(int i, int c, double x) {
    if (!(std::fabs(x) <= FLT_MAX))
        FailRange(i);
    Rhs[RhsIndex(i, c)] = static_cast<float>(x);
}

void SolveLastRow(int N) {
    const double p = static_cast<double>(S[ProfileIndex(N, N)]);
    for (int c = 1; c <= YukSayisi; ++c)
        StoreSolution(N, c, p == 0.0 ? 0.0 : -SolutionValue(N, c) / p);
}

// Where the row ends before column N, the cell behind it times Rhs(N+1, c) is still added once: wanted. That cell of
// Rhs is 0 in a run.
double RowSum(int i, int c, int N) {
    double sum = 0.0;
    for (int k = i + 1; k <= N; ++k) {
        const int at = ProfileIndex(i, k);
        if (at >= ProfileDiag[i + 1])
            k = N + 1;
        sum += static_cast<double>(S[at]) * SolutionValue(k, c);
    }
    return sum;
}

void BackSubstitute(AnalysisWindow &window) {
    const int N = EquationCount;
    SolveLastRow(N);
    for (int i = N - 1; i >= 1; --i) {
        const double p = static_cast<double>(S[ProfileIndex(i, i)]);
        for (int c = 1; c <= YukSayisi; ++c) {
            if (p == 0.0) {
                StoreSolution(i, c, 0.0);
                continue;
            }
            const double x = (-SolutionValue(i, c) - RowSum(i, c, N)) / p;
            StoreSolution(i, c, std::fabs(x) < 1e-30 ? 0.0 : x);
        }
        ProgressBar(0.5 + 0.5 * (N - i) / N, window);
    }
}

} // namespace

void ProfileSolve(AnalysisWindow &window) {
    if (EquationCount == 0)
        return;
    const auto start = std::chrono::steady_clock::now();
    ProgressBar(0.0, window);
    Eliminate(window);
    BackSubstitute(window);
    const auto seconds =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start).count();
    window.TextLine(120, "Time          : " + std::to_string(seconds) + " sn.");
}

} // namespace havuz
