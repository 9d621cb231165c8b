// Forward elimination of the profile in S and of Rhs: panels of pivot rows, subtracted from the rows behind them by
// tiles, on a team of threads.
//
// Each cell takes its pivots in rising order, one product and one rounding to 32 bits for each, as in the plain
// procedure; which thread does it, and in which tile, changes no bit.
#pragma once

#include "fea/solve_panel.h"
#include "model/workers.h"

#include <atomic>
#include <functional>
#include <vector>

namespace havuz {

// Overflow: a value of this equation leaves the 32-bit range.
[[noreturn]] void FailOutOfRange(int equation);

class Elimination {
public:
    Elimination(const SolveKernels &kernels, int threads);

    // beforePivot(i) is called for each pivot in turn, before its row is subtracted from any row behind its panel. A
    // row that left the 32-bit range when its turn comes is Overflow, naming the equation.
    void run(const std::function<void(int)> &beforePivot);

private:
    // Rows behind the panel that are reduced together, and the pivots that at least one of them takes.
    struct RowGroup {
        int row[kTileRows];
        int count = 0;
        PivotSet pivots = 0;
    };
    struct Classes;

    void reducePanel();
    void lookForNegativeZeros(int worker);
    void groupRows();
    void close(RowGroup &group);
    void reduceRows();
    void reduceGroup(const RowGroup &group);
    void reduceTiles(const RowGroup &group, TileJob &job);
    void reduceRightHandSides(const RowGroup &group, TileJob &job);

    const SolveKernels &kernels_;
    WorkerTeam team_;
    SolvePanel panel_;
    std::vector<RowGroup> groups_;
    int lookedAt_ = 0; // rows up to here were looked through for -0
    std::atomic<bool> skipZeros_ = false;
    std::atomic<int> next_ = 0; // strip or group that no thread has taken yet
};

} // namespace havuz
