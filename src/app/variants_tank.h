// One row of a table of variants as a tank in the store: what pool, polygon, set and mesh make of the same values one
// after the other, each by way of the project file's numbers, so that a row is the tank of the single commands.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace havuz {

// Column name and value, no empty values. Names are those of "set" and pool, points, mesh, sound.
using RowValues = std::vector<std::pair<std::string, std::string>>;

// A name that is none of these is UsageError.
void CheckVariantColumn(const std::string &name);

// Makes the tank from the model in the store: a fresh program or, with hasBase, a project. What cannot be made is
// RuntimeFailure or UsageError.
void MakeVariant(const RowValues &values, bool hasBase);

} // namespace havuz
