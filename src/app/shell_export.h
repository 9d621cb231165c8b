// The meshed model of the store for shell programs of today, with the loads and springs of the consistent analysis or
// of the program's own run.
#pragma once

#include "export/shell_model.h"

namespace havuz {

// Failures of the consistent analysis come out as they are.
ShellModel ModelForExport(bool literal);

} // namespace havuz
