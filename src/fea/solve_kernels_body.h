// The kernels of the solver, written once for all instruction sets. The including file gives HAVUZ_TARGET, the
// attribute of the functions of its instruction set, and the type of its registers, Set:
//   Wide, kWidth      a register of doubles, and how many it holds
//   kRows, kStrips    the tile that stays in registers
//   widen(from)       32-bit cells as doubles
//   narrow(to, wide)  the other way
//   round(wide)       doubles rounded to 32 bits
//   Mask, counts(entry), product(mask, factor, entry)
//                     which entries are not 0; factor * entry, +0 where the mask says so
//
// The step of all of them is cell = round(cell - factor * entry): a product, a difference and a rounding to 32 bits,
// three operations that no compiler may fuse or exchange (-ffp-contract=off). They run side by side in the lanes of a
// register over different cells, never along a sum, so that the width of the register changes no bit.
// What a zero does:
//   kCalculated       nothing is asked; right where no cell is -0
//   kFactorsSkipped   a factor of 0 is passed, as the plain procedure passes it for right-hand sides
//   kSkipped          also an entry of 0: its product is masked to +0, and x - (+0) keeps every x, -0 among them
//
// A tile of eight rows and up to three strips of eight columns, and what of it is in registers at once:
//   portable   2 rows * 1 strip  =  8 registers of 2 doubles, of 16
//   AVX2       4 rows * 1 strip  =  8 of 4, of 16; entries and masks take 4
//   AVX-512    8 rows * 3 strips = 24 of 8, of 32; entries take 3
// so that a cell is loaded and stored once for all pivots, an entry once for kRows rows, a factor once for a row of
// the part. The loops over rows and vectors are unrolled whole, or their arrays would not lie in registers.
#pragma once

#include "fea/solve_kernels.h"

#include <bit>
#include <cfloat>
#include <climits>
#include <cstring>

#if defined(__clang__)
#define HAVUZ_UNROLL _Pragma("clang loop unroll(full)")
#else
#define HAVUZ_UNROLL _Pragma("GCC unroll 16")
#endif
#define HAVUZ_INLINE HAVUZ_TARGET inline __attribute__((always_inline))

