// The palettes of the plate tools: Tool1 data of drawn plates, Tool2 moves in the rotated view, Tool3 moves in plan.
#pragma once

#include "ui/forms/dialogs.h"

namespace havuz {

void AddPalettes(Workbench &bench, std::vector<std::unique_ptr<Form>> &forms);

} // namespace havuz
