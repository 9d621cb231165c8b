// The words of whatever failure is being handled, for the status line.
#pragma once

#include <string>

namespace havuz {

// To be called while a std::exception is being handled: its Turkish words where it has such.
std::string CaughtInTurkish();

} // namespace havuz
