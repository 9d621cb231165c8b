// Forward elimination, in blocks. The plain procedure, for pivots i = 1, 2, ... and rows j behind them with
// S(i,j) not 0, is Gauss's on a symmetric matrix:
//   f = S(i,j) / S(i,i)
//   S(j,k) = S(j,k) - f * S(i,k)       k = j .. end of row i, S(i,k) not 0
//   Rhs(j,c) = Rhs(j,c) - f * Rhs(i,c) all columns c
// with f and the product in double precision and one rounding to 32 bits at each store.
// A pivot row of length w costs about w^2/2 products for the matrix and w for each column, so N rows of mean length w
// cost N*w^2/2: the numbering of the nodes, which makes w, decides more than any arrangement of the work.
//
// Here 32 pivot rows make a panel (solve_panel.h): they are reduced among themselves, then subtracted from each row
// behind them in one pass over it, which costs one read and one write of the row instead of 32. Within a cell the
// pivots come in rising order with a rounding each, so every bit is the plain procedure's; blocks, threads and
// registers change only when a cell is touched. The layout follows Goto and van de Geijn (2008), "Anatomy of
// high-performance matrix multiplication": a tile of rows and strips stays in registers while the pivots stream by.
//
//          first   lastRow            lastColumn
//   panel  +--------+-------------------+        pivots p, their entries S(p, k) as doubles
//          |  \     |    S(p,j) .. S(p,k)|
//          +--------+-------------------+
//             rows j behind   [  tile   ]        S(j,k) -= S(p,j)/S(p,p) * S(p,k) for all p, rising
//
// Two conditions make the fast form equal where it leaves out a test. A product of factor 0 or entry 0 is +-0, and
// x - 0 = x for every x but -0: so zeros may be calculated as long as no cell holds -0, which is looked for once per
// row and excluded for new cells by the size of the products (keepsZerosPositive). Where either fails, the kernels
// that skip zeros take over for the rest of the run.
#include "fea/elimination.h"

#include "fea/system.h"
#include "model/failure.h"
#include "model/store.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace havuz {

namespace {

constexpr int kStripsAtOnce = 4 * kTileStrips; // that a thread takes: some cache lines of each row

bool HoldsNegativeZero(const float *cells, int count) {
    unsigned found = 0;
    for (int k = 0; k < count; ++k)
        found |= static_cast<unsigned>(std::bit_cast<std::uint32_t>(cells[k]) == 0x80000000U);
    return found != 0;
}

// The columns first..last of a row of S.
struct StoredRow {
    int first = 0, last = 0;
    float *cells = nullptr;

    StoredRow() = default;
    explicit StoredRow(int j)
        : first(j), last(j + ProfileDiag[j + 1] - ProfileDiag[j] - 1), cells(S + ProfileDiag[j]) {}
    float *at(int column) const { return cells + (column - first); }
    bool holds(int column, int columns) const { return column >= first && column + columns - 1 <= last; }
};

// The tile rows that reach over an end of their stored row lie here while they are reduced.
struct Borrowed {
    alignas(64) float row[kTileRows][kTileStrips * kStripColumns];

    void take(const StoredRow *rows, int count, int column, int columns) {
        move(rows, count, column, columns,
             [](float *stored, float *here, std::size_t size) { std::memcpy(here, stored, size); });
    }
    void giveBack(const StoredRow *rows, int count, int column, int columns) {
        move(rows, count, column, columns,
             [](float *stored, const float *here, std::size_t size) { std::memcpy(stored, here, size); });
    }

private:
    template <class Move>
    void move(const StoredRow *rows, int count, int column, int columns, Move move) {
        for (int r = 0; r < count; ++r) {
            if (rows[r].holds(column, columns))
                continue;
            const int from = std::max(column, rows[r].first);
            const int to = std::min(column + columns - 1, rows[r].last);
            if (from <= to)
                move(rows[r].at(from), row[r] + (from - column),
                     sizeof(float) * static_cast<std::size_t>(to - from + 1));
        }
    }
};

} // namespace

void FailOutOfRange(int equation) {
    throw RuntimeFailure({.fault = Fault::SolutionTooLarge, .where = {{Thing::Equation, equation}}});
}

