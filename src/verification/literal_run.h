// The program's own run of a model made by hand or of the model in the store, and its result files as the consistent
// analysis would tell them. Units: m, t, t.m/m.
#pragma once

#include "consistent/analysis.h"

#include <array>
#include <vector>

namespace havuz::verification {

// All that a run leaves, by load column from 1. Of each node its displacements, of each mesh corner M11 and M22 in the
// axes of the consistent analysis; the rest stays 0.
std::vector<consistent::CaseResult> RunStore(const consistent::Tank &tank);

// The place of the load column of that code among these of a run; std::runtime_error where it has none.
std::size_t PlaceOfColumn(const std::vector<int> &codes, int code);

// The tank put into a fresh store with these forces as its point loads, run, its only column. A tank that no project
// can hold (supports of single directions, another concrete) is std::logic_error.
consistent::CaseResult RunLiteral(const consistent::Tank &tank, const std::vector<Vector3> &forces);

} // namespace havuz::verification
