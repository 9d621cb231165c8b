// A panel of pivot rows. Its 32 rows are kept as doubles, in strips of eight columns of all rows, so that eight
// neighbouring columns of a row fill whole registers and a strip, 2 kB, stays in the first cache.
//
// Rows i = first .. first + 31 are reduced among themselves first: for pivot p and row r > p of the panel
//   f(p,r) = row(p, r) / row(p, p),   row(r, k) = 32 bits of (row(r, k) - f(p,r) * row(p, k)),
// the triangle of each group of eight rows as the method is written down (reduceOwnTriangle), everything to its right
// by the kernels. All factors come from the panel's own first 32 columns, so the strips behind these are independent of
// each other and go to any thread. Values are rounded to 32 bits at every step, as the store of the plain procedure
// does, though they stay doubles; the rows go back into S when their strip is done.
//
//   columns    first      +8       +16      +24      +32 ...        lastColumn
//   group 0    \triangle|   k    |   k    |   k    |  k, strips of any thread  |
//   group 1              \triangle|   k    |   k    |  k
//   group 2                        \triangle|   k    |  k        k: by a kernel, after the groups above
//   group 3                                  \triangle|  k
//
// What rows behind the panel ask: which pivots have an entry in their column (a bit each), the least and the greatest
// magnitude, for the zeros and for the overflow of a 32-bit value.
#include "fea/solve_panel.h"

#include "fea/system.h"
#include "model/store.h"

#include <algorithm>
#include <cassert>
#include <cfloat>
#include <cmath>