Elimination::Elimination(const SolveKernels &kernels, int threads)
    : kernels_(kernels), team_(threads), panel_(kernels) {}

// Panel by panel: reduce the panel, tell of each of its pivots, then subtract it from everything that it reaches. A row
// out of range is told of when its own turn comes, as in the plain procedure, though the panel knows it before.
void Elimination::run(const std::function<void(int)> &beforePivot) {
    for (int first = 1; first < EquationCount; first += kPanelRows) {
        panel_.take(first);
        reducePanel();
        const int wrong = panel_.firstRowOutOfRange();
        for (int i = first; i <= std::min(panel_.lastRow(), EquationCount - 1); ++i) {
            beforePivot(i);
            if (i == wrong)
                FailOutOfRange(i);
        }
        if (!panel_.keepsZerosPositive())
            skipZeros_ = true;
        groupRows();
        reduceRows();
    }
}

// The first 32 columns give the factors and go alone; the strips behind them and the right-hand sides are handed out,
// three strips at a time, which is what the registers of the widest kernel take.
void Elimination::reducePanel() {
    panel_.reduceOwnColumns();
    next_ = SolvePanel::ownStrips();
    team_.run([this](int worker) {
        if (worker == 0)
            panel_.reduceRightHandSides();
        lookForNegativeZeros(worker);
        for (int s = next_.fetch_add(kStripsAtOnce); s < panel_.strips(); s = next_.fetch_add(kStripsAtOnce))
            panel_.reduceStrips(s, std::min(kStripsAtOnce, panel_.strips() - s));
    });
    lookedAt_ = std::max(lookedAt_, panel_.lastColumn());
}

// In the rows that this panel is the first to reach.
void Elimination::lookForNegativeZeros(int worker) {
    if (skipZeros_)
        return;
    for (int j = std::max(lookedAt_, panel_.lastRow()) + 1 + worker; j <= panel_.lastColumn(); j += team_.size())
        if (HoldsNegativeZero(S + ProfileDiag[j], ProfileDiag[j + 1] - ProfileDiag[j]))
            skipZeros_ = true;
}

// Rows that take the same pivots go together. On a plane floor three of the six freedoms of a node know nothing of the
// other three: a group of like rows has half the pivots.
struct Elimination::Classes {
    static constexpr int kMost = 8; // more than these, and rows go together as they come
    RowGroup group[kMost + 1];
    PivotSet pivots[kMost];
    int count = 0;

    RowGroup &of(PivotSet row) {
        for (int k = 0; k < count; ++k)
            if (pivots[k] == row)
                return group[k];
        if (count == kMost)
            return group[kMost];
        pivots[count] = row;
        return group[count++];
    }
};

void Elimination::close(RowGroup &group) {
    groups_.push_back(group);
    group = {};
}

// Example: the rows of eight nodes of a floor behind a panel. 24 of uz, rx, ry make three groups, 16 of ux, uy two, and
// those of rz, which no other freedom is joined to, none.
// Eight rows make a group, which is a tile high. What the classes leave over goes together across classes: such a group
// takes all pivots that one of its rows takes, with factor 0 where another does not.
void Elimination::groupRows() {
    groups_.clear();
    Classes classes;
    for (int j = panel_.lastRow() + 1; j <= panel_.lastColumn(); ++j) {
        const PivotSet pivots = panel_.pivotsOf(j);
        if (pivots == 0)
            continue;
        RowGroup &group = classes.of(pivots);
        group.pivots |= pivots;
        group.row[group.count++] = j;
        if (group.count == kTileRows)
            close(group);
    }
    RowGroup rest;
    for (const RowGroup &group : classes.group)
        for (int r = 0; r < group.count; ++r) {
            rest.pivots |= group.pivots;
            rest.row[rest.count++] = group.row[r];
            if (rest.count == kTileRows)
                close(rest);
        }
    if (rest.count > 0)
        close(rest);
}

// Groups share no cell that is written, so the threads need no lock: each takes the next group.
void Elimination::reduceRows() {
    next_ = 0;
    const int count = static_cast<int>(groups_.size());
    team_.run([this, count](int) {
        for (int n = next_++; n < count; n = next_++)
            reduceGroup(groups_[static_cast<std::size_t>(n)]);
    });
}

