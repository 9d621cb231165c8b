// The factored equations: LDLT in the order they have, solutions improved once when their residual asks for it, and
// what the pivots say.
#pragma once

#include "consistent/blocked_ldlt.h"
#include "consistent/equations.h"

namespace havuz::consistent {

class Factor {
public:
    explicit Factor(Sparse lower, int threads = 1);
    const Sparse &matrix() const { return matrix_; }

    // Equation whose pivot is lost against its own stiffness, -1 when there is none: the system can move.
    int lostEquation() const { return lost_; }
    double smallestPivot() const { return smallest_; }
    double greatestPivot() const { return greatest_; }
    long long cells() const { return ldlt_.cells(); }

    // residual: |f - K x| / |f|, 0 for no load.
    Vector solve(const Vector &f, double &residual) const;
    // The motion that costs the least, against the stiffness of each equation; of a system with a lost equation.
    Vector easiestMotion() const;

private:
    void readPivots();

    Sparse matrix_;
    BlockedLdlt ldlt_;
    int lost_ = -1;
    double smallest_ = 0.0, greatest_ = 0.0;
};

} // namespace havuz::consistent
