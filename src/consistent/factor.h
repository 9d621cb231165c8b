// The factored equations: Eigen's sparse LDLT in the order they have, solutions improved once when their residual asks
// for it, and what the pivots say.
#pragma once

#include "consistent/equations.h"

#include <Eigen/SparseCholesky>

namespace havuz::consistent {

class Factor {
public:
    explicit Factor(Sparse lower);
    const Sparse &matrix() const { return matrix_; }

    // Equation whose pivot is lost against its own stiffness, -1 when there is none: the system can move.
    int lostEquation() const { return lost_; }
    double smallestPivot() const { return smallest_; }
    double greatestPivot() const { return greatest_; }
    long long cells() const { return cells_; }

    // residual: |f - K x| / |f|, 0 for no load.
    Vector solve(const Vector &f, double &residual) const;
    // The motion that costs the least, against the stiffness of each equation; of a system with a lost equation.
    Vector easiestMotion() const;

private:
    void readPivots();

    Sparse matrix_;
    Eigen::SimplicialLDLT<Sparse, Eigen::Lower, Eigen::NaturalOrdering<int>> ldlt_;
    int lost_ = -1;
    double smallest_ = 0.0, greatest_ = 0.0;
    long long cells_ = 0;
};

} // namespace havuz::consistent
