// Inverse of a full matrix.
#pragma once

namespace havuz {

// Replaces the n by n matrix A, a flat array column after column, by its inverse. Gauss-Jordan elimination in place
// with complete pivoting; among entries of equal magnitude the last one found is the pivot. A singular matrix (every
// pivot left is exactly 0) is DivisionByZero. Source: Press, Teukolsky, Vetterling and Flannery, "Numerical Recipes",
// section 2.1, Gauss-Jordan elimination with full pivoting.
void MatrixInvert(double *A, int n);

} // namespace havuz
