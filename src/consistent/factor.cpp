#include "consistent/factor.h"

#include <Eigen/SparseCholesky>
#include <cmath>

namespace havuz::consistent {

namespace {

constexpr double kLost = 1e-11;         // of a pivot against the stiffness of its equation
constexpr double kGoodResidual = 1e-12; // below it a solution is left as it is
constexpr double kShift = 1e-9;         // of the stiffness, to look at a motion

} // namespace

Factor::Factor(Sparse lower, int threads) : matrix_(std::move(lower)) {
    if (matrix_.rows() == 0)
        return;
    ldlt_ = BlockedLdlt(matrix_, threads);
    readPivots();
}

void Factor::readPivots() {
    const Vector stiffness = matrix_.diagonal();
    if (!ldlt_.regular()) {
        lost_ = 0;
        return;
    }
    const Vector &pivots = ldlt_.pivots();
    smallest_ = pivots.minCoeff();
    greatest_ = pivots.maxCoeff();
    double least = kLost;
    for (Eigen::Index i = 0; i < pivots.size(); ++i)
        if (!(pivots(i) > least * stiffness(i))) {
            lost_ = static_cast<int>(i);
            least = stiffness(i) > 0.0 ? pivots(i) / stiffness(i) : 0.0;
        }
}

Vector Factor::solve(const Vector &f, double &residual) const {
    residual = 0.0;
    const double size = f.norm();
    if (size == 0.0 || matrix_.rows() == 0)
        return Vector::Zero(f.size());
    Vector x = ldlt_.solve(f);
    Vector rest = f - matrix_.selfadjointView<Eigen::Lower>() * x;
    residual = rest.norm() / size;
    if (residual <= kGoodResidual)
        return x;
    const Vector better = x + ldlt_.solve(rest);
    rest = f - matrix_.selfadjointView<Eigen::Lower>() * better;
    if (rest.norm() / size >= residual)
        return x;
    residual = rest.norm() / size;
    return better;
}

Vector Factor::easiestMotion() const {
    Vector stiffness = matrix_.diagonal();
    for (double &v : stiffness)
        v = v > 0.0 ? v : 1.0;
    Sparse shifted = matrix_;
    for (int i = 0; i < shifted.rows(); ++i)
        shifted.coeffRef(i, i) += kShift * stiffness(i);
    const Eigen::SimplicialLDLT<Sparse, Eigen::Lower, Eigen::NaturalOrdering<int>> solver(shifted);
    Vector motion(shifted.rows());
    for (Eigen::Index i = 0; i < motion.size(); ++i)
        motion(i) = (1.0 + 0.5 * std::sin(1.7 * static_cast<double>(i))) / std::sqrt(stiffness(i)); // no motion's own
    for (int step = 0; step < 4; ++step) {
        motion = solver.solve(Vector(stiffness.cwiseProduct(motion)));
        motion /= motion.norm();
    }
    return motion;
}

} // namespace havuz::consistent
