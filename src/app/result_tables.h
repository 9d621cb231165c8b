// Tables into a directory.
#pragma once

#include "design/tables.h"

#include <string>
#include <vector>

namespace havuz {

// Makes the directory when there is none. Each file appears whole or not at all; a directory that cannot be made is
// File.
void WriteTables(const std::string &directory, const std::vector<design::NamedTable> &tables);

} // namespace havuz
