// The program's own run of the tank in the store, for a table of variants: what its summary says, over all load
// columns.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace havuz {

// literal_settlement_mm, literal_Mx, literal_My (greatest by magnitude, t.m/m), literal_residual.
const std::vector<std::string> &LiteralResultNames();

// Runs the analysis in a scratch folder. Failures come out as they are.
std::map<std::string, std::string> LiteralResults();

} // namespace havuz
