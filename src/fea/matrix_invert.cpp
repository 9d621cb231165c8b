// Gauss-Jordan elimination in place with complete pivoting (Press, Teukolsky, Vetterling and Flannery, "Numerical
// Recipes", section 2.1). Step k finds the greatest entry p among rows and columns not yet used, brings it onto the
// diagonal by an exchange of rows, and for its column c
//   A(c,j) = A(c,j)/p,  A(i,j) = A(i,j) - A(i,c)*A(c,j),  A(i,c) = -A(i,c)/p,  A(c,c) = 1/p,
// which stores the inverse in the cells that the elimination frees. Of equal entries the last one found is the pivot.
// At the end the exchanges of rows of the given matrix become exchanges of columns of the inverse: with P the product
// of the exchanges, (P*A)^-1 = A^-1 * P'. About n^3 products; a run inverts the 12 by 12 of quad_stress.cpp.
//   4  2     pivot 4    1/4  1/2    pivot 2     3/8 -1/4
//   2  3       ->      -1/2   2       ->       -1/4  1/2
// No part of the matrix is looked at for symmetry or zeros. A pivot of exactly 0 is the only failure: of a matrix that
// is singular but for rounding the inverse is large and without meaning (docs/quad-element.md, "Corners that cannot
// carry the polynomial").
#include "fea/matrix_invert.h"

#include "model/arithmetic.h"

#include <cmath>
#include <vector>

namespace havuz {

namespace {

// The matrix numbered from 1 over the flat array, with the list of its rows. A row still to be used has the negative of
// its number in the list. The pivot of a used row stands on the diagonal, so the list tells used columns as well.
class Elimination {
public:
    Elimination(double *cells, int n) : cell_(cells), n_(n), list_(static_cast<std::size_t>(n) + 1) {
        for (int i = 1; i <= n; ++i)
            list(i) = -i;
    }
    void step();
    void restoreOrder();

private:
    double &at(int i, int j) { return cell_[static_cast<std::ptrdiff_t>(j - 1) * n_ + i - 1]; }
    int &list(int i) { return list_[static_cast<std::size_t>(i)]; }
    bool used(int i) { return list(i) > 0; }
    void findPivot(int &row, int &col);
    void exchangeRows(int row, int col);
    void reduce(int c);

    double *cell_;
    int n_;
    std::vector<int> list_;
};

// Columns outside, rows inside would be quicker by the storage; the order decides which of equal entries is last.
void Elimination::findPivot(int &row, int &col) {
    double pivot = 0.0;
    for (int i = 1; i <= n_; ++i) {
        for (int j = 1; j <= n_; ++j) {
            if (used(i) || used(j) || std::fabs(pivot) - std::fabs(at(i, j)) > 0.0)
                continue;
            pivot = at(i, j);
            row = i;
            col = j;
        }
    }
}

void Elimination::exchangeRows(int row, int col) {
    const int number = -list(row);
    list(row) = list(col);
    list(col) = number;
    if (row == col)
        return;
    for (int j = 1; j <= n_; ++j)
        SwapValues(at(row, j), at(col, j));
}

// Eliminates with the pivot at (c, c).
void Elimination::reduce(int c) {
    const double pivot = at(c, c);
    for (int j = 1; j <= n_; ++j)
        if (j != c)
            at(c, j) = Divide(at(c, j), pivot, Thing::MatrixInvert);
    for (int i = 1; i <= n_; ++i) {
        if (i == c)
            continue;
        const double old = at(i, c);
        for (int j = 1; j <= n_; ++j)
            if (j != c)
                at(i, j) = at(i, j) - old * at(c, j);
        at(i, c) = Divide(-old, pivot, Thing::MatrixInvert);
    }
    at(c, c) = Divide(1.0, pivot, Thing::MatrixInvert);
}

void Elimination::step() {
    int row = 0;
    int col = 0;
    findPivot(row, col);
    exchangeRows(row, col);
    reduce(col);
}

// Row i of the matrix that was inverted is row list(i) of the one given: so column i of the result is column list(i).
void Elimination::restoreOrder() {
    for (int i = 1; i <= n_; ++i) {
        int from = 1;
        while (list(from) != i)
            ++from;
        list(from) = list(i);
        list(i) = i;
        for (int k = 1; k <= n_ && from != i; ++k)
            SwapValues(at(k, from), at(k, i));
    }
}

} // namespace

void MatrixInvert(double *A, int n) {
    Elimination elimination(A, n);
    for (int k = 1; k <= n; ++k)
        elimination.step();
    elimination.restoreOrder();
}

} // namespace havuz
