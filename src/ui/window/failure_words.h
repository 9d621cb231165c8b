// The words of a failure for the prompt line.
#pragma once

#include "model/failure.h"

#include <string>

namespace havuz {

// What failed and where, in Turkish.
std::string FailureInTurkish(const RuntimeFailure &failure);

} // namespace havuz
