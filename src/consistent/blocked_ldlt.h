// LDLT of a sparse symmetric matrix in the order that it has, in dense fronts: equations that touch the same others are
// eliminated together (Duff and Reid, ACM Trans. Math. Softw. 9, 1983; supernodes after Ashcraft and Grimes, ibid. 15,
// 1989). Subtrees of the elimination run side by side; the values are the same for any number of threads.
#pragma once

#include "consistent/front_kernel.h"

#include <Eigen/Dense>
#include <Eigen/SparseCore>
#include <vector>

namespace havuz {
class WorkerTeam;
}

namespace havuz::consistent {

class BlockedLdlt {
public:
    // lower: the lower triangle by columns, rows rising, each diagonal there. A pivot of exactly 0 ends it: regular()
    // is false and nothing else stands.
    BlockedLdlt() = default;
    explicit BlockedLdlt(const Eigen::SparseMatrix<double> &lower, int threads = 1,
                         FrontKernel kernel = BestFrontKernel());

    bool regular() const { return regular_; }
    const Eigen::VectorXd &pivots() const { return pivots_; }
    long long cells() const { return cells_; } // of the triangular factor below its diagonal, filling zeros among them
    Eigen::VectorXd solve(const Eigen::VectorXd &f) const;

private:
    // Equations first..first + count - 1, which all touch the same rows behind them.
    struct Front {
        int first = 0, count = 0;
        std::vector<int> rows;     // rising
        std::vector<int> children; // fronts whose rest goes into this one
        int parent = -1;
        double work = 0.0;         // products of its subtree
        std::size_t stride = 0;    // cells of a column
        std::vector<double> lower; // columns of the factor: its own equations, then rows
        std::vector<double> rest;  // what it leaves to its parent: columns of rows; let go there
        int size() const { return count + static_cast<int>(rows.size()); }
        Eigen::Index behind() const { return static_cast<Eigen::Index>(rows.size()); }
        Eigen::Map<const Eigen::MatrixXd, 0, Eigen::OuterStride<>> columns() const {
            return {lower.data(), size(), count, Eigen::OuterStride<>(static_cast<Eigen::Index>(stride))};
        }
    };
    struct Block { // equations of a front
        int first = 0, end = 0;
    };
    struct Workplace;

    void findFronts(const Eigen::SparseMatrix<double> &lower);
    void joinSmallFronts();
    void takeChildren();
    void factor(const Eigen::SparseMatrix<double> &lower, int threads, FrontKernel kernel);
    std::vector<int> shareOut(int threads) const;
    void assemble(Front &front, Workplace &place);
    bool eliminate(Front &front, Workplace &place, WorkerTeam *team); // false at a pivot of 0
    bool eliminateBlock(const Front &front, Block block, Workplace &place);
    void reduceBehind(const Front &front, Block block, Workplace &place, int worker, int workers) const;

    std::vector<Front> fronts_; // children before parents
    Eigen::VectorXd pivots_;
    bool regular_ = true;
    long long cells_ = 0;
};

} // namespace havuz::consistent
