// The inner step of the solver: a tile of eight rows and up to 24 columns takes its share of many pivots while its
// cells stay in registers. After each pivot every cell is rounded to 32 bits, as a store of the plain procedure rounds
// it, so all kernels leave the same bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace havuz {

constexpr int kTileRows = 8;
constexpr int kStripColumns = 8;
constexpr int kTileStrips = 3; // at most, side by side

// Cells are doubles that hold 32-bit values in a panel, 32-bit in S. The value of pivot p in column c of strip s lies
// at panel[s*stripStride + 8*p + c], the factor of row r for the n-th of the pivots at factors[8*n + r].
struct TileJob {
    float *cells[kTileRows]; // first cell of each row
    const double *panel;
    std::size_t stripStride;
    const int *pivots; // those that take part, rising
    int pivotCount;
    const double *factors;
    const unsigned char *someZero; // of the n-th pivot: 1 when one of its eight factors is 0
    int strips;                    // 1..3
};

// Eight rows of the panel itself, which are pivots of each other too: first the pivots 0..firstRow-1 of the panel, then
// the row above each, down to the last. The factor of pivot p for row r lies at factors[factorStride*p + r].
struct PanelJob {
    double *panel;
    std::size_t stripStride;
    int firstRow; // a multiple of 8
    const double *factors;
    std::size_t factorStride;
    int strips; // 1..3
};

// The share of eight right-hand sides, or fewer, in the sum of a row: sum[c] += cells[k] * solution[8*k + c], k rising.
struct SumJob {
    double *sum; // 8
    const float *cells;
    const double *solution;
    int count;
};

// What the columns of a strip of the panel hold, over all its rows.
struct StripFacts {
    std::uint64_t pivots[kStripColumns]; // bit p: the entry of pivot p is not 0
    double smallest[kStripColumns];      // magnitude of the entries that are not 0; DBL_MAX when there is none
    double greatest[kStripColumns];      // infinite or not a number where an entry is
};
struct FactsJob {
    const double *strip;
    int rows;
    StripFacts *facts;
};

// A pivot's entry of 0 makes no change in the plain procedure, which skips it. Calculated along it does the same in all
// cells but one: -0 - (-0) is +0. Hence three ways to reduce a tile.
struct SolveKernels {
    const char *name;
    void (*reduce)(const TileJob &);              // calculates zeros along: no cell may be -0, now or on the way
    void (*reduceSkipping)(const TileJob &);      // skips factors and entries of 0
    void (*reduceColumns)(const TileJob &);       // skips factors of 0 alone: right-hand sides
    void (*reducePanel)(const PanelJob &);        // skips both
    void (*reducePanelColumns)(const PanelJob &); // skips factors of 0 alone
    void (*addProducts)(const SumJob &);
    void (*inspect)(const FactsJob &);
};

// Those that this processor can carry out, the portable ones first, the fastest last.
const std::vector<const SolveKernels *> &UsableSolveKernels();

} // namespace havuz
