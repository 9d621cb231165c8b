#include "fea/elimination.h"

#include "fea/system.h"
#include "model/failure.h"
#include "model/store.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace havuz {

namespace {

int EndOfRow(int j) { return j + ProfileDiag[j + 1] - ProfileDiag[j] - 1; }

bool HoldsNegativeZero(const float *cells, int count) {
    unsigned found = 0;
    for (int k = 0; k < count; ++k)
        found |= static_cast<unsigned>(std::bit_cast<std::uint32_t>(cells[k]) == 0x80000000U);
    return found != 0;
}

// A tile row that reaches over an end of its stored row lies here while it is reduced.
struct Borrowed {
    alignas(64) float row[kTileRows][kTileStrips * kStripColumns];

    // Calls move(stored, borrowed, count) for the part of tile row r, of row j, that is stored.
    template <class Move>
    void stored(int r, int j, int column, int columns, Move move) {
        const int from = std::max(column, j);
        const int to = std::min(column + columns - 1, EndOfRow(j));
        if (from <= to)
            move(S + ProfileIndex(j, from), row[r] + (from - column),
                 sizeof(float) * static_cast<std::size_t>(to - from + 1));
    }
};

} // namespace

void FailOutOfRange(int equation) {
    throw RuntimeFailure({.fault = Fault::SolutionTooLarge, .where = {{Thing::Equation, equation}}});
}

Elimination::Elimination(const SolveKernels &kernels, int threads)
    : kernels_(kernels), team_(threads), panel_(kernels) {}

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

void Elimination::reducePanel() {
    panel_.reduceOwnColumns();
    next_ = SolvePanel::ownStrips();
    team_.run([this](int worker) {
        if (worker == 0)
            panel_.reduceRightHandSides();
        lookForNegativeZeros(worker);
        for (int s = next_.fetch_add(kTileStrips); s < panel_.strips(); s = next_.fetch_add(kTileStrips))
            panel_.reduceStrips(s, std::min(kTileStrips, panel_.strips() - s));
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

void Elimination::reduceRows() {
    next_ = 0;
    const int count = static_cast<int>(groups_.size());
    team_.run([this, count](int) {
        for (int n = next_++; n < count; n = next_++)
            reduceGroup(groups_[static_cast<std::size_t>(n)]);
    });
}

void Elimination::reduceGroup(const RowGroup &group) {
    int pivots[kPanelRows];
    alignas(64) double factors[kPanelRows][kTileRows];
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
        pivots[count++] = p;
    }
    TileJob job = {};
    job.stripStride = SolvePanel::stripStride();
    job.pivots = pivots;
    job.pivotCount = count;
    job.factors = &factors[0][0];
    reduceTiles(group, job);
    reduceRightHandSides(group, job);
}

void Elimination::reduceTiles(const RowGroup &group, TileJob &job) {
    const auto reduce = skipZeros_ ? kernels_.reduceSkipping : kernels_.reduce;
    const int leftmost = *std::min_element(group.row, group.row + group.count);
    Borrowed borrowed = {};
    for (int s = (leftmost - panel_.first()) / kStripColumns; s < panel_.strips(); s += job.strips) {
        job.strips = std::min(kTileStrips, panel_.strips() - s);
        if ((panel_.pivotsOfStrip(s) & group.pivots) == 0) {
            job.strips = 1;
            continue;
        }
        const int column = panel_.first() + s * kStripColumns;
        const int columns = job.strips * kStripColumns;
        const auto whole = [&](int j) { return column >= j && column + columns - 1 <= EndOfRow(j); };
        job.panel = panel_.values(s);
        for (int r = 0; r < kTileRows; ++r) {
            job.cells[r] = borrowed.row[r];
            if (r < group.count && whole(group.row[r]))
                job.cells[r] = S + ProfileIndex(group.row[r], column);
            else if (r < group.count)
                borrowed.stored(
                    r, group.row[r], column, columns,
                    [](const float *stored, float *here, std::size_t size) { std::memcpy(here, stored, size); });
        }
        reduce(job);
        for (int r = 0; r < group.count; ++r)
            if (!whole(group.row[r]))
                borrowed.stored(
                    r, group.row[r], column, columns,
                    [](float *stored, const float *here, std::size_t size) { std::memcpy(stored, here, size); });
    }
}

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
