// Polygon tanks for the tests of the consistent analysis beside those of verification/pools.h, and what the analysis
// says at a place.
#pragma once

#include "consistent/analysis.h"
#include "verification/pools.h"

#include <string>
#include <utility>
#include <vector>

namespace havuz::consistent {

using verification::LibraryPool;
using verification::Parameters;

// A polygon pool, meshed. points: outline.
Tank PolygonTank(const std::vector<std::pair<double, double>> &points, double top, double bottom, double width);

// The result at the corner of a mesh of that panel that lies at a place; fails the test where there is none.
ShellResult ResultAt(const Tank &tank, const CaseResult &r, int panel, const Vector3 &at);
const NodeResult &NodeResultAt(const Tank &tank, const CaseResult &r, const Vector3 &at);

// Greatest of a value of all nodes' u less those of another solution, against the greatest of it.
double DisplacementDifference(const CaseResult &a, const CaseResult &b);

// Greatest component of the sum of a proof, against the greatest of its loads and springs.
double Imbalance(const Proof &proof);

} // namespace havuz::consistent
