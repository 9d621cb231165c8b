// Other programs: started and left alone, or run to their end.
#pragma once

#include <string>
#include <vector>

namespace havuz {

bool StartDetached(const std::string &program, const std::vector<std::string> &arguments);

// Empty when it ends with 0, else what it wrote on standard error, or that it cannot be started.
std::string RunToItsEnd(const std::string &program, const std::vector<std::string> &arguments);

} // namespace havuz
