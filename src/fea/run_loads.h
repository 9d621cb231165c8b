// The loads of a run in doubles, column by column, as its rules make them: nothing is cut to 32 bits and nothing of the
// model changes. For what the run says about itself. Units: m, t. Signs are those of Rhs: positive in z pushes down.
#pragma once

#include <cstddef>
#include <vector>

namespace havuz {

// Place of freedom 1..6 of a node in a vector over the freedoms of nodes 1..NoktaCount.
inline std::size_t FreedomAt(int node, int freedom) { return static_cast<std::size_t>(6 * (node - 1) + freedom - 1); }

// 1 for every freedom that has an equation: free, of a node of an active mesh.
std::vector<char> FreeFreedoms();

struct RunColumn {
    int code = 0;             // of YukListesi; 0 for column 1
    std::vector<double> load; // by FreedomAt; 0 where there is no equation
};
std::vector<RunColumn> RunColumns();

} // namespace havuz