namespace havuz {

namespace {

constexpr int kGroups = kPanelRows / kTileRows;
static_assert(kGroups <= kTileStrips + 1, "the strips of a panel behind a group are reduced together");

// In cells, for the room of the strips. Row N keeps one cell and may end before the row above it; any other that did
// would lie outside the closed envelope.
int LongestRow() {
    int longest = 1;
    for (int i = 1; i <= EquationCount; ++i) {
        longest = std::max(longest, ProfileDiag[i + 1] - ProfileDiag[i]);
        assert(i >= EquationCount - 1 ||
               ProfileDiag[i + 2] - ProfileDiag[i + 1] >= ProfileDiag[i + 1] - ProfileDiag[i] - 1);
    }
    return std::min(longest, EquationCount);
}

// The smallest product whose difference with a 32-bit value cannot vanish in the rounding to 32 bits. Half the least
// 32-bit value is 2^-150; a difference of that size or less is exact, so a multiple of the last digit of the product,
// which lies 53 digits behind its first and so is worth 2^-149 at least: a multiple of that, and no more than 2^-150,
// is 0, and x - x is +0.
const double kLeastProduct = std::ldexp(1.0, -96);

} // namespace

SolvePanel::SolvePanel(const SolveKernels &kernels)
    : kernels_(kernels), strip_(at((LongestRow() + kPanelRows) / kStripColumns + 2)),
      rhs_(at((YukSayisi + kStripColumns - 1) / kStripColumns)) {}

// Row i = first + p reaches as far as its stored cells, never past column N.
int SolvePanel::endOf(int p) const {
    const int i = first_ + p;
    return std::min(EquationCount, i + ProfileDiag[i + 1] - ProfileDiag[i] - 1);
}

// The last panel may have fewer rows, and a panel is never narrower than its own 32 columns.
void SolvePanel::take(int first) {
    first_ = first;
    rows_ = std::min(kPanelRows, EquationCount - first + 1);
    lastColumn_ = first;
    for (int p = 0; p < rows_; ++p)
        lastColumn_ = std::max(lastColumn_, endOf(p));
    strips_ = std::max(ownStrips(), (lastColumn_ - first) / kStripColumns + 1);
}

// Row by row: the cells of a row lie side by side.
void SolvePanel::load(int s, int count) {
    for (int p = 0; p < kPanelRows; ++p)
        for (int k = s; k < s + count; ++k)
            loadRow(p, k);
}

// 32-bit cells as doubles; places outside the profile, left of the diagonal and beyond the end of a row, read as 0. A
// strip that lies in the row whole is copied without asking for each cell.
void SolvePanel::loadRow(int p, int s) {
    double *to = strip_[at(s)].entry[p];
    const int column = first_ + s * kStripColumns;
    const int i = first_ + p;
    if (p < rows_ && column >= i && column + kStripColumns - 1 <= endOf(p)) {
        const float *cells = S + ProfileIndex(i, column);
        for (int c = 0; c < kStripColumns; ++c)
            to[c] = static_cast<double>(cells[c]);
        return;
    }
    for (int c = 0; c < kStripColumns; ++c) {
        const bool stored = p < rows_ && column + c >= i && column + c <= endOf(p);
        to[c] = stored ? static_cast<double>(S[ProfileIndex(i, column + c)]) : 0.0;
    }
}

void SolvePanel::store(int s, int count) {
    for (int p = 0; p < rows_; ++p)
        for (int k = s; k < s + count; ++k)
            storeRow(p, k);
}

// Entries that are stored nowhere become 0: those left of the diagonal took part in the arithmetic for nothing.
void SolvePanel::storeRow(int p, int s) {
    double *from = strip_[at(s)].entry[p];
    const int column = first_ + s * kStripColumns;
    const int i = first_ + p;
    if (column >= i && column + kStripColumns - 1 <= endOf(p)) {
        float *cells = S + ProfileIndex(i, column);
        for (int c = 0; c < kStripColumns; ++c)
            cells[c] = static_cast<float>(from[c]);
        return;
    }
    for (int c = 0; c < kStripColumns; ++c) {
        if (column + c >= i && column + c <= endOf(p))
            S[ProfileIndex(i, column + c)] = static_cast<float>(from[c]);
        else
            from[c] = 0.0;
    }
}

// Facts of a strip, column by column: which pivots have an entry, its least and greatest magnitude.
void SolvePanel::inspect(int s) {
    Strip &strip = strip_[at(s)];
    kernels_.inspect({&strip.entry[0][0], rows_, &strip.facts});
    strip.anyPivot = 0;
    strip.smallest = DBL_MAX;
    strip.inRange = true;
    for (int c = 0; c < kStripColumns; ++c) {
        strip.anyPivot |= strip.facts.pivots[c];
        strip.smallest = std::min(strip.smallest, strip.facts.smallest[c]);
        strip.inRange = strip.inRange && strip.facts.greatest[c] <= static_cast<double>(FLT_MAX);
    }
}

// What a kernel needs to reduce eight rows of a strip by all panel rows before them.
PanelJob SolvePanel::job(Strip &strip, int group, int strips) {
    return {&strip.entry[0][0], stripStride(), group * kTileRows, &factor_[0][0], kPanelRows, strips};
}

// The eight rows of a group against each other in their own eight columns, as the method is written down; their
// factors.
void SolvePanel::reduceOwnTriangle(int group) {
    auto &entry = strip_[at(group)].entry;
    for (int p = 0; p < kTileRows; ++p) {
        const int pivot = group * kTileRows + p;
        const double *row = entry[pivot];
        diagonal_[at(pivot)] = row[p];
        if (row[p] == 0.0)
            continue;
        live_ |= PivotSet{1} << pivot;
        for (int r = p + 1; r < kTileRows; ++r) {
            if (row[r] == 0.0)
                continue;
            const double factor = row[r] / row[p];
            double *reduced = entry[group * kTileRows + r];
            for (int c = r; c < kStripColumns; ++c)
                if (row[c] != 0.0)
                    reduced[c] = static_cast<double>(static_cast<float>(reduced[c] - factor * row[c]));
            factor_[pivot][group * kTileRows + r] = factor;
        }
    }
}

// The factors of a group's pivots for the panel rows of strip s.
void SolvePanel::takeFactors(int group, int s) {
    for (int p = group * kTileRows; p < (group + 1) * kTileRows; ++p)
        for (int c = 0; c < kStripColumns; ++c) {
            const double entry = strip_[at(s)].entry[p][c];
            factor_[p][s * kStripColumns + c] =
                diagonal_[at(p)] == 0.0 || entry == 0.0 ? 0.0 : entry / diagonal_[at(p)];
        }
}

// The triangle of 32 by 32 on the diagonal, group by group of eight rows: by the groups before, then among themselves,
// then everything to the right of the triangle; the factors for the later groups are taken from what that leaves.
void SolvePanel::reduceOwnColumns() {
    live_ = 0;
    std::fill_n(&factor_[0][0], kPanelRows * kPanelRows, 0.0);
    load(0, ownStrips());
    for (int group = 0; group < kGroups; ++group) {
        kernels_.reducePanel(job(strip_[at(group)], group)); // by the groups before; its own factors are still 0
        reduceOwnTriangle(group);
        if (group + 1 < ownStrips())
            kernels_.reducePanel(job(strip_[at(group + 1)], group, ownStrips() - group - 1));
        for (int s = group + 1; s < ownStrips(); ++s)
            takeFactors(group, s);
    }
    store(0, ownStrips());
    for (int s = 0; s < ownStrips(); ++s)
        inspect(s);
}

// Columns behind the triangle: all factors are known, so each group takes them in one call.
void SolvePanel::reduceStrips(int s, int count) {
    load(s, count);
    for (int k = s; k < s + count; k += kTileStrips)
        for (int group = 0; group < kGroups; ++group)
            kernels_.reducePanel(job(strip_[at(k)], group, std::min(kTileStrips, s + count - k)));
    store(s, count);
    for (int k = s; k < s + count; ++k)
        inspect(k);
}

// Blocks of eight load columns, as strips of their own; a last block of fewer has zeros beside them.
void SolvePanel::reduceRightHandSides() {
    for (int block = 0; block * kStripColumns < YukSayisi; ++block) {
        Strip &strip = rhs_[at(block)];
        const int columns = std::min(kStripColumns, YukSayisi - block * kStripColumns);
        float *cells = Rhs + RhsIndex(first_, 1) + block * kStripColumns;
        for (int p = 0; p < rows_; ++p)
            for (int c = 0; c < columns; ++c)
                strip.entry[p][c] = static_cast<double>(cells[p * YukSayisi + c]);
        for (int group = 0; group < kGroups; ++group)
            kernels_.reducePanelColumns(job(strip, group));
        for (int p = 0; p < rows_; ++p)
            for (int c = 0; c < columns; ++c)
                cells[p * YukSayisi + c] = static_cast<float>(strip.entry[p][c]);
    }
}

// A pivot whose diagonal is 0 is passed: its bit is not in live_.
PivotSet SolvePanel::pivotsOf(int row) const {
    const int place = row - first_;
    return strip_[at(place / kStripColumns)].facts.pivots[place % kStripColumns] & live_;
}

const double *SolvePanel::column(int column) const {
    const int place = column - first_;
    return &strip_[at(place / kStripColumns)].entry[0][place % kStripColumns];
}

// Only where a strip says so are its rows looked through.
int SolvePanel::firstRowOutOfRange() const {
    if (std::all_of(strip_.begin(), strip_.begin() + strips_, [](const Strip &strip) { return strip.inRange; }))
        return 0;
    for (int p = 0; p < rows_ && first_ + p < EquationCount; ++p)
        for (int c = first_ + p; c <= endOf(p); ++c)
            if (!(std::fabs(column(c)[kStripColumns * p]) <= static_cast<double>(FLT_MAX)))
                return first_ + p;
    return 0;
}

// The least product that can occur is smallest^2 / greatest: an entry times a factor, which is an entry over a
// diagonal.
bool SolvePanel::keepsZerosPositive() const {
    double smallest = DBL_MAX;
    double greatest = 0.0;
    for (int s = 0; s < strips_; ++s)
        smallest = std::min(smallest, strip_[at(s)].smallest);
    for (const double d : diagonal_)
        greatest = std::max(greatest, std::fabs(d));
    return greatest == 0.0 || smallest * (smallest / greatest) >= kLeastProduct;
}

} // namespace havuz
