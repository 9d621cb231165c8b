// What the tests of the elements share: matrices of the program as Eigen's.
#pragma once

#include "fea/matrix.h"

#include <Eigen/Dense>

namespace havuz {

constexpr double kEps = 2.220446049250313e-16;

// The cells as they lie, column after column.
template <int Rows, int Cols>
Eigen::Map<const Eigen::Matrix<double, Rows, Cols>> Cells(const Matrix<Rows, Cols> &m) {
    return Eigen::Map<const Eigen::Matrix<double, Rows, Cols>>(m.data());
}

template <class Derived>
double Largest(const Eigen::MatrixBase<Derived> &m) {
    return m.cwiseAbs().maxCoeff();
}

} // namespace havuz
