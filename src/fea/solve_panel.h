// The pivot rows that the solver eliminates together, as doubles in strips of eight columns: first the rows against
// each other, then ready to be subtracted from all rows behind them.
#pragma once

#include "fea/solve_kernels.h"

#include <array>
#include <cstdint>
#include <vector>

namespace havuz {

constexpr int kPanelRows = 32;  // a multiple of kTileRows, at most 64
using PivotSet = std::uint64_t; // bit p: the pivot of panel row p

class SolvePanel {
public:
    // Room for every panel of the profile in S, whose envelope is closed: no row ends before the row above it, but
    // row N.
    explicit SolvePanel(const SolveKernels &kernels);

    // Rows first..lastRow() of the profile. Then, in this order: the columns of the panel itself, by one thread; the
    // strips ownStrips()..strips()-1, each once by any thread; the right-hand sides.
    void take(int first);
    void reduceOwnColumns();
    void reduceStrips(int s, int count); // side by side
    void reduceRightHandSides();

    int first() const { return first_; }
    int lastRow() const { return first_ + rows_ - 1; }
    int lastColumn() const { return lastColumn_; } // the farthest of its rows
    int strips() const { return strips_; }
    static constexpr int ownStrips() { return kPanelRows / kStripColumns; }

    // What the rows behind take, once the strips are reduced.
    PivotSet pivotsOf(int row) const; // those with an entry in this column, and a diagonal that is not 0
    PivotSet pivotsOfStrip(int s) const { return strip_[at(s)].anyPivot & live_; }
    const double *column(int column) const; // entry of pivot p at 8*p
    double diagonal(int p) const { return diagonal_[at(p)]; }
    const double *values(int s) const { return &strip_[at(s)].entry[0][0]; }
    const double *rightHandSides(int block) const { return &rhs_[at(block)].entry[0][0]; }
    static constexpr std::size_t stripStride() { return sizeof(Strip) / sizeof(double); }

    // The first row that holds a value outside the 32-bit range, 0 when there is none. Row N is not looked at.
    int firstRowOutOfRange() const;
    // Whether every product of two of its entries over a diagonal is so large that no difference can be rounded to -0.
    bool keepsZerosPositive() const;

private:
    struct alignas(64) Strip {
        double entry[kPanelRows][kStripColumns];
        StripFacts facts;
        PivotSet anyPivot;
        double smallest; // magnitude of the entries that are not 0
        bool inRange;
    };
    static std::size_t at(int i) { return static_cast<std::size_t>(i); }
    int endOf(int p) const; // last column of a row
    void load(int s, int count);
    void loadRow(int p, int s);
    void store(int s, int count);
    void storeRow(int p, int s);
    void inspect(int s);
    void reduceOwnTriangle(int group);
    void takeFactors(int group, int s);
    PanelJob job(Strip &strip, int group, int strips = 1);

    const SolveKernels &kernels_;
    int first_ = 0, rows_ = 0, lastColumn_ = 0, strips_ = 0;
    PivotSet live_ = 0;
    std::vector<Strip> strip_;
    std::vector<Strip> rhs_; // blocks of eight right-hand sides
    std::array<double, kPanelRows> diagonal_{};
    alignas(64) double factor_[kPanelRows][kPanelRows] = {}; // of pivot p for row r > p of the panel
};

} // namespace havuz
