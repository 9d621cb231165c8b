// The inner step of the blocked elimination: four columns of a front take their share of a block of pivots. Every
// cell takes the pivots one after the other, each with one product and one difference, so that all instruction sets
// leave the same bits.
#pragma once

#include <cstddef>

namespace havuz::consistent {

constexpr int kFrontColumns = 4; // that are worked at once
constexpr int kFrontRows = 8;    // a front's columns are as many cells long as a multiple of these

// cells[c * stride + r] -= sum over p of pivots[p * stride + r] * factor[4 * p + c], for four columns c and rows r from
// firstRow, a multiple of kFrontRows, to stride.
struct FrontStrip {
    double *cells;
    const double *pivots;
    const double *factor;
    std::size_t stride, firstRow;
    int pivotCount;
};

using FrontKernel = void (*)(const FrontStrip &);
FrontKernel BestFrontKernel();     // of those that this processor can carry out
FrontKernel PortableFrontKernel(); // for any

} // namespace havuz::consistent
