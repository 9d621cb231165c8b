// The equation system of a run: K*x = -Rhs, K symmetric, stored whole as the upper triangle by rows, each row from its
// diagonal to the end of its envelope. Owner of S, ProfileDiag, Rhs and their sizes. All numbered from 1; cell 0 of
// each takes what the unguarded indices of held translations send there.
#pragma once

#include "model/fields.h"

#include <cstdint>

namespace havuz {

constexpr int kEquationCapacity = 20000; // ProfileDiag(N+1) closes the last row, so N stays below
constexpr int kSCapacity = 10000000;
constexpr int kRhsCapacity = 150000; // back substitution reads equation N+1, so YukSayisi*(N+1) stays within
constexpr int kNodeFreedoms = 6;
// Every node of a full model with six freedoms: numbering may go past the capacity before the sizes are tested.
constexpr int kLargestEquation = 5000 * kNodeFreedoms;

extern int EquationCount;                              // number of equations N
extern int ProfileSize;                                // ProfileDiag(N+1)
extern int RhsSize;                                    // YukSayisi*N
extern int ElementSwitch;                              // 0 the rectangular element, else the general quadrilateral
extern std::int32_t ProfileDiag[kLargestEquation + 2]; // first cell of row i in S
extern float S[kSCapacity + 1];                        // K(i,j), j >= i, lies at ProfileDiag(i)+j-i
extern float Rhs[kRhsCapacity + 1];                    // column c of equation e lies at YukSayisi*(e-1)+c

// Sum of each column's vertical loads that no support takes at once, t, positive downward; for the summary of a run.
extern Row<double, 16> VerticalLoad;

void ResetSystem();

// S and Rhs as far as they are used become 0.
void ClearSystem();

// N, the profile or the right-hand sides past their arrays: Subscript, naming the array and the size.
void CheckSystemSizes();
bool SystemFits(); // the same as a question

inline int ProfileIndex(int i, int j) { return ProfileDiag[i] + j - i; }
int RhsIndex(int e, int c);

// S(i,j) += value, i <= j; the sum is cut to 32 bits at each addition.
inline void ProfileAdd(double value, int i, int j) {
    float &cell = S[ProfileIndex(i, j)];
    cell = static_cast<float>(static_cast<double>(cell) + value);
}

inline double SolutionValue(int e, int c) { return static_cast<double>(Rhs[RhsIndex(e, c)]); }

} // namespace havuz
