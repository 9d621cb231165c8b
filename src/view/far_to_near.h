// The painter's order of the two drawings: numbers of panels, plates or meshes with their distances from the eye, the
// far ones first.
#pragma once

#include <utility>
#include <vector>

namespace havuz {

// Sorts by distance, descending, and leaves every entry where the exchange sort leaves it (for each i, for each j > i,
// swap when distance i < distance j). So entries of one distance, which are common, do not keep their order: wanted.
void SortFarToNear(std::vector<std::pair<double, int>> &entries);

} // namespace havuz
