// The least that the solver's arithmetic can take: per eight cells one product, one difference and two conversions, to
// 32 bits and back, in registers and nothing else; and how many times eight cells a solve calculates.
#pragma once

#include "fea/profile_solve.h"

#include <algorithm>
#include <atomic>
#include <ctime>
#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace havuz {

// Processor time of the program, s: what a busy machine disturbs least.
inline double ProcessorSeconds() {
    std::timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

constexpr long kBoundRounds = 20000;
constexpr int kBoundEights = 24; // in registers at a time

#if defined(__x86_64__)
__attribute__((target("avx512f,avx512dq,avx512vl"), noinline)) inline void BoundLoop512(const double *factors,
                                                                                        double *cells) {
    constexpr __mmask8 kAll = 0xFF;
    __m512d cell[kBoundEights];
    for (int i = 0; i < kBoundEights; ++i)
        cell[i] = _mm512_set1_pd(cells[i]);
    const __m512d entry[3] = {_mm512_set1_pd(1e-9), _mm512_set1_pd(2e-9), _mm512_set1_pd(3e-9)};
    for (long round = 0; round < kBoundRounds; ++round) {
#pragma GCC unroll 24
        for (int i = 0; i < kBoundEights; ++i) {
            const __m512d left = cell[i] - _mm512_set1_pd(factors[i / 3]) * entry[i % 3];
            cell[i] = _mm512_maskz_cvtps_pd(kAll, _mm512_maskz_cvtpd_ps(kAll, left));
        }
        asm volatile("" ::: "memory"); // the factors are read anew
    }
    for (int i = 0; i < kBoundEights; ++i)
        cells[i] = cell[i][0];
}

__attribute__((target("avx2"), noinline)) inline void BoundLoop256(const double *factors, double *cells) {
    constexpr int kHeld = 12; // registers: six eights, four times
    __m256d cell[kHeld];
    for (int i = 0; i < kHeld; ++i)
        cell[i] = _mm256_set1_pd(cells[i]);
    const __m256d entry = _mm256_set1_pd(1e-9);
    for (long round = 0; round < 4 * kBoundRounds; ++round) {
#pragma GCC unroll 12
        for (int i = 0; i < kHeld; ++i)
            cell[i] = _mm256_cvtps_pd(_mm256_cvtpd_ps(cell[i] - _mm256_set1_pd(factors[i / 3]) * entry));
        asm volatile("" ::: "memory");
    }
    for (int i = 0; i < kHeld; ++i)
        cells[i] = cell[i][0];
}
#endif

// Seconds for eight cells by the widest registers of this processor that the solver uses; 0 where it has none.
inline double SecondsForEightCells() {
#if defined(__x86_64__)
    const bool widest = UsableSolveKernels().size() == 3;
    double cells[kBoundEights] = {1.0, 2.0, 3.0};
    const double factors[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    double least = 1e9;
    for (int i = 0; i < 20 && UsableSolveKernels().size() > 1; ++i) {
        const double start = ProcessorSeconds();
        widest ? BoundLoop512(factors, cells) : BoundLoop256(factors, cells);
        least = std::min(least, ProcessorSeconds() - start);
    }
    return least == 1e9 ? 0.0 : least / static_cast<double>(kBoundRounds * kBoundEights);
#else
    return 0.0;
#endif
}

// Kernels that count what they calculate, in eights of cells.
inline std::atomic<long> &CountedEights() {
    static std::atomic<long> count = 0;
    return count;
}
inline SolveKernels CountingKernels() {
    static const SolveKernels &real = *UsableSolveKernels().back();
    const auto tile = [](const TileJob &job) { CountedEights() += long(kTileRows) * job.strips * job.pivotCount; };
    const auto panel = [](const PanelJob &job) {
        long count = 0;
        for (int p = 0; p < job.firstRow + kTileRows; ++p)
            for (int r = std::max(0, p - job.firstRow + 1); r < kTileRows; ++r)
                count += job.factors[job.factorStride * static_cast<std::size_t>(p) +
                                     static_cast<std::size_t>(job.firstRow + r)] != 0.0;
        CountedEights() += count * job.strips;
    };
    static const auto countTile = tile;
    static const auto countPanel = panel;
    SolveKernels k = real;
    k.reduce = [](const TileJob &job) { countTile(job), real.reduce(job); };
    k.reduceSkipping = [](const TileJob &job) { countTile(job), real.reduceSkipping(job); };
    k.reduceColumns = [](const TileJob &job) { countTile(job), real.reduceColumns(job); };
    k.reducePanel = [](const PanelJob &job) { countPanel(job), real.reducePanel(job); };
    k.reducePanelColumns = [](const PanelJob &job) { countPanel(job), real.reducePanelColumns(job); };
    return k;
}

} // namespace havuz