namespace havuz {

namespace {

enum Zeros { kCalculated, kFactorsSkipped, kSkipped };

template <class Set>
HAVUZ_INLINE typename Set::Wide LoadWide(const double *from) {
    typename Set::Wide wide;
    std::memcpy(&wide, from, sizeof wide);
    return wide;
}

// cell - factor*entry, rounded to 32 bits.
template <class Set, Zeros zeros>
HAVUZ_INLINE typename Set::Wide Reduced(typename Set::Wide cell, double factor, typename Set::Wide entry,
                                        typename Set::Mask counts) {
    if constexpr (zeros == kSkipped)
        return Set::round(cell - Set::product(counts, factor, entry)); // +0 changes no cell
    else
        return Set::round(cell - factor * entry);
}

// Vector v of a tile row: its strip, its place there, its column in the tile.
template <class Set>
struct Vectors {
    static constexpr int kInStrip = kStripColumns / Set::kWidth;
    static constexpr std::size_t strip(int v) { return static_cast<std::size_t>(v / kInStrip); }
    static constexpr std::size_t place(int v) { return static_cast<std::size_t>(v % kInStrip * Set::kWidth); }
    static constexpr std::size_t column(int v) { return static_cast<std::size_t>(v * Set::kWidth); }
    HAVUZ_INLINE static std::size_t inPanel(const PanelJob &job, int row, int v) {
        return strip(v) * job.stripStride + place(v) + static_cast<std::size_t>(kStripColumns * row);
    }
};

// A part of a tile that fits the registers, kRows rows by Strips strips: loaded once, all pivots subtracted, stored
// once. For each pivot its entries are loaded once and serve all rows.
template <class Set, int Strips, Zeros zeros>
HAVUZ_INLINE void ReducePart(const TileJob &job, int firstRow, int firstStrip) {
    using V = Vectors<Set>;
    constexpr int kVectors = Strips * V::kInStrip;
    typename Set::Wide cell[Set::kRows][kVectors];
    const std::size_t column = static_cast<std::size_t>(firstStrip * kStripColumns);
    HAVUZ_UNROLL
    for (int r = 0; r < Set::kRows; ++r)
        HAVUZ_UNROLL
    for (int v = 0; v < kVectors; ++v)
        cell[r][v] = Set::widen(job.cells[firstRow + r] + column + V::column(v));
    const double *panel = job.panel + static_cast<std::size_t>(firstStrip) * job.stripStride;
    const double *factors = job.factors + firstRow;
    for (int n = 0; n < job.pivotCount; ++n, factors += kTileRows) {
        const double *pivot = panel + kStripColumns * job.pivots[n];
        typename Set::Wide entry[kVectors];
        typename Set::Mask counts[kVectors];
        HAVUZ_UNROLL
        for (int v = 0; v < kVectors; ++v) {
            entry[v] = LoadWide<Set>(pivot + V::strip(v) * job.stripStride + V::place(v));
            counts[v] = Set::counts(entry[v]);
        }
        const auto reduceRow = [&](int r) __attribute__((always_inline)) HAVUZ_TARGET {
            HAVUZ_UNROLL
            for (int v = 0; v < kVectors; ++v)
                cell[r][v] = Reduced<Set, zeros>(cell[r][v], factors[r], entry[v], counts[v]);
        };
        if (zeros != kCalculated && job.someZero[n] != 0) {
            HAVUZ_UNROLL
            for (int r = 0; r < Set::kRows; ++r)
                if (factors[r] != 0.0)
                    reduceRow(r);
        } else {
            HAVUZ_UNROLL
            for (int r = 0; r < Set::kRows; ++r)
                reduceRow(r);
        }
    }
    HAVUZ_UNROLL
    for (int r = 0; r < Set::kRows; ++r)
        HAVUZ_UNROLL
    for (int v = 0; v < kVectors; ++v)
        Set::narrow(job.cells[firstRow + r] + column + V::column(v), cell[r][v]);
}

// The whole tile of eight rows in such parts; a register set of three strips takes what is left over in smaller ones.
template <class Set, Zeros zeros>
HAVUZ_INLINE void Reduce(const TileJob &job) {
    for (int strip = 0; strip < job.strips; strip += Set::kStrips)
        for (int row = 0; row < kTileRows; row += Set::kRows) {
            if constexpr (Set::kStrips == 1)
                ReducePart<Set, 1, zeros>(job, row, strip);
            else if (job.strips == 3)
                ReducePart<Set, 3, zeros>(job, row, strip);
            else if (job.strips == 2)
                ReducePart<Set, 2, zeros>(job, row, strip);
            else
                ReducePart<Set, 1, zeros>(job, row, strip);
        }
}

// Eight rows of the panel in Count vectors, which lie side by side in the strips from the first one on.
template <class Set, int Count, Zeros zeros>
HAVUZ_INLINE void ReducePanelPart(const PanelJob &job, double *strip, std::size_t column) {
    using V = Vectors<Set>;
    typename Set::Wide cell[kTileRows][Count];
    HAVUZ_UNROLL
    for (int r = 0; r < kTileRows; ++r)
        HAVUZ_UNROLL
    for (int v = 0; v < Count; ++v)
        cell[r][v] = LoadWide<Set>(strip + V::inPanel(job, job.firstRow + r, v) + column);
    const double *factors = job.factors + job.firstRow;
    for (int p = 0; p < job.firstRow; ++p, factors += job.factorStride) {
        typename Set::Wide entry[Count];
        typename Set::Mask counts[Count];
        HAVUZ_UNROLL
        for (int v = 0; v < Count; ++v) {
            entry[v] = LoadWide<Set>(strip + V::inPanel(job, p, v) + column);
            counts[v] = Set::counts(entry[v]);
        }
        HAVUZ_UNROLL
        for (int r = 0; r < kTileRows; ++r) {
            if (factors[r] == 0.0)
                continue;
            HAVUZ_UNROLL
            for (int v = 0; v < Count; ++v)
                cell[r][v] = Reduced<Set, zeros>(cell[r][v], factors[r], entry[v], counts[v]);
        }
    }
    HAVUZ_UNROLL
    for (int p = 0; p < kTileRows; ++p, factors += job.factorStride)
        HAVUZ_UNROLL
    for (int r = p + 1; r < kTileRows; ++r) {
        if (factors[r] == 0.0)
            continue;
        HAVUZ_UNROLL
        for (int v = 0; v < Count; ++v)
            cell[r][v] = Reduced<Set, zeros>(cell[r][v], factors[r], cell[p][v], Set::counts(cell[p][v]));
    }
    HAVUZ_UNROLL
    for (int r = 0; r < kTileRows; ++r)
        HAVUZ_UNROLL
    for (int v = 0; v < Count; ++v)
        std::memcpy(strip + V::inPanel(job, job.firstRow + r, v) + column, &cell[r][v], sizeof cell[r][v]);
}

// All strips of a job: side by side in wide registers, one after the other in narrow ones.
template <class Set, Zeros zeros>
HAVUZ_INLINE void ReducePanel(const PanelJob &job) {
    if constexpr (Set::kStrips == 3) { // a vector is a strip
        if (job.strips == 3)
            return ReducePanelPart<Set, 3, zeros>(job, job.panel, 0);
        if (job.strips == 2)
            return ReducePanelPart<Set, 2, zeros>(job, job.panel, 0);
    }
    for (int s = 0; s < job.strips; ++s)
        for (std::size_t column = 0; column < kStripColumns; column += Set::kWidth)
            ReducePanelPart<Set, 1, zeros>(job, job.panel + static_cast<std::size_t>(s) * job.stripStride, column);
}

// The sums of a register's columns each in their own order.
template <class Set>
HAVUZ_INLINE void AddColumnProducts(const SumJob &job) {
    constexpr int kVectors = kStripColumns / Set::kWidth;
    typename Set::Wide sum[kVectors];
    HAVUZ_UNROLL
    for (int v = 0; v < kVectors; ++v)
        sum[v] = LoadWide<Set>(job.sum + v * Set::kWidth);
    const double *solution = job.solution;
    for (int k = 0; k < job.count; ++k, solution += kStripColumns) {
        const double cell = static_cast<double>(job.cells[k]);
        HAVUZ_UNROLL
        for (int v = 0; v < kVectors; ++v)
            sum[v] = sum[v] + cell * LoadWide<Set>(solution + v * Set::kWidth);
    }
    HAVUZ_UNROLL
    for (int v = 0; v < kVectors; ++v)
        std::memcpy(job.sum + v * Set::kWidth, &sum[v], sizeof sum[v]);
}

// Magnitudes of doubles compare as whole numbers do, what is not a number above all: without its sign (& LLONG_MAX) a
// double has exponent before fraction, infinity is the greatest exponent with fraction 0, and "not a number" lies
// behind it. Comparisons give all ones or all zeros, so (a & m) | (b & ~m) chooses a where m is set.
template <class Set>
HAVUZ_INLINE void Inspect(const FactsJob &job) {
    using Wide = typename Set::Wide;
    using Whole = decltype(Wide{} == Wide{});
    for (int column = 0; column < kStripColumns; column += Set::kWidth) {
        Whole pivots = {};
        Whole greatest = {};
        Whole smallest = {};
        smallest = smallest + std::bit_cast<long long>(DBL_MAX);
        for (int p = 0; p < job.rows; ++p) {
            const Whole size = (Whole)LoadWide<Set>(job.strip + kStripColumns * p + column) & LLONG_MAX;
            const Whole counts = size != 0;
            const Whole less = (size < smallest) & counts;
            const Whole more = size > greatest;
            pivots |= counts & static_cast<long long>(std::uint64_t{1} << p);
            smallest = (size & less) | (smallest & ~less);
            greatest = (size & more) | (greatest & ~more);
        }
        std::memcpy(job.facts->pivots + column, &pivots, sizeof pivots);
        std::memcpy(job.facts->smallest + column, &smallest, sizeof smallest);
        std::memcpy(job.facts->greatest + column, &greatest, sizeof greatest);
    }
}

// The entry points, plain functions of the instruction set: what is called through the table must not be a template of
// the caller's.
HAVUZ_TARGET void Calculated(const TileJob &job) { Reduce<Set, kCalculated>(job); }
HAVUZ_TARGET void Skipping(const TileJob &job) { Reduce<Set, kSkipped>(job); }
HAVUZ_TARGET void Columns(const TileJob &job) { Reduce<Set, kFactorsSkipped>(job); }
HAVUZ_TARGET void Panel(const PanelJob &job) { ReducePanel<Set, kSkipped>(job); }
HAVUZ_TARGET void PanelColumns(const PanelJob &job) { ReducePanel<Set, kFactorsSkipped>(job); }
HAVUZ_TARGET void Products(const SumJob &job) { AddColumnProducts<Set>(job); }
HAVUZ_TARGET void Facts(const FactsJob &job) { Inspect<Set>(job); }

constexpr SolveKernels KernelsNamed(const char *name) {
    return {name, Calculated, Skipping, Columns, Panel, PanelColumns, Products, Facts};
}

} // namespace

} // namespace havuz