// The factor of row j for pivot p is S(p,j) / S(p,p): what stands left of the diagonal of row j is, by symmetry, column
// j of the panel. Division is by the diagonal itself, not a product with its reciprocal, whose bits would differ.
void Elimination::reduceGroup(const RowGroup &group) {
    int pivots[kPanelRows];
    alignas(64) double factors[kPanelRows][kTileRows];
    unsigned char someZero[kPanelRows];
    const double *column[kTileRows];
    for (int r = 0; r < kTileRows; ++r)
        column[r] = panel_.column(group.row[std::min(r, group.count - 1)]);
    int count = 0;
    for (PivotSet left = group.pivots; left != 0; left &= left - 1) {
        const int p = std::countr_zero(left);
        const double diagonal = panel_.diagonal(p);
        for (int r = 0; r < kTileRows; ++r)
            factors[count][r] = column[r][kStripColumns * p];
        for (int r = 0; r < kTileRows; ++r)
            factors[count][r] = factors[count][r] / diagonal;
        someZero[count] = std::find(factors[count], factors[count] + kTileRows, 0.0) != factors[count] + kTileRows;
        pivots[count++] = p;
    }
    TileJob job = {};
    job.stripStride = SolvePanel::stripStride();
    job.pivots = pivots;
    job.pivotCount = count;
    job.factors = &factors[0][0];
    job.someZero = someZero;
    reduceTiles(group, job);
    reduceRightHandSides(group, job);
}

// Row j is stored from its diagonal to its end; a tile that reaches over either is worked on in a borrowed copy, of
// which only the stored part goes back. Strips in which no pivot of the group has an entry are passed.
void Elimination::reduceTiles(const RowGroup &group, TileJob &job) {
    const auto reduce = skipZeros_ ? kernels_.reduceSkipping : kernels_.reduce;
    const int leftmost = *std::min_element(group.row, group.row + group.count);
    StoredRow row[kTileRows];
    for (int r = 0; r < group.count; ++r)
        row[r] = StoredRow(group.row[r]);
    Borrowed borrowed = {};
    for (int s = (leftmost - panel_.first()) / kStripColumns; s < panel_.strips(); s += job.strips) {
        job.strips = std::min(kTileStrips, panel_.strips() - s);
        if ((panel_.pivotsOfStrip(s) & group.pivots) == 0) {
            job.strips = 1;
            continue;
        }
        const int column = panel_.first() + s * kStripColumns;
        const int columns = job.strips * kStripColumns;
        job.panel = panel_.values(s);
        bool allWhole = group.count == kTileRows;
        for (int r = 0; r < kTileRows; ++r) {
            job.cells[r] = borrowed.row[r];
            if (r < group.count && row[r].holds(column, columns))
                job.cells[r] = row[r].at(column);
            else
                allWhole = false;
        }
        if (!allWhole)
            borrowed.take(row, group.count, column, columns);
        reduce(job);
        if (!allWhole)
            borrowed.giveBack(row, group.count, column, columns);
    }
}

// Rhs lies by equations with all columns side by side, eight of them at a time. Zeros of factors are passed, those of
// the panel's right-hand sides are not: so it stands in the plain procedure.
void Elimination::reduceRightHandSides(const RowGroup &group, TileJob &job) {
    Borrowed borrowed = {};
    job.strips = 1;
    for (int first = 0; first < YukSayisi; first += kStripColumns) {
        const std::size_t size = sizeof(float) * static_cast<std::size_t>(std::min(kStripColumns, YukSayisi - first));
        job.panel = panel_.rightHandSides(first / kStripColumns);
        for (int r = 0; r < kTileRows; ++r)
            job.cells[r] = borrowed.row[r];
        for (int r = 0; r < group.count; ++r)
            std::memcpy(borrowed.row[r], Rhs + RhsIndex(group.row[r], 1) + first, size);
        kernels_.reduceColumns(job);
        for (int r = 0; r < group.count; ++r)
            std::memcpy(Rhs + RhsIndex(group.row[r], 1) + first, borrowed.row[r], size);
    }
}

} // namespace havuz
