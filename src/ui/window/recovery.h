// What stays of the work when the program ends by a failure: KURTARMA.POL in the working directory.
#pragma once

#include <string>

namespace havuz {

// Writes the model as it stands, springs and all, and says where. Never over the project that is open: when that is
// KURTARMA.POL itself, the file is KURTARMA2.POL. Nothing of the model changes. A failing write is File.
std::string WriteRecoveryFile();

// The prompt that tells of a recovery file in the working directory, "" when there is none. It tells until the file is
// moved or deleted.
std::string RecoveryPrompt();

} // namespace havuz
