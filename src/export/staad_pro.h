// The meshed tank as free-format text of STAAD.Pro: numbers at 12 digits, every mesh with its own thickness in m,
// springs and supports, all load cases as nodal loads. Units: m, t. Another file than that of staad.h, which keeps its
// bytes.
#pragma once

#include "export/shell_model.h"

#include <string>

namespace havuz {

// Nodes that hang on an edge are free of it: the format has no such joint. A remark in the file counts them.
std::string StaadProText(const ShellModel &model);

} // namespace havuz
