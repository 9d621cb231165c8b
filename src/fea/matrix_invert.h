// Inverse of a full matrix.
#pragma once

namespace havuz {

// Replaces the n by n matrix A, a flat array column after column, by its inverse. Gauss-Jordan elimination in place
// with complete pivoting; among entries of equal magnitude the last one found is the pivot. A singular matrix (every
// pivot left is exactly 0) is DivisionByZero. Source: Householder, "Principles of Numerical Analysis" (1953),
// elimination in place; Wilkinson, "Error analysis of direct methods of matrix inversion", Journal of the ACM 8 (1961),
// complete pivoting.
void MatrixInvert(double *A, int n);

} // namespace havuz
