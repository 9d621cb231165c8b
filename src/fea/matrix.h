// Small dense matrices of the finite element procedures: fixed shape, double precision, rows and columns numbered from
// 1 as in the formulas. A place outside the shape is a fault of the caller: it is asserted, not reported.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>

namespace havuz {

template <int Rows, int Cols>
class Matrix {
public:
    static_assert(Rows > 0 && Cols > 0);
    double &operator()(int i, int j) { return cell_[place(i, j)]; }
    double operator()(int i, int j) const { return cell_[place(i, j)]; }
    void clear() { cell_.fill(0.0); }
    bool operator==(const Matrix &) const = default;

    // The cells as one flat array, column after column: (i, j) is number (j - 1) * Rows + i - 1, from 0.
    double *data() { return cell_.data(); }
    const double *data() const { return cell_.data(); }

private:
    static std::size_t place(int i, int j) {
        assert(i >= 1 && i <= Rows && j >= 1 && j <= Cols);
        return static_cast<std::size_t>((j - 1) * Rows + i - 1);
    }
    std::array<double, static_cast<std::size_t>(Rows) * Cols> cell_{};
};

} // namespace havuz
